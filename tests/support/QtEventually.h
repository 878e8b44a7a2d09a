// Waits on a condition that the event loop brings about, turning the loop
// until the condition holds or a generous deadline passes. Failures go to
// GoogleTest (Qt's QTRY_* report to a QtTest runner that is not there).
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>

#include "tests/support/Eventually.h"

namespace testing_support {

// Turns the event loop (posted deletions too) for a few milliseconds.
inline void TurnEventLoop() {
  QEventLoop loop;
  QTimer::singleShot(5, &loop, &QEventLoop::quit);
  loop.exec();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// True once the condition holds; false if it still does not after `within`.
template <class Condition>
bool TurnsUntil(Condition condition, std::chrono::milliseconds within = kPatience) {
  const auto deadline = std::chrono::steady_clock::now() + within;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    TurnEventLoop();
  }
  return true;
}

}  // namespace testing_support

#define EXPECT_EVENTUALLY(...) \
  EXPECT_TRUE(::testing_support::TurnsUntil([&] { return bool(__VA_ARGS__); })) << "never came true: " #__VA_ARGS__
#define ASSERT_EVENTUALLY(...) \
  ASSERT_TRUE(::testing_support::TurnsUntil([&] { return bool(__VA_ARGS__); })) << "never came true: " #__VA_ARGS__
