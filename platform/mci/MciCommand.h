#pragma once
// Parsing of the command strings the player sends, for example
//   open "C:\Music\a b.mp3" type mpegvideo alias Song
//   set Song time format ms      status Song length      status Song position
//   play Song from 1500          stop Song               close Song    close all
//   pause Song    resume Song    status Song mode        seek Song to 2000
//   seek Song to start           seek Song to end        setaudio Song volume to 500
//   cue Song "C:\Music\b.mp3"    cue Song off            status Song track
//   setaudio Song replaygain to album
//
// Tokens are separated by blanks; a token in double quotes may hold blanks.
// Keywords match without regard to case. Pure functions; no call throws.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/mci/ReplayGain.h"

namespace platform::mci {

enum class MciVerb {
  Open,
  SetTimeFormatMs,
  StatusLength,
  StatusPosition,
  StatusMode,
  PlayFrom,
  Stop,
  Pause,
  Resume,
  SeekTo,
  SetVolume,
  SetReplayGain,
  Cue,
  Uncue,
  StatusTrack,
  Close,
  CloseAll,
};

struct MciCommand {
  MciVerb verb = MciVerb::Close;
  std::string alias;                                  // as written; empty for CloseAll
  std::string path;                                   // Open and Cue, without the quotes
  std::uint64_t fromMs = 0;                           // PlayFrom and SeekTo; saturates at the largest value
  std::uint64_t volume = 0;                           // SetVolume only: 0 to 1000 asked, larger numbers kept
  bool toEnd = false;                                 // SeekTo only: "to end", wherever that lies
  ReplayGainMode replayGain = ReplayGainMode::Track;  // SetReplayGain only
};

// The command a string holds, or nothing when it is not one of the forms above.
std::optional<MciCommand> ParseMciCommand(std::string_view text);

}  // namespace platform::mci
