// Rescans of volumes that change under them: a disk unplugged during the
// scan, files re-tagged since they were read, a folder removed mid-walk.

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <filesystem>
#include <fstream>

#include "tests/platform/ScopedTmpfs.h"
#include "tests/scan/ScanFixture.h"
#include "tests/support/CatalogueRows.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kGone = "The folder F:\\ is not there. Its entries were kept.";

// Writes a new ID3v1 title over the old one: the file keeps its size.
void Retitle(const std::string& path, const std::string& title) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(-125, std::ios::end);
  std::string field = title;
  field.resize(30, '\0');
  file.write(field.data(), static_cast<std::streamsize>(field.size()));
}

void MoveModificationTime(const std::string& path, int seconds) {
  fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(seconds));
}

class VolumeChangesTest : public ScanTest {
 protected:
  std::string Usb() const { return folder.Path() + "/usb"; }

  // A disk of its own on drive F, with the same serial each time it is plugged.
  std::unique_ptr<platform_tests::ScopedTmpfs> PlugDisk() {
    auto disk = std::make_unique<platform_tests::ScopedTmpfs>(Usb(), "4m");
    if (!disk->Mounted()) return disk;
    std::ofstream(Usb() + "/.windows-serial") << "5EED1234\n";
    for (const char* part : {"A", "B", "C", "D"})
      for (const char* name : {"1.mp3", "2.mp3"}) Put(std::string("usb/") + part + "/" + name, "id3v1.mp3");
    return disk;
  }

  std::string Title(int fileId) {
    const auto file = db.GetFile(fileId);
    return file->Title + "/" + file->id3Title + "/" + std::to_string(file->Rating);
  }
};

TEST_F(VolumeChangesTest, ADiskUnpluggedDuringARescanKeepsEveryRowAndEdit) {
  folder.MakeFolder("usb");
  testDrives.AddFixed('F', Usb());
  auto disk = PlugDisk();
  if (!disk->Mounted()) GTEST_SKIP() << "mounting a tmpfs needs privileges";
  Scan(3, "F:\\");
  const auto files = CataloguedFiles();
  ASSERT_EQ(files.size(), 8u);
  const int edited = files.at("\\C\\2.mp3");
  auto record = db.GetFile(edited);
  record->Title = "Mine";
  record->Rating = 5;
  db.UpdateFileUserInfo(*record);

  struct Moment {
    std::string folder;  // unplugged as the walk is about to list it; "" while tags are read
    int flags;           // 0, or MNT_DETACH for a lazy unmount
  };
  for (const Moment& moment : {Moment{"/", 0}, Moment{"/B/", 0}, Moment{"/D/", MNT_DETACH}, Moment{"/B/", MNT_DETACH},
                               Moment{"", MNT_DETACH}}) {
    SCOPED_TRACE(moment.folder + " " + std::to_string(moment.flags));
    if (!disk) disk = PlugDisk();
    bool unplugged = false;
    const auto unplug = [&] {
      if (!unplugged) unplugged = umount2(Usb().c_str(), moment.flags) == 0;
    };
    fileSystem.beforeList = [&](const std::string& listed) {
      if (!moment.folder.empty() && listed == Usb() + moment.folder) unplug();
    };
    // A changed file, so that the rescan has tags to read.
    MoveModificationTime(Usb() + "/C/2.mp3", 60);
    reader.beforeRead = [&](const std::string&) {
      if (moment.folder.empty()) unplug();
    };
    Scan(3, "F:\\");
    fileSystem.beforeList = nullptr;
    reader.beforeRead = nullptr;
    ASSERT_TRUE(unplugged);
    EXPECT_EQ(scanner.Report().Refusal(), kGone);
    EXPECT_EQ(CataloguedFiles(), files);
    EXPECT_EQ(db.GetFile(edited)->Title + std::to_string(db.GetFile(edited)->Rating), "Mine5");
    disk.reset();
  }

  // Plugged in again: nothing is new, nothing goes, and what could not be
  // read while it was away is read now.
  disk = PlugDisk();
  Scan(3, "F:\\");
  EXPECT_EQ(scanner.Report().Refusal(), "");
  EXPECT_EQ(CataloguedFiles(), files);
  EXPECT_EQ(Title(edited), "Mine/Café Müller/5");
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM MediaVolumes;"), 1);
}

TEST_F(VolumeChangesTest, FilesChangedSinceTheyWereReadAreReadAgainAndNoOthers) {
  Put("c/Music/same.mp3", "id3v1.mp3");
  Put("c/Music/retagged.mp3", "id3v1.mp3");
  Put("c/Music/touched.mp3", "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  const auto files = CataloguedFiles();
  auto record = db.GetFile(files.at("\\Music\\retagged.mp3"));
  record->Title = "Mine";
  db.UpdateFileUserInfo(*record);

  std::vector<std::string> read;
  reader.beforeRead = [&](const std::string& path) { read.push_back(fs::path(path).filename()); };
  const std::string music = folder.Path() + "/c/Music/";
  Retitle(music + "retagged.mp3", "Second Take");
  MoveModificationTime(music + "retagged.mp3", 5);
  MoveModificationTime(music + "touched.mp3", -5);
  Scan(3, "C:\\Music\\");
  std::sort(read.begin(), read.end());
  EXPECT_EQ(read, (std::vector<std::string>{"retagged.mp3", "touched.mp3"}));
  EXPECT_EQ(CataloguedFiles(), files);
  EXPECT_EQ(Title(files.at("\\Music\\retagged.mp3")), "Mine/Second Take/0");

  // Rows read before stamps were kept gain them without being read again.
  testing_support::RunSql(db, "DELETE FROM vantrelle_file_stamps;");
  read.clear();
  Scan(3, "C:\\Music\\");
  EXPECT_TRUE(read.empty());
  EXPECT_EQ(testing_support::QueryNumber(db, "SELECT count(*) FROM vantrelle_file_stamps;"), 3);
  fs::resize_file(music + "same.mp3", fs::file_size(music + "same.mp3") - 1);
  Scan(3, "C:\\Music\\");
  EXPECT_EQ(read, (std::vector<std::string>{"same.mp3"}));
}

TEST_F(VolumeChangesTest, AFolderIsGoneOnlyWhenItsParentNoLongerHoldsIt) {
  Put("c/Music/A/a.mp3", "id3v1.mp3");
  Put("c/Music/B/b.mp3", "id3v1.mp3");
  Put("c/Music/C/c.mp3", "id3v1.mp3");
  Scan(3, "C:\\Music\\");
  ASSERT_EQ(CataloguedFiles().size(), 3u);

  // Listed with its parent, then removed before the walk reached it: gone.
  // A link whose target went away (a share that dropped) is still named by
  // its parent: kept.
  const std::string music = folder.Path() + "/c/Music/";
  fs::rename(music + "C", folder.Path() + "/c/Elsewhere");
  fs::create_directory_symlink(folder.Path() + "/c/Elsewhere", music + "C");
  fileSystem.beforeList = [&](const std::string& listed) {
    if (listed != music + "A/") return;
    fs::remove_all(music + "B");
    fs::remove(folder.Path() + "/c/Elsewhere/c.mp3");
    fs::remove(folder.Path() + "/c/Elsewhere");
  };
  Scan(3, "C:\\Music\\");
  fileSystem.beforeList = nullptr;
  EXPECT_EQ(scanner.Report().Notes(), "1 folder could not be read; its entries were kept.");
  auto after = CataloguedFiles();
  EXPECT_EQ(after.count("\\Music\\B\\b.mp3"), 0u);
  EXPECT_EQ(after.count("\\Music\\C\\c.mp3"), 1u);
}

}  // namespace
