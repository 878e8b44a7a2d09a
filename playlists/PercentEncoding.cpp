#include "playlists/PercentEncoding.h"

#include "base/AsciiCase.h"

namespace {

bool IsUnreserved(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
         c == '_' || c == '~';
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::string FileUrlOf(const std::string& path) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsUnreserved(byte) || c == '/') {
      url += c;
    } else {
      url += '%';
      url += kHex[byte >> 4];
      url += kHex[byte & 0xF];
    }
  }
  return url;
}

std::string PercentDecode(const std::string& text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? HexValue(text[i + 1]) : -1;
    const int low = high < 0 ? -1 : HexValue(text[i + 2]);
    if (low < 0) {
      decoded += text[i];
      continue;
    }
    decoded += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return decoded;
}

std::optional<std::string> PathOfFileUrl(const std::string& url) {
  static constexpr std::string_view kScheme = "file:";
  if (url.size() < kScheme.size() || !EqualIgnoringAsciiCase(url.substr(0, kScheme.size()), kScheme)) return {};
  std::string rest = url.substr(kScheme.size());
  if (rest.starts_with("//")) {
    const std::size_t pathStart = rest.find('/', 2);
    if (pathStart == std::string::npos) return {};
    const std::string host = rest.substr(2, pathStart - 2);
    if (!host.empty() && !EqualIgnoringAsciiCase(host, "localhost")) return {};
    rest = rest.substr(pathStart);
  }
  if (!rest.starts_with('/')) return {};
  return PercentDecode(rest);
}
