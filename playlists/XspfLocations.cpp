#include "playlists/XspfLocations.h"

#include <charconv>

#include "base/Utf8.h"

namespace {

constexpr std::size_t kEnd = std::string_view::npos;
// The longest reference body looked for ("#x10FFFF"), so that many "&"
// without a ";" cost no more than the text's length.
constexpr std::size_t kLongestReference = 8;

struct Tag {
  std::string_view name;  // without a namespace prefix
  bool closing = false;
  bool selfClosing = false;
  std::size_t end = kEnd;  // just past the ">", kEnd when there is none
};

// Just past the first marker at or after from, or kEnd.
std::size_t After(std::string_view xml, std::size_t from, std::string_view marker) {
  const std::size_t found = xml.find(marker, from);
  return found == kEnd ? kEnd : found + marker.size();
}

bool EndsName(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '/' || c == '>'; }

// The start or end tag at xml[at] == '<'. A ">" inside a quoted attribute
// value does not end it.
Tag ReadTag(std::string_view xml, std::size_t at) {
  Tag tag;
  std::size_t i = at + 1;
  if (i < xml.size() && xml[i] == '/') {
    tag.closing = true;
    ++i;
  }
  const std::size_t nameStart = i;
  while (i < xml.size() && !EndsName(xml[i])) ++i;
  std::string_view name = xml.substr(nameStart, i - nameStart);
  if (const std::size_t colon = name.rfind(':'); colon != kEnd) name.remove_prefix(colon + 1);
  tag.name = name;
  char quote = 0;
  for (; i < xml.size(); ++i) {
    const char c = xml[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '>') {
      tag.selfClosing = xml[i - 1] == '/';
      tag.end = i + 1;
      break;
    }
  }
  return tag;
}

// The character of a reference's body ("amp", "#38", "#x26"), or 0.
char32_t ReferencedCharacter(std::string_view body) {
  if (body == "amp") return '&';
  if (body == "lt") return '<';
  if (body == "gt") return '>';
  if (body == "quot") return '"';
  if (body == "apos") return '\'';
  if (body.size() < 2 || body[0] != '#') return 0;
  const bool hex = body[1] == 'x' || body[1] == 'X';
  const std::string_view digits = body.substr(hex ? 2 : 1);
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, hex ? 16 : 10);
  if (error != std::errc() || end != digits.data() + digits.size()) return 0;
  const bool valid = value > 0 && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
  return valid ? static_cast<char32_t>(value) : 0;
}

// Character data with its references resolved; a "&" that starts no known
// reference stays as it is.
void AppendCharacterData(std::string_view text, std::string& out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t semicolon = text[i] == '&' ? text.substr(0, i + 2 + kLongestReference).find(';', i + 1) : kEnd;
    const char32_t c = semicolon == kEnd ? 0 : ReferencedCharacter(text.substr(i + 1, semicolon - i - 1));
    if (c == 0) {
      out += text[i];
      continue;
    }
    out += Utf8Of(c);
    i = semicolon;
  }
}

// The text of the element whose content starts at `at`, up to the next tag;
// `at` is left on that tag (kEnd when the text is cut short).
std::string ElementText(std::string_view xml, std::size_t& at) {
  std::string text;
  while (at != kEnd) {
    const std::size_t markup = xml.find('<', at);
    AppendCharacterData(xml.substr(at, markup == kEnd ? kEnd : markup - at), text);
    at = markup;
    if (at == kEnd) break;
    if (xml.substr(at).starts_with("<![CDATA[")) {
      const std::size_t close = xml.find("]]>", at);
      text += xml.substr(at + 9, close == kEnd ? kEnd : close - at - 9);
      at = close == kEnd ? kEnd : close + 3;
    } else if (xml.substr(at).starts_with("<!--")) {
      at = After(xml, at, "-->");
    } else {
      break;
    }
  }
  return text;
}

// Just past the comment, CDATA section, declaration or processing
// instruction at `at`; `at` itself when there is none there.
std::size_t SkipNonElement(std::string_view xml, std::size_t at) {
  const std::string_view rest = xml.substr(at);
  if (rest.starts_with("<!--")) return After(xml, at, "-->");
  if (rest.starts_with("<![CDATA[")) return After(xml, at, "]]>");
  if (rest.starts_with("<?")) return After(xml, at, "?>");
  if (rest.starts_with("<!")) return After(xml, at, ">");
  return at;
}

}  // namespace

std::vector<std::string> XspfTrackLocations(std::string_view xml) {
  std::vector<std::string> locations;
  bool inTrack = false;
  bool located = false;  // the track's location was taken
  std::size_t at = 0;
  while ((at = xml.find('<', at)) != kEnd) {
    if (const std::size_t skipped = SkipNonElement(xml, at); skipped != at) {
      at = skipped;
      continue;
    }
    const Tag tag = ReadTag(xml, at);
    at = tag.end;
    if (at == kEnd) break;
    if (tag.name == "track") {
      inTrack = !tag.closing && !tag.selfClosing;
      located = false;
    } else if (tag.name == "location" && inTrack && !located && !tag.closing && !tag.selfClosing) {
      located = true;
      locations.push_back(ElementText(xml, at));
    }
  }
  return locations;
}
