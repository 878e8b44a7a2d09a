// save-playlist, copy and clear-cache run as a user runs them.
#include "tests/cli/ConsoleFixture.h"

namespace {

namespace fs = std::filesystem;
using PlayListConsoleTest = ConsoleFixture;

TEST_F(PlayListConsoleTest, SavesCopiesAndClearsTheCache) {
  for (const char* name : {"Rock", "Jazz"}) {
    fs::create_directories(home + "/Music/" + name);
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Music/" + name + "/a.mp3");
  }
  ASSERT_EQ(Run("add-hd " + home + "/Music").status, 0);
  ASSERT_EQ(Query("SELECT FileID FROM MediaFiles;"), "1;2;");

  EXPECT_EQ(Run("save-playlist 'Late; night' 2 1 2").status, 0);
  EXPECT_EQ(Query("SELECT Name, FileIDs FROM PlayLists;"), "Late; night=2,1;");
  Outcome unknown = Run("copy --cache 1 77");
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.err, "vantrelle-cli: no file with FileID 77 in the catalogue\n");
  EXPECT_FALSE(fs::exists(home + "/QORCache/a.mp3"));

  Outcome cached = Run("copy --cache 1 2");
  EXPECT_EQ(cached.out, "File Copy Complete.\nalready there: a.mp3\n");  // both files are a.mp3
  EXPECT_NE(cached.err.find("100% C:\\Music\\"), std::string::npos) << cached.err;
  const std::string missing = Run("copy --to " + home + "/Out 1").out;
  EXPECT_TRUE(missing.starts_with("File Copy Complete.\nnot copied: C:\\Music\\")) << missing;
  EXPECT_TRUE(missing.ends_with("\\a.mp3: target folder missing\n")) << missing;
  fs::create_directory(home + "/Out");
  EXPECT_EQ(Run("copy --to 'C:\\Out' 1").out, "File Copy Complete.\n");
  EXPECT_TRUE(fs::exists(home + "/Out/a.mp3"));
  EXPECT_EQ(Query("SELECT Value FROM Configs WHERE ConfigID=605;"), "C:\\Out;");
  EXPECT_EQ(Run("copy 1").status, 2);

  fs::create_directory(home + "/QORCache/Keep");
  EXPECT_EQ(Run("clear-cache").out, "Delete all files in cache?\n");
  EXPECT_TRUE(fs::exists(home + "/QORCache/a.mp3"));
  EXPECT_EQ(Run("--yes clear-cache").status, 0);
  EXPECT_FALSE(fs::exists(home + "/QORCache/a.mp3"));
  EXPECT_TRUE(fs::exists(home + "/QORCache/Keep"));
}

}  // namespace
