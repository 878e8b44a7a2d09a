#pragma once
// The links of a drives folder: "c:" -> a fixed disk's folder, "d::" -> a CD
// drive (a device node or a disc folder). The folder is read afresh by every
// call, so other processes and threads may add links at any time. Nothing here
// throws.

#include <optional>
#include <string>
#include <vector>

namespace platform {

struct DriveLink {
  char letter = 0;     // upper case
  bool cd = false;     // a CD drive ("d::") rather than a fixed disk ("c:")
  std::string target;  // where the link points, relative targets made absolute
};

// The links of the folder in letter order; entries that are not such links
// are ignored. A letter linked both ways counts as a fixed disk.
std::vector<DriveLink> ReadDriveLinks(const std::string& drivesFolder);

std::optional<DriveLink> ReadDriveLink(const std::string& drivesFolder, char letter);

// Creates the link unless the letter is in the table already; false when it is
// or the link cannot be made.
bool WriteDriveLink(const std::string& drivesFolder, const DriveLink& link);

// The table of a machine: "c:" -> home, one CD link per /sys/block/srN in
// numeric order from D (to the device /dev/srN), and "z:" -> "/".
std::vector<DriveLink> DefaultDriveLinks(const std::string& home, const std::string& sysBlockFolder);

}  // namespace platform
