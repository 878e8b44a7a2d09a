#pragma once
// Permission bits do not stop root, and the tests run as root in CI. On Linux
// capabilities belong to each thread, so a thread may drop the two that let
// root read and search any folder and be stopped by chmod like anyone else.

#include <functional>
#include <string>

namespace testing_support {

// Runs the function on such a thread (threads it starts inherit that) and
// waits for it; false, without running it, when even then the locked folder
// could be opened.
bool RunWherePermissionsHold(const std::string& lockedFolder, const std::function<void()>& run);

}  // namespace testing_support
