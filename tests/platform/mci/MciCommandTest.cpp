#include "platform/mci/MciCommand.h"

#include <gtest/gtest.h>

#include <limits>

namespace platform::mci {
namespace {

TEST(MciCommand, OpenTakesAQuotedPathWholeAndKeywordsIgnoreCase) {
  auto c = ParseMciCommand(R"(OPEN "C:\Music\My Band\a  b.mp3" TYPE MpegVideo ALIAS Song)");
  ASSERT_TRUE(c);
  EXPECT_EQ(c->verb, MciVerb::Open);
  EXPECT_EQ(c->path, R"(C:\Music\My Band\a  b.mp3)");
  EXPECT_EQ(c->alias, "Song");
  EXPECT_EQ(ParseMciCommand("  open\t/tmp/x.mp3   type mpegvideo alias a ")->path, "/tmp/x.mp3");
  EXPECT_EQ(ParseMciCommand("set a time format milliseconds")->verb, MciVerb::SetTimeFormatMs);
  EXPECT_EQ(ParseMciCommand("Close ALL")->verb, MciVerb::CloseAll);
  EXPECT_EQ(ParseMciCommand("PAUSE a")->verb, MciVerb::Pause);
  EXPECT_EQ(ParseMciCommand("resume a")->verb, MciVerb::Resume);
  EXPECT_EQ(ParseMciCommand("status a MODE")->verb, MciVerb::StatusMode);
  EXPECT_EQ(ParseMciCommand("seek a to 2500")->fromMs, 2500u);
  EXPECT_EQ(ParseMciCommand("seek a TO start")->fromMs, 0u);
  EXPECT_TRUE(ParseMciCommand("seek a to end")->toEnd);
  EXPECT_EQ(ParseMciCommand("setaudio Song volume to 1200")->volume, 1200u);
  // A start past any number still parses, at the largest.
  EXPECT_EQ(ParseMciCommand("play a from 99999999999999999999999")->fromMs,
            std::numeric_limits<std::uint64_t>::max());
}

TEST(MciCommand, AnythingElseIsRejected) {
  for (const char* junk : {
           "", "   ", "pause", "pause a b", "resume", "seek a 5", "seek a to", "seek a to -1",
           "seek a to soon", "setaudio a volume 5", "setaudio a volume to", "setaudio a treble to 5",
           "status a moods", "play a", "play a from", "play a from -5", "play a from 5x",
           "play a to 5", "status a", "stop", "stop a b", "close", "close a b",
           "set a time format frames", "set a time format", "open x type waveaudio alias a",
           "open x type mpegvideo alias", "open x type mpegvideo alias a extra",
           R"(open "unterminated type mpegvideo alias a)", R"(open "a"b type mpegvideo alias a)",
           R"(open a"b type mpegvideo alias a)", R"(open "" type mpegvideo alias a)"}) {
    EXPECT_FALSE(ParseMciCommand(junk)) << junk;
  }
}

}  // namespace
}  // namespace platform::mci
