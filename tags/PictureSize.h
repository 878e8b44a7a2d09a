#pragma once
// The width and height a picture's header gives, read from its first bytes
// without decoding it: JPEG (its frame header), PNG, GIF, BMP and WebP.

#include <optional>
#include <string_view>

struct PictureSize {
  long width = 0;
  long height = 0;
};

// nullopt when the bytes are none of those kinds or the header is cut short.
std::optional<PictureSize> ReadPictureSize(std::string_view bytes);
