#include "platform/mci/MciText.h"

#include <algorithm>
#include <cstring>

#include "platform/MediaControl.h"

namespace platform::mci {

std::optional<std::string_view> MciErrorText(std::uint32_t code) {
  switch (code) {
    case kMciNoError:
      return "The command completed without error.";
    case kMciUnrecognizedCommand:
      return "The command was not recognised.";
    case kMciNoAudioOutput:
      return "No audio output is available on this computer.";
    case kMciUnknownAlias:
      return "No media is open under that name.";
    case kMciFileNotFound:
      return "The file could not be found.";
    case kMciOutOfRange:
      return "The position lies past the end of the recording, or the level above 1000.";
    case kMciAliasInUse:
      return "That name is already in use by another open media file.";
    case kMciCannotDecode:
      return "The file cannot be played: its format is unknown or the file is damaged.";
    case kMciNotRegularFile:
      return "not a regular file";
    case kMciOpenTimedOut:
      return "did not open in time";
    case kMciOpenAbandoned:
      return "the open was given up for a later command";
    default:
      return std::nullopt;
  }
}

std::string OpenTimedOutText(std::chrono::milliseconds limit) {
  const long long ms = limit.count();
  if (ms % 1000 == 0) return "did not open within " + std::to_string(ms / 1000) + (ms == 1000 ? " second" : " seconds");
  return "did not open within " + std::to_string(ms / 1000) + "." + std::to_string(ms % 1000 / 100) + " seconds";
}

}  // namespace platform::mci
