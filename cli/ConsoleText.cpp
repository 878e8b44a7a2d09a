#include <cctype>
#include <filesystem>

#include "app/CLibraryApp.h"
#include "cli/ConsoleCommand.h"

namespace {

bool IsDrivePath(const std::string& text) {
  return text.size() >= 2 && text[1] == ':' && std::isalpha(static_cast<unsigned char>(text[0]));
}

// Length of the valid UTF-8 sequence starting at text[i], or 0.
std::size_t Utf8SequenceLength(const std::string& text, std::size_t i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char lead = byte(i);
  std::size_t length = lead < 0x80 ? 1 : lead >= 0xC2 && lead <= 0xDF ? 2
                     : lead >= 0xE0 && lead <= 0xEF ? 3 : lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
  if (length == 0 || i + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k)
    if ((byte(i + k) & 0xC0) != 0x80) return 0;
  if (lead == 0xE0 && byte(i + 1) < 0xA0) return 0;  // overlong
  if (lead == 0xED && byte(i + 1) > 0x9F) return 0;  // surrogate
  if (lead == 0xF0 && byte(i + 1) < 0x90) return 0;  // overlong
  if (lead == 0xF4 && byte(i + 1) > 0x8F) return 0;  // beyond U+10FFFF
  return length;
}

}  // namespace

std::string FolderArgument(CLibraryApp& app, const std::string& argument) {
  if (IsDrivePath(argument)) return argument;
  std::error_code error;
  const auto absolute = std::filesystem::absolute(argument, error);
  const std::string drivePath = error ? "" : app.Drives().ToDrivePath(absolute.lexically_normal().string());
  if (drivePath.empty())
    throw UsageError("the folder '" + argument + "' lies on no drive of the drive table");
  return drivePath;
}

std::string OneLine(const std::string& text) {
  std::string line;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = Utf8SequenceLength(text, i);
    if (length == 0) {  // a Latin-1 byte: U+0080..U+00FF in UTF-8
      const auto byte = static_cast<unsigned char>(text[i++]);
      line += static_cast<char>(0xC0 | (byte >> 6));
      line += static_cast<char>(0x80 | (byte & 0x3F));
      continue;
    }
    const char c = text[i];
    line += (c == '\t' || c == '\n' || c == '\r') ? std::string(" ") : text.substr(i, length);
    i += length;
  }
  return line;
}
