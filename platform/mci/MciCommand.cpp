#include "platform/mci/MciCommand.h"

#include <cctype>
#include <charconv>
#include <limits>
#include <vector>

#include "base/AsciiCase.h"

namespace platform::mci {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool SameWord(std::string_view a, std::string_view b) { return EqualIgnoringAsciiCase(a, b); }

// Splits on blanks. A token starting with '"' runs to the next '"', which must
// end the token; a stray or unmatched quote makes the whole text invalid.
std::optional<std::vector<std::string>> SplitTokens(std::string_view text) {
  std::vector<std::string> tokens;
  std::size_t i = 0;
  while (true) {
    while (i < text.size() && IsBlank(text[i])) ++i;
    if (i == text.size()) return tokens;
    if (text[i] == '"') {
      std::size_t close = text.find('"', i + 1);
      if (close == std::string_view::npos) return std::nullopt;
      if (close + 1 < text.size() && !IsBlank(text[close + 1])) return std::nullopt;
      tokens.emplace_back(text.substr(i + 1, close - i - 1));
      i = close + 1;
      continue;
    }
    std::size_t end = i;
    while (end < text.size() && !IsBlank(text[end])) {
      if (text[end] == '"') return std::nullopt;
      ++end;
    }
    tokens.emplace_back(text.substr(i, end - i));
    i = end;
  }
}

// A position in milliseconds or a volume level: digits only; a number too
// large for 64 bits saturates, so that it reads as past the end (or as the
// loudest) rather than as junk.
std::optional<std::uint64_t> ParseUnsigned(std::string_view digits) {
  if (digits.empty()) return std::nullopt;
  for (char c : digits) {
    if (c < '0' || c > '9') return std::nullopt;
  }
  std::uint64_t value = 0;
  auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::result_out_of_range) return std::numeric_limits<std::uint64_t>::max();
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return value;
}

using Tokens = std::vector<std::string>;

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// open "PATH" type mpegvideo alias A, read from its fixed tail: a file name
// may hold double quotes and blanks, so the path is whatever lies between
// the first quote after "open" and the last one before the tail. A path
// without quotes is one token.
std::optional<MciCommand> ParseOpen(std::string_view text) {
  text = TrimBlanks(text);
  const auto tokens = SplitTokens(text);  // the head and tail hold no quotes
  std::size_t tailStart = text.size();
  for (int blanksToSkip = 4; blanksToSkip > 0; --blanksToSkip) {
    while (tailStart > 0 && !IsBlank(text[tailStart - 1])) --tailStart;
    if (blanksToSkip > 1)
      while (tailStart > 0 && IsBlank(text[tailStart - 1])) --tailStart;
  }
  if (tailStart == 0) return std::nullopt;
  auto tail = SplitTokens(text.substr(tailStart));
  if (!tail || tail->size() != 4 || !SameWord((*tail)[0], "type") || !SameWord((*tail)[1], "mpegvideo") ||
      !SameWord((*tail)[2], "alias"))
    return std::nullopt;
  std::string_view head = TrimBlanks(text.substr(0, tailStart));
  if (head.size() < 4 || !SameWord(head.substr(0, 4), "open")) return std::nullopt;
  std::string_view path = head.substr(4);
  if (path.empty() || !IsBlank(path.front())) return std::nullopt;
  path = TrimBlanks(path);
  if (path.size() >= 2 && path.front() == '"' && path.back() == '"') {
    path = path.substr(1, path.size() - 2);
  } else {
    // Unquoted: one token, no quote anywhere.
    if (!tokens || tokens->size() != 6) return std::nullopt;
    if (path.find('"') != std::string_view::npos) return std::nullopt;
  }
  if (path.empty()) return std::nullopt;
  return MciCommand{MciVerb::Open, (*tail)[3], std::string(path), 0};
}

// cue A "PATH" | cue A off. The path, which may hold quotes and blanks, is
// all that lies between the first quote after the alias and the last one.
std::optional<MciCommand> ParseCue(std::string_view text) {
  text = TrimBlanks(text).substr(3);
  const std::size_t aliasStart = text.find_first_not_of(" \t\r\n");
  if (aliasStart == 0 || aliasStart == std::string_view::npos) return std::nullopt;
  text.remove_prefix(aliasStart);
  std::size_t aliasEnd = 0;
  while (aliasEnd < text.size() && !IsBlank(text[aliasEnd])) ++aliasEnd;
  const std::string_view alias = text.substr(0, aliasEnd);
  const std::string_view rest = TrimBlanks(text.substr(aliasEnd));
  if (alias.find('"') != std::string_view::npos || aliasEnd == text.size()) return std::nullopt;
  if (SameWord(rest, "off")) return MciCommand{MciVerb::Uncue, std::string(alias), {}, 0};
  if (rest.size() < 3 || rest.front() != '"' || rest.back() != '"') return std::nullopt;
  return MciCommand{MciVerb::Cue, std::string(alias), std::string(rest.substr(1, rest.size() - 2)), 0};
}

std::optional<MciCommand> ParseSet(const Tokens& t) {
  // set A time format ms
  if (t.size() != 5 || !SameWord(t[2], "time") || !SameWord(t[3], "format")) return std::nullopt;
  if (!SameWord(t[4], "ms") && !SameWord(t[4], "milliseconds")) return std::nullopt;
  return MciCommand{MciVerb::SetTimeFormatMs, t[1], {}, 0};
}

std::optional<MciCommand> ParseStatus(const Tokens& t) {
  if (t.size() != 3) return std::nullopt;
  if (SameWord(t[2], "length")) return MciCommand{MciVerb::StatusLength, t[1], {}, 0};
  if (SameWord(t[2], "position")) return MciCommand{MciVerb::StatusPosition, t[1], {}, 0};
  if (SameWord(t[2], "mode")) return MciCommand{MciVerb::StatusMode, t[1], {}, 0};
  if (SameWord(t[2], "track")) return MciCommand{MciVerb::StatusTrack, t[1], {}, 0};
  return std::nullopt;
}

std::optional<MciCommand> ParsePlay(const Tokens& t) {
  if (t.size() != 4 || !SameWord(t[2], "from")) return std::nullopt;
  auto from = ParseUnsigned(t[3]);
  if (!from) return std::nullopt;
  return MciCommand{MciVerb::PlayFrom, t[1], {}, *from};
}

// seek A to N | seek A to start | seek A to end
std::optional<MciCommand> ParseSeek(const Tokens& t) {
  if (t.size() != 4 || !SameWord(t[2], "to")) return std::nullopt;
  MciCommand command{MciVerb::SeekTo, t[1], {}, 0};
  if (SameWord(t[3], "end")) {
    command.toEnd = true;
    return command;
  }
  const auto to = SameWord(t[3], "start") ? std::optional<std::uint64_t>(0) : ParseUnsigned(t[3]);
  if (!to) return std::nullopt;
  command.fromMs = *to;
  return command;
}

// setaudio A volume to N | setaudio A replaygain to off|track|album
std::optional<MciCommand> ParseSetAudio(const Tokens& t) {
  if (t.size() != 5 || !SameWord(t[3], "to")) return std::nullopt;
  if (SameWord(t[2], "replaygain")) {
    const auto mode = ReplayGainModeFromText(t[4]);
    if (!mode) return std::nullopt;
    MciCommand command{MciVerb::SetReplayGain, t[1], {}, 0};
    command.replayGain = *mode;
    return command;
  }
  if (!SameWord(t[2], "volume")) return std::nullopt;
  auto level = ParseUnsigned(t[4]);
  if (!level) return std::nullopt;
  MciCommand command{MciVerb::SetVolume, t[1], {}, 0};
  command.volume = *level;
  return command;
}

std::optional<MciCommand> ParseAliasOnly(const Tokens& t, MciVerb verb) {
  if (t.size() != 2) return std::nullopt;
  return MciCommand{verb, t[1], {}, 0};
}

std::optional<MciCommand> ParseClose(const Tokens& t) {
  if (t.size() == 2 && SameWord(t[1], "all")) return MciCommand{MciVerb::CloseAll, {}, {}, 0};
  return ParseAliasOnly(t, MciVerb::Close);
}

std::optional<MciCommand> ParseForm(std::string_view text) {
  const std::string_view start = TrimBlanks(text);
  if (start.size() >= 5 && SameWord(start.substr(0, 4), "open") && IsBlank(start[4])) return ParseOpen(start);
  if (start.size() >= 4 && SameWord(start.substr(0, 3), "cue") && IsBlank(start[3])) return ParseCue(start);
  auto tokens = SplitTokens(text);
  if (!tokens || tokens->empty()) return std::nullopt;
  const Tokens& t = *tokens;
  const std::string& verb = t[0];
  if (SameWord(verb, "set")) return ParseSet(t);
  if (SameWord(verb, "status")) return ParseStatus(t);
  if (SameWord(verb, "play")) return ParsePlay(t);
  if (SameWord(verb, "stop")) return ParseAliasOnly(t, MciVerb::Stop);
  if (SameWord(verb, "pause")) return ParseAliasOnly(t, MciVerb::Pause);
  if (SameWord(verb, "resume")) return ParseAliasOnly(t, MciVerb::Resume);
  if (SameWord(verb, "seek")) return ParseSeek(t);
  if (SameWord(verb, "setaudio")) return ParseSetAudio(t);
  if (SameWord(verb, "close")) return ParseClose(t);
  return std::nullopt;
}

}  // namespace

// Every form but "close all" names its device, and an empty name ("") names none.
std::optional<MciCommand> ParseMciCommand(std::string_view text) {
  std::optional<MciCommand> command = ParseForm(text);
  if (command && command->verb != MciVerb::CloseAll && command->alias.empty()) return std::nullopt;
  return command;
}

}  // namespace platform::mci
