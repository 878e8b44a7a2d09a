#include <gtest/gtest.h>
#include <unistd.h>

#include <QGroupBox>
#include <QTest>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <vector>

#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "qt/dialogs/QtCoverLoader.h"
#include "qt/dialogs/QtCoverView.h"
#include "qt/dialogs/QtFileInfoDialog.h"
#include "tests/support/QtEventually.h"
#include "tests/support/TempFolder.h"

namespace {

const std::string kFixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/";

std::string Bytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The headers of a 24-bit BMP picture of width x height, without its pixels.
std::string BmpHeaders(std::uint32_t width, std::uint32_t height) {
  std::string bytes = "BM";
  auto put = [&bytes](std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  };
  put(54 + width * height * 3, 4), put(0, 4), put(54, 4);            // file header
  put(40, 4), put(width, 4), put(height, 4), put(1, 2), put(24, 2);  // info header
  put(0, 4), put(width * height * 3, 4), put(2835, 4), put(2835, 4), put(0, 4), put(0, 4);
  return bytes;
}

class CoverViewTest : public ::testing::Test {
 protected:
  testing_support::TempFolder temp;
  platform::LinuxDriveTable drives{temp.Path()};
  platform::LinuxFileSystem files{drives};
  QtCoverLoader loader{files};
};

TEST_F(CoverViewTest, DecodingTakesPicturesAndRefusesTheRest) {
  const QImage art = QtCoverLoader::Decode(Bytes(kFixtures + "art.jpg"));
  EXPECT_EQ(art.size(), QSize(32, 32));
  EXPECT_TRUE(QtCoverLoader::Decode("\xFF\xD8\xFF not a JPEG after all").isNull());
  EXPECT_TRUE(QtCoverLoader::Decode("").isNull());
  EXPECT_TRUE(QtCoverLoader::Decode(BmpHeaders(20000, 20000)).isNull());  // 1.2 GB of pixels
}

// The real file system, but reading one path waits until the test lets it
// go, as a dead share would; every path asked for is counted.
class SlowDisk final : public platform::FileSystem {
 public:
  SlowDisk(const platform::FileSystem& files, std::string slow) : files_(files), slow_(std::move(slow)) {}
  void LetGo() {
    std::lock_guard lock(mutex_);
    goOn_ = true;
    changed_.notify_all();
  }
  int Asked(const std::string& path) const {
    std::lock_guard lock(mutex_);
    return static_cast<int>(std::count(asked_.begin(), asked_.end(), path));
  }

  std::string LocalPath(const std::string& path) const override {
    std::unique_lock lock(mutex_);
    asked_.push_back(path);
    if (path == slow_) changed_.wait(lock, [this] { return goOn_; });
    return files_.LocalPath(path);
  }
  platform::Listing List(const std::string& folder, const std::string& pattern) const override {
    return files_.List(folder, pattern);
  }
  std::optional<platform::FolderIdentity> Identity(const std::string& folder) const override {
    return files_.Identity(folder);
  }
  std::optional<platform::FileFacts> Stat(const std::string& path) const override { return files_.Stat(path); }
  bool Exists(const std::string& path) const override { return files_.Exists(path); }
  bool CreateFolder(const std::string&) override { return false; }
  bool Remove(const std::string&) override { return false; }
  platform::CopyResult CopyNoOverwrite(const std::string&, const std::string&) override {
    return platform::CopyResult::Failed("read only");
  }

 private:
  const platform::FileSystem& files_;
  std::string slow_;
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  mutable std::vector<std::string> asked_;
  bool goOn_ = false;
};

// Whether a thread of this process sleeps (waits on a lock or a condition).
bool Sleeping(pid_t thread) {
  std::ifstream stat("/proc/self/task/" + std::to_string(thread) + "/stat");
  std::string line;
  std::getline(stat, line);
  const auto close = line.rfind(')');
  return close != std::string::npos && close + 2 < line.size() && line[close + 2] == 'S';
}

// Going away, the loader drops the reads it has not started and waits only
// for the one under way.
TEST_F(CoverViewTest, GoingAwayDropsQueuedReadsAndWaitsOnlyForTheOneUnderWay) {
  const std::string first = kFixtures + "pictured-id3v2.mp3";
  const std::string second = kFixtures + "pictured-Tone.M4A";
  SlowDisk disk(files, first);
  auto going = std::make_unique<QtCoverLoader>(disk);
  going->Request(1, first);
  going->Request(2, second);
  going->Request(3, second);
  ASSERT_TRUE(testing_support::Eventually([&] { return disk.Asked(first) > 0; }));
  std::atomic<pid_t> closer = 0;
  std::atomic<bool> gone = false;
  std::thread closing([&] {
    closer = ::gettid();
    going.reset();
    gone = true;
  });
  // Let the read under way go on once the closing thread waits for it.
  EXPECT_TRUE(testing_support::Eventually([&] { return closer != 0 && (gone || Sleeping(closer)); }));
  EXPECT_FALSE(gone);
  disk.LetGo();
  EXPECT_TRUE(testing_support::Eventually([&] { return gone.load(); }));
  closing.join();
  EXPECT_EQ(disk.Asked(second), 0);
}

TEST_F(CoverViewTest, ShowsTheLastFileAskedForOnceReadAndNothingWithoutAPicture) {
  QtCoverView view(loader, 64);
  const std::string pictured = kFixtures + "pictured-Tone.M4A";
  view.ShowCoverOf(1, pictured);
  EXPECT_TRUE(view.pixmap().isNull());  // read on the loader's thread, not in the call
  ASSERT_EVENTUALLY(!view.pixmap().isNull());
  EXPECT_EQ(view.pixmap().size(), QSize(64, 64));
  ASSERT_NE(loader.Cached(1, pictured), nullptr);

  // A file without one, a damaged one and a file not at hand show nothing;
  // a picture arriving for an earlier file is not shown.
  // Both answers delivered (the view hears each before this test does), the
  // view has nothing left to change its mind on.
  std::set<int> answered;
  QObject::connect(&loader, &QtCoverLoader::Loaded, &view,
                   [&answered](int fileId, const QString&, const QImage&) { answered.insert(fileId); });
  for (const std::string& path : {kFixtures + "speech.opus", kFixtures + "lying.opus", std::string()}) {
    answered.clear();
    view.ShowCoverOf(2, pictured);
    view.ShowCoverOf(3, path);
    EXPECT_TRUE(view.pixmap().isNull()) << path;
    EXPECT_EVENTUALLY(answered.contains(2) && (path.empty() || answered.contains(3))) << path;
    EXPECT_TRUE(view.pixmap().isNull()) << path;
  }
  view.ShowCoverOf(1, pictured);  // from the cache, at once
  EXPECT_FALSE(view.pixmap().isNull());
}

// File Info shows the cover and the kind of file. Finding a disc file may
// read the disc: then it shows at once, says that it checks, and the check
// runs on the loader's thread.
TEST_F(CoverViewTest, FileInfoShowsTheCoverAndChecksTheDiscOffTheWindowsThread) {
  temp.WriteFile("Disc/cover.jpg", Bytes(kFixtures + "art.jpg"));
  std::ofstream(temp.Path() + "/Disc/song.flac", std::ios::binary) << Bytes(kFixtures + "lossless.flac");
  {
    QtFileInfoDialog dialog(nullptr, &loader);
    FileInfoForm form;
    form.infoTitle = "FLAC Info";
    form.fileId = 4;
    form.coverPath = temp.Path() + "/Disc/song.flac";
    dialog.Load(form);
    EXPECT_EQ(dialog.findChild<QGroupBox*>()->title(), "FLAC Info");
    auto* cover = dialog.findChild<QtCoverView*>();
    ASSERT_NE(cover, nullptr);
    ASSERT_EVENTUALLY(!cover->pixmap().isNull());
  }

  std::mutex mutex;
  std::condition_variable changed;
  bool inDrive = false;
  bool answered = false;
  std::thread::id checkedOn;
  FileInfoForm form;
  form.fileId = 9;
  form.locateCover = [&]() -> std::string {
    std::unique_lock lock(mutex);
    checkedOn = std::this_thread::get_id();
    // Bounded, so that a check made on the window's thread fails rather than hangs.
    changed.wait_for(lock, std::chrono::seconds(20), [&] { return answered; });
    return inDrive ? temp.Path() + "/Disc/song.flac" : "";
  };
  QtFileInfoDialog dialog(nullptr, &loader);
  dialog.Load(form);
  auto* cover = dialog.findChild<QtCoverView*>();
  ASSERT_NE(cover, nullptr);
  EXPECT_EQ(cover->text(), QStringLiteral("Checking the disc\u2026"));
  {
    std::lock_guard lock(mutex);
    inDrive = true;
    answered = true;
  }
  changed.notify_all();
  EXPECT_TRUE(testing_support::Eventually([&] {
    QCoreApplication::processEvents();
    return !cover->pixmap().isNull();
  }));
  EXPECT_TRUE(cover->text().isEmpty());
  EXPECT_NE(checkedOn, std::this_thread::get_id());

  // No disc: the note goes, and no picture comes.
  {
    std::lock_guard lock(mutex);
    inDrive = false;
  }
  form.fileId = 10;
  dialog.Load(form);
  EXPECT_TRUE(testing_support::Eventually([&] {
    QCoreApplication::processEvents();
    return cover->text().isEmpty();
  }));
  EXPECT_TRUE(cover->pixmap().isNull());
}

}  // namespace
