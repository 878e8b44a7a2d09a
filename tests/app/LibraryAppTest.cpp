#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "app/CLibraryApp.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingMediaControl.h"

namespace {

namespace fs = std::filesystem;

// A program folder with a fixed disk C and an empty CD drive E.
class LibraryAppTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  LibraryAppTest() {
    drives.AddFixed('C', folder.MakeFolder("home"));
    drives.AddCd('E');
  }

  std::unique_ptr<CLibraryApp> NewApp() {
    return std::make_unique<CLibraryApp>(folder.Path() + "/", PlatformServices{table, files, messages, media});
  }

  std::vector<std::string> StatementsOf(CLibraryApp& app, const std::function<void()>& action) {
    std::vector<std::string> statements;
    app.Db().ObserveStatements([&](const char* sql) { statements.emplace_back(sql); });
    action();
    app.Db().ObserveStatements(nullptr);
    return statements;
  }

  std::string Config(CLibraryApp& app, int id) { return app.Db().GetConfig(id); }

  testing_support::RecordingMediaControl media;
};

TEST_F(LibraryAppTest, FirstStartWritesTheDefaultsAndMakesTheCacheFolder) {
  auto app = NewApp();
  ASSERT_EQ(app->Start(), CLibraryApp::StartResult::Ready);
  const std::vector<std::pair<int, std::string>> expected = {
      {1, "2.1"},   {405, "E"},   {410, "C:\\QORCache"}, {505, "40"},  {510, "100"}, {515, "400"},   {520, "500"},
      {525, "100"}, {530, "550"}, {535, "100"},          {540, "400"}, {545, "210"}, {550, ""},      {555, ""},
      {560, "0"},   {605, ""},    {700, "1000"},         {705, "1"},   {710, "0"},   {715, "track"}, {720, "0"},
      {725, "off"}};
  // The settings, and the marks of the highest ids given (901 to 904).
  EXPECT_EQ(testing_support::QueryNumber(app->Db(), "SELECT count(*) FROM Configs;"), 26);
  for (const auto& [id, value] : expected) EXPECT_EQ(Config(*app, id), value) << id;
  EXPECT_TRUE(fs::is_directory(folder.Path() + "/home/QORCache"));
  EXPECT_TRUE(messages.Shown().empty());

  // Without a CD drive the first start stores an empty one.
  app.reset();
  fs::remove(folder.Path() + "/Quillora.db");
  fs::remove(folder.Path() + "/drives/e::");
  app = NewApp();
  ASSERT_EQ(app->Start(), CLibraryApp::StartResult::Ready);
  EXPECT_EQ(app->Settings().cdDrive, "");
}

TEST_F(LibraryAppTest, LaterStartsInsertNothingAndExitWritesOnlyWhenASettingChanged) {
  NewApp()->Start();
  fs::remove(folder.Path() + "/home/QORCache");  // not made again on later starts
  auto app = NewApp();
  const auto startStatements = StatementsOf(*app, [&] { app->Start(); });
  for (const auto& sql : startStatements) EXPECT_EQ(sql.find("INSERT"), std::string::npos) << sql;
  EXPECT_FALSE(fs::exists(folder.Path() + "/home/QORCache"));
  EXPECT_TRUE(StatementsOf(*app, [&] { app->Exit(); }).empty());

  app->Settings().mainLeft = 41;
  const auto exitStatements = StatementsOf(*app, [&] { app->Exit(); });
  ASSERT_GT(exitStatements.size(), 2u);
  EXPECT_EQ(exitStatements.front() + exitStatements.back(), "BEGINCOMMIT");
  EXPECT_EQ(exitStatements[3], "UPDATE Configs SET Value='41' WHERE ConfigID=505;");
  EXPECT_TRUE(StatementsOf(*app, [&] { app->Exit(); }).empty());  // saved: unchanged again
  EXPECT_EQ(testing_support::QueryNumber(app->Db(), "SELECT count(*) FROM Configs;"), 26);
}

// The holder is named only when it is a Vantrelle program: a lock held by
// some other process (a file system's daemon, a backup tool) has no
// program's number to give.
TEST_F(LibraryAppTest, TheCatalogueInUseNamesItsHolderOnlyWhenItIsAVantrelleProgram) {
  NewApp()->Start();
  const std::string path = folder.Path() + "/Quillora.db";
  for (const char* name : {"vantrelle", "backup"}) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t holder = fork();
    if (holder == 0) {
      prctl(PR_SET_NAME, name);
      flock(open(path.c_str(), O_RDONLY), LOCK_EX);
      (void)!write(ready[1], "x", 1);
      pause();
      _exit(0);
    }
    char byte;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    auto app = NewApp();
    EXPECT_EQ(app->Start(), CLibraryApp::StartResult::InUse);
    const std::string named = std::string(name) == "vantrelle" ? " (process " + std::to_string(holder) + ")" : "";
    EXPECT_EQ(app->InUseMessage(), "The catalogue is in use by another Vantrelle program" + named + ".");
    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
  }
}

TEST_F(LibraryAppTest, CatalogueVersionTest) {
  NewApp()->Start();
  for (const auto& [version, accepted] : std::vector<std::pair<std::string, bool>>{
           {"3.0", false}, {"2", true}, {"1;2", true}, {"2.0", true}, {"2.2", false}}) {
    {
      MediaDB db;
      db.Open(folder.Path() + "/");
      db.SetConfig(1, version, false);
    }
    auto app = NewApp();
    EXPECT_EQ(app->Start() == CLibraryApp::StartResult::Ready, accepted) << version;
  }
  ASSERT_EQ(messages.Shown().size(), 2u);
  EXPECT_EQ(messages.Shown()[0].text, "Incompatible database version (3.0)!");
  EXPECT_EQ(messages.Shown()[0].icon, platform::Icon::Error);

  // A catalogue without a version row is accepted.
  {
    MediaDB db;
    db.Open(folder.Path() + "/");
    testing_support::RunSql(db, "DELETE FROM Configs WHERE ConfigID=1;");
  }
  EXPECT_EQ(NewApp()->Start(), CLibraryApp::StartResult::Ready);
  EXPECT_EQ(messages.Shown().size(), 2u);
}

TEST_F(LibraryAppTest, MissingSettingRowsAreWrittenWithTheirDefaultsAndSettingsSurviveARestart) {
  {
    auto app = NewApp();
    app->Start();
    testing_support::RunSql(app->Db(), "DELETE FROM Configs WHERE ConfigID IN (410,505,605,700,705,710);");
  }
  {
    auto app = NewApp();
    app->Start();
    EXPECT_EQ(Config(*app, 410), "C:\\QORCache");
    EXPECT_EQ(Config(*app, 505), "40");
    EXPECT_EQ(app->Settings().mainLeft, 40);
    EXPECT_EQ(Config(*app, 710), "0");  // a catalogue made before the setting: off
    EXPECT_FALSE(app->Settings().allFormats);
    EXPECT_EQ(Config(*app, 700), "1000");
    EXPECT_TRUE(app->Settings().playThrough);
    CAppSettings& s = app->Settings();
    s.cacheFolder = "C:\\It's a cache";
    s.mainLeft = -20;
    s.lastAddedFolder = "C:\\Music\\";
    s.playListFolder = "C:\\Lists\\";
    s.volume = 350;
    app->Exit();
  }
  auto app = NewApp();
  app->Start();
  const CAppSettings& s = app->Settings();
  EXPECT_EQ(s.cacheFolder + " " + std::to_string(s.mainLeft), "C:\\It's a cache -20");
  EXPECT_EQ(s.playListFolder + " " + std::to_string(s.volume), "C:\\Lists\\ 350");
  EXPECT_EQ(s.lastAddedFolder, "");  // kept for one run only
  EXPECT_EQ(testing_support::QueryNumber(app->Db(), "SELECT count(*) FROM Configs;"), 26);
}

TEST_F(LibraryAppTest, AnEmptyOrHalfMadeCatalogueIsMadeWhole) {
  // An empty file: a new catalogue. So is one a killed first start left
  // behind by an older version (tables, but no Configs table).
  folder.WriteFile("Quillora.db", "");
  {
    auto app = NewApp();
    ASSERT_EQ(app->Start(), CLibraryApp::StartResult::Ready);
    EXPECT_EQ(Config(*app, 1), "2.1");
    testing_support::RunSql(app->Db(), "DROP TABLE Configs;");
  }
  auto app = NewApp();
  ASSERT_EQ(app->Start(), CLibraryApp::StartResult::Ready);
  EXPECT_EQ(Config(*app, 410), "C:\\QORCache");
  EXPECT_EQ(testing_support::QueryNumber(
                app->Db(),
                "SELECT count(*) FROM sqlite_master WHERE type='table' AND name NOT LIKE 'vantrelle!_%' ESCAPE '!';"),
            5);
}

}  // namespace
