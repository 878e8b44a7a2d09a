#include <gtest/gtest.h>

#include <filesystem>

#include "platform/DriveLinks.h"
#include "platform/LinuxDriveTable.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;

namespace platform {
namespace {

using testing_support::TempFolder;

TEST(DriveLinks, DefaultTableNumbersOpticalDrivesInNumericOrder) {
  TempFolder sysBlock;
  for (const char* device : {"sr10", "sda", "sr1", "loop0", "sr0", "srx"}) sysBlock.MakeFolder(device);

  std::vector<DriveLink> links = DefaultDriveLinks("/home/ann", sysBlock.Path());
  ASSERT_EQ(links.size(), 5u);
  EXPECT_EQ(links[0].letter, 'C');
  EXPECT_EQ(links[0].target, "/home/ann");
  EXPECT_FALSE(links[0].cd);
  EXPECT_EQ(links[1].target, "/dev/sr0");
  EXPECT_EQ(links[2].target, "/dev/sr1");
  EXPECT_EQ(links[3].letter, 'F');
  EXPECT_EQ(links[3].target, "/dev/sr10");
  EXPECT_TRUE(links[3].cd);
  EXPECT_EQ(links[4].letter, 'Z');
  EXPECT_EQ(links[4].target, "/");
}

TEST(DriveLinks, CreateDefaultIfMissingLeavesAnExistingTableAlone) {
  TempFolder program;
  program.MakeFolder("drives");
  fs::create_directory_symlink("/srv", program.Path() + "/drives/q:");

  ASSERT_TRUE(LinuxDriveTable::CreateDefaultIfMissing(program.Path()));
  std::vector<DriveLink> links = ReadDriveLinks(program.Path() + "/drives");
  ASSERT_EQ(links.size(), 1u);
  EXPECT_EQ(links[0].letter, 'Q');
  EXPECT_EQ(links[0].target, "/srv");
}

}  // namespace
}  // namespace platform
