#pragma once
// Texts handed back through the media-control interface. Pure; no call throws.

#include <cstdint>
#include <optional>
#include <string_view>

namespace platform::mci {

// Our wording for an error number of MediaControl.h (at most 99 characters),
// or nothing for a number we do not know.
std::optional<std::string_view> MciErrorText(std::uint32_t code);

// Writes up to size - 1 bytes of text and a terminating zero. A null buffer or
// a size of 0 writes nothing.
void CopyTruncated(std::string_view text, char* out, unsigned size);

}  // namespace platform::mci
