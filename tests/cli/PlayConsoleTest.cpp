// `play` run from a copy of vantrelle-cli in a fresh program folder.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status = -1;
  std::string out, err;
};

class PlayConsoleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::copy_file(VANTRELLE_BIN_DIR "/vantrelle-cli", program + "/vantrelle-cli");
    ASSERT_EQ(Run("options").status, 0);  // creates the catalogue
  }

  // A run that hangs is cut off by timeout (status 124).
  Outcome Run(const std::string& arguments) {
    const std::string out = folder.Path() + "/out", err = folder.Path() + "/err";
    const std::string command = "cd '" + program + "' && HOME='" + home +
                                "' timeout 60 ./vantrelle-cli " + arguments + " >'" + out +
                                "' 2>'" + err + "' </dev/null";
    const int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, ReadAll(out), ReadAll(err)};
  }
  static std::string ReadAll(const std::string& path) {
    std::stringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
  }

  testing_support::TempFolder folder;
  std::string home = folder.MakeFolder("home"), program = folder.MakeFolder("program");
};

TEST_F(PlayConsoleTest, AMissingFileIsAWrongCommandLineAndNoSoundCardEndsWithTheSorryBox) {
  Outcome missing = Run("play 42");
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.err, "vantrelle-cli: no file with FileID 42 in the catalogue\n");

  if (fs::exists("/dev/snd")) GTEST_SKIP() << "this machine may have a sound card";
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v2.mp3", home + "/a song.mp3");
  sqlite3* db = nullptr;
  sqlite3_open((program + "/Quillora.db").c_str(), &db);
  ASSERT_EQ(sqlite3_exec(
                db,
                "INSERT INTO MediaVolumes(VolID,VolType,DrvLtr) VALUES (1,3,'C');"
                "INSERT INTO MediaPaths(PathID,VolID,FullPath) VALUES (1,1,'\\');"
                "INSERT INTO MediaFiles(FileID,VolID,PathID,FileName) VALUES (1,1,1,'a song.mp3');",
                nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(db);
  Outcome played = Run("play 1 --seconds 30");
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.out, "Sorry, unable to play media file.\n");
  EXPECT_NE(played.err.find("vantrelle-cli: No audio output"), std::string::npos) << played.err;
}

}  // namespace
