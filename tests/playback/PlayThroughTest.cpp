// Playing a list through with real GStreamer into no device: the console's
// run on the caller's thread, and the rules of going on from one file to the
// next. The desktop's run on the player's own thread is driven over the
// session bus in tests/qt/MprisBusTest.cpp.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>

#include "app/CLibraryApp.h"
#include "cli/PlayListPlayCommand.h"
#include "platform/mci/GstMediaControl.h"
#include "playlists/CPlayThrough.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/ProgramFolder.h"

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;
using Mode = CMciPlayer::Mode;

class PlayThroughTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  PlayThroughTest() {
    drives.AddFixed('C', folder.MakeFolder("c"));
    drives.AddCd('E');
    app.Start();
  }

  // A copy of the fixture on drive C, on a volume of its own.
  int AddFile(const std::string& fixture, int volType = 3) {
    const std::string name = std::to_string(++added) + "-" + fixture;
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/" + fixture, folder.Path() + "/c/" + name);
    const int volId = testing_support::StoreVolume(app.Db(), volType, "C", "Night Songs", "77");
    return testing_support::StoreFile(app.Db(), testing_support::StoreFolder(app.Db(), volId, "\\"), name);
  }

  platform::mci::GstMediaControl media{platform::mci::AudioOutput::Silent, files};
  CLibraryApp app{folder.Path() + "/", PlatformServices{table, files, messages, media}};
  int added = 0;
};

TEST_F(PlayThroughTest, TheConsolePrintsEachFileAndStopsAtACdWhosePromptIsCancelled) {
  const IdList rows{AddFile("id3v1.mp3"), AddFile("SONG.MP3"), AddFile("vorbis.ogg", 5), AddFile("quiet.wma")};
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

// The statuses are made up, so that each rule is met at a known moment.
TEST_F(PlayThroughTest, OnlyTheEndOfTheLatestFileGoesOnAndTheButtonStopsIt) {
  const IdList rows{AddFile("id3v1.mp3"), AddFile("vorbis.ogg"), AddFile("lossless.flac")};
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

// Shuffled, each row plays once before the run ends (or, repeating the
// list, starts a new round); repeating one file plays it again when it ends,
// while Next still moves on.
TEST_F(PlayThroughTest, ShuffleVisitsEveryRowOnceAndRepeatGoesRoundAsSet) {
  const IdList rows{AddFile("id3v1.mp3"), AddFile("vorbis.ogg"), AddFile("lossless.flac"), AddFile("SONG.MP3")};
  CPlayThrough run(app.Playback(), [&rows] { return rows; });
  std::vector<int> started;
  run.OnStarted([&started](int, int row) { started.push_back(row); });
  auto ended = [&] {
    return PlayerStatus{app.Playback().CurrentFileId(), Mode::Stopped, 5000, 5000, app.Playback().Generation()};
  };

  run.SetShuffle(true);
  ASSERT_TRUE(run.PlayRow(2));
  while (run.Next()) {
  }
  ASSERT_EQ(started.size(), rows.size());
  EXPECT_EQ(started.front(), 2);
  EXPECT_EQ(std::set<int>(started.begin(), started.end()).size(), rows.size());
  run.SetRepeat(CPlayThrough::Repeat::All);
  EXPECT_TRUE(run.Next());  // a new round
  EXPECT_EQ(started.size(), rows.size() + 1);

  started.clear();
  run.SetShuffle(false);
  run.SetRepeat(CPlayThrough::Repeat::One);
  ASSERT_TRUE(run.PlayRow(3));
  run.OnStatus(ended());
  EXPECT_EQ(started, (std::vector<int>{3, 3}));
  run.SetRepeat(CPlayThrough::Repeat::All);
  run.OnStatus(ended());  // the last row ended: the first follows
  EXPECT_TRUE(run.Next());
  EXPECT_EQ(started, (std::vector<int>{3, 3, 0, 1}));
  EXPECT_TRUE(messages.Shown().empty());
}

}  // namespace
