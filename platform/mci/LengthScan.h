#pragma once
// The length of a file found by reading it through: for files that do not
// state their length up front, such as constant-rate MPEG audio without a
// header frame. Only parses, never decodes, so even long files take little time.

#include <cstdint>
#include <optional>
#include <string>

namespace platform::mci {

// Milliseconds, or nothing when the file cannot be read through within a
// few seconds. Blocks the calling thread meanwhile; no call throws.
std::optional<std::uint64_t> ScanLengthMs(const std::string& file);

}  // namespace platform::mci
