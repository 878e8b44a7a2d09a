// `play` run from a copy of vantrelle-cli in a fresh program folder.
#include <sys/stat.h>

#include "tests/cli/ConsoleFixture.h"

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

}  // namespace
