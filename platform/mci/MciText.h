#pragma once
// Texts handed back through the media-control interface. Pure; no call throws.

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform::mci {

// Our wording for an error number of MediaControl.h (at most 99 characters),
// or nothing for a number we do not know.
std::optional<std::string_view> MciErrorText(std::uint32_t code);

// "did not open within 10 seconds" for a limit of 10 s; tenths below a second.
std::string OpenTimedOutText(std::chrono::milliseconds limit);

}  // namespace platform::mci
