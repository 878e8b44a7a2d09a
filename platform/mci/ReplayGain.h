#pragma once
// ReplayGain: the level a file's gain tags ask for, as a factor on its samples.
// Pure functions; no GStreamer here.

#include <optional>
#include <string_view>

namespace platform::mci {

enum class ReplayGainMode { Off, Track, Album };

// The gain tags a stream carried, in dB and as linear peaks (1.0 = full scale).
struct ReplayGainTags {
  std::optional<double> trackGain;
  std::optional<double> trackPeak;
  std::optional<double> albumGain;
  std::optional<double> albumPeak;
};

// The factor to play the samples at: 1 when off or without tags (the pre-amp
// level, 0 dB); in album mode the album's values, else the track's, each
// falling back to the other; never so loud that the peak would clip.
double ReplayGainFactor(const ReplayGainTags& tags, ReplayGainMode mode);

// "off", "track" or "album"; nothing for any other text.
std::optional<ReplayGainMode> ReplayGainModeFromText(std::string_view text);

// Reads a free-form tag as written in comments: "REPLAYGAIN_TRACK_GAIN=-6.02 dB",
// "REPLAYGAIN_ALBUM_PEAK=0.98", and Opus's "R128_TRACK_GAIN=-1234" (Q7.8 dB
// against a reference 5 dB lower). Keys match without regard to case; other
// texts change nothing.
void ReadReplayGainComment(std::string_view comment, ReplayGainTags& tags);

}  // namespace platform::mci
