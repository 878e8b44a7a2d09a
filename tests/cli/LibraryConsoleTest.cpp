// The library tree, the media list and the editing dialogs from the console.
#include <algorithm>
#include <sstream>

#include "tests/cli/ConsoleFixture.h"

namespace {

namespace fs = std::filesystem;

class LibraryConsoleTest : public ConsoleFixture {
 protected:
  LibraryConsoleTest() {
    fs::create_directories(home + "/Music/Rock");
    fs::create_directories(home + "/Music/Pop");
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Music/Rock/a.mp3");
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/vorbis.ogg", home + "/Music/Pop/b.ogg");
    Run("add-hd " + home + "/Music");
    Query("INSERT INTO PlayLists(Name,FileIDs) VALUES ('Mix\tTape','2,9,2');");
  }
};

TEST_F(LibraryConsoleTest, TreeListsAndSearchPrintWhatTheWindowShows) {
  EXPECT_EQ(Run("tree").out,
            "All Media\t70000002\n  CDs\t60000005\n  Local Disks\t60000003\n"
            "    [C:] home\t50000001\n      Music\t1\n        Pop\t2\n        Rock\t3\n"
            "\t70000001\nSearch Results\t70000003\n\t70000001\nPlay Lists\t70000004\n"
            "  Mix Tape\t80000001\n");
  const std::string heading = "FileID\tSong\tArtist\tFileName\tRating\tLength\tVolume\n";
  const std::string rock = "2\tCafé Müller\tDara O'Neill\ta.mp3\t          \t 0:01\t[drive C:]\n";
  EXPECT_EQ(Run("list folder 3").out, heading + rock);
  const Outcome playList = Run("list playlist 1");
  EXPECT_EQ(std::count(playList.out.begin(), playList.out.end(), '\n'), 3);
  EXPECT_EQ(Run("search \"'Neill  \"").out, heading + rock + "1 file found.\n");
  Outcome missing = Run("list folder 50000001");
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.err, "vantrelle-cli: no folder with PathID 50000001 in the library tree\n");
}

TEST_F(LibraryConsoleTest, AScanRecordsFoldersAndFilesInNameOrderWhateverTheDiskOrder) {
  const std::vector<std::string> names{"b", "C", "a", "B", "10", "1"};
  for (const std::string& name : names) {
    fs::create_directories(home + "/Sorted/" + name);
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Sorted/" + name + "/x.mp3");
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Sorted/" + name + ".mp3");
  }
  Run("add-hd " + home + "/Sorted");
  // Ids are handed out in the order the rows are recorded.
  EXPECT_EQ(Query("SELECT Name FROM MediaPaths WHERE ParentID="
                  "(SELECT PathID FROM MediaPaths WHERE FullPath='\\Sorted\\') ORDER BY PathID;"),
            "1;10;a;B;b;C;");
  EXPECT_EQ(Query("SELECT FileName FROM MediaFiles WHERE PathID="
                  "(SELECT PathID FROM MediaPaths WHERE FullPath='\\Sorted\\') ORDER BY FileID;"),
            "1.mp3;10.mp3;a.mp3;B.mp3;b.mp3;C.mp3;");

  // What a rescan finds later takes its place by name, not at the end.
  fs::create_directories(home + "/Sorted/Ab");
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Sorted/Ab/x.mp3");
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Sorted/ab.mp3");
  std::string sorted = Query("SELECT PathID FROM MediaPaths WHERE FullPath='\\Sorted\\';");
  sorted.pop_back();  // the row's ";"
  ASSERT_EQ(Run("rescan folder " + sorted).status, 0);
  // The field of each line that starts with the prefix, up to its tab.
  const auto fields = [](const std::string& text, const std::string& prefix, int field) {
    std::string found;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      if (!line.starts_with(prefix) || line[prefix.size()] == ' ') continue;
      std::istringstream cells(line.substr(prefix.size()));
      std::string cell;
      for (int i = 0; i <= field; ++i) std::getline(cells, cell, '\t');
      found += cell + ";";
    }
    return found;
  };
  const std::string tree = Run("tree").out;
  const std::size_t below = tree.find("      Sorted\t");
  ASSERT_NE(below, std::string::npos) << tree;
  const std::string sortedTree = tree.substr(below, tree.find("\n      M", below) - below);
  EXPECT_EQ(fields(sortedTree, "        ", 0), "1;10;a;Ab;B;b;C;") << tree;
  EXPECT_EQ(fields(Run("list folder " + sorted).out, "", 3), "FileName;1.mp3;10.mp3;a.mp3;ab.mp3;B.mp3;b.mp3;C.mp3;");
}

TEST_F(LibraryConsoleTest, EditsAndRemovalsChangeTheCatalogueOnlyWhenConfirmed) {
  const Outcome shown = Run("file-info 2");
  EXPECT_EQ(shown.out.substr(0, shown.out.find("Comment")),
            "File: a.mp3\nTitle: Café Müller\nArtist: Dara O'Neill\nAlbum: First Light\n");
  EXPECT_NE(shown.out.find("Rating: \nMPEG Info\nLength:  0:01\nBit Rate: "), std::string::npos) << shown.out;
  EXPECT_NE(shown.out.find("\nPicture: none\n"), std::string::npos) << shown.out;
  EXPECT_EQ(Query("SELECT Title, Artist FROM MediaFiles WHERE FileID=2;"), "=;");
  Run("file-info 2 --artist Dara --rating 4");
  EXPECT_EQ(Query("SELECT Title, Artist, Rating FROM MediaFiles WHERE FileID=2;"), "=Dara=4;");
  Run("file-info 2 --no-rating");
  EXPECT_EQ(Query("SELECT Rating FROM MediaFiles WHERE FileID=2;"), "-1;");

  EXPECT_EQ(Run("volume-info 1 --description 'Home disk'").out,
            "Display Name: home\nVolume Name: home\nDescription: Home disk\n");
  EXPECT_EQ(Query("SELECT DisplayName, Description FROM MediaVolumes;"), "home=Home disk;");

  // Another disk in the drive: nothing is scanned and no volume is added.
  std::string serial = Query("SELECT SerialNo FROM MediaVolumes;");
  serial.pop_back();
  folder.WriteFile("home/.windows-serial", "1234ABCD");
  for (const char* rescan : {"rescan volume 1", "rescan folder 3"}) {
    const Outcome other = Run(rescan);
    EXPECT_EQ(other.status, 1);
    EXPECT_EQ(other.out, "Drive C: holds another volume, not \"home\" (serial " + serial + "). Nothing was scanned.\n");
  }
  EXPECT_EQ(Query("SELECT count(*) FROM MediaVolumes;"), "1;");
  fs::remove(home + "/.windows-serial");

  fs::remove(home + "/Music/Rock/a.mp3");
  EXPECT_EQ(Run("rescan folder 3").out, "Scan Complete.\n");
  EXPECT_EQ(Query("SELECT FileName FROM MediaFiles;"), "b.ogg;");

  EXPECT_EQ(Run("remove folder 1").out, "Remove Path from database?\n");
  EXPECT_EQ(Query("SELECT count(*) FROM MediaPaths;"), "2;");
  Run("--yes remove folder 1");
  EXPECT_EQ(Query("SELECT count(*) FROM MediaPaths;") + Query("SELECT count(*) FROM MediaFiles;"), "0;0;");
  Run("--yes remove playlist 1");
  EXPECT_EQ(Query("SELECT count(*) FROM PlayLists;"), "0;");
  EXPECT_EQ(Run("file-info 9").status, 2);
}

// A disk that is not there is "not at hand", as a disc out of its drive is:
// its letter leads nowhere, or to another disk.
TEST_F(LibraryConsoleTest, FileInfoOfAFileOnAnAbsentDiskSaysItIsNotAtHand) {
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/art.jpg", home + "/Music/Rock/folder.jpg");
  EXPECT_NE(Run("file-info 2").out.find("\nPicture: folder.jpg\n"), std::string::npos);
  fs::rename(home, folder.Path() + "/away");
  EXPECT_NE(Run("file-info 2").out.find("\nPicture: not at hand\n"), std::string::npos);
  fs::rename(folder.Path() + "/away", home);
  // Another disk on the letter, holding the same folders.
  fs::remove(program + "/drives/c:");
  const std::string other = folder.MakeFolder("other");
  fs::copy(home + "/Music", other + "/Music", fs::copy_options::recursive);
  folder.WriteFile("other/.windows-serial", "1234ABCD\n");
  fs::create_directory_symlink(other, program + "/drives/c:");
  const Outcome elsewhere = Run("file-info 2");
  EXPECT_EQ(elsewhere.status, 0);
  EXPECT_NE(elsewhere.out.find("\nPicture: not at hand\n"), std::string::npos) << elsewhere.out;
}

TEST_F(LibraryConsoleTest, AddHdOfASystemFolderAddsNothingNotEvenADriveLetter) {
  EXPECT_EQ(Run("add-hd /proc").out, "The folder Z:\\proc\\ holds system files and is not scanned.\n");
  EXPECT_EQ(Run("drives").out.find("/proc"), std::string::npos);
  EXPECT_EQ(Query("SELECT count(*) FROM MediaVolumes;") + Query("SELECT count(*) FROM MediaPaths;"), "1;3;");
}

}  // namespace
