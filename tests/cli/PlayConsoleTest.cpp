// `play` run from a copy of vantrelle-cli in a fresh program folder.
#include <sys/stat.h>

#include "tests/cli/ConsoleFixture.h"
#include "tests/support/ToneFiles.h"
#include "tests/support/ToneFlac.h"

namespace {

namespace fs = std::filesystem;

class PlayConsoleTest : public ConsoleFixture {
 protected:
  void SetUp() override { ASSERT_EQ(Run("options").status, 0); }  // creates the catalogue
};

TEST_F(PlayConsoleTest, AMissingFileIsAWrongCommandLineAndNoSoundCardEndsWithTheSorryBox) {
  Outcome missing = Run("play 42");
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.err, "vantrelle-cli: no file with FileID 42 in the catalogue\n");
  Outcome noList = Run("play-list 7 --seconds 1");
  EXPECT_EQ(noList.status, 2);
  EXPECT_EQ(noList.err, "vantrelle-cli: no play list with PlayListID 7 in the catalogue\n");

  if (fs::exists("/dev/snd")) GTEST_SKIP() << "this machine may have a sound card";
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v2.mp3", home + "/a song.mp3");
  Query(
      "INSERT INTO MediaVolumes(VolID,VolType,DrvLtr) VALUES (1,3,'C');"
      "INSERT INTO MediaPaths(PathID,VolID,FullPath) VALUES (1,1,'\\');"
      "INSERT INTO MediaFiles(FileID,VolID,PathID,FileName) VALUES (1,1,1,'a song.mp3');");
  ASSERT_EQ(Query("SELECT count(*) FROM MediaFiles;"), "1;");
  Outcome played = Run("play 1 --seconds 30");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.out,
            "Sorry, unable to play media file.\nC:\\a song.mp3: No audio output is available on this computer.\n");
}

// A catalogued file replaced by a named pipe would hold an open for ever:
// it is refused unopened, with the reason, and both commands end.
TEST_F(PlayConsoleTest, APipeInPlaceOfACataloguedFileEndsPlayAndPlayListWithTheReason) {
  ASSERT_EQ(::mkfifo((home + "/a song.mp3").c_str(), 0600), 0);
  Query(
      "INSERT INTO MediaVolumes(VolID,VolType,DrvLtr) VALUES (1,3,'C');"
      "INSERT INTO MediaPaths(PathID,VolID,FullPath) VALUES (1,1,'\\');"
      "INSERT INTO MediaFiles(FileID,VolID,PathID,FileName) VALUES (1,1,1,'a song.mp3');"
      "INSERT INTO PlayLists(PlayListID,Name,FileIDs) VALUES (1,'Pipes','1');");
  const std::string box = "Sorry, unable to play media file.\nC:\\a song.mp3: not a regular file\n";
  Outcome played = Run("play 1");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.out, box);
  Outcome listed = Run("play-list 1");
  EXPECT_EQ(listed.status, 0) << listed.err;
  EXPECT_EQ(listed.out, box);
}

// What is heard, recorded at real-time pace by the capture output: two files
// cut from one tone follow each other without a gap, the "ROW/COUNT" lines
// follow the sound, and ReplayGain halves a file tagged -6.02 dB while the
// untagged file after it plays at full level.
TEST_F(PlayConsoleTest, APlayListPlaysGaplesslyAtEachFilesReplayGain) {
  using testing_support::kToneRate;
  testing_support::WriteToneWav(home + "/first.wav", 0, 2 * kToneRate, 0.5);
  testing_support::WriteToneWav(home + "/second.wav", 2 * kToneRate, 2 * kToneRate, 0.5);
  testing_support::WriteToneWav(folder.Path() + "/tone.wav", 0, kToneRate, 0.5);
  ASSERT_TRUE(testing_support::EncodeFlac(folder.Path() + "/tone.wav", home + "/tagged.flac", -6.02));
  ASSERT_TRUE(testing_support::EncodeFlac(folder.Path() + "/tone.wav", home + "/plain.flac", std::nullopt));
  Query(
      "INSERT INTO MediaVolumes(VolID,VolType,DrvLtr) VALUES (1,3,'C');"
      "INSERT INTO MediaPaths(PathID,VolID,FullPath) VALUES (1,1,'\\');"
      "INSERT INTO MediaFiles(FileID,VolID,PathID,FileName) VALUES (1,1,1,'first.wav'),(2,1,1,'second.wav'),"
      "(3,1,1,'tagged.flac'),(4,1,1,'plain.flac');"
      "INSERT INTO PlayLists(PlayListID,Name,FileIDs) VALUES (1,'Tone','1,2'),(2,'Levels','3,4');");
  const std::string capture = folder.Path() + "/heard.raw";
  environment = "VANTRELLE_AUDIO_CAPTURE='" + capture + "'";

  Outcome tone = Run("play-list 1");
  EXPECT_EQ(tone.status, 0) << tone.err;
  EXPECT_EQ(tone.out, "1/2 first.wav\n2/2 second.wav\n");
  testing_support::Heard heard(testing_support::ReadCapture(capture));
  EXPECT_LE(heard.longestQuiet, static_cast<std::size_t>(kToneRate / 50))
      << "a gap longer than 20 ms, ending " << heard.quietEnds - heard.begins.value_or(0) << " frames in";
  EXPECT_NEAR(static_cast<double>(heard.Length()), 4.0 * kToneRate, kToneRate / 50.0);

  ASSERT_EQ(Run("options --replaygain track").status, 0);
  Outcome levels = Run("play-list 2");
  EXPECT_EQ(levels.status, 0) << levels.err;
  testing_support::Heard leveled(testing_support::ReadCapture(capture));
  ASSERT_TRUE(leveled.begins);
  const std::size_t start = *leveled.begins;
  const double tagged = leveled.Peak(start + kToneRate / 10, start + kToneRate * 9 / 10);
  const double plain = leveled.Peak(start + kToneRate * 11 / 10, start + kToneRate * 19 / 10);
  EXPECT_LE(leveled.longestQuiet, static_cast<std::size_t>(kToneRate / 50));
  EXPECT_NEAR(tagged / plain, 0.5, 0.02) << tagged << " against " << plain;
  EXPECT_NEAR(plain, 0.5 * 32767, 200);
}

}  // namespace
