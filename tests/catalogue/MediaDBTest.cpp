#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <thread>

#include "catalogue/CatalogueFailure.h"
#include "tests/catalogue/CatalogueFixture.h"
#include "tests/support/CatalogueRows.h"

namespace {

std::vector<std::string> SchemaObjects(const std::string& dbPath) {
  sqlite3* raw = nullptr;
  sqlite3_open(dbPath.c_str(), &raw);
  std::vector<std::string> names;
  sqlite3_exec(
      raw, "SELECT type || ' ' || name || ': ' || sql FROM sqlite_master ORDER BY name;",
      [](void* out, int, char** values, char**) {
        static_cast<std::vector<std::string>*>(out)->push_back(values[0]);
        return 0;
      },
      &names, nullptr);
  sqlite3_close(raw);
  return names;
}

IdList Sorted(IdList ids) {
  std::sort(ids.begin(), ids.end());
  return ids;
}

TEST_F(CatalogueTest, NewCatalogueHoldsExactlyTheFiveTablesAndItsOwnAdditions) {
  auto objects = SchemaObjects(folder.Path() + "/Quillora.db");
  const auto own = std::stable_partition(objects.begin(), objects.end(), [](const std::string& o) {
    return o.starts_with("table ") && !o.starts_with("table vantrelle_");
  });
  // Our own tables and indexes are named apart; the five tables keep the layout other programs read.
  std::vector<std::string> ownNames;
  for (auto it = own; it != objects.end(); ++it) ownNames.push_back(it->substr(0, it->find(':')));
  EXPECT_EQ(ownNames, (std::vector<std::string>{"table vantrelle_file_stamps", "index vantrelle_files_by_path",
                                                "index vantrelle_paths_by_parent", "index vantrelle_paths_by_volume",
                                                "table vantrelle_queue"}));
  objects.erase(own, objects.end());
  ASSERT_EQ(objects.size(), 5u);
  EXPECT_EQ(objects[0], "table Configs: CREATE TABLE Configs(ConfigID INTEGER, Value TEXT)");
  EXPECT_EQ(objects[1],
            "table MediaFiles: CREATE TABLE MediaFiles (  FileID INTEGER PRIMARY KEY,VolID "
            "INTEGER, PathID INTEGER,ScanState INTEGER,  FileName TEXT, Type INTEGER, Size "
            "INTEGER, DirtyBit INTEGER,  Title TEXT, Artist TEXT,Album TEXT, Rating "
            "INTEGER,Comment TEXT,  id3Title TEXT, id3Artist TEXT,id3Album,id3Genre TEXT,"
            "id3Comment TEXT,  Length INTEGER,BitRate INTEGER,SampleRate INTEGER,Channels "
            "INTEGER)");
  EXPECT_EQ(objects[4],
            "table PlayLists: CREATE TABLE PlayLists ( PlayListID INTEGER PRIMARY KEY, Name "
            "TEXT, FileIDs TEXT)");
  MediaDB again;
  EXPECT_EQ(again.Open(folder.Path() + "/"), 0);
}

TEST_F(CatalogueTest, ACatalogueWithoutIndexesGainsThemAndRemovesSubtreesInTwoStatements) {
  for (const char* index : {"vantrelle_files_by_path", "vantrelle_paths_by_parent", "vantrelle_paths_by_volume"})
    testing_support::RunSql(db, std::string("DROP INDEX ") + index + ";");
  const int vol = AddVolume("1", 3);
  const int music = AddPath(vol, "\\Music\\");
  const int rock = AddPath(vol, "\\Music\\Rock\\", music);
  AddFile(music, "a.mp3");
  AddFile(rock, "b.mp3");
  MediaDB reopened;
  ASSERT_EQ(reopened.Open(folder.Path() + "/"), 0);
  EXPECT_EQ(testing_support::QueryNumber(reopened, "SELECT count(*) FROM sqlite_master WHERE type='index';"), 3);

  std::vector<std::string> statements;
  reopened.ObserveStatements([&](const char* sql) { statements.emplace_back(sql); });
  reopened.DeletePathTree(music);
  reopened.ObserveStatements({});
  EXPECT_EQ(
      std::count_if(statements.begin(), statements.end(), [](const std::string& s) { return s.starts_with("DELETE"); }),
      2);
  EXPECT_EQ(testing_support::QueryNumber(reopened, "SELECT count(*) FROM MediaFiles;"), 0);
  EXPECT_EQ(testing_support::QueryNumber(reopened, "SELECT count(*) FROM MediaPaths;"), 0);
}

// Texts with quotes and odd letters round trip; missing rows read as empty,
// and columns never written stay NULL.
TEST_F(CatalogueTest, TextsRoundTripAndMissingRowsAndNullColumnsReadEmpty) {
  EXPECT_EQ(db.GetFile(99), nullptr);
  EXPECT_EQ(db.GetPathFullPath(99), "");
  EXPECT_EQ(db.GetConfig(405), "");
  const int vol = AddVolume("305419896", 5, "Bach's \"Best\" 100% _é");
  const int path = AddPath(vol, "\\It's\\");
  const int fileId = AddFile(path, "Don't Stop.mp3");
  EXPECT_EQ(db.FindVolumeBySerial("305419896"), vol);
  EXPECT_EQ(db.GetVolume(vol)->DisplayName, "Bach's \"Best\" 100% _é");
  EXPECT_EQ(db.FindPath("\\It's\\", vol), path);
  EXPECT_EQ(db.FindFile("Don't Stop.mp3", path), fileId);
  EXPECT_EQ(db.FindFile("don't stop.mp3", path), -1);  // exact comparison

  auto file = db.GetFile(fileId);
  EXPECT_EQ(file->Rating, 0);  // NULL until edited
  EXPECT_EQ(file->Title, "");
  db.UpdateFileTagsAndProperties(*file, 0);
  EXPECT_EQ(
      testing_support::QueryNumber(db, "SELECT count(*) FROM MediaFiles WHERE Size IS NULL AND id3Genre IS NULL;"), 1);
  file->Title = "Rock 'n' Roll";
  file->Rating = 4;
  db.UpdateFileUserInfo(*file);
  file = db.GetFile(fileId);
  EXPECT_EQ(file->Title, "Rock 'n' Roll");
  EXPECT_EQ(file->Rating, 4);
}

TEST_F(CatalogueTest, SearchFindsWhatPeopleTypeAndSeesEveryChange) {
  const int vol = AddVolume("1", 3);
  const int path = AddPath(vol, "\\");
  const int a = AddFile(path, "a Łódź.mp3");
  const int b = AddFile(path, "b.mp3");
  const auto search = [&](const std::string& text) { return db.SearchFileIds(text); };
  EXPECT_EQ(search("ŁÓDŹ"), IdList{a});
  auto file = db.GetFile(b);
  file->Title = "łódź twice: Łódź";
  db.UpdateFileUserInfo(*file);
  EXPECT_EQ(search("łódź"), (IdList{a, b}));  // once each, in FileID order
  EXPECT_EQ(search("lodz"), (IdList{a, b}));
  EXPECT_EQ(search(".mp3łódź"), IdList{});  // never across two texts
  EXPECT_EQ(search("").size(), 2u);

  // Spellings that meet, each beside a decoy that must not be found.
  const auto fileNamed = [&](const std::string& name) { return AddFile(path, name); };
  const int strasse = fileNamed("Straße.mp3"), strase = fileNamed("Strase.mp3");
  const int edith = fileNamed("Édith.mp3"), edit = fileNamed("Edit.mp3");
  const int beyonce = fileNamed("Beyonce\u0301.mp3"), beyond = fileNamed("Beyond.mp3");
  const int fire = fileNamed("ﬁre.mp3"), fre = fileNamed("fre.mp3");
  const int wide = fileNamed("ＡＢＣ.mp3"), abd = fileNamed("abd.mp3");
  const int percent = fileNamed("100% Hits.mp3"), hundred = fileNamed("1000 Hits.mp3");
  EXPECT_EQ(search("STRASSE"), IdList{strasse});
  EXPECT_EQ(search("edith"), IdList{edith});
  EXPECT_EQ(search("ÉDITH"), IdList{edith});
  EXPECT_EQ(search("beyoncé"), IdList{beyonce});  // stored decomposed, typed composed
  EXPECT_EQ(search("FIRE"), IdList{fire});
  EXPECT_EQ(search("abc"), IdList{wide});
  EXPECT_EQ(search("0%"), IdList{percent});
  EXPECT_EQ(search("_"), IdList{});
  EXPECT_EQ(search("stras"), (IdList{strasse, strase}));  // the decoys are there to be found
  EXPECT_EQ(search("hits"), (IdList{percent, hundred}));
  EXPECT_EQ(search("e"), (IdList{b, strasse, strase, edith, edit, beyonce, beyond, fire, fre}));
  EXPECT_EQ(search("ab"), (IdList{wide, abd}));

  // A batch of changes, as a scan commits them.
  db.Begin();
  const int c = AddFile(path, "ŁÓDŹ.ogg");
  db.DeleteFiles({a});
  db.Commit();
  EXPECT_EQ(search("łódź"), (IdList{b, c}));
}

// A large catalogue is read in parts, one per core, each on a connection of
// its own; put together, they find what one reading finds, in FileID order.
TEST_F(CatalogueTest, TextsReadInPartsFindWhatOneReadingFinds) {
  const int path = AddPath(AddVolume("1", 3), "\\");
  // Ids with gaps, so that parts by id hold different numbers of files.
  testing_support::RunSql(db,
                          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<60000) "
                          "INSERT INTO MediaFiles(FileID,VolID,PathID,ScanState,DirtyBit,FileName,Type,id3Title) "
                          "SELECT i*(1+(i>40000)),1," +
                              std::to_string(path) +
                              ",2,0,'f'||i||'.mp3',1,CASE WHEN i%7000=0 THEN 'Ævi É' END FROM n;");
  IdList expected;
  for (int i = 7000; i <= 60000; i += 7000) expected.push_back(i * (1 + (i > 40000)));
  EXPECT_EQ(db.SearchFileIds("æVI e"), expected);
  EXPECT_EQ(db.SearchFileIds(".mp3").size(), 60000u);
}

// The window reads the texts on a connection of its own; whatever changes
// later is seen by the next search, small changes read one by one and large
// ones by reading every text again.
TEST_F(CatalogueTest, TextsReadAheadFollowSmallAndLargeChanges) {
  const int vol = AddVolume("1", 3);
  const int path = AddPath(vol, "\\");
  const int a = AddFile(path, "Alpha.mp3");
  db.ReadSearchTextsAhead();
  EXPECT_EQ(db.SearchFileIds("alpha"), IdList{a});
  EXPECT_FALSE(db.SearchWouldWait());
  auto file = db.GetFile(a);
  file->Title = "Omega";
  db.UpdateFileUserInfo(*file);
  EXPECT_EQ(db.SearchFileIds("omega"), IdList{a});
  db.SetConfig(9999, "nothing searched", true);  // a change elsewhere keeps the texts
  EXPECT_FALSE(db.SearchWouldWait());

  const int other = AddVolume("2", 3);
  const int otherPath = AddPath(other, "\\");
  const int b = AddFile(otherPath, "Omega Two.mp3");
  db.DeleteVolume(vol);  // every file may have changed
  EXPECT_EQ(db.SearchFileIds("omega"), IdList{b});
  const int c = AddFile(otherPath, "Omega Three.mp3");
  EXPECT_EQ(db.SearchFileIds("OMEGA"), (IdList{b, c}));
}

TEST_F(CatalogueTest, EachCommitIsPublishedOnceWithWhatItChanged) {
  std::vector<CatalogueChanges> heard;
  const int token = db.Events().Subscribe([&](const CatalogueChanges& changes) { heard.push_back(changes); });
  const int vol = AddVolume("1", 3);  // outside a transaction: at once
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].Ids(CatalogueTable::Volumes), IdList{vol});
  EXPECT_FALSE(heard[0].Touches(CatalogueTable::Files));

  db.Begin();
  const int path = AddPath(vol, "\\");
  const int a = AddFile(path, "a.mp3");
  db.SetFilesDirtyBit({a}, 1);  // nothing shows dirty bits
  EXPECT_EQ(heard.size(), 1u);  // nothing before the commit
  db.Commit();
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[1].Ids(CatalogueTable::Paths), IdList{path});
  EXPECT_EQ(heard[1].Ids(CatalogueTable::Files), IdList{a});

  db.DeleteVolume(vol);  // a whole volume: every row of its tables may have gone
  EXPECT_TRUE(heard.back().AllRows(CatalogueTable::Files));
  EXPECT_TRUE(heard.back().Touches(CatalogueTable::Files, 12345));
  db.Events().Unsubscribe(token);
  AddVolume("2", 3);
  EXPECT_EQ(heard.size(), 3u);
}

// A worker's changes wait for its loan to end, and reach the listeners on
// the owner's thread; the owner keeps away meanwhile.
TEST_F(CatalogueTest, AWorkersChangesReachTheOwnerAfterItsLoan) {
  std::vector<std::thread::id> heardOn;
  db.Events().Subscribe([&](const CatalogueChanges&) { heardOn.push_back(std::this_thread::get_id()); });
  AddVolume("1", 3);
  std::atomic<bool> heldMeanwhile{false};
  std::thread worker([&] {
    const MediaDB::WorkerLoan loan(db);
    heldMeanwhile = db.HeldByWorker();
    AddVolume("2", 3);
    AddVolume("3", 3);
  });
  worker.join();
  EXPECT_TRUE(heldMeanwhile);
  EXPECT_FALSE(db.HeldByWorker());
  EXPECT_EQ(heardOn.size(), 1u);
  db.Events().DeliverPending();
  ASSERT_EQ(heardOn.size(), 2u);  // both of the worker's changes in one
  EXPECT_EQ(heardOn[1], std::this_thread::get_id());
}

// Subtrees are matched letter for letter; removals cascade but keep play lists.
TEST_F(CatalogueTest, SubtreesMatchLetterForLetterAndRemovalsCascadeButKeepPlayLists) {
  const int vol = AddVolume("1", 3);
  const int keep = AddVolume("2", 3);
  const int music = AddPath(vol, "\\Music\\");
  const int rock = AddPath(vol, "\\Music\\Rock\\", music);
  for (const char* lookAlike : {"\\MUSIC\\Jazz\\", "\\abc\\"}) AddPath(vol, lookAlike);
  const int sibling = AddPath(vol, "\\Musicals\\");
  AddPath(keep, "\\Music\\Pop\\");
  const int underscore = AddPath(vol, "\\a_c\\");
  EXPECT_EQ(Sorted(db.GetSubtreePathIds(music)), (IdList{music, rock}));
  EXPECT_EQ(db.GetSubtreePathIds(underscore), IdList{underscore});
  EXPECT_EQ(db.GetSubtreePathIds(12345), IdList{});

  const int a = AddFile(rock, "a.mp3");
  const int b = AddFile(sibling, "b.mp3");
  const int kept = AddFile(AddPath(keep, "\\"), "c.mp3");
  CPlayList list;
  list.Name = "Mix";
  list.FileIDs = std::to_string(a) + "," + std::to_string(b);
  db.AddPlayList(list);
  db.DeletePathTree(music);
  EXPECT_EQ(db.GetFile(a), nullptr);
  EXPECT_EQ(db.GetPath(rock), nullptr);
  EXPECT_NE(db.GetFile(b), nullptr);

  db.DeleteVolume(vol);
  EXPECT_EQ(db.GetFile(b), nullptr);
  EXPECT_EQ(db.GetVolume(vol), nullptr);
  EXPECT_EQ(db.GetPathVolume(sibling), -1);
  EXPECT_NE(db.GetFile(kept), nullptr);
  EXPECT_EQ(db.GetPlayList(list.PlayListID)->FileIDs, list.FileIDs);
}

TEST_F(CatalogueTest, IdsAreNeverHandedOutTwiceAcrossRemovalsAndRestarts) {
  const int vol = AddVolume("1", 3);
  const int path = AddPath(vol, "\\A\\");
  AddFile(path, "a.mp3");
  const int second = AddFile(path, "b.mp3");
  db.DeleteFiles({second});
  const int third = AddFile(path, "c.mp3");
  EXPECT_GT(third, second);
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM MediaFiles;"), 2);  // no placeholder left

  // The highest rows of every table go, then the catalogue is opened anew.
  CPlayList list;
  list.Name = "Mix";
  const int listId = db.AddPlayList(list);
  db.DeletePlayList(listId);
  db.DeleteVolume(vol);
  MediaDB reopened;
  ASSERT_EQ(reopened.Open(folder.Path() + "/"), 0);
  CMediaVolume volume;
  EXPECT_GT(reopened.AddVolume(volume), vol);
  CMediaPath folderRow;
  EXPECT_GT(reopened.AddPath(folderRow), path);
  CMediaFile file;
  reopened.Begin();  // inside a caller's transaction too
  EXPECT_GT(reopened.AddFile(file), third);
  reopened.Commit();
  EXPECT_GT(reopened.AddPlayList(list), listId);
  EXPECT_EQ(testing_support::QueryNumber(reopened, "SELECT count(*) FROM MediaFiles;"), 1);
}

TEST_F(CatalogueTest, ACatalogueWithoutIdMarksGetsThemFromItsRows) {
  const int vol = AddVolume("1", 3);
  const int path = AddPath(vol, "\\A\\");
  AddFile(path, "a.mp3");
  const int last = AddFile(path, "b.mp3");
  testing_support::RunSql(db, "DELETE FROM Configs;");  // as a catalogue of an older version
  MediaDB reopened;
  ASSERT_EQ(reopened.Open(folder.Path() + "/"), 0);
  EXPECT_EQ(reopened.GetConfig(901), std::to_string(last));
  reopened.DeletePathTree(path);
  CMediaFile file;
  EXPECT_EQ(reopened.AddFile(file), last + 1);
}

using CatalogueDeathTest = CatalogueTest;

// A failing statement is told (where a window shows it) before the process ends with status 1.
TEST_F(CatalogueDeathTest, AFailingStatementIsToldAndEndsTheProcessWithStatusOne) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  // Another program takes the tables away.
  testing_support::RunSql(db, "DROP TABLE PlayLists; ALTER TABLE MediaFiles DROP COLUMN Rating;");
  EXPECT_EXIT(db.GetFolderListRows(1), ::testing::ExitedWithCode(1), "no such column");
  const auto tell = [](const std::string& text) { std::fprintf(stderr, "told: %s\n", text.c_str()); };
  EXPECT_EXIT((NoticeCatalogueFailuresWith(tell), db.DeletePlayList(1)), ::testing::ExitedWithCode(1),
              "told: vantrelle: catalogue statement failed: .*no such table: PlayLists");
}

// Where the write-ahead index cannot be shared, a catalogue left in
// write-ahead mode by a killed program (its last commit only in the log)
// turns to a rollback journal without losing that commit, and no log stays.
TEST_F(CatalogueTest, WithoutAWriteAheadLogTheCatalogueKeepsARollbackJournal) {
  const std::string other = folder.MakeFolder("other") + "/";
  const std::string path = other + MediaDB::kFileName;
  {
    MediaDB first;
    ASSERT_EQ(first.Open(other), 1);
    testing_support::StoreVolume(first, 3, "C", "Disk", "77");
  }
  const pid_t child = fork();
  if (child == 0) {
    MediaDB killed;
    killed.Open(other);
    testing_support::StoreVolume(killed, 3, "C", "Disk", "78");
    _exit(0);  // as a killed program: nothing closed, nothing checkpointed
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_GT(std::filesystem::file_size(path + "-wal"), 0u);

  MediaDB shared;
  ASSERT_EQ(shared.Open(other, {}, false), 0);
  EXPECT_GT(shared.FindVolumeBySerial("77"), 0);
  const int later = shared.FindVolumeBySerial("78");
  EXPECT_GT(later, 0);
  testing_support::StoreFile(shared, testing_support::StoreFolder(shared, later, "\\Music\\", -1), "a.mp3");
  EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
  EXPECT_FALSE(std::filesystem::exists(path + "-shm"));
  EXPECT_EQ(testing_support::RunSql(path, "PRAGMA journal_mode; PRAGMA integrity_check;"),
            (std::vector<std::vector<std::string>>{{"delete"}, {"ok"}}));
}

}  // namespace
