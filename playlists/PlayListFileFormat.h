#pragma once
// The kinds of play list file, told by the file's extension.

#include <optional>
#include <string>

#include "base/AsciiCase.h"

enum class PlayListFileFormat { M3u, Xspf, Pls };

// ".m3u" and ".m3u8" (M3U, UTF-8 either way), ".xspf" or ".pls", letter case
// aside; none for any other name.
inline std::optional<PlayListFileFormat> PlayListFileFormatOf(const std::string& path) {
  if (EndsWithIgnoringAsciiCase(path, ".m3u") || EndsWithIgnoringAsciiCase(path, ".m3u8"))
    return PlayListFileFormat::M3u;
  if (EndsWithIgnoringAsciiCase(path, ".xspf")) return PlayListFileFormat::Xspf;
  if (EndsWithIgnoringAsciiCase(path, ".pls")) return PlayListFileFormat::Pls;
  return std::nullopt;
}

// The format a play list is written in for a name: M3U or XSPF, none for
// any other name (PLS files are only read).
inline std::optional<PlayListFileFormat> WrittenFormatOf(const std::string& path) {
  const auto format = PlayListFileFormatOf(path);
  return format == PlayListFileFormat::Pls ? std::nullopt : format;
}
