#include "volumes/OffLimitsFolders.h"

#include <algorithm>

#include "platform/LinuxPaths.h"
#include "platform/MountTable.h"
#include "volumes/CDriveServices.h"

OffLimitsFolders::OffLimitsFolders(const CDriveServices& drives) : files_(&drives.Files()) {
  const auto machineRoot = files_->Identity("/");
  for (const std::string& folder : platform::SystemFolders()) {
    const auto identity = files_->Identity(folder);
    if (!identity) continue;
    folders_.push_back(*identity);
    if (machineRoot && identity->device != machineRoot->device) devices_.push_back(identity->device);
  }
  const std::string table = drives.TableFolder();
  if (const auto identity = table.empty() ? std::nullopt : files_->Identity(table)) folders_.push_back(*identity);
}

void OffLimitsFolders::KeepWalkOutOfSystemMounts(std::uint64_t rootDevice) {
  if (!files_) return;
  const char* const kRuntime = "/run";
  if (const auto identity = files_->Identity(kRuntime)) folders_.push_back(*identity);
  std::vector<std::string> systemFolders = platform::SystemFolders();
  systemFolders.emplace_back(kRuntime);
  for (const platform::Mount& mount : platform::ReadMountTable()) {
    if (mount.device == rootDevice) continue;
    for (const std::string& folder : systemFolders)
      if (platform::IsSameOrBelow(mount.mountPoint, folder)) devices_.push_back(mount.device);
  }
}

bool OffLimitsFolders::Holds(const platform::FolderIdentity& folder) const {
  return std::find(folders_.begin(), folders_.end(), folder) != folders_.end() ||
         std::find(devices_.begin(), devices_.end(), folder.device) != devices_.end();
}

bool OffLimitsFolders::HoldsOrContains(const std::string& localFolder) const {
  if (!files_) return false;
  for (const std::string& folder : platform::FolderAndItsParents(localFolder))
    if (const auto identity = files_->Identity(folder); identity && Holds(*identity)) return true;
  return false;
}
