#include <gtest/gtest.h>
#include <sys/stat.h>
#include <taglib/mpegfile.h>
#include <taglib/vorbisfile.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "base/MessageText.h"
#include "base/WorkerProgress.h"
#include "scan/DiscoveryScan.h"
#include "scan/ScanReport.h"
#include "tests/scan/ScanFixture.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/PermissionsHold.h"

namespace {

namespace fs = std::filesystem;
using FolderMap = std::map<std::string, int>;

template <class TaggedFile>
void SetTrack(const std::string& path, unsigned int track) {
  TaggedFile file(path.c_str(), false);
  file.tag()->setTrack(track);
  ASSERT_TRUE(file.save());
}

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
  for (const char* path : {"\\Music\\", "\\Music\\A\\", "\\Music\\A\\B\\", "\\Music\\A\\B\\C\\", "\\Music\\Rock\\"})
    EXPECT_TRUE(folders.count(path)) << path;
  auto root = db.GetPath(folders.at("\\Music\\"));
  EXPECT_EQ(root->ParentID, -1);
  EXPECT_EQ(db.GetPath(folders.at("\\Music\\A\\B\\"))->ParentID, folders.at("\\Music\\A\\"));

  const auto files = CataloguedFiles();
  ASSERT_EQ(files.size(), 4u);
  auto deep = db.GetFile(files.at("\\Music\\A\\B\\C\\deep.mp3"));
  EXPECT_EQ(deep->Type, 1);
  EXPECT_EQ(deep->ScanState, 2);
  EXPECT_EQ(deep->id3Title, "Trailing Blanks");
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
  EXPECT_EQ(scanner.Report().Found(),
            "Found 5 folders: 4 files added, 0 files removed, 0 files could not be read. "
            "1 WMA file named in lower case was not read.");
  // With every format it is read like the others.
  Scan(3, "C:\\Music\\", AudioFormats::Every);
  quiet = db.GetFile(files.at("\\Music\\Rock\\quiet.wma"));
  EXPECT_EQ(quiet->ScanState, 2);
  EXPECT_NE(quiet->id3Title, "");
  EXPECT_EQ(scanner.Report().Found().find("WMA"), std::string::npos);

  auto volume = db.GetVolume(db.GetPathVolume(folders.at("\\Music\\")));
  EXPECT_EQ(volume->VolType, 3);
  EXPECT_EQ(volume->DrvLtr, "C");
  EXPECT_EQ(volume->Name, "c");
}

// The track numbers live beside the stamps, not in MediaFiles: a rescan that
// stamps the files anew keeps them, and a changed tag is read again.
TEST_F(ScanTest, TrackNumbersComeFromTheTagsAndAChangedTagIsReadAgain) {
  Put("c/Music/a.mp3", "id3v2.mp3");
  Put("c/Music/b.ogg", "vorbis.ogg");
  Put("c/Music/c.mp3", "id3v1.mp3");
  const std::string music = folder.Path() + "/c/Music/";
  SetTrack<TagLib::MPEG::File>(music + "a.mp3", 7);
  SetTrack<TagLib::Ogg::Vorbis::File>(music + "b.ogg", 12);
  Scan(3, "C:\\Music\\");
  const auto files = CataloguedFiles();
  const IdList ids{files.at("\\Music\\a.mp3"), files.at("\\Music\\b.ogg"), files.at("\\Music\\c.mp3")};
  const auto tracks = [&] {
    std::vector<int> numbers;
    for (const MediaListRow& row : db.FileListRows(ids)) numbers.push_back(row.Track);
    return numbers;
  };
  EXPECT_EQ(tracks(), (std::vector<int>{7, 12, 0}));
  EXPECT_EQ(db.GetFolderListRows(db.GetFile(ids[0])->PathID).at(0).Track, 7);

  // b.ogg as read before stamps were kept: it gains one, not read again.
  const std::string b = std::to_string(ids[1]);
  testing_support::RunSql(db, "UPDATE vantrelle_file_stamps SET ModifiedNs=NULL,Size=NULL WHERE FileID=" + b + ";");
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT Size>0 FROM vantrelle_file_stamps WHERE FileID=" + b + ";"), 1);
  EXPECT_EQ(tracks(), (std::vector<int>{7, 12, 0}));
  SetTrack<TagLib::MPEG::File>(music + "a.mp3", 3);
  testing_support::RunSql(db, "UPDATE vantrelle_file_stamps SET ModifiedNs=1 WHERE FileID=" + std::to_string(ids[0]) +
                                  ";");  // as if older than the edit
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(tracks(), (std::vector<int>{3, 12, 0}));
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

  std::vector<std::string> read, changes;
  reader.beforeRead = [&](const std::string& path) { read.push_back(path); };
  db.ObserveStatements([&](const char* sql) {
    const std::string text = sql;
    if (text.starts_with("UPDATE") || text.starts_with("INSERT") || text.starts_with("DELETE")) changes.push_back(text);
  });
  Scan(3, "C:\\Music\\");
  db.ObserveStatements({});
  EXPECT_EQ(changes, std::vector<std::string>{});  // nothing changed, nothing written
  EXPECT_EQ(CataloguedFolders(), folders);
  EXPECT_EQ(CataloguedFiles(), files);
  EXPECT_TRUE(read.empty());  // nothing is read twice

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
  EXPECT_EQ(read, std::vector<std::string>{folder.Path() + "/c/Music/Rock/new.mp3"});
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
  folder.WriteFile("c/Music/Rock/back\\slash.txt", "not audio: not worth a word");
  Put("c/Music/AC\\DC/e.mp3", "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(scanner.Report().Notes(), "1 file and 1 folder were skipped for their names.");
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

TEST_F(ScanTest, TheWalkStaysBelowTheRootAndOutOfTheDrivesAndSystemFolders) {
  Put("c/Music/A/a.mp3", "id3v1.mp3");
  Put("elsewhere/l.mp3", "id3v1.mp3");
  Put("f/f.mp3", "id3v1.mp3");
  testDrives.AddFixed('F', folder.Path() + "/f");
  const std::string music = folder.Path() + "/c/Music/";
  // Only "linked" leads somewhere new; "/" and the program folder lie above the root.
  // Audio in /dev/shm, a file system of its own below /dev.
  const std::string shm = "/dev/shm/vantrelle-test-" + std::to_string(getpid());
  std::vector<std::string> system;
  if (fs::is_directory("/dev/shm")) {
    system.push_back(shm);
    fs::create_directories(shm);
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", shm + "/s.mp3");
    fs::create_directory_symlink(shm, music + "shm");
  }
  const std::pair<std::string, const char*> links[] = {
      {folder.Path() + "/elsewhere", "linked"}, {"/", "machine"},  {folder.Path(), "program"},
      {folder.Path() + "/drives", "drives"},    {"/proc", "proc"}, {"/proc/self/fd", "fd"}};
  for (const auto& [target, name] : links) fs::create_directory_symlink(target, music + name);
  Scan(3, "C:\\Music\\");
  for (const std::string& made : system) fs::remove_all(made);
  std::vector<std::string> paths;
  for (const auto& [path, id] : CataloguedFolders()) paths.push_back(path);
  EXPECT_EQ(paths, (std::vector<std::string>{"\\Music\\", "\\Music\\A\\", "\\Music\\linked\\"}));

  // A root that is, or lies in, a system folder records nothing.
  for (const char* root : {"C:\\Music\\proc\\self\\", "C:\\Music\\fd\\"}) {
    Scan(3, root);
    EXPECT_EQ(scanner.Report().Refusal(), FillMessage(ScanReport::kSystemFolder, {root}));
  }
  EXPECT_EQ(CataloguedFolders().size(), 3u);
}

TEST_F(ScanTest, OnlyRegularFilesAreRecordedAndNothingElseIsEverRead) {
  Put("c/Music/a.mp3", "id3v1.mp3");
  Put("c/Music/b.mp3", "id3v2.mp3");
  const std::string music = folder.Path() + "/c/Music/";
  ASSERT_EQ(mkfifo((music + "x.mp3").c_str(), 0600), 0);
  fs::create_symlink(music + "a.mp3", music + "alias.mp3");
  fs::create_symlink(music + "gone.mp3", music + "broken.mp3");
  fs::create_symlink("/dev/zero", music + "zero.mp3");
  // b.mp3 becomes a pipe after it was recorded, just before its tags are read.
  reader.beforeRead = [&](const std::string& path) {
    if (!path.ends_with("b.mp3")) return;
    fs::remove(music + "b.mp3");
    mkfifo((music + "b.mp3").c_str(), 0600);
  };
  Scan(3, "C:\\Music\\");
  auto files = CataloguedFiles();
  EXPECT_EQ(files.size(), 3u);
  EXPECT_EQ(db.GetFile(files.at("\\Music\\alias.mp3"))->id3Title, "Café Müller");
  EXPECT_EQ(db.GetFile(files.at("\\Music\\b.mp3"))->id3Title, "");
  reader.beforeRead = nullptr;
  Scan(3, "C:\\Music\\");  // now a pipe: gone from the catalogue
  EXPECT_FALSE(CataloguedFiles().count("\\Music\\b.mp3"));
}

TEST_F(ScanTest, FoldersThatCannotBeListedKeepTheirRowsWhenEverTheListingFails) {
  for (const char* path : {"c/Music/a.mp3", "c/Music/Locked/b.mp3", "c/Music/Locked/Deep/c.mp3", "c/Music/Later/d.mp3",
                           "c/Music/Later/Sub/e.mp3", "c/Music/Gone/f.mp3"})
    Put(path, "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  const FolderMap folders = CataloguedFolders();
  const auto files = CataloguedFiles();
  ASSERT_EQ(files.size(), 6u);

  fileSystem.FailFrom("C:\\Music\\Locked\\");
  fileSystem.FailFrom("C:\\Music\\Later\\");
  fs::remove_all(folder.Path() + "/c/Music/Gone");
  fs::remove(folder.Path() + "/c/Music/a.mp3");
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(scanner.Report().Notes(), "2 folders could not be read; their entries were kept.");
  auto after = CataloguedFiles();
  EXPECT_EQ(after.size(), 4u);  // a.mp3 and the vanished folder's file are gone
  for (const char* kept : {"\\Music\\Locked\\b.mp3", "\\Music\\Locked\\Deep\\c.mp3", "\\Music\\Later\\d.mp3",
                           "\\Music\\Later\\Sub\\e.mp3"})
    EXPECT_EQ(after[kept], files.at(kept)) << kept;
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM MediaPaths WHERE DirtyBit<>0;"), 0);

  // A root that cannot be listed keeps everything; healed, nothing is new.
  fileSystem.Heal();
  fileSystem.FailFrom("C:\\Music\\");
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(scanner.Report().Notes(), "1 folder could not be read; its entries were kept.");
  EXPECT_EQ(CataloguedFiles(), after);
  fileSystem.Heal();
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(CataloguedFiles(), after);
  EXPECT_EQ(CataloguedFolders().at("\\Music\\Later\\Sub\\"), folders.at("\\Music\\Later\\Sub\\"));
}

TEST_F(ScanTest, ARootThatIsNotThereKeepsItsRowsAndAddsNoVolume) {
  Put("c/Music/a.mp3", "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  fs::rename(folder.Path() + "/c/Music", folder.Path() + "/c/Moved");
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(scanner.Report().Refusal(), "The folder C:\\Music\\ is not there. Its entries were kept.");
  EXPECT_EQ(CataloguedFiles().size(), 1u);
  testDrives.AddFixed('G', folder.Path() + "/unplugged");  // not ready: no volume of serial 0
  Scan(3, "G:\\");
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM MediaVolumes;"), 1);
}

// Real permission bits, not a listing made to fail: the rows stay, and once
// readable again they are the same rows (new ones would have new ids).
TEST_F(ScanTest, AFolderLockedByItsPermissionsKeepsItsRows) {
  Put("c/Music/Open/a.mp3", "id3v1.mp3");
  Put("c/Music/Locked/Deep/c.mp3", "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  const auto files = CataloguedFiles();
  const std::string locked = folder.Path() + "/c/Music/Locked";
  fs::permissions(locked, fs::perms::none);
  const bool held = testing_support::RunWherePermissionsHold(locked, [&] { Scan(3, "C:\\Music\\"); });
  fs::permissions(locked, fs::perms::owner_all);
  if (!held) GTEST_SKIP() << "permission bits do not stop this process";
  EXPECT_EQ(scanner.Report().Notes(), "1 folder could not be read; its entries were kept.");
  EXPECT_EQ(CataloguedFiles(), files);
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(CataloguedFiles(), files);
}

TEST_F(ScanTest, CancelDuringRecordingStillSweepsWhatWasNotVisited) {
  Put("c/Music/A/a.mp3", "id3v1.mp3");
  Put("c/Music/B/b.mp3", "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  ASSERT_EQ(CataloguedFiles().size(), 2u);

  // The scan as the worker runs it, cancelled before the first folder.
  WorkerProgress progress;
  ScanReport report;
  DiscoveryScan discovery(db, drives, progress, report);
  const int volId = discovery.FindOrAddVolume("C:\\Music\\");
  discovery.BeginWalk("C:\\Music\\");
  discovery.MarkSubtreeDirty("C:\\Music\\", volId);
  progress.cancel = true;
  EXPECT_EQ(discovery.RecordMediaFolders("C:\\Music\\", volId), 0);
  discovery.SweepSubtree("C:\\Music\\", volId);
  EXPECT_TRUE(CataloguedFiles().empty());
  EXPECT_TRUE(CataloguedFolders().empty());
}

TEST_F(ScanTest, CancelDuringTheTagPhaseKeepsWhatWasStoredAndProgressFollowsTheCount) {
  for (const char* name : {"1.mp3", "2.mp3", "3.mp3", "4.mp3"}) Put(std::string("c/Four/") + name, "id3v1.mp3");
  Put("c/Four/More/5.mp3", "id3v1.mp3");
  // Tags are read ahead on other threads; what counts is when the worker stores them.
  std::function<void()> onStore;
  std::vector<int> progressWalking;
  db.ObserveStatements([&](const char* sql) {
    if (std::string(sql).starts_with("INSERT INTO MediaPaths")) progressWalking.push_back(scanner.Progress().progress);
    if (std::string(sql).starts_with("UPDATE MediaFiles SET id3Title=") && onStore) onStore();
  });
  std::vector<int> progressSeen;
  onStore = [&] { progressSeen.push_back(scanner.Progress().progress); };
  Scan(3, "C:\\Four\\");
  // The walk tells no share; then the bar counts files across folders.
  EXPECT_EQ(progressWalking, (std::vector<int>{WorkerProgress::kBusy, WorkerProgress::kBusy}));
  EXPECT_EQ(progressSeen, (std::vector<int>{0, 20, 40, 60, 80}));
  EXPECT_EQ(scanner.Progress().progress, 100);
  EXPECT_EQ(scanner.Progress().Overall(), "5 of 5 files");
  std::filesystem::remove_all(folder.Path() + "/c/Four/More");

  for (const char* name : {"5.mp3", "6.mp3", "7.mp3"}) Put(std::string("c/Four/") + name, "id3v1.mp3");
  int stored = 0;
  onStore = [&] {
    if (++stored == 1) scanner.Progress().cancel = true;
  };
  Scan(3, "C:\\Four\\");
  EXPECT_EQ(stored, 1);
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM MediaFiles WHERE ScanState=2;"), 5);
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM MediaFiles WHERE ScanState=0;"), 2);
  onStore = nullptr;
  Scan(3, "C:\\Four\\");  // the next scan completes it
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM MediaFiles WHERE ScanState=2;"), 7);
  db.ObserveStatements(nullptr);
}

// Broken files get no tags and do not stop the scan; only a name ending in
// an audio ending (a bare "mp3" does not) makes a folder hold audio.
TEST_F(ScanTest, BrokenAudioFilesAndBareEndingsAreNoObstacle) {
  Put("c/Odd/misnamed.ogg", "misnamed.ogg");
  Put("c/Odd/empty.mp3", "empty.mp3");
  Put("c/Odd/good.mp3", "id3v1.mp3");
  Put("c/Odd/Bare/mp3", "id3v1.mp3");
  Put("c/Odd/Above/mp3", "id3v1.mp3");
  Put("c/Odd/Above/Below/a.mp3", "id3v1.mp3");
  Put("c/Odd/Dot/.mp3", "id3v1.mp3");
  Scan(3, "C:\\Odd\\");
  const auto files = CataloguedFiles();
  EXPECT_EQ(db.GetFile(files.at("\\Odd\\misnamed.ogg"))->id3Title, "");
  EXPECT_EQ(db.GetFile(files.at("\\Odd\\empty.mp3"))->ScanState, 2);
  EXPECT_EQ(db.GetFile(files.at("\\Odd\\good.mp3"))->id3Title, "Café Müller");
  for (const char* found : {"\\Odd\\Above\\mp3", "\\Odd\\Above\\Below\\a.mp3", "\\Odd\\Dot\\.mp3"})
    EXPECT_EQ(files.count(found), 1u) << found;
  EXPECT_EQ(files.size(), 6u);
  EXPECT_EQ(CataloguedFolders().count("\\Odd\\Bare\\"), 0u);
}

using ScanDeathTest = ScanTest;

TEST_F(ScanDeathTest, AReaderFailureEndsTheProgramAndTheTagPhaseIsLost) {
  // Forked without re-running the test, so that the parent sees the child's files.
  GTEST_FLAG_SET(death_test_style, "fast");
  Put("c/Music/a.mp3", "id3v1.mp3");
  Put("c/Music/b.mp3", "id3v1.mp3");
  EXPECT_EXIT(
      {
        messages.OnShow(
            [](const testing_support::ShownMessage& m) { std::fprintf(stderr, "box: %s\n", m.text.c_str()); });
        int reads = 0;
        reader.beforeRead = [&](const std::string&) {
          if (++reads == 2) throw std::runtime_error("reader fault");
        };
        Scan(3, "C:\\Music\\");
      },
      ::testing::KilledBySignal(SIGABRT), "box: \\*\\*\\*\\* GetTag\\(\\) EXCEPTION \\*\\*\\*\\*");

  MediaDB reopened;
  reopened.Open(folder.Path() + "/");
  EXPECT_EQ(testing_support::QueryNumber(reopened, "SELECT count(*) FROM MediaFiles;"), 2);
  EXPECT_EQ(testing_support::QueryNumber(reopened, "SELECT count(*) FROM MediaFiles WHERE ScanState<>0;"), 0);
  EXPECT_EQ(testing_support::QueryNumber(reopened, "SELECT count(*) FROM MediaFiles WHERE id3Title IS NOT NULL;"), 0);
}

}  // namespace
