#include "playlists/PlayListFileReader.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <optional>
#include <string_view>

#include "base/AsciiCase.h"
#include "playlists/PercentEncoding.h"
#include "playlists/XspfLocations.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// The text's lines, trimmed, the byte-order mark left out.
std::vector<std::string_view> Lines(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<std::string_view> lines;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.push_back(Trimmed(text.substr(start, end - start)));
    start = end + 1;
  }
  return lines;
}

// "http://", "smb://": a scheme, then "://".
bool HasUrlScheme(std::string_view entry) {
  const std::size_t colon = entry.find("://");
  if (colon == std::string_view::npos || colon == 0) return false;
  return std::all_of(entry.begin(), entry.begin() + static_cast<std::ptrdiff_t>(colon), [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '+' || c == '-' || c == '.';
  });
}

std::string ResolveEntry(const std::string& entry, const std::string& listFolder) {
  if (const auto path = PathOfFileUrl(entry)) return std::filesystem::path(*path).lexically_normal().string();
  if (HasUrlScheme(entry)) return entry;
  const std::filesystem::path path =
      entry.starts_with('/') ? std::filesystem::path(entry) : std::filesystem::path(listFolder) / entry;
  return path.lexically_normal().string();
}

std::vector<std::string> M3uEntries(std::string_view text) {
  std::vector<std::string> entries;
  for (std::string_view line : Lines(text))
    if (!line.empty() && !line.starts_with('#')) entries.emplace_back(line);
  return entries;
}

// The N of a "FileN" key (letter case aside), or none.
std::optional<long> PlsFileNumber(std::string_view key) {
  if (key.size() < 5 || !EqualIgnoringAsciiCase(key.substr(0, 4), "file")) return std::nullopt;
  long number = 0;
  const auto [end, error] = std::from_chars(key.data() + 4, key.data() + key.size(), number);
  if (error != std::errc() || end != key.data() + key.size()) return std::nullopt;
  return number;
}

std::vector<std::string> PlsEntries(std::string_view text) {
  std::vector<std::pair<long, std::string>> numbered;
  for (std::string_view line : Lines(text)) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const auto number = PlsFileNumber(Trimmed(line.substr(0, equals)));
    const std::string_view value = Trimmed(line.substr(equals + 1));
    if (number && !value.empty()) numbered.emplace_back(*number, value);
  }
  std::stable_sort(numbered.begin(), numbered.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> entries;
  for (std::size_t i = 0; i < numbered.size(); ++i)
    if (i == 0 || numbered[i].first != numbered[i - 1].first) entries.push_back(std::move(numbered[i].second));
  return entries;
}

// XSPF locations are URIs: a relative one is percent-encoded too.
std::vector<std::string> XspfEntries(std::string_view text) {
  std::vector<std::string> entries;
  for (std::string& location : XspfTrackLocations(text)) {
    std::string entry(Trimmed(location));
    if (entry.empty()) continue;
    entries.push_back(PathOfFileUrl(entry) || HasUrlScheme(entry) ? entry : PercentDecode(entry));
  }
  return entries;
}

std::vector<std::string> Entries(PlayListFileFormat format, std::string_view text) {
  switch (format) {
    case PlayListFileFormat::M3u:
      return M3uEntries(text);
    case PlayListFileFormat::Pls:
      return PlsEntries(text);
    case PlayListFileFormat::Xspf:
      return XspfEntries(text);
  }
  return {};
}

}  // namespace

std::vector<std::string> ReadPlayListFile(PlayListFileFormat format, const std::string& text,
                                          const std::string& listFolder) {
  std::vector<std::string> paths;
  for (const std::string& entry : Entries(format, text)) paths.push_back(ResolveEntry(entry, listFolder));
  return paths;
}
