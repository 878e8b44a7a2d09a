#include <gtest/gtest.h>

#include "playback/CMciPlayer.h"
#include "tests/support/RecordingMediaControl.h"

namespace {

using Strings = std::vector<std::string>;

class MciPlayerTest : public ::testing::Test {
 protected:
  MciPlayerTest() { media.Answer("status QL_MCI_DEV_7 length", 0, "200000"); }
  testing_support::RecordingMediaControl media;
  CMciPlayer player{media, 7};
};

TEST_F(MciPlayerTest, OpenPlayStopSkipAndASecondOpenSendTheirStrings) {
  EXPECT_TRUE(media.Commands().empty());
  EXPECT_EQ(player.Open("C:\\My Music\\Blue Train.mp3"), 0);
  EXPECT_EQ(player.LengthMs(), 200000);
  EXPECT_EQ(player.Play(0), 0);
  EXPECT_EQ(player.Stop(), 0);
  media.Answer("status QL_MCI_DEV_7 position", 0, "5000");
  EXPECT_EQ(player.Skip(), 0);
  media.Answer("status QL_MCI_DEV_7 position", 0, "195000");
  media.Answer("play QL_MCI_DEV_7 from 200000", 282);
  EXPECT_EQ(player.Skip(), 282);  // never past the end
  EXPECT_EQ(player.GetErrorText(), "error 282");
  const std::string longPath = "C:\\" + std::string(150, 'x') + "\\b.ogg";
  EXPECT_EQ(player.Open(longPath), 0);
  EXPECT_EQ(media.Commands(),
            (Strings{"open \"C:\\My Music\\Blue Train.mp3\" type mpegvideo alias QL_MCI_DEV_7",
                     "set QL_MCI_DEV_7 time format ms", "status QL_MCI_DEV_7 length", "play QL_MCI_DEV_7 from 0",
                     "stop QL_MCI_DEV_7", "status QL_MCI_DEV_7 position", "play QL_MCI_DEV_7 from 15000",
                     "status QL_MCI_DEV_7 position", "play QL_MCI_DEV_7 from 200000", "close QL_MCI_DEV_7",
                     "open \"" + longPath + "\" type mpegvideo alias QL_MCI_DEV_7", "set QL_MCI_DEV_7 time format ms",
                     "status QL_MCI_DEV_7 length"}));
}

TEST_F(MciPlayerTest, NothingIsSentWithoutAnOpenFileAndAFailedLengthLeavesNoLength) {
  EXPECT_EQ(player.Play(0), CMciPlayer::kNotOpen);
  EXPECT_EQ(player.Stop(), CMciPlayer::kNotOpen);
  EXPECT_EQ(player.Skip(), CMciPlayer::kNotOpen);
  EXPECT_TRUE(media.Commands().empty());

  // A failed open leaves the device closed and the old length in place.
  player.Open("C:\\a.mp3");
  media.Answer("open", 275);
  EXPECT_EQ(player.Open("C:\\gone.mp3"), 275);
  EXPECT_FALSE(player.IsOpen());
  EXPECT_EQ(player.LengthMs(), 200000);
  media.Forget();
  EXPECT_EQ(player.Play(0), CMciPlayer::kNotOpen);
  EXPECT_EQ(player.Skip(), CMciPlayer::kNotOpen);
  EXPECT_TRUE(media.Commands().empty());

  // A failed length query leaves the device open with no length.
  media.Answer("status QL_MCI_DEV_7 length", 263);
  media.Answer("open", 0);
  EXPECT_EQ(player.Open("C:\\a.mp3"), 263);
  EXPECT_TRUE(player.IsOpen());
  EXPECT_EQ(player.LengthMs(), 0);
}

TEST_F(MciPlayerTest, PauseResumeSeekModeAndAVolumeThatOutlivesTheFile) {
  EXPECT_EQ(player.GetMode(), CMciPlayer::Mode::NotReady);
  EXPECT_EQ(player.Pause(), CMciPlayer::kNotOpen);
  EXPECT_EQ(player.SetVolume(1500), 0);  // kept for the next open, at most 1000
  EXPECT_EQ(player.SetVolume(400), 0);
  EXPECT_TRUE(media.Commands().empty());

  EXPECT_EQ(player.Open("C:\\a.mp3"), 0);
  media.Answer("status QL_MCI_DEV_7 mode", 0, "paused");
  EXPECT_EQ(player.GetMode(), CMciPlayer::Mode::Paused);
  media.Answer("status QL_MCI_DEV_7 mode", 0, "seeking");
  EXPECT_EQ(player.GetMode(), CMciPlayer::Mode::NotReady);
  EXPECT_EQ(player.Pause(), 0);
  EXPECT_EQ(player.Resume(), 0);
  EXPECT_EQ(player.SeekTo(-5), 0);
  EXPECT_EQ(player.SetVolume(-3), 0);
  EXPECT_EQ(player.Volume(), 0);
  EXPECT_EQ(media.Commands(),
            (Strings{"open \"C:\\a.mp3\" type mpegvideo alias QL_MCI_DEV_7", "set QL_MCI_DEV_7 time format ms",
                     "status QL_MCI_DEV_7 length", "setaudio QL_MCI_DEV_7 volume to 400", "status QL_MCI_DEV_7 mode",
                     "status QL_MCI_DEV_7 mode", "pause QL_MCI_DEV_7", "resume QL_MCI_DEV_7", "seek QL_MCI_DEV_7 to 0",
                     "setaudio QL_MCI_DEV_7 volume to 0"}));
}

TEST(MciPlayer, CloseMarksTheDeviceClosedEvenWhenRefusedAndDestructionClosesAll) {
  testing_support::RecordingMediaControl media;
  {
    CMciPlayer player(media, 1);
    player.Open("C:\\a.mp3");
    media.Answer("close", 263);
    EXPECT_EQ(player.Close(), 263);
    EXPECT_FALSE(player.IsOpen());
    media.Forget();
  }
  EXPECT_EQ(media.Commands(), (Strings{"close all"}));
}

}  // namespace
