#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "scan/DiscoveryScan.h"
#include "scan/WorkerProgress.h"
#include "tests/scan/ScanFixture.h"

namespace {

namespace fs = std::filesystem;
using FolderMap = std::map<std::string, int>;

TEST_F(ScanTest, RecordsExactlyTheFoldersWithAudioBelowThemAndReadsTheirTags) {
  Put("c/Music/A/B/C/deep.mp3", "id3v2.mp3");
  Put("c/Music/Rock/Song.ogg", "vorbis.ogg");
  Put("c/Music/Rock/LOUD.WMA", "LOUD.WMA");
  Put("c/Music/Rock/quiet.wma", "quiet.wma");
  Put("c/Music/Rock/cover.flac", "lossless.flac");  // not a catalogued type
  folder.WriteFile("c/Music/Docs/readme.txt", "no music here");
  folder.MakeFolder("c/Music/Empty");
  Scan(3, "C:\\Music\\");

  const FolderMap folders = CataloguedFolders();
  EXPECT_EQ(folders.size(), 5u);
  for (const char* path : {"\\Music\\", "\\Music\\A\\", "\\Music\\A\\B\\", "\\Music\\A\\B\\C\\",
                           "\\Music\\Rock\\"})
    EXPECT_TRUE(folders.count(path)) << path;
  auto root = db.GetPath(folders.at("\\Music\\"));
  EXPECT_EQ(root->ParentID, -1);
  EXPECT_EQ(root->Name, "Music");
  EXPECT_EQ(db.GetPath(folders.at("\\Music\\A\\B\\"))->ParentID, folders.at("\\Music\\A\\"));

  const auto files = CataloguedFiles();
  ASSERT_EQ(files.size(), 4u);
  auto deep = db.GetFile(files.at("\\Music\\A\\B\\C\\deep.mp3"));
  EXPECT_EQ(deep->Type, 1);
  EXPECT_EQ(deep->ScanState, 2);
  EXPECT_EQ(deep->id3Title, "Trailing Blanks");
  EXPECT_EQ(deep->id3Artist, "Ηλέκτρα Νικολάου");
  EXPECT_EQ(deep->SampleRate, 44100);
  auto ogg = db.GetFile(files.at("\\Music\\Rock\\Song.ogg"));
  EXPECT_EQ(ogg->Type, 2);
  EXPECT_EQ(ogg->id3Title, "  Leading Blanks");
  auto loud = db.GetFile(files.at("\\Music\\Rock\\LOUD.WMA"));
  EXPECT_EQ(loud->Type, 3);
  EXPECT_EQ(loud->id3Title, "Upper Case WMA");
  // A name ending in lower-case "wma" is left unread.
  auto quiet = db.GetFile(files.at("\\Music\\Rock\\quiet.wma"));
  EXPECT_EQ(quiet->ScanState, 0);
  EXPECT_EQ(quiet->id3Title, "");

  auto volume = db.GetVolume(db.GetPathVolume(folders.at("\\Music\\")));
  EXPECT_EQ(volume->VolType, 3);
  EXPECT_EQ(volume->DrvLtr, "C");
  EXPECT_EQ(volume->Name, "c");
}

TEST_F(ScanTest, RescansKeepIdsAndEditsAndRemoveExactlyWhatVanished) {
  Put("c/Music/Rock/a.mp3", "id3v1.mp3");
  Put("c/Music/Rock/b.mp3", "SONG.MP3");
  Put("c/Music/Jazz/c.ogg", "vorbis.ogg");
  Put("c/Music/Jazz/Late/d.mp3", "ape.mp3");
  Scan(3, "C:\\Music\\");
  const FolderMap folders = CataloguedFolders();
  const auto files = CataloguedFiles();

  auto edited = db.GetFile(files.at("\\Music\\Rock\\a.mp3"));
  edited->Title = "My Title";
  edited->Rating = 5;
  db.UpdateFileUserInfo(*edited);

  std::vector<std::string> read;
  reader.beforeRead = [&](const std::string& path) { read.push_back(path); };
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(CataloguedFolders(), folders);
  EXPECT_EQ(CataloguedFiles(), files);
  EXPECT_TRUE(read.empty());  // nothing is read twice
  EXPECT_EQ(db.QueryInt("SELECT count(*) FROM MediaFiles WHERE DirtyBit<>0;"), 0);
  EXPECT_EQ(db.QueryInt("SELECT count(*) FROM MediaPaths WHERE DirtyBit<>0;"), 0);

  fs::remove(folder.Path() + "/c/Music/Rock/b.mp3");
  fs::remove_all(folder.Path() + "/c/Music/Jazz/Late");
  Put("c/Music/Rock/new.mp3", "id3v2.mp3");
  Scan(3, "C:\\Music\\");
  auto after = CataloguedFiles();
  EXPECT_FALSE(after.count("\\Music\\Rock\\b.mp3"));
  EXPECT_FALSE(after.count("\\Music\\Jazz\\Late\\d.mp3"));
  EXPECT_FALSE(CataloguedFolders().count("\\Music\\Jazz\\Late\\"));
  EXPECT_EQ(after.at("\\Music\\Rock\\a.mp3"), files.at("\\Music\\Rock\\a.mp3"));
  EXPECT_EQ(after.at("\\Music\\Jazz\\c.ogg"), files.at("\\Music\\Jazz\\c.ogg"));
  EXPECT_EQ(read, std::vector<std::string>{"C:\\Music\\Rock\\new.mp3"});
  auto kept = db.GetFile(files.at("\\Music\\Rock\\a.mp3"));
  EXPECT_EQ(kept->Title, "My Title");
  EXPECT_EQ(kept->Rating, 5);
}

TEST_F(ScanTest, OddNamesAreStoredExactlyAndSiblingsDifferingInCaseStaySeparate) {
  Put("c/Music/It's 100%_é/Don't 50%_x.mp3", "id3v1.mp3");
  Put("c/Music/Rock/a.mp3", "id3v1.mp3");
  Put("c/Music/ROCK/b.mp3", "id3v1.mp3");
  Put("c/Music/a_c/c.mp3", "id3v1.mp3");
  Put("c/Music/abc/d.mp3", "id3v1.mp3");
  folder.WriteFile("c/Music/Rock/back\\slash.mp3", "skipped: no drive path can name it");
  Scan(3, "C:\\Music\\");
  const auto files = CataloguedFiles();
  EXPECT_EQ(files.size(), 5u);
  EXPECT_TRUE(files.count("\\Music\\It's 100%_é\\Don't 50%_x.mp3"));

  // A rescan of one folder never touches its look-alike siblings.
  Scan(3, "C:\\Music\\Rock\\");
  Scan(3, "C:\\Music\\a_c\\");
  EXPECT_EQ(CataloguedFiles(), files);
}

TEST_F(ScanTest, ALoopOfLinksIsEnteredOnce) {
  Put("c/Music/A/a.mp3", "id3v1.mp3");
  fs::create_directory_symlink(folder.Path() + "/c/Music", folder.Path() + "/c/Music/A/back");
  fs::create_directory_symlink(folder.Path() + "/c/Music/A", folder.Path() + "/c/Music/A/self");
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(CataloguedFolders().size(), 2u);
  EXPECT_EQ(CataloguedFiles().size(), 1u);
}

TEST_F(ScanTest, CancelDuringRecordingStillSweepsWhatWasNotVisited) {
  Put("c/Music/A/a.mp3", "id3v1.mp3");
  Put("c/Music/B/b.mp3", "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  ASSERT_EQ(CataloguedFiles().size(), 2u);

  // The scan as the worker runs it, cancelled before the first folder.
  WorkerProgress progress;
  DiscoveryScan discovery(db, drives, progress);
  const int volId = discovery.FindOrAddVolume("C:\\Music\\");
  discovery.MarkMediaFolders("C:\\Music\\");
  discovery.MarkSubtreeDirty("C:\\Music\\", volId);
  progress.cancel = true;
  EXPECT_EQ(discovery.ScanFolder("C:\\Music\\", -1, volId), 0);
  discovery.SweepSubtree("C:\\Music\\", volId);
  EXPECT_TRUE(CataloguedFiles().empty());
  EXPECT_TRUE(CataloguedFolders().empty());
  EXPECT_EQ(discovery.FindOrAddFile("C:\\Music\\A\\gone.mp3", 1, volId), -1);
}

TEST_F(ScanTest, CancelDuringTheTagPhaseKeepsWhatWasStoredAndProgressRunsPerFolder) {
  for (const char* name : {"1.mp3", "2.mp3", "3.mp3", "4.mp3"}) Put(std::string("c/Four/") + name, "id3v1.mp3");
  // Tags are read ahead on other threads; what counts is when the worker stores them.
  std::function<void()> onStore;
  db.ObserveStatements([&](const char* sql) {
    if (std::string(sql).starts_with("UPDATE MediaFiles SET id3Title=") && onStore) onStore();
  });
  std::vector<int> progressSeen;
  onStore = [&] { progressSeen.push_back(scanner.Progress().progress); };
  Scan(3, "C:\\Four\\");
  EXPECT_EQ(progressSeen, (std::vector<int>{0, 0, 25, 50}));
  EXPECT_EQ(scanner.Progress().progress, 75);

  for (const char* name : {"5.mp3", "6.mp3", "7.mp3"}) Put(std::string("c/Four/") + name, "id3v1.mp3");
  int stored = 0;
  onStore = [&] {
    if (++stored == 1) scanner.Progress().cancel = true;
  };
  Scan(3, "C:\\Four\\");
  EXPECT_EQ(stored, 1);
  EXPECT_EQ(db.QueryInt("SELECT count(*) FROM MediaFiles WHERE ScanState=2;"), 5);
  EXPECT_EQ(db.QueryInt("SELECT count(*) FROM MediaFiles WHERE ScanState=0;"), 2);
  onStore = nullptr;
  Scan(3, "C:\\Four\\");  // the next scan completes it
  EXPECT_EQ(db.QueryInt("SELECT count(*) FROM MediaFiles WHERE ScanState=2;"), 7);
  db.ObserveStatements(nullptr);
}

TEST_F(ScanTest, BrokenAudioFilesGetNoTagsAndDoNotStopTheScan) {
  Put("c/Odd/misnamed.ogg", "misnamed.ogg");
  Put("c/Odd/empty.mp3", "empty.mp3");
  Put("c/Odd/good.mp3", "id3v1.mp3");
  Scan(3, "C:\\Odd\\");
  const auto files = CataloguedFiles();
  ASSERT_EQ(files.size(), 3u);
  EXPECT_EQ(db.GetFile(files.at("\\Odd\\misnamed.ogg"))->id3Title, "");
  EXPECT_EQ(db.GetFile(files.at("\\Odd\\empty.mp3"))->ScanState, 2);
  EXPECT_EQ(db.GetFile(files.at("\\Odd\\good.mp3"))->id3Title, "Café Müller");
}

using ScanDeathTest = ScanTest;

TEST_F(ScanDeathTest, AReaderFailureEndsTheProgramAndTheTagPhaseIsLost) {
  // Forked without re-running the test, so that the parent sees the child's files.
  GTEST_FLAG_SET(death_test_style, "fast");
  Put("c/Music/a.mp3", "id3v1.mp3");
  Put("c/Music/b.mp3", "id3v1.mp3");
  EXPECT_EXIT(
      {
        messages.OnShow([](const testing_support::ShownMessage& m) {
          std::fprintf(stderr, "box: %s\n", m.text.c_str());
        });
        int reads = 0;
        reader.beforeRead = [&](const std::string&) {
          if (++reads == 2) throw std::runtime_error("reader fault");
        };
        Scan(3, "C:\\Music\\");
      },
      ::testing::KilledBySignal(SIGABRT), "box: \\*\\*\\*\\* GetTag\\(\\) EXCEPTION \\*\\*\\*\\*");

  MediaDB reopened;
  reopened.Open(folder.Path() + "/");
  EXPECT_EQ(reopened.QueryInt("SELECT count(*) FROM MediaFiles;"), 2);
  EXPECT_EQ(reopened.QueryInt("SELECT count(*) FROM MediaFiles WHERE ScanState<>0;"), 0);
  EXPECT_EQ(reopened.QueryInt("SELECT count(*) FROM MediaFiles WHERE id3Title IS NOT NULL;"), 0);
}

}  // namespace
