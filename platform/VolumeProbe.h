#pragma once
// What the machine can tell about the file system of a mount and the disc in a
// CD device. Calls read devices and /dev/disk; they do not throw, and any
// thread may call them.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/MountTable.h"

namespace platform {

struct FileSystemTags {
  std::string type;   // the file system's type; the mount's own when blkid gives none
  std::string uuid;   // "" when none can be had (tmpfs, overlay, network)
  std::string label;  // "" when the file system has none
};

// libblkid on the mount's source device when it can be read, else the
// /dev/disk/by-uuid and /dev/disk/by-label links that lead to that device.
FileSystemTags ProbeFileSystem(const Mount& mount);

// The volume descriptor set of the disc in a device: the sectors from 16 up to
// and including the terminator. nullopt when the device cannot be read.
std::optional<std::vector<std::uint8_t>> ReadDescriptorSet(const std::string& device);

}  // namespace platform
