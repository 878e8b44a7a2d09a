#pragma once
#include <string>

namespace platform {

// The folder of the running program (from /proc/self/exe), ending in "/".
std::string ProgramFolder();

}  // namespace platform
