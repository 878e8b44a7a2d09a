#pragma once
// The mounted file systems, as /proc/self/mountinfo lists them. The table is
// read afresh by each caller that needs it, since discs come and go.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct Mount {
  std::uint64_t device = 0;  // the file system's device number (makedev(major, minor))
  std::string root;          // the folder of the file system seen at the mount point
  std::string mountPoint;
  std::string type;    // "ext4", "vfat", "iso9660", "fuseblk", ...
  std::string source;  // "/dev/sda1", "overlay", "server:/share", ...
};

// Parses the text of a mountinfo file; lines that do not parse are left out.
std::vector<Mount> ParseMountInfo(std::string_view text);

// The mounts of this process; empty when /proc cannot be read.
std::vector<Mount> ReadMountTable();

// The mount that holds a canonical path: the longest mount point above it, the
// later of two mounts on one point. nullptr when none does.
const Mount* MountHolding(const std::vector<Mount>& mounts, const std::string& path);

// Where a device is mounted, preferring a mount of its whole file system;
// nullptr when it is not mounted.
const Mount* MountOfDevice(const std::vector<Mount>& mounts, std::uint64_t device);

}  // namespace platform
