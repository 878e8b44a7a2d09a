#include <gtest/gtest.h>
#include <taglib/vorbisfile.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <vector>

#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "tags/CTagReader.h"
#include "tests/support/TempFolder.h"

namespace {

const std::string kFixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio";

// Every field holds a value the reader never writes, so any write shows.
CMediaFile Prefilled() {
  CMediaFile r;
  r.FileID = 7, r.VolID = 2, r.PathID = 3, r.ScanState = 1, r.DirtyBit = 1;
  r.FileName = "name.mp3", r.Size = 99, r.Type = 1, r.Rating = 4;
  r.Title = "user title", r.Artist = "user artist", r.Album = "user album", r.Comment = "user comment";
  r.id3Title = "old title", r.id3Artist = "old artist", r.id3Album = "old album";
  r.id3Comment = "old comment", r.id3Genre = "Jazz";
  r.Length = r.BitRate = r.SampleRate = r.Channels = -1;
  return r;
}

auto AllFields(const CMediaFile& r) {
  return std::tie(r.FileID, r.VolID, r.PathID, r.ScanState, r.DirtyBit, r.FileName, r.Size, r.Type, r.Title, r.Artist,
                  r.Album, r.Comment, r.Rating, r.id3Title, r.id3Artist, r.id3Album, r.id3Genre, r.id3Comment, r.Length,
                  r.BitRate, r.SampleRate, r.Channels);
}

std::vector<std::vector<std::string>> ManifestRows() {
  std::ifstream in(kFixtures + "/fixtures.tsv");
  std::vector<std::vector<std::string>> rows;
  std::string line;
  std::getline(in, line);  // header
  while (std::getline(in, line)) {
    std::vector<std::string> cells;
    std::istringstream cellStream(line);
    for (std::string cell; std::getline(cellStream, cell, '\t');) cells.push_back(cell);
    cells.resize(9);
    rows.push_back(cells);
  }
  return rows;
}

// Drive C is the folder "c" of a temporary program folder.
class CTagReaderTest : public ::testing::Test {
 protected:
  CTagReaderTest() { testing_support::TestDrives(temp.Path()).AddFixed('C', temp.MakeFolder("c")); }

  testing_support::TempFolder temp;
  platform::LinuxDriveTable table{temp.Path()};
  platform::LinuxFileSystem files{table};
  CTagReader reader{files};

  CMediaFile Read(const std::string& path) {
    CMediaFile record = Prefilled();
    EXPECT_EQ(reader.GetTag(path, record), 0);
    return record;
  }
  void CopyFixture(const std::string& fixture, const std::string& relative) {
    const std::filesystem::path target = temp.Path() + "/c/" + relative;
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::copy_file(kFixtures + "/" + fixture, target);
  }
  void ExpectUntouched(const std::string& path) {
    SCOPED_TRACE(path);
    const CMediaFile before = Prefilled(), after = Read(path);
    EXPECT_EQ(AllFields(after), AllFields(before));
  }
};

// Covers every format, ending case, tag kind, both sample rates and channel
// counts, and the misnamed, truncated and empty files that must yield nothing.
TEST_F(CTagReaderTest, EveryFixtureReadsAsTheManifestSaysAndOnlyTagFieldsChange) {
  const auto rows = ManifestRows();
  ASSERT_EQ(rows.size(), 16u);
  for (const auto& row : rows) {
    SCOPED_TRACE(row[0]);
    ASSERT_TRUE(std::filesystem::exists(kFixtures + "/" + row[0]));
    CMediaFile expected = Prefilled();
    if (!row[5].empty()) {
      expected.id3Title = row[1], expected.id3Artist = row[2];
      expected.id3Album = row[3], expected.id3Comment = row[4];
      expected.Length = std::stoi(row[5]), expected.BitRate = std::stoi(row[6]);
      expected.SampleRate = std::stoi(row[7]), expected.Channels = std::stoi(row[8]);
    }
    const CMediaFile actual = Read(kFixtures + "/" + row[0]);
    EXPECT_EQ(AllFields(actual), AllFields(expected));
  }
}

TEST_F(CTagReaderTest, WhiteSpaceIsTrimmedAtTheEndOnlyAndLongTextsAreCutBetweenCharacters) {
  CopyFixture("vorbis.ogg", "edited.ogg");
  std::string twoByteTitle = "a";
  for (int i = 0; i < 50000; ++i) twoByteTitle += "\xC3\xA9";  // 100,001 bytes
  {
    TagLib::Ogg::Vorbis::File file((temp.Path() + "/c/edited.ogg").c_str(), false);
    file.tag()->setTitle(TagLib::String(twoByteTitle, TagLib::String::UTF8));
    file.tag()->setArtist(" \t\n");
    file.tag()->setAlbum("  inner \t gap \t\r\n\v\f ");
    file.tag()->setComment(std::string(65530, 'c') + std::string(10, ' ') + "end");
    ASSERT_TRUE(file.save());
  }
  const CMediaFile record = Read("C:\\edited.ogg");
  EXPECT_EQ(record.id3Title, twoByteTitle.substr(0, 65535));  // "é" at 65535 would not fit whole
  EXPECT_EQ(record.id3Artist, "");
  EXPECT_EQ(record.id3Album, "  inner \t gap");
  EXPECT_EQ(record.id3Comment, std::string(65530, 'c'));  // cut, then trimmed
}

TEST_F(CTagReaderTest, TheTypeComesFromTheWholeEndingAndDrivePathsAreResolved) {
  CopyFixture("id3v2.mp3", "x.mp3");
  CopyFixture("lossless.flac", "a.fla");
  CopyFixture("lossless.flac", "b.FlAc");
  EXPECT_EQ(Read("C:\\x.mp3").id3Title, "Trailing Blanks");
  ExpectUntouched("C:\\a.fla");
  EXPECT_EQ(Read("C:\\b.FlAc").id3Title, "Lossless Tone");

  // Drive paths are resolved; unreachable files leave the record untouched.
  CopyFixture("SONG.MP3", "Music/Rock/SONG.MP3");
  CopyFixture("SONG.MP3", "Music/Rock/song.mp4");
  EXPECT_EQ(Read("C:\\Music\\Rock\\SONG.MP3").id3Album, "Shouting");
  ExpectUntouched("C:\\Music\\Rock\\song.mp4");
  ExpectUntouched("C:\\Music\\Rock\\missing.mp3");
  ExpectUntouched("D:\\Music\\Rock\\SONG.MP3");  // a drive without a root
}

// A file system that fails as a broken disk may, below the reader.
struct ThrowingFileSystem : platform::LinuxFileSystem {
  using LinuxFileSystem::LinuxFileSystem;
  std::string LocalPath(const std::string&) const override { throw std::runtime_error("LocalPath failed"); }
};

TEST_F(CTagReaderTest, ExceptionsPassToTheCallerOnceTheNameIsKnown) {
  const ThrowingFileSystem failing(table);
  CTagReader throwing(failing);
  CMediaFile record;
  EXPECT_THROW(throwing.GetTag("C:\\song.wma", record), std::runtime_error);
  EXPECT_NO_THROW(throwing.GetTag("C:\\notes.txt", record));
}

}  // namespace
