#include <gtest/gtest.h>

#include <limits>

#include "platform/mci/MciCommand.h"

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
  EXPECT_EQ(ParseMciCommand("play a from 99999999999999999999999")->fromMs, std::numeric_limits<std::uint64_t>::max());
}

// The path is read between the first quote and the one before the fixed
// tail, so quotes and blanks in a file name come through as they are.
TEST(MciCommand, OpenReadsAPathHoldingQuotesByItsTail) {
  auto c = ParseMciCommand(R"(open "C:\Music\The "Best" of\say "hi".mp3" type mpegvideo alias QL_MCI_DEV_1)");
  ASSERT_TRUE(c);
  EXPECT_EQ(c->path, R"(C:\Music\The "Best" of\say "hi".mp3)");
  EXPECT_EQ(c->alias, "QL_MCI_DEV_1");
  EXPECT_EQ(ParseMciCommand(R"(open """ type mpegvideo alias a)")->path, "\"");
  EXPECT_EQ(ParseMciCommand(R"(open "a type mpegvideo alias b" type mpegvideo alias c)")->path,
            "a type mpegvideo alias b");
  EXPECT_EQ(ParseMciCommand(R"(open "x" type mpegvideo alias c)")->alias, "c");
}

// A cue's path, like an open's, may hold quotes and blanks; "off" unquoted
// takes the cue back.
TEST(MciCommand, CueTrackAndReplayGainForms) {
  auto cue = ParseMciCommand(R"(CUE Song "C:\Music\say "hi" b.mp3" )");
  ASSERT_TRUE(cue);
  EXPECT_EQ(cue->verb, MciVerb::Cue);
  EXPECT_EQ(cue->alias, "Song");
  EXPECT_EQ(cue->path, R"(C:\Music\say "hi" b.mp3)");
  EXPECT_EQ(ParseMciCommand("cue Song Off")->verb, MciVerb::Uncue);
  EXPECT_EQ(ParseMciCommand(R"(cue Song "off")")->path, "off");
  EXPECT_EQ(ParseMciCommand("status a track")->verb, MciVerb::StatusTrack);
  EXPECT_EQ(ParseMciCommand("setaudio a replaygain to ALBUM")->replayGain, ReplayGainMode::Album);
  EXPECT_EQ(ParseMciCommand("setaudio a replaygain to off")->replayGain, ReplayGainMode::Off);
  for (const char* junk : {"cue", "cue a", R"(cue "" "x")", R"(cue a "")", "cue a x.mp3", R"(cue a"b "x")",
                           R"(cue a "x)", "setaudio a replaygain to loud", "setaudio a replaygain track"})
    EXPECT_FALSE(ParseMciCommand(junk)) << junk;
}

TEST(MciCommand, AnythingElseIsRejected) {
  for (const char* junk : {"",
                           "   ",
                           "pause",
                           "pause a b",
                           "resume",
                           "seek a 5",
                           "seek a to",
                           "seek a to -1",
                           "seek a to soon",
                           "setaudio a volume 5",
                           "setaudio a volume to",
                           "setaudio a treble to 5",
                           "status a moods",
                           "status \"\" position",  // an empty name names no device
                           "stop \"\"",
                           "play a",
                           "play a from",
                           "play a from -5",
                           "play a from 5x",
                           "play a to 5",
                           "status a",
                           "stop",
                           "stop a b",
                           "close",
                           "close a b",
                           "set a time format frames",
                           "set a time format",
                           "open x type waveaudio alias a",
                           "open x type mpegvideo alias",
                           "open x type mpegvideo alias a extra",
                           R"(open "unterminated type mpegvideo alias a)",
                           R"(open "a"b type mpegvideo alias a)",
                           R"(open a"b type mpegvideo alias a)",
                           R"(open "" type mpegvideo alias a)",
                           R"(open "x" type mpegvideo alias a"b)",
                           R"(open "x"type mpegvideo alias a)",
                           R"(opening "x" type mpegvideo alias a)",
                           "open",
                           R"(open " type mpegvideo alias a)"}) {
    EXPECT_FALSE(ParseMciCommand(junk)) << junk;
  }
}

}  // namespace
}  // namespace platform::mci
