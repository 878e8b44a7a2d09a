#pragma once
// The folders a scan never enters, told apart by device and inode so that no
// path (a link, a bind mount, a drive letter) leads into them: the drive
// table's own folder, whose links lead to every drive's root, and /proc, /sys
// and /dev, which hold the system's own files. Where one of those three is a
// file system of its own, everything on that file system is off limits too,
// so a link into /proc/self/fd is caught as well as one to /proc.
//
// A walk also keeps out of /run and of every file system mounted below /dev,
// /proc, /sys or /run (/dev/shm, /run/user/1000), but for the one it walks:
// a disk mounted at /run/media/NAME can be scanned from its own root.

#include <string>
#include <vector>

#include "platform/FileSystem.h"

class CDriveServices;

class OffLimitsFolders {
 public:
  OffLimitsFolders() = default;  // nothing is off limits
  explicit OffLimitsFolders(const CDriveServices& drives);

  bool Holds(const platform::FolderIdentity& folder) const;

  // Adds what a walk on the root's file system keeps out of besides.
  void KeepWalkOutOfSystemMounts(std::uint64_t rootDevice);

  // Whether a Linux folder, or any folder its path passes through, is off
  // limits.
  bool HoldsOrContains(const std::string& localFolder) const;

 private:
  const platform::FileSystem* files_ = nullptr;
  std::vector<platform::FolderIdentity> folders_;
  std::vector<std::uint64_t> devices_;
};
