// Playing a list through: real GStreamer into no device, on the player's own
// thread as the desktop runs it and on the caller's thread as the console does.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <thread>

#include "app/CLibraryApp.h"
#include "cli/PlayListPlayCommand.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/mci/GstMediaControl.h"
#include "playback/PlayerThread.h"
#include "playlists/CPlayThrough.h"
#include "tests/support/RecordingMediaControl.h"
#include "tests/support/ScriptedMessageBox.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Strings = std::vector<std::string>;
using Mode = CMciPlayer::Mode;

// The user-interface thread's queue: the player thread posts, the test drains.
class UiQueue {
 public:
  void Post(std::function<void()> done) {
    std::lock_guard lock(mutex_);
    posted_.push_back(std::move(done));
  }
  void Drain() {
    std::vector<std::function<void()>> ready;
    {
      std::lock_guard lock(mutex_);
      ready.swap(posted_);
    }
    for (auto& done : ready) done();
  }

 private:
  std::mutex mutex_;
  std::vector<std::function<void()>> posted_;
};

// Turns the queue until the condition holds or ten seconds passed.
template <class Condition>
bool Eventually(UiQueue& ui, Condition condition) {
  const auto deadline = std::chrono::steady_clock::now() + 10s;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    ui.Drain();
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

class PlayThroughTest : public ::testing::Test {
 protected:
  PlayThroughTest() : table(folder.Path()), files(table) {
    drives.AddFixed('C', folder.MakeFolder("c"));
    drives.AddCd('E');
    app.Start();
  }
  ~PlayThroughTest() override { app.Playback().UseRunner(nullptr); }

  int AddFile(const std::string& fixture, int volType = 3) {
    CMediaVolume volume;
    volume.VolType = volType;
    volume.DrvLtr = "C";
    volume.SerialNo = "77";
    volume.DisplayName = "Night Songs";
    CMediaPath path;
    path.VolID = app.Db().AddVolume(volume);
    path.FullPath = "\\";
    CMediaFile file;
    file.VolID = path.VolID;
    file.PathID = app.Db().AddPath(path);
    file.FileName = std::to_string(++added) + "-" + fixture;
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/" + fixture, folder.Path() + "/c/" + file.FileName);
    return app.Db().AddFile(file);
  }

  testing_support::TempFolder folder;
  testing_support::TestDrives drives{folder.Path()};
  platform::LinuxDriveTable table;
  platform::LinuxFileSystem files;
  testing_support::ScriptedMessageBox messages;
  platform::mci::GstMediaControl media{platform::mci::AudioOutput::Silent, files};
  CLibraryApp app{folder.Path() + "/", PlatformServices{table, files, messages, media}};
  int added = 0;
};

TEST_F(PlayThroughTest, OnThePlayersThreadEachFileFollowsTheLastAndPauseKeepsThePlace) {
  UiQueue ui;
  PlayerThread thread(app.Player(), [&ui](std::function<void()> done) { ui.Post(std::move(done)); });
  app.Playback().UseRunner(&thread);
  IdList rows;
  for (const char* fixture : {"vorbis.ogg", "id3v2.mp3", "lossless.flac"})
    rows.push_back(AddFile(fixture));
  CPlayThrough run(app.Playback(), [&rows] { return rows; });
  std::vector<int> started;
  app.Playback().OnStarted([&started](int fileId) { started.push_back(fileId); });

  PlayerStatus last;
  bool asking = false;
  auto poll = [&] {
    if (asking) return;
    asking = true;
    app.Playback().Poll([&](const PlayerStatus& status) {
      asking = false;
      last = status;
      run.OnStatus(status);
    });
  };
  ASSERT_TRUE(run.PlayRow(0));
  ASSERT_TRUE(Eventually(ui, [&] { poll(); return last.mode == Mode::Playing && last.positionMs > 200; }));
  app.Playback().Pause();
  ASSERT_TRUE(Eventually(ui, [&] { poll(); return last.mode == Mode::Paused; }));
  const int paused = last.positionMs;
  std::this_thread::sleep_for(200ms);
  app.Playback().Resume();
  ASSERT_TRUE(Eventually(ui, [&] { poll(); return last.mode == Mode::Playing; }));
  EXPECT_NEAR(last.positionMs, paused, 300);

  EXPECT_TRUE(Eventually(ui, [&] { poll(); return !run.Running(); }));
  EXPECT_EQ(started, (std::vector<int>(rows.begin(), rows.end())));
  EXPECT_EQ(last.mode, Mode::Stopped);
  EXPECT_EQ(last.fileId, static_cast<int>(rows.back()));
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(PlayThroughTest, TheConsolePrintsEachFileAndStopsAtACdWhosePromptIsCancelled) {
  const IdList rows{AddFile("id3v1.mp3"),
                    AddFile("SONG.MP3"),
                    AddFile("vorbis.ogg", 5),
                    AddFile("quiet.wma")};
  testing_support::TempFolder outFolder;
  const std::string outPath = outFolder.Path() + "/out.txt";
  std::FILE* out = std::fopen(outPath.c_str(), "w");
  ASSERT_NE(out, nullptr);
  PlayFilesThrough(app, rows, std::nullopt, out);
  std::fclose(out);
  std::ifstream printed(outPath);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(printed), {}), "1/4 1-id3v1.mp3\n2/4 2-SONG.MP3\n");
  EXPECT_EQ(messages.Texts(), (Strings{"Please Insert CD: Night Songs"}));
  EXPECT_EQ(app.Player().GetMode(), Mode::Stopped);
}

// The rules of going on, over a scripted player.
TEST(PlayThrough, OnlyTheEndOfTheLatestFileGoesOnAndTheButtonStopsIt) {
  testing_support::TempFolder folder;
  testing_support::TestDrives drives{folder.Path()};
  drives.AddFixed('C', folder.MakeFolder("c"));
  platform::LinuxDriveTable table(folder.Path());
  platform::LinuxFileSystem files(table);
  testing_support::ScriptedMessageBox messages;
  testing_support::RecordingMediaControl media;
  media.Answer("status QL_MCI_DEV_1 length", 0, "5000");
  CLibraryApp app(folder.Path() + "/", PlatformServices{table, files, messages, media});
  app.Start();
  CMediaVolume volume;
  volume.VolType = 3;
  volume.DrvLtr = "C";
  CMediaPath path{};
  path.VolID = app.Db().AddVolume(volume);
  path.FullPath = "\\";
  IdList rows;
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) {
    CMediaFile file;
    file.VolID = path.VolID;
    file.PathID = app.Db().AddPath(path);
    file.FileName = name;
    rows.push_back(app.Db().AddFile(file));
  }
  CPlayThrough run(app.Playback(), [&rows] { return rows; });
  std::vector<int> started;
  run.OnStarted([&started](int, int row) { started.push_back(row); });
  auto status = [&](Mode mode, int position) {
    return PlayerStatus{app.Playback().CurrentFileId(), mode, position, 5000, app.Playback().Generation()};
  };

  ASSERT_TRUE(run.PlayRow(1));
  const PlayerStatus stale = status(Mode::Stopped, 5000);
  run.OnStatus(status(Mode::Stopped, 1200));  // stopped by hand, not ended
  run.OnStatus(status(Mode::Playing, 5000));
  EXPECT_EQ(started, (std::vector<int>{1}));
  EXPECT_TRUE(run.Previous());
  EXPECT_TRUE(run.Next());
  EXPECT_TRUE(run.Next());
  EXPECT_FALSE(run.Next());  // no row below the last
  EXPECT_EQ(started, (std::vector<int>{1, 0, 1, 2}));
  run.OnStatus(stale);  // asked before the last PlayFile
  EXPECT_EQ(run.PlayingRow(), 2);
  run.OnStatus(status(Mode::Stopped, 5000));  // the last row ended
  EXPECT_FALSE(run.Running());

  run.SetEnabled(false);
  ASSERT_TRUE(run.PlayRow(0));
  run.OnStatus(status(Mode::Stopped, 5000));
  EXPECT_FALSE(run.Running());
  EXPECT_EQ(started.size(), 5u);
  EXPECT_TRUE(messages.Shown().empty());
}

}  // namespace
