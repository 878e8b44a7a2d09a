#pragma once
// Reading a small file whole (a cover picture, a volume's serial number
// file, a play list file) and writing one whole (a play list file).

#include <cstddef>
#include <optional>
#include <string>

namespace platform {

// The bytes of a regular file (links followed) of at most limit bytes; none
// for a larger file, for any other kind of file and when it cannot be read.
std::optional<std::string> ReadSmallFile(const std::string& path, std::size_t limit);

// Writes the bytes as the file at an absolute Linux path, replacing what is
// there: first under a temporary name in the same folder (see PartFile),
// then renamed into place, so that the path holds the old content or the
// new, never a part. Returns "" when done, else a short reason ("disk full",
// "target is read-only", "target folder missing").
std::string WriteWholeFile(const std::string& path, const std::string& bytes);

}  // namespace platform
