#include "base/Utf8.h"

std::size_t DecodeUtf8At(std::string_view text, std::size_t i, char32_t& c) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[i + k]); };
  const unsigned char lead = byte(0);
  std::size_t length = 0;
  char32_t code = 0;
  char32_t least = 0;  // the smallest code point of that length: below it is overlong
  if (lead < 0x80)
    length = 1, code = lead;
  else if (lead >= 0xC2 && lead <= 0xDF)
    length = 2, code = lead & 0x1F, least = 0x80;
  else if (lead >= 0xE0 && lead <= 0xEF)
    length = 3, code = lead & 0x0F, least = 0x800;
  else if (lead >= 0xF0 && lead <= 0xF4)
    length = 4, code = lead & 0x07, least = 0x10000;
  else
    return 0;
  if (i + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(k) & 0xC0) != 0x80) return 0;
    code = (code << 6) | (byte(k) & 0x3F);
  }
  if (code < least || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return 0;
  c = code;
  return length;
}

char* EncodeUtf8(char32_t c, char* out) {
  if (c < 0x80) {
    *out++ = static_cast<char>(c);
  } else if (c < 0x800) {
    *out++ = static_cast<char>(0xC0 | (c >> 6));
    *out++ = static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    *out++ = static_cast<char>(0xE0 | (c >> 12));
    *out++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    *out++ = static_cast<char>(0x80 | (c & 0x3F));
  } else {
    *out++ = static_cast<char>(0xF0 | (c >> 18));
    *out++ = static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    *out++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    *out++ = static_cast<char>(0x80 | (c & 0x3F));
  }
  return out;
}

std::string Utf8Of(char32_t c) {
  char bytes[4];
  return std::string(bytes, EncodeUtf8(c, bytes));
}

std::size_t Utf8CutAt(std::string_view text, std::size_t limit) {
  if (text.size() <= limit) return text.size();
  // A byte that continues a sequence (10xxxxxx) never starts the part cut away.
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0) == 0x80) --limit;
  return limit;
}
