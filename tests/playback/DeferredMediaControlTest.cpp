#include <gtest/gtest.h>

#include <stdexcept>

#include "playback/CMciPlayer.h"
#include "playback/DeferredMediaControl.h"
#include "tests/support/RecordingMediaControl.h"

namespace {

TEST(DeferredMediaControl, StartsOnlyForACommandThatNeedsItAndReportsAFailedStart) {
  int starts = 0;
  DeferredMediaControl media([&] {
    ++starts;
    return std::make_unique<testing_support::RecordingMediaControl>();
  });
  { CMciPlayer idle(media, 1); }  // its "close all" has nothing to close
  EXPECT_EQ(starts, 0);
  {
    CMciPlayer player(media, 1);
    EXPECT_EQ(player.Open("C:\\a.mp3"), 0);
  }
  EXPECT_EQ(starts, 1);

  DeferredMediaControl broken(
      []() -> std::unique_ptr<platform::MediaControl> { throw std::runtime_error("no audio daemon"); });
  CMciPlayer player(broken, 1);
  EXPECT_EQ(player.Open("C:\\a.mp3"), static_cast<int>(platform::kMciNoAudioOutput));
  EXPECT_FALSE(player.IsOpen());
  EXPECT_EQ(player.GetErrorText(), "no audio daemon");
}

}  // namespace
