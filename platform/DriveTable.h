#pragma once
// The machine's drive letters and the volumes in them.
//
// Letters are upper case. Every call may come from the user-interface thread or
// from a scan or copy worker; implementations keep no state that calls share
// except the table itself, which they read afresh where the medium can change.

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

// Drive-type numbers as the catalogue stores them in MediaVolumes.VolType.
enum DriveType : int {
  kDriveUnknown = 0,
  kDriveNoRootDir = 1,  // no such letter
  kDriveRemovable = 2,
  kDriveFixed = 3,
  kDriveRemote = 4,
  kDriveCdRom = 5,
};

struct VolumeIdentity {
  bool ok = false;  // false: no medium, or the volume could not be read
  std::string label;
  std::uint32_t serial = 0;
};

class DriveTable {
 public:
  virtual ~DriveTable() = default;

  // Every letter of the table, in letter order.
  virtual std::vector<char> Letters() const = 0;

  // kDriveNoRootDir when the letter is not in the table.
  virtual int Type(char letter) const = 0;

  // The Linux folder that is the drive's root now, without a trailing "/"
  // (but "/" itself for the file-system root); "" when the drive holds no medium.
  virtual std::string RootFolder(char letter) const = 0;

  // A drive is ready when its root exists and can be listed.
  virtual bool IsReady(char letter) const = 0;

  // Label and serial number of the volume in the drive.
  virtual VolumeIdentity Identify(char letter) const = 0;

  // The Linux folder holding the table itself, "" when it is not kept in one.
  // Its links lead to every drive's root, so no scan may walk into it.
  virtual std::string TableFolder() const = 0;

  // Puts an absolute Linux folder on a drive letter and returns it as a drive
  // path ("C:\Music\Rock"), or "" when no drive holds it. May add a letter to
  // the table for a file system that has none yet.
  virtual std::string ToDrivePath(const std::string& linuxFolder) = 0;
};

}  // namespace platform
