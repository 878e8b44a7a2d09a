#pragma once
// Drives, volumes and folder listings on drive paths, over the platform's
// drive table, file system and message boxes. Holds no state of its own, so
// it may be called from the user-interface thread and from workers alike.

#include <memory>
#include <string>
#include <vector>

#include "catalogue/Records.h"

namespace platform {
struct FileFacts;
class DriveTable;
class FileSystem;
class MessageBox;
}  // namespace platform

class CDriveServices {
 public:
  CDriveServices(platform::DriveTable& drives, platform::FileSystem& files, platform::MessageBox& messages);

  // Drive texts (letters) of the wanted drive type, or of every drive for -1,
  // in letter order.
  std::vector<std::string> GetDriveList(int driveType) const;

  // The volume in a drive as a new record: label, serial number as unsigned
  // decimal text, drive type, drive text. None when the drive is not ready
  // (no medium, or a root that is missing or cannot be listed).
  std::unique_ptr<CMediaVolume> ReadVolumeInfo(const std::string& drive) const;

  bool IsDriveReady(const std::string& drive) const;

  // Returns 0 once the drive holds the volume with that serial number; until
  // then shows the prompt with OK and Cancel, and returns -1 on Cancel.
  int WaitForVolume(const std::string& drive, const std::string& serialNo, const std::string& prompt) const;

  // The names of the regular files (links followed) in a normalised folder,
  // in the order the file system yields them.
  std::vector<std::string> ListFiles(const std::string& folder) const;

  // A new record for a file (name as stored, size, type) from what a look at
  // the file found.
  static std::unique_ptr<CMediaFile> FileRecordOf(const platform::FileFacts& facts);

  // Removes the files of a folder; sub-folders stay; failures are ignored.
  void DeleteFilesInFolder(const std::string& folder) const;

  bool FileExists(const std::string& path) const;

  // A Linux folder as a drive path ("C:\Music"), or "" when no drive holds it.
  std::string ToDrivePath(const std::string& linuxFolder) const;

  // The one spelling of a drive path (see platform::CanonicalDrivePath); the
  // path as given when it has none.
  std::string CanonicalPath(const std::string& drivePath) const;

  // A folder to write into or empty (the cache, a copy target): a drive path
  // in its one spelling, "" when its ".." climb above the drive's root (the
  // folder would lie outside the drive). Any other text comes back as it is.
  std::string FolderWithinDrive(const std::string& folder) const;

  // The Linux folder holding the drive table, "" when there is none.
  std::string TableFolder() const;

  platform::FileSystem& Files() const { return files_; }
  platform::MessageBox& Messages() const { return messages_; }

 private:
  platform::DriveTable& drives_;
  platform::FileSystem& files_;
  platform::MessageBox& messages_;
};
