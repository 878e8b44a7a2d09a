#include <gtest/gtest.h>

#include <QGroupBox>
#include <QTest>
#include <fstream>
#include <iterator>

#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "qt/dialogs/QtCoverLoader.h"
#include "qt/dialogs/QtCoverView.h"
#include "qt/dialogs/QtFileInfoDialog.h"
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
  put(54 + width * height * 3, 4), put(0, 4), put(54, 4);           // file header
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

TEST_F(CoverViewTest, ShowsTheLastFileAskedForOnceReadAndNothingWithoutAPicture) {
  QtCoverView view(loader, 64);
  const std::string pictured = kFixtures + "pictured-Tone.M4A";
  view.ShowCoverOf(1, pictured);
  EXPECT_FALSE(view.ShowsPicture());  // read on the loader's thread, not in the call
  QTRY_VERIFY(view.ShowsPicture());
  EXPECT_EQ(view.pixmap().size(), QSize(64, 64));
  ASSERT_NE(loader.Cached(1, pictured), nullptr);

  // A file without one, a damaged one and a file not at hand show nothing;
  // a picture arriving for an earlier file is not shown.
  for (const std::string& path : {kFixtures + "speech.opus", kFixtures + "lying.opus", std::string()}) {
    view.ShowCoverOf(2, pictured);
    view.ShowCoverOf(3, path);
    EXPECT_FALSE(view.ShowsPicture()) << path;
    QTest::qWait(100);
    EXPECT_FALSE(view.ShowsPicture()) << path;
  }
  view.ShowCoverOf(1, pictured);  // from the cache, at once
  EXPECT_TRUE(view.ShowsPicture());
}

TEST_F(CoverViewTest, FileInfoShowsTheCoverAndTheKindOfFile) {
  temp.WriteFile("Album/cover.jpg", Bytes(kFixtures + "art.jpg"));
  std::ofstream(temp.Path() + "/Album/song.flac", std::ios::binary) << Bytes(kFixtures + "lossless.flac");
  QtFileInfoDialog dialog(nullptr, &loader);
  FileInfoForm form;
  form.infoTitle = "FLAC Info";
  form.fileId = 4;
  form.coverPath = temp.Path() + "/Album/song.flac";
  dialog.Load(form);
  EXPECT_EQ(dialog.findChild<QGroupBox*>()->title(), "FLAC Info");
  auto* cover = dialog.findChild<QtCoverView*>();
  ASSERT_NE(cover, nullptr);
  QTRY_VERIFY(cover->ShowsPicture());
}

}  // namespace
