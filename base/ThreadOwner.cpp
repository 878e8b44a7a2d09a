#include "base/ThreadOwner.h"

#include <cstdio>
#include <cstdlib>

#ifdef VANTRELLE_THREAD_CHECKS
void ThreadOwner::CheckNow() const {
  const std::thread::id self = std::this_thread::get_id();
  std::thread::id expected{};
  // An object nobody used yet belongs to its first user.
  if (owner_.compare_exchange_strong(expected, self) || expected == self) return;
  std::fprintf(stderr, "Vantrelle: %s was used on a thread that does not own it%s.\n", what_,
               lent_.load() ? " while a worker holds it" : "");
  std::abort();
}
#endif

ThreadOwner::Loan::Loan(ThreadOwner& owner)
    : owner_(owner), previous_(owner.owner_.exchange(std::this_thread::get_id())) {
  owner_.lent_ = true;
}

ThreadOwner::Loan::~Loan() {
  owner_.lent_ = false;
  owner_.owner_ = previous_;
}
