#pragma once
// Marks where one thread hands memory over to another through a library that
// ThreadSanitizer cannot see into (Qt's event queue, GStreamer's streaming
// threads, which lock with futexes of their own): what the thread calling
// HandOver wrote before is seen by the thread calling TakeOver on the same
// address after. Nothing at all in builds without ThreadSanitizer.

#if defined(__SANITIZE_THREAD__)
#define VANTRELLE_TSAN 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define VANTRELLE_TSAN 1
#endif
#endif

#ifdef VANTRELLE_TSAN
#include <sanitizer/tsan_interface.h>
#endif

inline void HandOver([[maybe_unused]] const void* address) {
#ifdef VANTRELLE_TSAN
  __tsan_release(const_cast<void*>(address));
#endif
}

inline void TakeOver([[maybe_unused]] const void* address) {
#ifdef VANTRELLE_TSAN
  __tsan_acquire(const_cast<void*>(address));
#endif
}

// Takes over on entry and hands back on leaving: a callback on a thread the
// library owns.
class HandedOverScope {
 public:
  explicit HandedOverScope(const void* address) : address_(address) { TakeOver(address_); }
  ~HandedOverScope() { HandOver(address_); }
  HandedOverScope(const HandedOverScope&) = delete;
  HandedOverScope& operator=(const HandedOverScope&) = delete;

 private:
  const void* address_;
};
