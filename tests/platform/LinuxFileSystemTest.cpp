#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/DrivePaths.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;

namespace platform {

void PrintTo(const CopyResult& result, std::ostream* out) {
  *out << static_cast<int>(result.outcome) << " " << result.reason;
}

namespace {

using testing_support::TempFolder;
using testing_support::TestDrives;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

class LinuxFileSystemTest : public ::testing::Test {
 protected:
  LinuxFileSystemTest() { TestDrives(tmp.Path()).AddFixed('C', root); }

  std::vector<std::string> Names(const std::string& folder, const std::string& pattern) const {
    std::vector<std::string> names;
    for (const DirEntry& entry : files.List(folder, pattern).entries) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    return names;
  }

  TempFolder tmp;
  std::string root = fs::canonical(tmp.MakeFolder("c")).string();
  LinuxDriveTable table{tmp.Path()};
  LinuxFileSystem files{table};
};

TEST_F(LinuxFileSystemTest, DrivePathsFindComponentsWhateverTheirCase) {
  tmp.WriteFile("c/Music/Rock/Song.MP3", "12345");
  tmp.MakeFolder("c/Music/ROCK");

  for (const auto& [drivePath, local] :
       std::vector<std::pair<std::string, std::string>>{{"c:\\music\\rock\\song.mp3", root + "/Music/ROCK/song.mp3"},
                                                        {"C:\\MUSIC\\Rock\\song.mp3", root + "/Music/Rock/Song.MP3"},
                                                        {"C:\\Music\\New\\Rock\\x.mp3", root + "/Music/New/Rock/x.mp3"},
                                                        {"C:\\Music\\", root + "/Music/"},
                                                        {"C:\\", root + "/"},
                                                        {"/etc/Hosts", "/etc/Hosts"},
                                                        {"Q:\\x", ""},
                                                        {"relative\\x", ""}})
    EXPECT_EQ(files.LocalPath(drivePath), local) << drivePath;

  // One spelling: the letter in upper case, dots gone, existing names as stored.
  EXPECT_EQ(CanonicalDrivePath(table, "c:\\music\\Rock\\..\\.\\rock\\SONG.mp3"), "C:\\Music\\ROCK\\SONG.mp3");
  EXPECT_EQ(CanonicalDrivePath(table, "c:\\..\\MUSIC\\rock\\..\\Rock\\New\\"), "C:\\Music\\Rock\\New\\");
  EXPECT_EQ(CanonicalDrivePath(table, "c:"), "C:\\");
  EXPECT_EQ(CanonicalDrivePath(table, "Q:\\x"), "");

  std::optional<FileFacts> facts = files.Stat("C:\\music\\Rock\\SONG.mp3");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, "Song.MP3");
  EXPECT_EQ(facts->size, 5);
  EXPECT_FALSE(files.Stat("C:\\Music\\missing.mp3"));
}

TEST_F(LinuxFileSystemTest, ListMatchesPatternsWithoutRegardToCaseAndTellsWhatEachEntryIs) {
  for (const char* name : {"a.MP3", "b.mp3", "noext", "it's 100% _x_.mp3", " blank .mp3",
                           "\xC3\x9C"
                           "ber \xC3\xBC.mp3",
                           "[live] set.mp3", "back\\slash.mp3", "c.flac"})
    tmp.WriteFile(std::string("c/Music/") + name, "x");
  tmp.MakeFolder("c/Music/Folder.mp3");
  tmp.MakeFolder("c/Elsewhere");
  fs::create_directory_symlink(root + "/Elsewhere", root + "/Music/linked");
  fs::create_symlink(root + "/gone", root + "/Music/dangling.mp3");
  fs::create_symlink(root + "/Music/a.MP3", root + "/Music/alias.mp3");
  ASSERT_EQ(mkfifo((root + "/Music/pipe.mp3").c_str(), 0600), 0);

  EXPECT_EQ(Names("C:\\music\\", "*.mp3"),
            (std::vector<std::string>{" blank .mp3", "Folder.mp3", "[live] set.mp3", "a.MP3", "alias.mp3", "b.mp3",
                                      "dangling.mp3", "it's 100% _x_.mp3", "pipe.mp3",
                                      "\xC3\x9C"
                                      "ber \xC3\xBC.mp3"}));
  EXPECT_EQ(Names("C:\\Music", "*.*").size(), 13u);  // all but the name holding "\"
  EXPECT_EQ(Names("C:\\Music", "[live]*"), (std::vector<std::string>{"[live] set.mp3"}));
  EXPECT_EQ(Names("C:\\Music", "?.Mp3"), (std::vector<std::string>{"a.MP3", "b.mp3"}));

  const Listing listing = files.List("C:\\Music", "*.*");
  EXPECT_EQ(listing.status, ListingStatus::Listed);
  ASSERT_EQ(listing.unnameable.size(), 1u);
  EXPECT_EQ(listing.unnameable[0].name, "back\\slash.mp3");
  EXPECT_TRUE(listing.unnameable[0].IsFile());
  for (const DirEntry& entry : listing.entries) {
    const bool folder = entry.name == "Folder.mp3" || entry.name == "linked";
    const bool other = entry.name == "pipe.mp3" || entry.name == "dangling.mp3";
    EXPECT_EQ(entry.kind, folder ? EntryKind::Folder : other ? EntryKind::Other : EntryKind::File) << entry.name;
  }
}

TEST_F(LinuxFileSystemTest, EntriesWhosePathsAreTooLongToOpenAreSetApart) {
  // A folder whose path leaves room for a short name but not for a long one,
  // which can only be made relative to the folder.
  std::string deep = root;
  while (deep.size() < 3800) deep += "/" + std::string(std::min<std::size_t>(100, 3870 - deep.size()), 'd');
  fs::create_directories(deep);
  std::ofstream(deep + "/short.mp3") << "x";
  const int folderFd = open(deep.c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_GE(folderFd, 0);
  const std::string longName = std::string(250, 'f') + ".mp3";
  close(openat(folderFd, longName.c_str(), O_CREAT | O_WRONLY, 0600));

  const Listing listing = files.List(deep, "*.*");
  ASSERT_EQ(listing.entries.size(), 1u);
  EXPECT_EQ(listing.entries[0].name, "short.mp3");
  ASSERT_EQ(listing.tooLong.size(), 1u);
  EXPECT_TRUE(listing.tooLong[0].IsFile());
  unlinkat(folderFd, longName.c_str(), 0);
  close(folderFd);
}

TEST_F(LinuxFileSystemTest, CopyIsWritableAndNeverReplacesOrFollowsWhatIsThere) {
  const std::string in = tmp.WriteFile("c/in.mp3", std::string(300000, 'a'));
  fs::permissions(in, fs::perms::owner_read | fs::perms::group_read);  // as on a CD
  ASSERT_EQ(files.CopyNoOverwrite("C:\\IN.mp3", "C:\\out.mp3"), CopyResult::Copied());
  EXPECT_EQ(Content(root + "/out.mp3"), std::string(300000, 'a'));
  EXPECT_EQ(fs::status(root + "/out.mp3").permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  EXPECT_EQ(fs::last_write_time(root + "/out.mp3"), fs::last_write_time(in));

  // A file, a link to a read-only file, a dangling link and a link to a folder
  // are all "already there" and stay as they were.
  const std::string other = tmp.WriteFile("c/other.mp3", "other");
  const std::string elsewhere = tmp.WriteFile("elsewhere/kept.mp3", "kept");
  fs::permissions(elsewhere, fs::perms::owner_read);
  fs::create_symlink(elsewhere, root + "/link.mp3");
  fs::create_symlink(root + "/nowhere", root + "/dangling.mp3");
  fs::create_directory_symlink(tmp.MakeFolder("elsewhere/folder"), root + "/folder.mp3");
  fs::permissions(in, fs::perms::owner_read);
  for (const char* name : {"in.mp3", "link.mp3", "dangling.mp3", "folder.mp3"})
    EXPECT_EQ(files.CopyNoOverwrite("C:\\other.mp3", std::string("C:\\") + name), CopyResult::AlreadyThere()) << name;
  EXPECT_EQ(fs::status(in).permissions(), fs::perms::owner_read);
  EXPECT_EQ(Content(elsewhere) + Content(in).substr(0, 1), "kepta");
  EXPECT_EQ(fs::status(elsewhere).permissions(), fs::perms::owner_read);
  EXPECT_FALSE(fs::exists(root + "/nowhere"));
  EXPECT_TRUE(fs::is_empty(tmp.Path() + "/elsewhere/folder"));

  // A target folder reached through a link is the folder it points at.
  fs::create_directory_symlink(tmp.Path() + "/elsewhere", root + "/Out");
  EXPECT_EQ(files.CopyNoOverwrite(other, "C:\\Out\\new.mp3"), CopyResult::Copied());
  EXPECT_EQ(Content(tmp.Path() + "/elsewhere/new.mp3"), "other");
}

// What the target folder holds, temporary files included.
std::vector<std::string> Entries(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

// Only regular files are copied (nothing waits on a pipe); a failed copy
// leaves no partial file and says why.
TEST_F(LinuxFileSystemTest, FailedCopyLeavesNoPartialFileAndSaysWhy) {
  ASSERT_EQ(mkfifo((root + "/x.mp3").c_str(), 0644), 0);
  tmp.MakeFolder("c/Folder.mp3");
  for (const char* source : {"C:\\x.mp3", "C:\\Folder.mp3", "/dev/null"})
    EXPECT_EQ(files.CopyNoOverwrite(source, "C:\\new.mp3"), CopyResult::Failed("not a regular file")) << source;
  EXPECT_EQ(files.CopyNoOverwrite("C:\\missing.mp3", "C:\\new.mp3"), CopyResult::Failed("source missing"));
  EXPECT_EQ(files.CopyNoOverwrite("Q:\\a.mp3", "C:\\new.mp3"), CopyResult::Failed("source missing"));
  // Reading this process's memory from address 0 fails after the copy began.
  EXPECT_EQ(files.CopyNoOverwrite("/proc/self/mem", "C:\\memory").outcome, CopyResult::Outcome::Failed);
  tmp.WriteFile("c/big.mp3", std::string(1 << 20, 'b'));
  EXPECT_EQ(files.CopyNoOverwrite("C:\\big.mp3", "C:\\Missing\\big.mp3"), CopyResult::Failed("target folder missing"));
  EXPECT_EQ(files.CopyNoOverwrite("C:\\big.mp3", "Q:\\big.mp3"), CopyResult::Failed("target folder missing"));
  EXPECT_EQ(Entries(root), (std::vector<std::string>{"Folder.mp3", "big.mp3", "x.mp3"}));
}

// A completed copy removes what killed copies of its name left, but not a
// part file being written (its writer holds it) nor anything else.
TEST_F(LinuxFileSystemTest, LeftoversOfAKilledCopyAndLongNamesDoNotStopACopy) {
  tmp.WriteFile("c/in.mp3", "new");
  const std::string stale = tmp.WriteFile("c/Out/.song.mp3.vantrelle-part", "stale");
  fs::permissions(stale, fs::perms::owner_read);
  fs::create_symlink(root + "/in.mp3", root + "/Out/.song.mp3.2.vantrelle-part");
  tmp.WriteFile("c/Out/.song.mp3.3.vantrelle-part", "older");
  const std::string writing = tmp.WriteFile("c/Out/.song.mp3.5.vantrelle-part", "writing");
  const int writer = open(writing.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(flock(writer, LOCK_EX), 0);
  EXPECT_EQ(files.CopyNoOverwrite("C:\\in.mp3", "C:\\Out\\song.mp3"), CopyResult::Copied());
  EXPECT_EQ(Content(root + "/Out/song.mp3") + Content(root + "/in.mp3"), "newnew");
  EXPECT_EQ(Entries(root + "/Out"),
            (std::vector<std::string>{".song.mp3.2.vantrelle-part", ".song.mp3.5.vantrelle-part", "song.mp3"}));
  close(writer);
  // An unrelated name that differs only in letter case is another file.
  EXPECT_EQ(files.CopyNoOverwrite("C:\\in.mp3", "C:\\Out\\SONG.MP3"), CopyResult::Copied());
  EXPECT_EQ(Entries(root + "/Out"), (std::vector<std::string>{".song.mp3.2.vantrelle-part",
                                                              ".song.mp3.5.vantrelle-part", "SONG.MP3", "song.mp3"}));
  EXPECT_EQ(files.CopyNoOverwrite("C:\\in.mp3", "C:\\out\\Song.mp3"), CopyResult::Copied());
  EXPECT_TRUE(fs::exists(root + "/Out/Song.mp3"));

  const std::string longest = std::string(251, 'l') + ".mp3";
  EXPECT_EQ(files.CopyNoOverwrite("C:\\in.mp3", "C:\\Out\\" + longest), CopyResult::Copied());
  EXPECT_EQ(Content(root + "/Out/" + longest), "new");
}

}  // namespace
}  // namespace platform
