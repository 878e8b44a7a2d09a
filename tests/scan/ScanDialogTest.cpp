#include <gtest/gtest.h>

#include <future>

#include "platform/FolderPicker.h"
#include "scan/ScanCommands.h"
#include "settings/CAppSettings.h"
#include "tests/scan/ScanFixture.h"
#include "tests/support/WorkerDialogDriver.h"

namespace {

using platform::Answer;
using testing_support::LabelDisc;

class ScriptedPicker : public platform::FolderPicker {
 public:
  int answer = kCancelled;
  std::string folder;
  std::vector<std::string> startedAt;
  int Browse(const std::string& title, const std::string& initial, std::string& chosen) override {
    EXPECT_EQ(title, "Select Folder");
    startedAt.push_back(initial);
    chosen = folder;
    return answer;
  }
};

class ScanCommandsTest : public ScanTest {
 protected:
  ScanCommandsTest()
      : settings(db, folder.Path() + "/"), dialogs(messages), commands(scanner, drives, settings, picker, dialogs) {
    settings.cdDrive = "E";
    db.Events().Subscribe([this](const CatalogueChanges&) { ++rebuilds; });
    commands.OnScanReported([this](const std::string& found) { reports.push_back(found); });
  }

  CAppSettings settings;
  ScriptedPicker picker;
  testing_support::WorkerDialogDriver dialogs;
  ScanCommands commands;
  int rebuilds = 0;
  std::vector<std::string> reports;
};

// Progress, then one box: "Scan Complete." and the scan's notes below it.
TEST_F(ScanCommandsTest, TheDialogShowsProgressAndSaysCompleteOnceWithTheNotes) {
  Put("c/Music/a.mp3", "id3v1.mp3");
  Put("c/Music/Sub/b.mp3", "empty.mp3");
  Put("c/Music/Locked/c.mp3", "id3v1.mp3");
  Put("c/Music/Odd\\Name/d.mp3", "id3v1.mp3");
  fileSystem.FailFrom("C:\\Music\\Locked\\");
  commands.ScanVolume(3, "C:\\Music\\");
  EXPECT_EQ(messages.Texts(), (std::vector<std::string>{"Scan Complete.",
                                                        "1 folder could not be read; its entries were kept.\n"
                                                        "1 folder was skipped for its name."}));
  EXPECT_EQ(messages.Shown()[1].icon, platform::Icon::Information);
  EXPECT_EQ(messages.Shown()[1].buttons, platform::Buttons::Ok);
  EXPECT_EQ(dialogs.endedWith, 0);
  EXPECT_EQ(dialogs.timerRunning, 0);
  EXPECT_FALSE(dialogs.statusTexts.empty());
  EXPECT_EQ(dialogs.overallTexts.back(), "2 of 2 files");
  EXPECT_EQ(reports,
            std::vector<std::string>{"Found 2 folders: 2 files added, 0 files removed, 1 file could not be read."});
  EXPECT_EQ(rebuilds, 1);
  EXPECT_EQ(CataloguedFiles().size(), 2u);
}

TEST_F(ScanCommandsTest, CancelEndsTheDialogAtOnceButTheWorkerFinishesFirst) {
  Put("c/Music/a.mp3", "id3v1.mp3");
  std::promise<void> release;
  std::shared_future<void> released = release.get_future().share();
  reader.beforeRead = [released](const std::string&) { released.wait(); };
  dialogs.beforeTick = [&](CWorkerDlg& dialog, int tick) {
    if (tick == 3) {
      dialog.OnCancel();
      release.set_value();  // the worker may go on only once the dialog has ended
    }
  };
  commands.ScanVolume(3, "C:\\Music\\");
  EXPECT_TRUE(messages.Texts().empty());  // no "Scan Complete." after Cancel
  EXPECT_TRUE(scanner.Progress().done);   // OnDestroy waited for the worker
  EXPECT_EQ(rebuilds, 1);
  EXPECT_EQ(reports, std::vector<std::string>{"Scan cancelled."});
}

TEST_F(ScanCommandsTest, AddCdPromptsForADiscAndFindsKnownDiscsAgain) {
  const std::string jazz = folder.MakeFolder("discs/jazz"), rock = folder.MakeFolder("discs/rock");
  LabelDisc(jazz, "Jazz 1", 0x12345678);
  LabelDisc(rock, "Rock 1", 0x0BADF00D);
  Put("discs/jazz/Set/a.mp3", "id3v1.mp3");
  Put("discs/rock/b.mp3", "id3v2.mp3");

  messages.Script({Answer::Retry, Answer::Cancel});
  commands.AddCd();  // empty drive: two prompts, then Cancel
  EXPECT_EQ(messages.Texts(),
            (std::vector<std::string>{"Please Insert CD into drive E:", "Please Insert CD into drive E:"}));
  EXPECT_EQ(messages.Shown()[0].buttons, platform::Buttons::RetryCancel);
  EXPECT_EQ(dialogs.runs, 0);

  messages.Script({Answer::Retry});
  messages.OnShow([&](const testing_support::ShownMessage& m) {
    if (m.buttons == platform::Buttons::RetryCancel) testDrives.InsertDisc('E', jazz);
  });
  commands.AddCd();
  testDrives.InsertDisc('E', rock);
  commands.AddCd();
  testDrives.InsertDisc('E', jazz);
  commands.AddCd();

  EXPECT_EQ(db.GetVolumesOfType(5).size(), 2u);
  const int jazzVol = db.FindVolumeBySerial("305419896");
  auto volume = db.GetVolume(jazzVol);
  EXPECT_EQ(volume->DisplayName, "Jazz 1");
  EXPECT_EQ(volume->DrvLtr, "E");
  EXPECT_EQ(db.GetPath(db.GetVolumeRootPathIds(jazzVol).at(0))->FullPath, "\\");
  EXPECT_EQ(CataloguedFiles().size(), 2u);
  EXPECT_EQ(rebuilds, 2);  // the known disc, found unchanged, changed nothing
}

// Whether a rescan of a disc would remove files for their format is found
// out by the scan's worker, which reads the disc: the window's thread never
// waits on the drive. Cancel keeps the files.
TEST_F(ScanCommandsTest, AddCdChecksTheDiscOnTheWorkerBeforeRemovingOtherFormats) {
  const std::string jazz = folder.MakeFolder("discs/jazz");
  LabelDisc(jazz, "Jazz 1", 0x12345678);
  Put("discs/jazz/a.mp3", "id3v1.mp3");
  Put("discs/jazz/b.flac", "lossless.flac");
  testDrives.InsertDisc('E', jazz);
  settings.allFormats = true;
  commands.AddCd();
  ASSERT_EQ(CataloguedFiles().size(), 2u);

  settings.allFormats = false;
  std::vector<std::thread::id> askedOn;
  std::string statusWhenAsked;
  messages.OnShow([&](const testing_support::ShownMessage& m) {
    if (m.buttons != platform::Buttons::OkCancel) return;
    askedOn.push_back(std::this_thread::get_id());
    statusWhenAsked = scanner.Progress().Status();
  });
  messages.Script({Answer::Cancel});
  commands.AddCd();
  ASSERT_EQ(askedOn.size(), 1u);
  EXPECT_NE(askedOn.front(), std::this_thread::get_id());
  EXPECT_EQ(statusWhenAsked, "Checking the disc\u2026");
  EXPECT_EQ(messages.Texts().back().rfind("The catalogue holds 1 FLAC, Musepack, Opus or M4A files under E:\\", 0), 0u)
      << messages.Texts().back();
  EXPECT_EQ(reports.back(), "Scan cancelled.");
  EXPECT_EQ(CataloguedFiles().size(), 2u);

  messages.Script({Answer::Ok});
  commands.AddCd();
  EXPECT_EQ(askedOn.size(), 2u);
  EXPECT_EQ(CataloguedFiles().size(), 1u);
}

// The picked folder is scanned and the picker starts there next time; every
// spelling of a folder gives one root.
TEST_F(ScanCommandsTest, AddHdScansThePickedFolderAndStartsThereNextTime) {
  Put("c/Music/a.mp3", "id3v1.mp3");
  Put("c/Other/b.mp3", "id3v1.mp3");
  commands.AddHd();  // cancelled
  EXPECT_EQ(dialogs.runs, 0);

  picker.answer = platform::FolderPicker::kChosen;
  picker.folder = folder.Path() + "/c/Music";
  commands.AddHd();
  commands.AddHd();
  EXPECT_EQ(settings.lastAddedFolder, "C:\\Music\\");
  EXPECT_EQ(picker.startedAt, (std::vector<std::string>{"", "", folder.Path() + "/c/Music/"}));
  picker.folder = "/proc";  // no drive of this table holds it: nothing happens
  commands.AddHd();
  EXPECT_EQ(dialogs.runs, 2);

  for (const char* spelling : {"C:\\Music\\..\\Music", "c:\\music", "C:\\.\\MUSIC\\", "c:\\Other\\..\\..\\Music"})
    commands.AddFolder(spelling);
  EXPECT_EQ(CataloguedFolders(), (std::map<std::string, int>{{"\\Music\\", 1}}));
  EXPECT_EQ(settings.lastAddedFolder, "C:\\Music\\");
  ASSERT_EQ(db.GetVolumesOfType(3).size(), 1u);
  EXPECT_EQ(db.GetVolumesOfType(3)[0].DrvLtr, "C");
}

}  // namespace
