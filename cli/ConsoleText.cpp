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
  if (IsDrivePath(argument)) {
    const std::string folder = app.Drives().FolderWithinDrive(argument);
    if (folder.empty())
      throw UsageError("the folder '" + argument + "' lies above the root of drive " + argument.substr(0, 2));
    return folder;
  }
  std::error_code error;
  const auto absolute = std::filesystem::absolute(argument, error);
  const std::string drivePath = error ? "" : app.Drives().ToDrivePath(absolute.lexically_normal().string());
  if (drivePath.empty())
    throw UsageError("the folder '" + argument + "' lies on no drive of the drive table");
  return drivePath;
}

namespace {

bool IsLineBreakOrTab(char32_t c) { return c == '\t' || c == '\n' || c == '\r'; }

// C0 and C1 controls and DEL.
bool IsControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c <= 0x9F); }

std::string Utf8(char32_t c) {
  if (c < 0x80) return std::string(1, static_cast<char>(c));
  return {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
}

// Calls show(code point or Latin-1 byte, its UTF-8 text) for each character.
template <class Show>
void ForEachCharacter(const std::string& text, Show show) {
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = Utf8SequenceLength(text, i);
    if (length == 0) {  // a Latin-1 byte: U+0080..U+00FF
      const char32_t byte = static_cast<unsigned char>(text[i++]);
      show(byte, Utf8(byte));
      continue;
    }
    const auto lead = static_cast<unsigned char>(text[i]);
    const char32_t c = length == 1 ? lead
                       : length == 2 ? ((lead & 0x1Fu) << 6) | (static_cast<unsigned char>(text[i + 1]) & 0x3Fu)
                                     : 0x800;  // longer sequences hold no control characters
    show(c, text.substr(i, length));
    i += length;
  }
}

std::string Printable(const std::string& text, bool oneLine) {
  std::string shown;
  ForEachCharacter(text, [&](char32_t c, const std::string& utf8) {
    if (IsLineBreakOrTab(c))
      shown += oneLine || c == '\r' ? std::string(" ") : utf8;
    else
      shown += IsControl(c) ? std::string("?") : utf8;
  });
  return shown;
}

}  // namespace

std::string TerminalText(const std::string& text) { return Printable(text, false); }

std::string OneLine(const std::string& text) { return Printable(text, true); }
