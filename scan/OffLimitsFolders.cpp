#include "scan/OffLimitsFolders.h"

#include <algorithm>

#include "platform/LinuxPaths.h"
#include "scan/CDriveServices.h"

OffLimitsFolders::OffLimitsFolders(const CDriveServices& drives) : files_(&drives.Files()) {
  const auto machineRoot = files_->Identity("/");
  for (const std::string& folder : platform::SystemFolders()) {
    const auto identity = files_->Identity(folder);
    if (!identity) continue;
    folders_.push_back(*identity);
    if (machineRoot && identity->device != machineRoot->device) devices_.push_back(identity->device);
  }
  const std::string table = drives.TableFolder();
  if (const auto identity = table.empty() ? std::nullopt : files_->Identity(table))
    folders_.push_back(*identity);
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
