#pragma once
// Which thread may use an object that is not thread-safe (the catalogue, the
// drive services). The first thread that uses it owns it; a worker that is
// handed the object for a stretch takes a Loan, and the owner gets it back
// when the loan ends. Builds with thread checks (debug and sanitizer builds,
// VANTRELLE_THREAD_CHECKS) end the process with a message when any other
// thread uses it; other builds check nothing.

#include <atomic>
#include <thread>

class ThreadOwner {
 public:
  // what: the object, for the message ("the catalogue").
  explicit ThreadOwner(const char* what) : what_(what) {}
  ThreadOwner(const ThreadOwner&) = delete;
  ThreadOwner& operator=(const ThreadOwner&) = delete;

  void Check() const {
#ifdef VANTRELLE_THREAD_CHECKS
    CheckNow();
#endif
  }

  // The calling thread owns the object while the loan lives; the thread that
  // owned it before gets it back at the end.
  class Loan {
   public:
    explicit Loan(ThreadOwner& owner);
    ~Loan();
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;

   private:
    ThreadOwner& owner_;
    std::thread::id previous_;
  };

  // Whether a loan is running (any thread may ask).
  bool Lent() const { return lent_.load(); }

 private:
  void CheckNow() const;

  const char* what_;
  mutable std::atomic<std::thread::id> owner_{};
  std::atomic<bool> lent_{false};
};
