#pragma once
// The file system on drive paths and Linux paths (see DrivePaths.h for how a
// drive path becomes a Linux path). Listings match wildcard patterns with
// fnmatch, ignoring case; "*.*" matches every name, as drive-letter wildcards
// do. Calls do not throw and may come from any thread; the drive table
// must outlive this object.

#include "platform/DriveTable.h"
#include "platform/FileSystem.h"

namespace platform {

class LinuxFileSystem : public FileSystem {
 public:
  explicit LinuxFileSystem(const DriveTable& drives);

  std::string LocalPath(const std::string& path) const override;
  Listing List(const std::string& folder, const std::string& pattern) const override;
  std::optional<FolderIdentity> Identity(const std::string& folder) const override;
  std::optional<FileFacts> Stat(const std::string& path) const override;
  // For a Linux folder: each name looked up from the folder, not from "/".
  std::vector<std::optional<FileFacts>> StatEach(const std::string& folder,
                                                 const std::vector<std::string>& names) const override;
  bool Exists(const std::string& path) const override;
  bool CreateFolder(const std::string& path) override;
  bool Remove(const std::string& path) override;
  CopyResult CopyNoOverwrite(const std::string& source, const std::string& target) override;

 private:
  const DriveTable& drives_;
};

}  // namespace platform
