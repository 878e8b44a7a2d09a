#include <gtest/gtest.h>
#include <sys/sysmacros.h>

#include "platform/MountTable.h"

namespace platform {
namespace {

constexpr const char* kMountInfo =
    "27 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda rw\n"
    "39 27 8:17 /Music /srv/music rw - vfat /dev/sdb1 rw\n"
    "40 27 8:17 / /media/My\\040Disk rw,nosuid shared:5 master:2 - vfat /dev/sdb1 rw\n"
    "42 27 0:39 / /media/My\\040Disk/inner rw - tmpfs tmpfs rw\n"
    "43 27 0:40 / /media/My\\040Disk/inner rw - tmpfs other rw\n"
    "this line does not parse\n";

TEST(MountTable, ParsesFieldsAndFindsTheMountOfAPathAndOfADevice) {
  std::vector<Mount> mounts = ParseMountInfo(kMountInfo);
  ASSERT_EQ(mounts.size(), 5u);
  EXPECT_EQ(mounts[1].device, makedev(8, 17));
  EXPECT_EQ(mounts[1].root, "/Music");
  EXPECT_EQ(mounts[2].mountPoint, "/media/My Disk");
  EXPECT_EQ(mounts[2].type, "vfat");
  EXPECT_EQ(mounts[2].source, "/dev/sdb1");

  EXPECT_EQ(MountHolding(mounts, "/media/My Disk/Rock")->source, "/dev/sdb1");
  EXPECT_EQ(MountHolding(mounts, "/media/My Disk")->source, "/dev/sdb1");
  EXPECT_EQ(MountHolding(mounts, "/media/My Disks")->source, "/dev/vda");
  // Of two mounts on one point the later one is on top.
  EXPECT_EQ(MountHolding(mounts, "/media/My Disk/inner/x")->source, "other");

  // A device is mounted where its whole file system is, not at a bind mount of a folder.
  EXPECT_EQ(MountOfDevice(mounts, makedev(8, 17))->mountPoint, "/media/My Disk");
  EXPECT_EQ(MountOfDevice(mounts, makedev(8, 18)), nullptr);
  EXPECT_EQ(MountOfDevice(mounts, makedev(0, 39))->mountPoint, "/media/My Disk/inner");
}

}  // namespace
}  // namespace platform
