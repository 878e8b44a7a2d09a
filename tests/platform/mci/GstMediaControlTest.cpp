#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>

#include "platform/mci/GstMediaControl.h"
#include "tests/support/Eventually.h"
#include "tests/support/HeldFile.h"
#include "tests/support/TempFolder.h"

namespace platform::mci {
namespace {

namespace fs = std::filesystem;
using testing_support::Eventually;
using namespace std::chrono_literals;

const std::string kFixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/";
// Every fixture encodes one second of tone (tools/make-audio-fixtures.sh).
constexpr long kToneMs = 1000;

constexpr long kLengthTolerance = 50;

struct Answer {
  std::uint32_t code;
  std::string reply;
};

// One media control, driven with command strings as the player sends them.
class Mci {
 public:
  explicit Mci(AudioOutput output = AudioOutput::Silent, GstMediaControl::PathMapper mapper = nullptr)
      : mci_(output, std::move(mapper)) {}

  Answer Send(const std::string& command) {
    char reply[128] = "untouched";
    std::uint32_t code = mci_.mciSendString(command.c_str(), reply, sizeof reply);
    return {code, reply};
  }
  std::uint32_t Open(const std::string& file, const std::string& alias) {
    return Send("open \"" + file + "\" type mpegvideo alias " + alias).code;
  }
  long Number(const std::string& command) {
    Answer a = Send(command);
    EXPECT_EQ(a.code, 0u) << command;
    return std::stol(a.reply);
  }
  long Length(const std::string& alias) { return Number("status " + alias + " length"); }
  long Position(const std::string& alias) { return Number("status " + alias + " position"); }

  GstMediaControl& Control() { return mci_; }

 private:
  GstMediaControl mci_;
};

TEST(GstMediaControl, EveryFormatOpensPlaysFromAPositionAndStops) {
  Mci mci;
  for (const char* name : {"id3v2.mp3", "SONG.MP3", "vorbis.ogg", "LOUD.WMA", "quiet.wma", "lossless.flac",
                           "musepack.mpc", "speech.opus", "Tone.M4A"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(mci.Open(kFixtures + name, "tune"), 0u);
    EXPECT_EQ(mci.Send("set tune time format ms").code, 0u);
    const long length = mci.Length("tune");
    EXPECT_NEAR(length, kToneMs, kLengthTolerance);

    ASSERT_EQ(mci.Send("play tune from 300").code, 0u);
    EXPECT_GE(mci.Position("tune"), 300);
    EXPECT_TRUE(Eventually([&] { return mci.Position("tune") >= 550; }));
    const long playing = mci.Position("tune");
    EXPECT_LE(playing, length);

    ASSERT_EQ(mci.Send("stop tune").code, 0u);
    const long stopped = mci.Position("tune");
    EXPECT_GE(stopped, playing);
    std::this_thread::sleep_for(200ms);  // time passes: a stopped position stays where it is
    EXPECT_EQ(mci.Position("tune"), stopped);
    EXPECT_EQ(mci.Send("close tune").code, 0u);
  }
}

TEST(GstMediaControl, PauseResumeSeekModeVolumeAndTheEnd) {
  Mci mci;
  ASSERT_EQ(mci.Open(kFixtures + "vorbis.ogg", "a"), 0u);
  const long length = mci.Length("a");
  EXPECT_EQ(mci.Send("status a mode").reply, "stopped");
  EXPECT_EQ(mci.Send("pause a").code, 0u);  // nothing playing: nothing changes
  EXPECT_EQ(mci.Send("status a mode").reply, "stopped");
  EXPECT_EQ(mci.Send("setaudio a volume to 250").code, 0u);
  EXPECT_EQ(mci.Send("setaudio a volume to 1001").code, 282u);

  ASSERT_EQ(mci.Send("play a from 100").code, 0u);
  EXPECT_EQ(mci.Send("status a mode").reply, "playing");
  ASSERT_TRUE(Eventually([&] { return mci.Position("a") >= 300; }));
  ASSERT_EQ(mci.Send("pause a").code, 0u);
  EXPECT_EQ(mci.Send("status a mode").reply, "paused");
  const long paused = mci.Position("a");
  std::this_thread::sleep_for(200ms);  // time passes: a paused position stays where it is
  EXPECT_EQ(mci.Position("a"), paused);
  ASSERT_EQ(mci.Send("resume a").code, 0u);
  EXPECT_EQ(mci.Send("status a mode").reply, "playing");
  EXPECT_GE(mci.Position("a"), paused);  // plays on, not from the start
  EXPECT_TRUE(Eventually([&] { return mci.Position("a") > paused; }));

  // A seek keeps the mode: playing plays on from there, paused stays put.
  ASSERT_EQ(mci.Send("seek a to 100").code, 0u);
  EXPECT_EQ(mci.Send("status a mode").reply, "playing");
  EXPECT_TRUE(Eventually([&] { return mci.Position("a") > 100; }));
  ASSERT_EQ(mci.Send("pause a").code, 0u);
  ASSERT_EQ(mci.Send("seek a to 700").code, 0u);
  EXPECT_EQ(mci.Position("a"), 700);
  EXPECT_EQ(mci.Send("status a mode").reply, "paused");
  EXPECT_EQ(mci.Send("seek a to " + std::to_string(length + 1)).code, 282u);

  // The end reached reads as stopped, and a seek from there goes back.
  ASSERT_EQ(mci.Send("resume a").code, 0u);
  EXPECT_TRUE(Eventually([&] { return mci.Send("status a mode").reply == "stopped"; }));
  ASSERT_EQ(mci.Send("seek a to start").code, 0u);
  EXPECT_EQ(mci.Position("a"), 0);

  // Played to its end, a file stops at its length.
  ASSERT_EQ(mci.Send("play a from " + std::to_string(length - 150)).code, 0u);
  EXPECT_TRUE(Eventually([&] { return mci.Position("a") == length; }));
  EXPECT_EQ(mci.Send("stop a").code, 0u);
  EXPECT_EQ(mci.Position("a"), length);

  // Starting at the end ends at once; starting again afterwards still plays.
  ASSERT_EQ(mci.Send("play a from " + std::to_string(length)).code, 0u);
  EXPECT_EQ(mci.Position("a"), length);
  ASSERT_EQ(mci.Send("play a from 0").code, 0u);
  EXPECT_TRUE(Eventually([&] { return mci.Position("a") > 0; }));
  EXPECT_LT(mci.Position("a"), length);

  EXPECT_EQ(mci.Send("play a from " + std::to_string(length + 1)).code, 282u);
  EXPECT_EQ(mci.Send("close a").code, 0u);

  // MPEG audio without a length header: constant rate, 41 frames of 576
  // samples at 22050 Hz, encoder delay and padding included.
  ASSERT_EQ(mci.Open(kFixtures + "ape.mp3", "a"), 0u);
  EXPECT_NEAR(mci.Length("a"), 41 * 576 * 1000 / 22050, kLengthTolerance);
}

TEST(GstMediaControl, DrivePathsAreMappedAliasesIgnoreCaseAndUnplayableFilesLeaveTheAliasFree) {
  testing_support::TempFolder music;
  fs::copy_file(kFixtures + "id3v2.mp3", music.Path() + "/a b.mp3");
  Mci mci(AudioOutput::Silent, [&music](const std::string& path) -> std::string {
    const std::string drive = R"(C:\Music\)";
    if (path.starts_with("/")) return path;
    return path.starts_with(drive) ? music.Path() + "/" + path.substr(drive.size()) : "";
  });

  ASSERT_EQ(mci.Open(R"(C:\Music\a b.mp3)", "Song"), 0u);
  EXPECT_NEAR(mci.Length("SONG"), kToneMs, kLengthTolerance);
  EXPECT_EQ(mci.Open(kFixtures + "vorbis.ogg", "sOnG"), 289u);
  EXPECT_EQ(mci.Open(R"(D:\nowhere.mp3)", "other"), 275u);
  EXPECT_EQ(mci.Send("close song").code, 0u);
  EXPECT_EQ(mci.Send("status Song length").code, 263u);

  // Files that cannot be played leave the alias free.
  EXPECT_EQ(mci.Open(music.Path() + "/missing.mp3", "a"), 275u);
  EXPECT_EQ(mci.Open(music.MakeFolder("album.mp3"), "a"), kMciNotRegularFile);
  for (const std::string& path :
       {music.WriteFile("notes.mp3", "just words\n"), kFixtures + "empty.mp3", kFixtures + "truncated.flac"})
    EXPECT_EQ(mci.Open(path, "a"), 296u) << path;
  EXPECT_EQ(mci.Send("status a length").code, 263u);
  EXPECT_EQ(mci.Open(kFixtures + "lossless.flac", "a"), 0u);
}

// Opens that would never return are refused before they start (a pipe, a
// socket, a device: the open limit here is an hour, so only a refusal can
// answer) or given up: after the limit, or at once for a later command.
TEST(GstMediaControl, SpecialFilesAreRefusedUnopenedAndWedgedOpensEnd) {
  testing_support::TempFolder music;
  const std::string pipe = music.Path() + "/pipe.mp3";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string socketPath = music.Path() + "/socket.mp3";
  const int sock = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(sock, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  fs::create_symlink(pipe, music.Path() + "/link to pipe.mp3");
  fs::create_symlink(kFixtures + "vorbis.ogg", music.Path() + "/link.ogg");
  fs::copy_file(kFixtures + "id3v2.mp3", music.Path() + R"(/say "hi" now.mp3)");

  GstMediaControl patient(AudioOutput::Silent, nullptr, std::chrono::hours(1));
  auto open = [](GstMediaControl& mci, const std::string& file) {
    const std::string command = "open \"" + file + "\" type mpegvideo alias a";
    return mci.mciSendString(command.c_str(), nullptr, 0);
  };
  for (const std::string& path : {pipe, socketPath, music.Path() + "/link to pipe.mp3", std::string("/dev/null")})
    EXPECT_EQ(open(patient, path), kMciNotRegularFile) << path;
  ::close(sock);
  char text[100];
  EXPECT_TRUE(patient.mciGetErrorString(kMciNotRegularFile, text, sizeof text));
  EXPECT_STREQ(text, "not a regular file");
  EXPECT_EQ(open(patient, music.Path() + "/link.ogg"), 0u);
  EXPECT_EQ(patient.mciSendString("close a", nullptr, 0), 0u);
  EXPECT_EQ(open(patient, music.Path() + R"(/say "hi" now.mp3)"), 0u);
  EXPECT_EQ(patient.mciSendString("close a", nullptr, 0), 0u);

  const std::string held = music.Path() + "/held.mp3";
  fs::copy_file(kFixtures + "id3v2.mp3", held);
  testing_support::HeldFile holder(held);
  ASSERT_TRUE(holder.Held());
  // Given up while it waits.
  std::uint32_t waited = 0;
  patient.NumberNextOpen(1);
  std::thread waiting([&] { waited = open(patient, held); });
  EXPECT_TRUE(Eventually([&] { return holder.Awaited(); }));
  patient.AbandonOpensThrough(1);
  waiting.join();
  EXPECT_EQ(waited, kMciOpenAbandoned);
  GstMediaControl hasty(AudioOutput::Silent, nullptr, std::chrono::milliseconds(300));
  EXPECT_EQ(open(hasty, held), kMciOpenTimedOut);
  EXPECT_TRUE(hasty.mciGetErrorString(kMciOpenTimedOut, text, sizeof text));
  EXPECT_STREQ(text, "did not open within 0.3 seconds");
  EXPECT_EQ(hasty.mciSendString("status a length", nullptr, 0), kMciUnknownAlias);

  // Giving up an open sent earlier leaves a later one alone.
  patient.NumberNextOpen(2);
  EXPECT_EQ(open(patient, kFixtures + "vorbis.ogg"), 0u);
  EXPECT_EQ(patient.mciSendString("close a", nullptr, 0), 0u);
  patient.NumberNextOpen(1);
  EXPECT_EQ(open(patient, kFixtures + "vorbis.ogg"), kMciOpenAbandoned);
}

TEST(GstMediaControl, UnknownAliasesAndJunkAreRefusedAndRepliesAreCutToTheBuffer) {
  Mci mci;
  for (const char* command : {"status x length", "play x from 0", "stop x", "close x", "set x time format ms",
                              "pause x", "resume x", "status x mode", "seek x to 0", "setaudio x volume to 1"})
    EXPECT_EQ(mci.Send(command).code, 263u) << command;
  EXPECT_EQ(mci.Send("play x from soon").code, 261u);
  EXPECT_EQ(mci.Control().mciSendString(nullptr, nullptr, 0), 261u);

  ASSERT_EQ(mci.Open(kFixtures + "lossless.flac", "a"), 0u);
  ASSERT_EQ(mci.Open(kFixtures + "id3v1.mp3", "b"), 0u);
  const std::string whole = mci.Send("status a length").reply;
  ASSERT_EQ(whole.size(), 4u);
  char small[3] = {'x', 'x', 'x'};
  EXPECT_EQ(mci.Control().mciSendString("status a length", small, sizeof small), 0u);
  EXPECT_EQ(std::string(small), whole.substr(0, 2));
  char untouched = 'x';
  EXPECT_EQ(mci.Control().mciSendString("status a length", &untouched, 0), 0u);
  EXPECT_EQ(untouched, 'x');
  EXPECT_EQ(mci.Control().mciSendString("status a length", nullptr, 10), 0u);
  char text[8] = "junk";
  EXPECT_FALSE(mci.Control().mciGetErrorString(12345, text, sizeof text));
  EXPECT_STREQ(text, "");
  EXPECT_TRUE(mci.Control().mciGetErrorString(kMciFileNotFound, text, sizeof text));
  EXPECT_EQ(std::strlen(text), 7u);

  // "close all" releases every device, playing or not.
  ASSERT_EQ(mci.Send("play b from 0").code, 0u);
  EXPECT_EQ(mci.Send("close all").code, 0u);
  EXPECT_EQ(mci.Send("status a position").code, 263u);
  EXPECT_EQ(mci.Send("status b position").code, 263u);
  EXPECT_EQ(mci.Open(kFixtures + "id3v1.mp3", "b"), 0u);
}

TEST(GstMediaControl, SystemOutputWithoutASoundDeviceRefusesToOpen) {
  Mci mci(AudioOutput::System);
  const std::uint32_t code = mci.Open(kFixtures + "id3v2.mp3", "a");
  if (code == 0) GTEST_SKIP() << "this machine has an audio output";
  EXPECT_EQ(code, 262u);
  EXPECT_EQ(mci.Send("status a length").code, 263u);
  // A file that cannot be played says so before the output is looked at.
  EXPECT_EQ(mci.Open(kFixtures + "empty.mp3", "a"), 296u);
}

}  // namespace
}  // namespace platform::mci
