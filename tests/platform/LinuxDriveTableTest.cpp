#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cstdlib>
#include <filesystem>

#include "platform/LinuxDriveTable.h"
#include "platform/SerialArithmetic.h"
#include "tests/platform/ScopedTmpfs.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;

namespace platform {
namespace {

using platform_tests::ScopedTmpfs;
using testing_support::LabelDisc;
using testing_support::TempFolder;
using testing_support::TestDrives;

class LinuxDriveTableTest : public ::testing::Test {
 protected:
  std::string Folder(const std::string& relative) { return fs::canonical(tmp.MakeFolder(relative)).string(); }

  TempFolder tmp;
  TestDrives drives{tmp.Path()};
  LinuxDriveTable table{tmp.Path() + "/"};
};

TEST_F(LinuxDriveTableTest, LettersAndTypesComeFromTheLinks) {
  drives.AddFixed('C', Folder("home"));
  drives.AddCd('E', Folder("disc"));
  drives.AddCd('D');
  tmp.WriteFile("drives/readme", "not a drive");
  fs::create_directory_symlink(Folder("home"), tmp.Path() + "/drives/long:");

  EXPECT_EQ(table.Letters(), (std::vector<char>{'C', 'D', 'E'}));
  EXPECT_EQ(table.Type('C'), kDriveFixed);
  EXPECT_EQ(table.Type('D'), kDriveCdRom);
  EXPECT_EQ(table.Type('E'), kDriveCdRom);
  EXPECT_EQ(table.Type('Q'), kDriveNoRootDir);
  EXPECT_EQ(table.RootFolder('C'), Folder("home"));
  EXPECT_EQ(table.RootFolder('Q'), "");
}

TEST_F(LinuxDriveTableTest, CdDriveFollowsTheDiscInsertedSwappedAndEjected) {
  drives.AddCd('D');
  EXPECT_FALSE(table.IsReady('D'));
  EXPECT_EQ(table.RootFolder('D'), "");
  EXPECT_FALSE(table.Identify('D').ok);

  std::string first = Folder("discs/first");
  LabelDisc(first, "Blue Train", 0x1234ABCD);
  drives.InsertDisc('D', first);
  EXPECT_TRUE(table.IsReady('D'));
  EXPECT_EQ(table.RootFolder('D'), first);
  VolumeIdentity identity = table.Identify('D');
  EXPECT_EQ(identity.label + " " + std::to_string(identity.serial), "Blue Train " + std::to_string(0x1234ABCDu));

  drives.InsertDisc('D', Folder("discs/Kind of Blue"));
  identity = table.Identify('D');
  EXPECT_EQ(identity.label, "Kind of Blue");
  EXPECT_NE(identity.serial, 0x1234ABCDu);
  EXPECT_EQ(table.Identify('D').serial, identity.serial);

  drives.Eject('D');
  EXPECT_FALSE(table.IsReady('D'));
  EXPECT_FALSE(table.Identify('D').ok);
}

// Two letters on one file system are two volumes; a path belongs to the longest root holding it.
TEST_F(LinuxDriveTableTest, TwoLettersOnOneFileSystemAreTwoVolumesAndAPathTakesTheLongestRoot) {
  std::string home = Folder("home");
  drives.AddFixed('C', home);
  drives.AddFixed('G', Folder("home/Music/Deep"));
  const VolumeIdentity c = table.Identify('C');
  const VolumeIdentity g = table.Identify('G');
  ASSERT_TRUE(c.ok && g.ok);
  EXPECT_NE(c.serial, g.serial);
  EXPECT_EQ(table.Identify('C').serial, c.serial);
  EXPECT_EQ(c.label + " " + g.label, "home Deep");
  Folder("home2/x");
  Folder("home/Music/Rock/Live");
  fs::create_directory_symlink(home + "/Music", tmp.Path() + "/music-link");

  for (const auto& [local, drivePath] :
       std::vector<std::pair<std::string, std::string>>{{home + "/Music/Rock/Live", "C:\\Music\\Rock\\Live"},
                                                        {home + "/Music/Deep/Sub/", "G:\\Sub"},
                                                        {home + "/Music/Deep", "G:\\"},
                                                        {home, "C:\\"},
                                                        {tmp.Path() + "/music-link/Rock", "C:\\Music\\Rock"},
                                                        {tmp.Path() + "/home2/x", ""},
                                                        {home + "/Music/back\\slash", ""}})
    EXPECT_EQ(table.ToDrivePath(local), drivePath) << local;
  drives.AddFixed('Z', "/");
  EXPECT_EQ(table.ToDrivePath("/proc/self"), "Z:\\proc\\" + fs::canonical("/proc/self").filename().string());
  EXPECT_EQ(table.ToDrivePath("/sys/kernel"), "Z:\\sys\\kernel");
  EXPECT_EQ(table.Letters(), (std::vector<char>{'C', 'G', 'Z'}));  // no letter of their own
}

TEST_F(LinuxDriveTableTest, FolderOnAnotherFileSystemGetsALetterOfItsOwn) {
  std::string home = Folder("home");
  std::string usb = Folder("home/usb");
  ScopedTmpfs disk(usb, "1m");
  if (!disk.Mounted()) GTEST_SKIP() << "mounting is not permitted here";
  Folder("home/usb/Music");
  drives.AddFixed('C', home);
  drives.AddCd('F');

  EXPECT_EQ(table.ToDrivePath(usb + "/Music"), "G:\\Music");
  EXPECT_EQ(table.RootFolder('G'), usb);
  EXPECT_EQ(table.Type('G'), kDriveFixed);
  EXPECT_EQ(table.Letters(), (std::vector<char>{'C', 'F', 'G'}));
  EXPECT_NE(table.Identify('G').serial, table.Identify('C').serial);
}

TEST_F(LinuxDriveTableTest, CdDeviceHoldsWhateverItIsMountedOn) {
  std::string mountPoint = Folder("cdrom");
  {
    ScopedTmpfs disc(mountPoint, "64k");
    if (!disc.Mounted()) GTEST_SKIP() << "mounting is not permitted here";
    struct stat mounted {};
    ASSERT_EQ(stat(mountPoint.c_str(), &mounted), 0);
    std::string device = tmp.Path() + "/sr0";
    if (mknod(device.c_str(), S_IFBLK | 0600, mounted.st_dev) != 0) GTEST_SKIP() << "cannot make a device node";
    fs::create_symlink(device, tmp.Path() + "/drives/d::");

    EXPECT_EQ(table.Type('D'), kDriveCdRom);
    EXPECT_EQ(table.RootFolder('D'), mountPoint);
    EXPECT_TRUE(table.IsReady('D'));
    EXPECT_TRUE(table.Identify('D').ok);
  }
  EXPECT_EQ(table.RootFolder('D'), "");
  EXPECT_FALSE(table.IsReady('D'));
}

TEST_F(LinuxDriveTableTest, LabelAndUuidAreReadFromTheDevice) {
  const std::string uuid = "3e6be9de-8139-11d1-9106-a43f08d823a6";
  std::string image = tmp.Path() + "/disk.img";
  std::string mountPoint = Folder("ext4");
  std::string make = "truncate -s 4M " + image + " && mkfs.ext4 -q -L MUSICDISK -U " + uuid + " " + image;
  std::string mount = "mount -o loop " + image + " " + mountPoint;
  if (std::system((make + " 2>/dev/null").c_str()) != 0 || std::system((mount + " 2>/dev/null").c_str()) != 0)
    GTEST_SKIP() << "cannot make and mount an ext4 image here";
  struct Unmount {
    std::string folder;
    ~Unmount() { umount2(folder.c_str(), MNT_DETACH); }
  } unmount{mountPoint};
  drives.AddFixed('C', mountPoint);
  drives.AddFixed('G', Folder("ext4/Music"));

  EXPECT_EQ(table.Identify('C').label, "MUSICDISK");
  EXPECT_EQ(table.Identify('C').serial, HashedSerial(uuid));
  EXPECT_EQ(table.Identify('G').label, "MUSICDISK");
  EXPECT_NE(table.Identify('G').serial, table.Identify('C').serial);
}

}  // namespace
}  // namespace platform
