#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "scan/CDriveServices.h"
#include "tests/support/ScriptedMessageBox.h"
#include "tests/support/TempFolder.h"

namespace {

using platform::Answer;
using testing_support::LabelDisc;

class DriveServicesTest : public ::testing::Test {
 protected:
  DriveServicesTest()
      : table(folder.Path()), files(table), services(table, files, messages), drives(folder.Path()) {
    drives.AddFixed('C', folder.MakeFolder("c"));
    jazz = folder.MakeFolder("discs/jazz");
    rock = folder.MakeFolder("discs/rock");
    LabelDisc(jazz, "Jazz 1", 0x12345678);
    LabelDisc(rock, "Rock 1", 0xCAFEBABE);
    drives.AddCd('E');
  }

  testing_support::TempFolder folder;
  platform::LinuxDriveTable table;
  platform::LinuxFileSystem files;
  testing_support::ScriptedMessageBox messages;
  CDriveServices services;
  testing_support::TestDrives drives;
  std::string jazz, rock;
};

TEST_F(DriveServicesTest, DriveListsAndVolumeOfADisc) {
  EXPECT_EQ(services.GetDriveList(-1), (std::vector<std::string>{"C", "E"}));
  EXPECT_EQ(services.GetDriveList(5), std::vector<std::string>{"E"});
  EXPECT_EQ(services.GetDriveList(3), std::vector<std::string>{"C"});
  EXPECT_FALSE(services.IsDriveReady("E"));

  drives.InsertDisc('E', jazz);
  EXPECT_TRUE(services.IsDriveReady("E"));
  auto volume = services.ReadVolumeInfo("E");
  EXPECT_EQ(volume->SerialNo, "305419896");
  EXPECT_EQ(volume->Name, "Jazz 1");
  EXPECT_EQ(volume->DisplayName, "Jazz 1");
  EXPECT_EQ(volume->VolType, 5);
  EXPECT_EQ(volume->DrvLtr, "E");
  EXPECT_EQ(volume->Description, "");
  drives.InsertDisc('E', rock);
  EXPECT_EQ(services.ReadVolumeInfo("E")->SerialNo, "3405691582");  // unsigned decimal
}

TEST_F(DriveServicesTest, WaitForVolumePromptsUntilTheRightDiscOrCancel) {
  const std::string prompt = "Please insert 'Jazz 1' into drive E:";
  // Empty drive, then the wrong disc, then the right one: two prompts.
  messages.Script({Answer::Ok, Answer::Ok});
  int shown = 0;
  messages.OnShow([&](const testing_support::ShownMessage&) {
    drives.InsertDisc('E', ++shown == 1 ? rock : jazz);
  });
  EXPECT_EQ(services.WaitForVolume("E", "305419896", prompt), 0);
  EXPECT_EQ(messages.Texts(), (std::vector<std::string>{prompt, prompt}));
  EXPECT_EQ(messages.Shown()[0].buttons, platform::Buttons::OkCancel);
  EXPECT_EQ(messages.Shown()[0].icon, platform::Icon::Information);

  // The right disc already in: no prompt at all.
  EXPECT_EQ(services.WaitForVolume("E", "305419896", prompt), 0);
  EXPECT_EQ(messages.Shown().size(), 2u);

  // Ejected and cancelled.
  messages.OnShow(nullptr);
  drives.Eject('E');
  messages.Script({Answer::Ok, Answer::Cancel});
  EXPECT_EQ(services.WaitForVolume("E", "305419896", prompt), -1);
  EXPECT_EQ(messages.Shown().size(), 4u);
}

TEST_F(DriveServicesTest, ListingsRecordsAndFolderClearing) {
  folder.WriteFile("c/Music/Song.MP3", "12345");
  folder.WriteFile("c/Music/notes.txt", "x");
  folder.WriteFile("c/Music/It's 100%_é.ogg", "x");
  folder.MakeFolder("c/Music/Sub");
  folder.WriteFile("c/Music/Sub/keep.mp3", "x");

  auto media = services.ListMediaFiles("C:\\music\\");
  std::sort(media.begin(), media.end());
  EXPECT_EQ(media, (std::vector<std::string>{"It's 100%_é.ogg", "Song.MP3"}));
  EXPECT_EQ(services.ListSubfolders("C:\\Music\\"), std::vector<std::string>{"Sub"});
  EXPECT_EQ(services.ListFiles("C:\\Music\\").size(), 3u);

  auto record = services.MakeFileRecord("C:\\MUSIC\\song.mp3");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->FileName, "Song.MP3");  // as the file system stores it
  EXPECT_EQ(record->Size, 5);
  EXPECT_EQ(record->Type, 1);
  EXPECT_EQ(services.MakeFileRecord("C:\\Music\\gone.mp3"), nullptr);

  services.DeleteFilesInFolder("C:\\Music\\");
  EXPECT_TRUE(services.ListFiles("C:\\Music\\").empty());
  EXPECT_TRUE(services.FileExists("C:\\Music\\Sub\\keep.mp3"));
  EXPECT_EQ(services.ToDrivePath(folder.Path() + "/c/Music"), "C:\\Music");
}

}  // namespace
