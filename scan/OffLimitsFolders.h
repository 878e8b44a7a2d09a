#pragma once
// The folders a scan never enters, told apart by device and inode so that no
// path (a link, a bind mount, a drive letter) leads into them: the drive
// table's own folder, whose links lead to every drive's root, and /proc, /sys
// and /dev, which hold the system's own files. Where one of those three is a
// file system of its own, everything on that file system is off limits too,
// so a link into /proc/self/fd is caught as well as one to /proc.

#include <string>
#include <vector>

#include "platform/FileSystem.h"

class CDriveServices;

class OffLimitsFolders {
 public:
  OffLimitsFolders() = default;  // nothing is off limits
  explicit OffLimitsFolders(const CDriveServices& drives);

  bool Holds(const platform::FolderIdentity& folder) const;

  // Whether a Linux folder, or any folder its path passes through, is off
  // limits.
  bool HoldsOrContains(const std::string& localFolder) const;

 private:
  const platform::FileSystem* files_ = nullptr;
  std::vector<platform::FolderIdentity> folders_;
  std::vector<std::uint64_t> devices_;
};
