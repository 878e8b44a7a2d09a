#include <gtest/gtest.h>

#include <thread>

#include "app/CLibraryApp.h"
#include "playback/CPlaybackControl.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingMediaControl.h"

namespace {

using Strings = std::vector<std::string>;
using platform::kDriveCdRom;
using platform::kDriveFixed;
constexpr unsigned kSerial = 0x1234ABCD;
const std::string kSorry = "Sorry, unable to play media file.";

// An application in a program folder with fixed disk C (folder "home") and
// an empty CD drive E, which the first start makes the CD drive, over a media
// control that records what it was told.
class PlaybackTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  PlaybackTest() {
    drives.AddFixed('C', folder.MakeFolder("home"));
    drives.AddCd('E');
    media.Answer("status QL_MCI_DEV_1 length", 0, "200000");
    app = std::make_unique<CLibraryApp>(folder.Path() + "/", PlatformServices{table, files, messages, media});
    app->Start();
  }

  int AddFile(int volType, const std::string& drive, const std::string& folderPath, const std::string& fileName) {
    const int volId = testing_support::StoreVolume(app->Db(), volType, drive, "Blue Train", std::to_string(kSerial));
    return testing_support::StoreFile(app->Db(), testing_support::StoreFolder(app->Db(), volId, folderPath), fileName);
  }
  int AddCdFile() { return AddFile(kDriveCdRom, "D", "\\Jazz\\", "a.mp3"); }
  std::string Disc(const std::string& name, unsigned serial) {
    const std::string disc = folder.MakeFolder(name);
    testing_support::LabelDisc(disc, name, serial);
    return disc;
  }
  static Strings OpenAndPlay(const std::string& path) {
    return {"open \"" + path + "\" type mpegvideo alias QL_MCI_DEV_1", "set QL_MCI_DEV_1 time format ms",
            "status QL_MCI_DEV_1 length", "play QL_MCI_DEV_1 from 0"};
  }

  testing_support::RecordingMediaControl media;
  std::unique_ptr<CLibraryApp> app;
};

TEST_F(PlaybackTest, ADiskFilePlaysFromItsDriveAndStopsAndSkips) {
  EXPECT_EQ(app->Playback().PlayFile(AddFile(kDriveFixed, "C", "\\My Music\\", "b c.mp3")), 0);
  EXPECT_EQ(media.Commands(), OpenAndPlay("C:\\My Music\\b c.mp3"));
  media.Forget();
  EXPECT_EQ(app->Playback().StopPlayback(), 0);
  EXPECT_EQ(app->Playback().SkipForward(), 0);
  EXPECT_EQ(media.Commands(),
            (Strings{"stop QL_MCI_DEV_1", "status QL_MCI_DEV_1 position", "play QL_MCI_DEV_1 from 10000"}));
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(PlaybackTest, ACdFilePlaysFromTheCdDriveOnceTheRightDiscIsIn) {
  const std::string right = Disc("right", kSerial), other = Disc("other", 2);
  drives.InsertDisc('E', right);
  EXPECT_EQ(app->Playback().PlayFile(AddCdFile()), 0);
  EXPECT_EQ(media.Commands(), OpenAndPlay("E:\\Jazz\\a.mp3"));  // catalogued from D
  EXPECT_TRUE(messages.Shown().empty());

  // Wrong discs are prompted for until the right one comes.
  drives.InsertDisc('E', Disc("wrong", 1));
  int prompts = 0;
  messages.OnShow([&](const auto&) { drives.InsertDisc('E', ++prompts == 1 ? other : right); });
  messages.Script({platform::Answer::Ok, platform::Answer::Ok});
  media.Forget();
  EXPECT_EQ(app->Playback().PlayFile(AddCdFile()), 0);
  EXPECT_EQ(messages.Texts(), Strings(2, "Please Insert CD: Blue Train"));
  EXPECT_EQ(messages.Shown()[0].buttons, platform::Buttons::OkCancel);
  Strings closeThenPlay = OpenAndPlay("E:\\Jazz\\a.mp3");
  closeThenPlay.insert(closeThenPlay.begin(), "close QL_MCI_DEV_1");
  EXPECT_EQ(media.Commands(), closeThenPlay);
}

// What File Info reads the cover from: never a prompt, nothing for an absent disc.
TEST_F(PlaybackTest, APresentPathIsGivenOnlyForTheRightDiscAndNeverAsks) {
  const int cdFile = AddCdFile();
  // Located later: the rows are read now, the drive when asked, on any thread.
  const auto later = app->Playback().LocateLater(cdFile);
  ASSERT_TRUE(later);
  EXPECT_FALSE(app->Playback().LocateLater(999));
  const auto presentPath = [&](int fileId) { return app->Playback().LocateLater(fileId)(); };
  EXPECT_EQ(presentPath(cdFile), "");  // the drive is empty
  std::string located = "unset";
  std::thread([&] { located = later(); }).join();
  EXPECT_EQ(located, "");
  drives.InsertDisc('E', Disc("other", 2));
  EXPECT_EQ(presentPath(cdFile), "");
  drives.InsertDisc('E', Disc("right", kSerial));
  EXPECT_EQ(presentPath(cdFile), "E:\\Jazz\\a.mp3");
  testing_support::RunSql(app->Db(), "DELETE FROM MediaFiles;");
  std::thread([&] { located = later(); }).join();
  EXPECT_EQ(located, "E:\\Jazz\\a.mp3");
  // A disk is at hand on its letter only while the letter holds that disk.
  const int onDisk = AddFile(kDriveFixed, "C", "\\Music\\", "b.flac");
  EXPECT_EQ(presentPath(onDisk), "");
  const std::string serial = app->Drives().ReadVolumeInfo("C")->SerialNo;
  testing_support::RunSql(app->Db(), ("UPDATE MediaVolumes SET SerialNo='" + serial +
                                      "' WHERE VolID=" + std::to_string(app->Db().GetFileVolume(onDisk)) + ";")
                                         .c_str());
  EXPECT_EQ(presentPath(onDisk), "C:\\Music\\b.flac");
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_TRUE(media.Commands().empty());
}

TEST_F(PlaybackTest, ACancelledDiscPromptLeavesThePlayingFileAlone) {
  app->Playback().PlayFile(AddFile(kDriveFixed, "C", "\\", "playing.mp3"));
  media.Forget();
  EXPECT_EQ(app->Playback().PlayFile(AddCdFile()), CPlaybackControl::kNotPlayed);
  EXPECT_EQ(messages.Texts(), (Strings{"Please Insert CD: Blue Train"}));
  EXPECT_TRUE(media.Commands().empty());
  EXPECT_TRUE(app->Player().IsOpen());
}

TEST_F(PlaybackTest, AFileThatDoesNotOpenIsReportedAndOneWithoutItsRowsIsNotTried) {
  const int fileId = AddFile(kDriveFixed, "C", "\\", "a.mp3");
  media.Answer("open", 275);
  EXPECT_EQ(app->Playback().PlayFile(fileId), 0);
  media.Answer("open", 0);
  media.Answer("status QL_MCI_DEV_1 length", 296);
  EXPECT_EQ(app->Playback().PlayFile(fileId), 0);  // opens, but has no readable length
  const std::string open = "open \"C:\\a.mp3\" type mpegvideo alias QL_MCI_DEV_1";
  EXPECT_EQ(media.Commands(), (Strings{open, open, "set QL_MCI_DEV_1 time format ms", "status QL_MCI_DEV_1 length"}));
  // The box names the file and the media control's reason.
  EXPECT_EQ(messages.Texts(), (Strings{kSorry + "\nC:\\a.mp3: error 275", kSorry + "\nC:\\a.mp3: error 296"}));
  EXPECT_EQ(messages.Shown()[0].buttons, platform::Buttons::Ok);

  // A file without its folder or volume row is not tried at all.
  media.Forget();
  const int noFolder = AddFile(kDriveFixed, "C", "\\", "a.mp3");
  testing_support::RunSql(app->Db(), "DELETE FROM MediaPaths;");
  const int noVolume = AddFile(kDriveFixed, "C", "\\", "b.mp3");
  testing_support::RunSql(app->Db(), "DELETE FROM MediaVolumes;");
  for (int id : {noFolder, noVolume, 999}) EXPECT_EQ(app->Playback().PlayFile(id), CPlaybackControl::kNotPlayed) << id;
  EXPECT_TRUE(media.Commands().empty());
  EXPECT_EQ(messages.Texts().size(), 2u);
}

}  // namespace
