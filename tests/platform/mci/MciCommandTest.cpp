#include "platform/mci/MciCommand.h"

#include <gtest/gtest.h>

#include <limits>

namespace platform::mci {
namespace {

TEST(MciCommand, OpenTakesAQuotedPathWithBlanksWhole) {
  auto c = ParseMciCommand(R"(open "C:\Music\My Band\a  b.mp3" type mpegvideo alias Song)");
  ASSERT_TRUE(c);
  EXPECT_EQ(c->verb, MciVerb::Open);
  EXPECT_EQ(c->path, R"(C:\Music\My Band\a  b.mp3)");
  EXPECT_EQ(c->alias, "Song");

  auto unquoted = ParseMciCommand("  open\t/tmp/x.mp3   type mpegvideo alias a ");
  ASSERT_TRUE(unquoted);
  EXPECT_EQ(unquoted->path, "/tmp/x.mp3");
}

TEST(MciCommand, KeywordsMatchWithoutRegardToCase) {
  auto open = ParseMciCommand(R"(OPEN "x" TYPE MpegVideo ALIAS Mixed)");
  ASSERT_TRUE(open);
  EXPECT_EQ(open->alias, "Mixed");

  auto play = ParseMciCommand("Play a FROM 1500");
  ASSERT_TRUE(play);
  EXPECT_EQ(play->verb, MciVerb::PlayFrom);
  EXPECT_EQ(play->fromMs, 1500u);

  EXPECT_EQ(ParseMciCommand("status a LENGTH")->verb, MciVerb::StatusLength);
  EXPECT_EQ(ParseMciCommand("STATUS a Position")->verb, MciVerb::StatusPosition);
  EXPECT_EQ(ParseMciCommand("Set a Time Format MS")->verb, MciVerb::SetTimeFormatMs);
  EXPECT_EQ(ParseMciCommand("set a time format milliseconds")->verb, MciVerb::SetTimeFormatMs);
  EXPECT_EQ(ParseMciCommand("STOP a")->verb, MciVerb::Stop);
  EXPECT_EQ(ParseMciCommand("close a")->verb, MciVerb::Close);
  EXPECT_EQ(ParseMciCommand("Close ALL")->verb, MciVerb::CloseAll);
}

TEST(MciCommand, AStartPastAnyNumberStillParses) {
  auto c = ParseMciCommand("play a from 99999999999999999999999");
  ASSERT_TRUE(c);
  EXPECT_EQ(c->fromMs, std::numeric_limits<std::uint64_t>::max());
}

TEST(MciCommand, AnythingElseIsRejected) {
  for (const char* junk : {
           "", "   ", "pause a", "play a", "play a from", "play a from -5", "play a from 5x",
           "play a to 5", "status a mode", "status a", "stop", "stop a b", "close", "close a b",
           "set a time format frames", "set a time format", "open x type waveaudio alias a",
           "open x type mpegvideo alias", "open x type mpegvideo alias a extra",
           R"(open "unterminated type mpegvideo alias a)", R"(open "a"b type mpegvideo alias a)",
           R"(open a"b type mpegvideo alias a)", R"(open "" type mpegvideo alias a)"}) {
    EXPECT_FALSE(ParseMciCommand(junk)) << junk;
  }
}

}  // namespace
}  // namespace platform::mci
