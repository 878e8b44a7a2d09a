// Waits on a condition that another thread or the event loop brings about:
// polled until it holds or a generous deadline passes, so that a loaded
// machine (or one running a sanitizer) is slow without failing.
#pragma once

#include <chrono>
#include <thread>

namespace testing_support {

inline constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(30);

// True once the condition holds; false if it still does not after `within`.
template <class Condition>
bool Eventually(Condition condition, std::chrono::milliseconds within = kPatience) {
  const auto deadline = std::chrono::steady_clock::now() + within;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));  // between polls only
  }
  return true;
}

}  // namespace testing_support
