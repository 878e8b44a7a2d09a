#pragma once
// Label and serial number of the volume whose root is a Linux folder.
//
// Serial, first that applies: a ".windows-serial" file at the root; for a CD
// device, the checksum of the disc's volume descriptor; the file system's UUID
// (FAT and NTFS give their usual volume serials, others are hashed); the
// file-system id from statfs. A root below its file system's mount point mixes
// its path into the last two, so that two folders of one disk are two volumes.
// Label: ".windows-label" at the root, the file system's label, the root's name.
//
// Does not throw; any thread may call.

#include <string>

#include "platform/DriveTable.h"

namespace platform {

// cdDevice is the device node of a CD drive ("/dev/sr0"), "" for any other
// drive. ok is false when the root cannot be listed.
VolumeIdentity IdentifyVolume(const std::string& root, const std::string& cdDevice);

}  // namespace platform
