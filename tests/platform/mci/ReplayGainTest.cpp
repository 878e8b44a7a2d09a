#include <gtest/gtest.h>

#include "platform/mci/ReplayGain.h"

namespace platform::mci {
namespace {

// The factor follows the mode, falls back between track and album values,
// is held down by the peak, and is 1 without tags; comments read as tags.
TEST(ReplayGain, FactorFollowsModeFallsBackAndNeverClips) {
  const ReplayGainTags both{-6.02, 0.5, -3.0, 0.9};
  EXPECT_NEAR(ReplayGainFactor(both, ReplayGainMode::Track), 0.5, 0.001);
  EXPECT_NEAR(ReplayGainFactor(both, ReplayGainMode::Album), 0.708, 0.001);
  EXPECT_EQ(ReplayGainFactor(both, ReplayGainMode::Off), 1.0);
  EXPECT_EQ(ReplayGainFactor({}, ReplayGainMode::Track), 1.0);
  EXPECT_NEAR(ReplayGainFactor({std::nullopt, std::nullopt, -6.02, std::nullopt}, ReplayGainMode::Track), 0.5, 0.001);
  EXPECT_NEAR(ReplayGainFactor({-6.02, std::nullopt, std::nullopt, std::nullopt}, ReplayGainMode::Album), 0.5, 0.001);
  // +12 dB on a file peaking at 0.5 would clip: it gets twice its level, no more.
  EXPECT_NEAR(ReplayGainFactor({12.0, 0.5, std::nullopt, std::nullopt}, ReplayGainMode::Track), 2.0, 0.001);

  ReplayGainTags read;
  for (const char* comment : {"replaygain_track_gain=-6.02 dB", "REPLAYGAIN_ALBUM_PEAK=0.98", "R128_ALBUM_GAIN=-1280",
                              "REPLAYGAIN_TRACK_PEAK=junk", "TITLE=Blue Road", "no equals sign"})
    ReadReplayGainComment(comment, read);
  EXPECT_NEAR(*read.trackGain, -6.02, 1e-9);
  EXPECT_NEAR(*read.albumPeak, 0.98, 1e-9);
  EXPECT_NEAR(*read.albumGain, 0.0, 1e-9);  // -5 dB against -23 LUFS is 0 dB against ReplayGain's reference
  EXPECT_FALSE(read.trackPeak);
  EXPECT_EQ(ReplayGainModeFromText("Album"), ReplayGainMode::Album);
  EXPECT_FALSE(ReplayGainModeFromText("loud"));
}

}  // namespace
}  // namespace platform::mci
