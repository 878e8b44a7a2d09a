// Media-control command strings come from the player's side of the interface:
// any text either parses or is refused, and a parsed command written back in
// its plain form parses to the same command.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/mci/MciCommand.h"
#include "tests/fuzz/FuzzCheck.h"

namespace {

using platform::mci::MciCommand;
using platform::mci::MciVerb;

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

const char* ReplayGainWord(platform::mci::ReplayGainMode mode) {
  switch (mode) {
    case platform::mci::ReplayGainMode::Off:
      return "off";
    case platform::mci::ReplayGainMode::Album:
      return "album";
    default:
      return "track";
  }
}

std::string PlainForm(const MciCommand& c) {
  const std::string alias = c.alias.find_first_of(" \t\r\n") == std::string::npos ? c.alias : Quoted(c.alias);
  switch (c.verb) {
    case MciVerb::Open:
      return "open " + Quoted(c.path) + " type mpegvideo alias " + alias;
    case MciVerb::SetTimeFormatMs:
      return "set " + alias + " time format ms";
    case MciVerb::StatusLength:
      return "status " + alias + " length";
    case MciVerb::StatusPosition:
      return "status " + alias + " position";
    case MciVerb::StatusMode:
      return "status " + alias + " mode";
    case MciVerb::PlayFrom:
      return "play " + alias + " from " + std::to_string(c.fromMs);
    case MciVerb::Stop:
      return "stop " + alias;
    case MciVerb::Pause:
      return "pause " + alias;
    case MciVerb::Resume:
      return "resume " + alias;
    case MciVerb::SeekTo:
      return "seek " + alias + " to " + (c.toEnd ? "end" : std::to_string(c.fromMs));
    case MciVerb::SetVolume:
      return "setaudio " + alias + " volume to " + std::to_string(c.volume);
    case MciVerb::SetReplayGain:
      return "setaudio " + alias + " replaygain to " + ReplayGainWord(c.replayGain);
    case MciVerb::Cue:
      return "cue " + alias + " " + Quoted(c.path);
    case MciVerb::Uncue:
      return "cue " + alias + " off";
    case MciVerb::StatusTrack:
      return "status " + alias + " track";
    case MciVerb::Close:
      return "close " + alias;
    case MciVerb::CloseAll:
      return "close all";
  }
  return {};
}

bool Same(const MciCommand& a, const MciCommand& b) {
  return a.verb == b.verb && a.alias == b.alias && a.path == b.path && a.fromMs == b.fromMs && a.volume == b.volume &&
         a.toEnd == b.toEnd && a.replayGain == b.replayGain;
}

void CheckShape(const MciCommand& c) {
  FUZZ_CHECK((c.verb == MciVerb::CloseAll) == c.alias.empty());
  FUZZ_CHECK((c.verb == MciVerb::Open || c.verb == MciVerb::Cue) != c.path.empty());
  FUZZ_CHECK(c.alias.find('"') == std::string::npos);
  if (c.verb != MciVerb::PlayFrom && c.verb != MciVerb::SeekTo) FUZZ_CHECK(c.fromMs == 0);
  if (c.verb != MciVerb::SetVolume) FUZZ_CHECK(c.volume == 0);
  if (c.verb != MciVerb::SeekTo) FUZZ_CHECK(!c.toEnd);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto command = platform::mci::ParseMciCommand(text);
  if (!command) return 0;
  CheckShape(*command);
  const auto again = platform::mci::ParseMciCommand(PlainForm(*command));
  FUZZ_CHECK(again && Same(*command, *again));
  return 0;
}
