#include <gtest/gtest.h>
#include <sys/stat.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "tags/CoverFinder.h"
#include "tests/support/PermissionsHold.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
const std::string kFixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/";

std::string Bytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Drive C is the temporary folder.
class CoverFinderTest : public ::testing::Test {
 protected:
  CoverFinderTest() { testing_support::TestDrives(temp.Path()).AddFixed('C', temp.Path()); }

  testing_support::TempFolder temp;
  platform::LinuxDriveTable table{temp.Path()};
  platform::LinuxFileSystem files{table};
  CoverFinder finder{files};
  const std::string jpeg = Bytes(kFixtures + "art.jpg");

  std::string Copy(const std::string& fixture, const std::string& relative) {
    const std::string target = temp.Path() + "/" + relative;
    fs::create_directories(fs::path(target).parent_path());
    fs::copy_file(kFixtures + fixture, target, fs::copy_options::overwrite_existing);
    return target;
  }

  // Puts picture into the ID3v2 tag of song as its only front cover.
  static void Embed(const std::string& song, const std::string& picture, const char* mimeType) {
    TagLib::MPEG::File file(song.c_str(), false);
    TagLib::ID3v2::Tag* tag = file.ID3v2Tag(true);
    tag->removeFrames("APIC");
    auto* frame = new TagLib::ID3v2::AttachedPictureFrame;
    frame->setType(TagLib::ID3v2::AttachedPictureFrame::FrontCover);
    frame->setMimeType(mimeType);
    frame->setPicture(TagLib::ByteVector(picture.data(), static_cast<unsigned int>(picture.size())));
    tag->addFrame(frame);
    ASSERT_TRUE(file.save());
  }
};

TEST_F(CoverFinderTest, EveryTagKindGivesItsEmbeddedPicture) {
  for (const char* name : {"pictured-id3v2.mp3", "pictured-lossless.flac", "pictured-vorbis.ogg",
                           "pictured-speech.opus", "pictured-Tone.M4A", "pictured-quiet.wma"}) {
    SCOPED_TRACE(name);
    const CoverPicture found = finder.Find(kFixtures + name);
    EXPECT_EQ(found.Describe(), "embedded");
    EXPECT_EQ(found.bytes, jpeg);
  }
}

// Embedded first, then folder.jpg, cover.jpg, front.jpg, cover.png in any
// letter case; a file that is no picture is passed over.
TEST_F(CoverFinderTest, TheFolderIsAskedInItsOrderWhenTheTagHasNone) {
  Copy("lossless.flac", "Album/song.flac");
  const std::string song = "C:\\Album\\song.flac";
  EXPECT_EQ(finder.Find(song).Describe(), "none");
  Copy("art.png", "Album/Cover.PNG");
  EXPECT_EQ(finder.Find(song).Describe(), "Cover.PNG");
  Copy("art.jpg", "Album/FRONT.jpg");
  EXPECT_EQ(finder.Find(song).Describe(), "FRONT.jpg");
  temp.WriteFile("Album/cover.jpg", "<html>not a picture</html>");
  EXPECT_EQ(finder.Find(song).Describe(), "FRONT.jpg");
  Copy("art.jpg", "Album/Folder.Jpg");
  const CoverPicture folder = finder.Find(song);
  EXPECT_EQ(folder.Describe(), "Folder.Jpg");
  EXPECT_EQ(folder.bytes, jpeg);
  Copy("pictured-lossless.flac", "Album/pictured.flac");
  EXPECT_EQ(finder.Find("C:\\Album\\pictured.flac").Describe(), "embedded");
  EXPECT_EQ(finder.Find("C:\\Album\\missing.flac").Describe(), "none");
  EXPECT_EQ(finder.Find("D:\\Album\\song.flac").Describe(), "none");  // a drive without a root
}

TEST_F(CoverFinderTest, DamagedFilesHugePicturesAndUnreadableFoldersGiveNone) {
  for (const char* name : {"truncated.flac", "lying.opus", "misnamed.ogg", "empty.mp3"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(finder.Find(kFixtures + name).Describe(), "none");
  }

  // 20 MB that begin as a JPEG, embedded as the front cover.
  const std::string huge = Copy("id3v2.mp3", "Huge/huge.mp3");
  Embed(huge, jpeg.substr(0, 3) + std::string(20 * 1024 * 1024 - 3, '\x11'), "image/jpeg");
  EXPECT_EQ(finder.Find(huge).Describe(), "none (embedded picture too large)");
  std::ofstream(temp.Path() + "/Huge/cover.jpg", std::ios::binary)
      << jpeg << std::string(CoverFinder::kMaxPictureBytes, '\0');
  EXPECT_EQ(finder.Find(huge).Describe(), "none (embedded picture too large)");

  // A folder that can be entered but not listed.
  const std::string song = Copy("lossless.flac", "Locked/song.flac");
  Copy("art.jpg", "Locked/cover.jpg");
  chmod((temp.Path() + "/Locked").c_str(), 0311);
  CoverPicture locked;
  const bool held =
      testing_support::RunWherePermissionsHold(temp.Path() + "/Locked", [&] { locked = finder.Find(song); });
  chmod((temp.Path() + "/Locked").c_str(), 0755);
  if (!held) GTEST_SKIP() << "permissions do not hold here";
  EXPECT_EQ(locked.Describe(), "none");
  EXPECT_EQ(finder.Find(song).Describe(), "cover.jpg");
}

// A picture too large in pixels to be shown is passed over like one too
// large in bytes: the folder's picture is shown, and said to be.
TEST_F(CoverFinderTest, AnEmbeddedPictureTooLargeToShowGivesWayToTheFolders) {
  const std::string song = Copy("id3v2.mp3", "Wide/song.mp3");
  const auto embed = [&](std::uint32_t width, std::uint32_t height) {
    std::string png = Bytes(kFixtures + "art.png");
    for (int i = 0; i < 4; ++i) {
      png[16 + i] = static_cast<char>(width >> (24 - 8 * i));
      png[20 + i] = static_cast<char>(height >> (24 - 8 * i));
    }
    Embed(song, png, "image/png");
  };
  embed(4096, 300);
  EXPECT_EQ(finder.Find(song).Describe(), "embedded");
  embed(4097, 300);
  EXPECT_EQ(finder.Find(song).Describe(), "none (embedded picture too large)");
  Copy("art.jpg", "Wide/folder.jpg");
  const CoverPicture shown = finder.Find(song);
  EXPECT_EQ(shown.Describe(), "folder.jpg (embedded picture too large)");
  EXPECT_EQ(shown.bytes, jpeg);
  embed(300, 5000);
  EXPECT_EQ(finder.Find(song).Describe(), "folder.jpg (embedded picture too large)");
}

}  // namespace
