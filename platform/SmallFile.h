#pragma once
// Reading a small file whole: a cover picture, a volume's serial number file.

#include <cstddef>
#include <optional>
#include <string>

namespace platform {

// The bytes of a regular file (links followed) of at most limit bytes; none
// for a larger file, for any other kind of file and when it cannot be read.
std::optional<std::string> ReadSmallFile(const std::string& path, std::size_t limit);

}  // namespace platform
