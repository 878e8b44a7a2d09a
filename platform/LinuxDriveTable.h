#pragma once
// The drive table as the folder "<program folder>/drives": one symbolic link
// per letter, in lower case.
//   "c:"  -> a folder       a fixed disk whose root is that folder
//   "d::" -> a device node  a CD drive; its disc is wherever the device is
//                           mounted now (looked up at each call)
//   "e::" -> a folder       a CD drive whose disc is that folder; a missing
//                           target is an empty drive
// Nothing is cached: every call reads the links and the mount table afresh.
// Calls do not throw and may come from any thread; ToDrivePath may add a link,
// and two threads adding at once take different letters.

#include <map>
#include <mutex>
#include <string>

#include "platform/DriveTable.h"

namespace platform {

class LinuxDriveTable final : public DriveTable {
 public:
  // The program folder may end in "/" or not.
  explicit LinuxDriveTable(const std::string& programFolder);

  // Creates the drives folder when there is none: "c:" -> $HOME, "d::", "e::",
  // ... -> each optical drive of the machine, "z:" -> "/". An existing drives
  // folder is left exactly as it is. Returns false when the folder was missing
  // and could not be created.
  static bool CreateDefaultIfMissing(const std::string& programFolder);

  std::vector<char> Letters() const override;
  int Type(char letter) const override;
  std::string RootFolder(char letter) const override;
  bool IsReady(char letter) const override;
  VolumeIdentity Identify(char letter) const override;
  std::string TableFolder() const override { return drivesFolder_; }
  std::string ToDrivePath(const std::string& linuxFolder) override;

 private:
  // The device node a CD link points to, "" for any other drive.
  std::string CdDevice(char letter) const;
  // The letter whose root is the longest prefix of a canonical folder; 0 if none.
  char LetterHolding(const std::string& folder) const;
  // Links the first free letter from F to a mount point; 0 when none is free.
  char LinkFixedDrive(const std::string& mountPoint);

  // The canonical form of a folder link's target, by target text. The link
  // itself is read at every call, so a swapped disc is seen at once; only the
  // costly canonicalisation of a target already seen is remembered.
  std::string CanonicalRoot(const std::string& target) const;

  std::string drivesFolder_;
  mutable std::mutex canonicalMutex_;
  mutable std::map<std::string, std::string> canonicalTargets_;
};

}  // namespace platform
