#include "tags/PictureSize.h"

#include <cstdint>
#include <cstdlib>

namespace {

std::uint32_t Byte(std::string_view b, std::size_t at) { return static_cast<unsigned char>(b[at]); }
std::uint32_t Big16(std::string_view b, std::size_t at) { return Byte(b, at) << 8 | Byte(b, at + 1); }
std::uint32_t Little16(std::string_view b, std::size_t at) { return Byte(b, at) | Byte(b, at + 1) << 8; }
std::uint32_t Big32(std::string_view b, std::size_t at) { return Big16(b, at) << 16 | Big16(b, at + 2); }
std::uint32_t Little24(std::string_view b, std::size_t at) { return Little16(b, at) | Byte(b, at + 2) << 16; }
std::uint32_t Little32(std::string_view b, std::size_t at) { return Little16(b, at) | Little16(b, at + 2) << 16; }

bool Has(std::string_view b, std::size_t at, std::string_view text) {
  return b.size() >= at + text.size() && b.substr(at, text.size()) == text;
}

// Walks the segments to the first frame header (SOF0 to SOF15; C4, C8 and
// CC are other segments); markers may be padded with extra 0xFF bytes.
std::optional<PictureSize> Jpeg(std::string_view b) {
  std::size_t at = 2;
  while (at + 1 < b.size()) {
    if (Byte(b, at) != 0xFF) return std::nullopt;
    const std::uint32_t marker = Byte(b, at + 1);
    if (marker == 0xFF) {
      ++at;
      continue;
    }
    at += 2;
    if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) continue;  // no length
    if (at + 2 > b.size()) return std::nullopt;
    const std::uint32_t length = Big16(b, at);
    const bool frame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    if (frame) {
      if (at + 7 > b.size()) return std::nullopt;
      return PictureSize{static_cast<long>(Big16(b, at + 5)), static_cast<long>(Big16(b, at + 3))};
    }
    if (length < 2) return std::nullopt;
    at += length;
  }
  return std::nullopt;
}

std::optional<PictureSize> WebP(std::string_view b) {
  if (Has(b, 12, "VP8 ") && b.size() >= 30)
    return PictureSize{static_cast<long>(Little16(b, 26) & 0x3FFF), static_cast<long>(Little16(b, 28) & 0x3FFF)};
  if (Has(b, 12, "VP8L") && b.size() >= 25) {
    const std::uint32_t bits = Little32(b, 21);
    return PictureSize{static_cast<long>((bits & 0x3FFF) + 1), static_cast<long>(((bits >> 14) & 0x3FFF) + 1)};
  }
  if (Has(b, 12, "VP8X") && b.size() >= 30)
    return PictureSize{static_cast<long>(Little24(b, 24) + 1), static_cast<long>(Little24(b, 27) + 1)};
  return std::nullopt;
}

std::optional<PictureSize> Bmp(std::string_view b) {
  if (b.size() < 26) return std::nullopt;
  if (Little32(b, 14) == 12) return PictureSize{static_cast<long>(Little16(b, 18)), static_cast<long>(Little16(b, 20))};
  // The height is negative for a picture stored top row first.
  const auto height = static_cast<std::int32_t>(Little32(b, 22));
  return PictureSize{static_cast<long>(static_cast<std::int32_t>(Little32(b, 18))), std::labs(height)};
}

}  // namespace

std::optional<PictureSize> ReadPictureSize(std::string_view b) {
  if (Has(b, 0, "\xFF\xD8")) return Jpeg(b);
  if (Has(b, 0, "\x89PNG\r\n\x1A\n") && Has(b, 12, "IHDR") && b.size() >= 24)
    return PictureSize{static_cast<long>(Big32(b, 16)), static_cast<long>(Big32(b, 20))};
  if ((Has(b, 0, "GIF87a") || Has(b, 0, "GIF89a")) && b.size() >= 10)
    return PictureSize{static_cast<long>(Little16(b, 6)), static_cast<long>(Little16(b, 8))};
  if (Has(b, 0, "BM")) return Bmp(b);
  if (Has(b, 0, "RIFF") && Has(b, 8, "WEBP")) return WebP(b);
  return std::nullopt;
}
