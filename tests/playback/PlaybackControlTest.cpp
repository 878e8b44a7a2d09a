#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "app/CLibraryApp.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/mci/GstMediaControl.h"
#include "playback/CPlaybackControl.h"
#include "tests/support/RecordingMediaControl.h"
#include "tests/support/ScriptedMessageBox.h"
#include "tests/support/TempFolder.h"

namespace {

using Strings = std::vector<std::string>;
using platform::kDriveCdRom;
using platform::kDriveFixed;
constexpr unsigned kSerial = 0x1234ABCD;
const std::string kSorry = "Sorry, unable to play media file.";

// An application in a program folder with fixed disk C (folder "home") and
// an empty CD drive E, which the first start makes the CD drive.
class PlaybackTest : public ::testing::Test {
 protected:
  PlaybackTest() : table(folder.Path()), files(table) {
    drives.AddFixed('C', folder.MakeFolder("home"));
    drives.AddCd('E');
  }

  void Start(platform::MediaControl& media) {
    app = std::make_unique<CLibraryApp>(folder.Path() + "/",
                                        PlatformServices{table, files, messages, media});
    app->Start();
  }
  int AddFile(int volType, const std::string& drive, const std::string& folderPath,
              const std::string& fileName) {
    CMediaVolume volume;
    volume.VolType = volType;
    volume.DrvLtr = drive;
    volume.SerialNo = std::to_string(kSerial);
    volume.DisplayName = "Blue Train";
    CMediaPath path;
    path.VolID = app->Db().AddVolume(volume);
    path.FullPath = folderPath;
    CMediaFile file;
    file.VolID = path.VolID;
    file.PathID = app->Db().AddPath(path);
    file.FileName = fileName;
    return app->Db().AddFile(file);
  }
  std::string Disc(const std::string& name, unsigned serial) {
    const std::string disc = folder.MakeFolder(name);
    testing_support::LabelDisc(disc, name, serial);
    return disc;
  }

  testing_support::TempFolder folder;
  testing_support::TestDrives drives{folder.Path()};
  platform::LinuxDriveTable table;
  platform::LinuxFileSystem files;
  testing_support::ScriptedMessageBox messages;
  std::unique_ptr<CLibraryApp> app;
};

class RecordedPlaybackTest : public PlaybackTest {
 protected:
  RecordedPlaybackTest() {
    media.Answer("status QL_MCI_DEV_1 length", 0, "200000");
    Start(media);
  }
  ~RecordedPlaybackTest() override { app.reset(); }  // the player closes its devices first
  int AddCdFile() { return AddFile(kDriveCdRom, "D", "\\Jazz\\", "a.mp3"); }
  static Strings OpenAndPlay(const std::string& path) {
    return {"open \"" + path + "\" type mpegvideo alias QL_MCI_DEV_1",
            "set QL_MCI_DEV_1 time format ms", "status QL_MCI_DEV_1 length",
            "play QL_MCI_DEV_1 from 0"};
  }

  testing_support::RecordingMediaControl media;
};

TEST_F(RecordedPlaybackTest, ADiskFilePlaysFromItsDriveAndStopsAndSkips) {
  EXPECT_EQ(app->Playback().PlayFile(AddFile(kDriveFixed, "C", "\\My Music\\", "b c.mp3")), 0);
  EXPECT_EQ(media.Commands(), OpenAndPlay("C:\\My Music\\b c.mp3"));
  media.Forget();
  EXPECT_EQ(app->Playback().StopPlayback(), 0);
  EXPECT_EQ(app->Playback().SkipForward(), 0);
  EXPECT_EQ(media.Commands(), (Strings{"stop QL_MCI_DEV_1", "status QL_MCI_DEV_1 position",
                                       "play QL_MCI_DEV_1 from 10000"}));
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(RecordedPlaybackTest, ACdFilePlaysFromTheCdDriveOnceTheRightDiscIsIn) {
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
TEST_F(RecordedPlaybackTest, APresentPathIsGivenOnlyForTheRightDiscAndNeverAsks) {
  const int cdFile = AddCdFile();
  EXPECT_EQ(app->Playback().PresentPath(cdFile), "");  // the drive is empty
  drives.InsertDisc('E', Disc("other", 2));
  EXPECT_EQ(app->Playback().PresentPath(cdFile), "");
  drives.InsertDisc('E', Disc("right", kSerial));
  EXPECT_EQ(app->Playback().PresentPath(cdFile), "E:\\Jazz\\a.mp3");
  EXPECT_EQ(app->Playback().PresentPath(AddFile(kDriveFixed, "C", "\\Music\\", "b.flac")), "C:\\Music\\b.flac");
  EXPECT_EQ(app->Playback().PresentPath(999), "");
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_TRUE(media.Commands().empty());
}

TEST_F(RecordedPlaybackTest, ACancelledDiscPromptLeavesThePlayingFileAlone) {
  app->Playback().PlayFile(AddFile(kDriveFixed, "C", "\\", "playing.mp3"));
  media.Forget();
  EXPECT_EQ(app->Playback().PlayFile(AddCdFile()), CPlaybackControl::kNotPlayed);
  EXPECT_EQ(messages.Texts(), (Strings{"Please Insert CD: Blue Train"}));
  EXPECT_TRUE(media.Commands().empty());
  EXPECT_TRUE(app->Player().IsOpen());
}

TEST_F(RecordedPlaybackTest, AFileThatDoesNotOpenIsReportedAndOneWithoutItsRowsIsNotTried) {
  const int fileId = AddFile(kDriveFixed, "C", "\\", "a.mp3");
  media.Answer("open", 275);
  EXPECT_EQ(app->Playback().PlayFile(fileId), 0);
  media.Answer("open", 0);
  media.Answer("status QL_MCI_DEV_1 length", 296);
  EXPECT_EQ(app->Playback().PlayFile(fileId), 0);  // opens, but has no readable length
  const std::string open = "open \"C:\\a.mp3\" type mpegvideo alias QL_MCI_DEV_1";
  EXPECT_EQ(media.Commands(),
            (Strings{open, open, "set QL_MCI_DEV_1 time format ms", "status QL_MCI_DEV_1 length"}));
  EXPECT_EQ(messages.Texts(), Strings(2, kSorry));
  EXPECT_EQ(messages.Shown()[0].buttons, platform::Buttons::Ok);

  // A file without its folder or volume row is not tried at all.
  media.Forget();
  const int noFolder = AddFile(kDriveFixed, "C", "\\", "a.mp3");
  app->Db().ExecuteChange("DELETE FROM MediaPaths;");
  const int noVolume = AddFile(kDriveFixed, "C", "\\", "b.mp3");
  app->Db().ExecuteChange("DELETE FROM MediaVolumes;");
  for (int id : {noFolder, noVolume, 999}) EXPECT_EQ(app->Playback().PlayFile(id), CPlaybackControl::kNotPlayed) << id;
  EXPECT_TRUE(media.Commands().empty());
  EXPECT_EQ(messages.Texts().size(), 2u);
}

class SilentPlaybackTest : public PlaybackTest {
 protected:
  SilentPlaybackTest() { Start(media); }
  ~SilentPlaybackTest() override { app.reset(); }
  platform::mci::GstMediaControl media{platform::mci::AudioOutput::Silent, files};
};

TEST_F(SilentPlaybackTest, ACataloguedFilePlaysAndWhatCannotBePlayedIsReported) {
  namespace fs = std::filesystem;
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v2.mp3",
                folder.Path() + "/home/b c.mp3");
  EXPECT_EQ(app->Playback().PlayFile(AddFile(kDriveFixed, "C", "\\", "b c.mp3")), 0);
  EXPECT_EQ(app->Player().LastError(), 0u);
  std::int32_t position = 0;
  for (int polls = 0; polls < 100 && position <= 0; ++polls) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    position = app->Player().Position();
  }
  EXPECT_GT(position, 0);
  EXPECT_TRUE(messages.Shown().empty());

  folder.MakeFolder("home/folder.mp3");
  folder.WriteFile("home/notes.mp3", "These are my notes, not music.\n");
  for (const char* name : {"missing.mp3", "folder.mp3", "notes.mp3"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(app->Playback().PlayFile(AddFile(kDriveFixed, "C", "\\", name)), 0);
    EXPECT_NE(app->Player().LastError(), 0u);
    EXPECT_EQ(messages.Texts().back(), kSorry);
    EXPECT_FALSE(app->Player().IsOpen());
  }
  EXPECT_EQ(messages.Texts().size(), 3u);
}

}  // namespace
