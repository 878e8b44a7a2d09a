#pragma once
// Permission bits do not stop root, and the tests run as root in CI. On Linux
// capabilities belong to each thread, so a thread may drop the two that let
// root read and search any folder and be stopped by chmod like anyone else,
// while the rest of the test keeps them.

#include <functional>

namespace testing_support {

// Runs the function on such a thread (threads it starts inherit that) and
// waits for it. False, without running it, when the capabilities could not be
// dropped.
bool RunWherePermissionsHold(const std::function<void()>& run);

}  // namespace testing_support
