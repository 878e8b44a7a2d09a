#include <algorithm>
#include <filesystem>
#include <string_view>

#include "app/CLibraryApp.h"
#include "base/Utf8.h"
#include "cli/ConsoleCommand.h"
#include "platform/DrivePaths.h"

std::string FolderArgument(CLibraryApp& app, const std::string& argument) {
  if (platform::IsDrivePath(argument)) {
    std::string folder = app.Drives().FolderWithinDrive(argument);
    if (folder.empty())
      throw UsageError("the folder '" + argument + "' lies above the root of drive " + argument.substr(0, 2));
    return folder;
  }
  std::error_code error;
  const auto absolute = std::filesystem::absolute(argument, error);
  std::string drivePath = error ? "" : app.Drives().ToDrivePath(absolute.lexically_normal().string());
  if (drivePath.empty()) throw UsageError("the folder '" + argument + "' lies on no drive of the drive table");
  return drivePath;
}

namespace {

bool IsLineBreakOrTab(char32_t c) { return c == '\t' || c == '\n' || c == '\r'; }

// C0 and C1 controls and DEL.
bool IsControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c <= 0x9F); }

// Calls show(code point or Latin-1 byte, its UTF-8 text) for each character.
template <class Show>
void ForEachCharacter(const std::string& text, Show show) {
  for (std::size_t i = 0; i < text.size();) {
    char32_t c = 0;
    const std::size_t length = DecodeUtf8At(text, i, c);
    if (length == 0) {  // a Latin-1 byte: U+0080..U+00FF
      const char32_t byte = static_cast<unsigned char>(text[i++]);
      show(byte, std::string_view(Utf8Of(byte)));
      continue;
    }
    show(c, std::string_view(text).substr(i, length));
    i += length;
  }
}

std::string Printable(const std::string& text, bool oneLine) {
  // Most texts are plain printable ASCII, which shows as it is.
  if (std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7f; })) return text;
  std::string shown;
  ForEachCharacter(text, [&](char32_t c, std::string_view utf8) {
    if (IsLineBreakOrTab(c))
      shown += oneLine || c == '\r' ? std::string_view(" ") : utf8;
    else
      shown += IsControl(c) ? std::string_view("?") : utf8;
  });
  return shown;
}

}  // namespace

std::string TerminalText(const std::string& text) { return Printable(text, false); }

std::string OneLine(const std::string& text) { return Printable(text, true); }
