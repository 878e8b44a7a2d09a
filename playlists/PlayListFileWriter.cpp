#include "playlists/PlayListFileWriter.h"

#include "base/Utf8.h"
#include "playlists/PercentEncoding.h"

namespace {

// Calls use(code point) for each character; a byte that starts no valid
// sequence is its Latin-1 letter.
template <class Use>
void ForEachCodePoint(const std::string& text, Use use) {
  for (std::size_t i = 0; i < text.size();) {
    char32_t c = 0;
    const std::size_t length = DecodeUtf8At(text, i, c);
    use(length == 0 ? static_cast<unsigned char>(text[i]) : c);
    i += length == 0 ? 1 : length;
  }
}

bool IsUtf8(const std::string& text) {
  for (std::size_t i = 0; i < text.size();) {
    char32_t c = 0;
    const std::size_t length = DecodeUtf8At(text, i, c);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

// One line of UTF-8: line breaks and other controls become blanks.
std::string LineText(const std::string& text) {
  std::string line;
  ForEachCodePoint(text, [&line](char32_t c) { line += c < 0x20 || c == 0x7F ? std::string(" ") : Utf8Of(c); });
  return line;
}

// Escaped for an XML element; characters XML 1.0 cannot hold are left out.
std::string XmlText(const std::string& text) {
  std::string xml;
  ForEachCodePoint(text, [&xml](char32_t c) {
    switch (c) {
      case '&':
        xml += "&amp;";
        return;
      case '<':
        xml += "&lt;";
        return;
      case '>':
        xml += "&gt;";
        return;
      default:
        break;
    }
    const bool allowed = c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c != 0xFFFE && c != 0xFFFF);
    if (allowed) xml += Utf8Of(c);
  });
  return xml;
}

std::string ExtInfText(const PlayListFileEntry& entry) {
  const std::string seconds = std::to_string(entry.seconds > 0 ? entry.seconds : -1);
  const std::string shown = entry.artist.empty() ? entry.title : entry.artist + " - " + entry.title;
  return "#EXTINF:" + seconds + "," + LineText(shown);
}

// Readers trim the lines: a path ending in a blank goes as a URL too.
std::string M3uLocation(const std::string& path) {
  const bool fitsALine =
      IsUtf8(path) && path.find_first_of("\r\n") == std::string::npos && !path.ends_with(' ') && !path.ends_with('\t');
  return fitsALine ? path : FileUrlOf(path);
}

std::string XspfTrack(const PlayListFileEntry& entry) {
  std::string track = "    <track>\n      <location>" + XmlText(FileUrlOf(entry.path)) + "</location>\n";
  if (!entry.title.empty()) track += "      <title>" + XmlText(entry.title) + "</title>\n";
  if (!entry.artist.empty()) track += "      <creator>" + XmlText(entry.artist) + "</creator>\n";
  if (entry.seconds > 0)
    track += "      <duration>" + std::to_string(static_cast<std::int64_t>(entry.seconds) * 1000) + "</duration>\n";
  return track + "    </track>\n";
}

std::string WriteM3u(const std::vector<PlayListFileEntry>& entries) {
  std::string text = "#EXTM3U\n";
  for (const PlayListFileEntry& entry : entries) text += ExtInfText(entry) + "\n" + M3uLocation(entry.path) + "\n";
  return text;
}

std::string WriteXspf(const std::vector<PlayListFileEntry>& entries) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<playlist version=\"1\" xmlns=\"http://xspf.org/ns/0/\">\n"
      "  <trackList>\n";
  for (const PlayListFileEntry& entry : entries) text += XspfTrack(entry);
  return text + "  </trackList>\n</playlist>\n";
}

}  // namespace

std::string WritePlayListFile(PlayListFileFormat format, const std::vector<PlayListFileEntry>& entries) {
  switch (format) {
    case PlayListFileFormat::M3u:
      return WriteM3u(entries);
    case PlayListFileFormat::Xspf:
      return WriteXspf(entries);
    case PlayListFileFormat::Pls:
      break;
  }
  return "";
}
