#include "scan/VolumeIndex.h"

#include <algorithm>
#include <unordered_set>

void VolumeIndex::Load(MediaDB& db, int volId) {
  folders_.clear();
  pathByFullPath_.clear();
  files_.clear();
  pathOrder_.clear();
  storedPathBits_.clear();
  storedFileBits_.clear();
  for (const PathRow& row : db.GetVolumePathRows(volId)) AddPath(row);
  for (const FileRow& row : db.GetVolumeFileRows(volId)) AddFile(row);
}

int VolumeIndex::FindPath(const std::string& fullPath) const {
  const auto found = pathByFullPath_.find(fullPath);
  return found == pathByFullPath_.end() ? -1 : found->second;
}

int VolumeIndex::FindFile(int pathId, const std::string& fileName) const {
  const auto folder = folders_.find(pathId);
  if (folder == folders_.end()) return -1;
  const auto found = folder->second.fileByName.find(fileName);
  return found == folder->second.fileByName.end() ? -1 : found->second;
}

const PathRow* VolumeIndex::Path(int pathId) const {
  const auto folder = folders_.find(pathId);
  return folder == folders_.end() ? nullptr : &folder->second.row;
}

FileRow* VolumeIndex::File(int fileId) {
  const auto found = files_.find(fileId);
  return found == files_.end() ? nullptr : &found->second;
}

const std::vector<int>& VolumeIndex::FilesOf(int pathId) const {
  static const std::vector<int> kNone;
  const auto folder = folders_.find(pathId);
  return folder == folders_.end() ? kNone : folder->second.files;
}

void VolumeIndex::AddPath(const PathRow& row) {
  folders_[row.PathID].row = row;
  // Two rows with one stored path: the first in catalogue order is the one found.
  pathByFullPath_.emplace(row.FullPath, row.PathID);
  pathOrder_.push_back(row.PathID);
}

void VolumeIndex::AddFile(const FileRow& row) {
  files_[row.FileID] = row;
  Folder& folder = folders_[row.PathID];
  folder.files.push_back(row.FileID);
  folder.fileByName.emplace(row.FileName, row.FileID);
}

void VolumeIndex::SetPathDirtyBit(int pathId, int bit) {
  const auto folder = folders_.find(pathId);
  if (folder == folders_.end() || folder->second.row.DirtyBit == bit) return;
  storedPathBits_.emplace(pathId, folder->second.row.DirtyBit);
  folder->second.row.DirtyBit = bit;
}

void VolumeIndex::SetFileDirtyBit(int fileId, int bit) {
  const auto file = files_.find(fileId);
  if (file == files_.end() || file->second.DirtyBit == bit) return;
  storedFileBits_.emplace(fileId, file->second.DirtyBit);
  file->second.DirtyBit = bit;
}

VolumeIndex::DirtyBitChanges VolumeIndex::TakeDirtyBitChanges() {
  DirtyBitChanges changes;
  // Sorted, so that the writes go through the catalogue in key order.
  for (const auto& [pathId, stored] : storedPathBits_) {
    const auto folder = folders_.find(pathId);
    if (folder == folders_.end() || folder->second.row.DirtyBit == stored) continue;
    (folder->second.row.DirtyBit ? changes.pathsSet : changes.pathsCleared).push_back(pathId);
  }
  for (const auto& [fileId, stored] : storedFileBits_) {
    const auto file = files_.find(fileId);
    if (file == files_.end() || file->second.DirtyBit == stored) continue;
    (file->second.DirtyBit ? changes.filesSet : changes.filesCleared).push_back(fileId);
  }
  for (IdList* ids : {&changes.pathsSet, &changes.pathsCleared, &changes.filesSet, &changes.filesCleared})
    std::sort(ids->begin(), ids->end());
  storedPathBits_.clear();
  storedFileBits_.clear();
  return changes;
}

void VolumeIndex::RemoveFiles(const IdList& fileIds) {
  std::unordered_set<int> gone(fileIds.begin(), fileIds.end());
  std::unordered_set<int> touchedFolders;
  for (int id : gone) {
    const auto found = files_.find(id);
    if (found == files_.end()) continue;
    Folder& folder = folders_[found->second.PathID];
    const auto byName = folder.fileByName.find(found->second.FileName);
    if (byName != folder.fileByName.end() && byName->second == id) folder.fileByName.erase(byName);
    touchedFolders.insert(found->second.PathID);
    files_.erase(found);
  }
  for (int pathId : touchedFolders) {
    auto& ids = folders_[pathId].files;
    ids.erase(std::remove_if(ids.begin(), ids.end(), [&](int id) { return gone.count(id) > 0; }),
              ids.end());
  }
}

void VolumeIndex::RemovePaths(const IdList& pathIds) {
  std::unordered_set<int> gone(pathIds.begin(), pathIds.end());
  for (int id : gone) {
    const auto folder = folders_.find(id);
    if (folder == folders_.end()) continue;
    const auto byPath = pathByFullPath_.find(folder->second.row.FullPath);
    if (byPath != pathByFullPath_.end() && byPath->second == id) pathByFullPath_.erase(byPath);
    folders_.erase(folder);
  }
  pathOrder_.erase(std::remove_if(pathOrder_.begin(), pathOrder_.end(),
                                  [&](int id) { return gone.count(id) > 0; }),
                   pathOrder_.end());
}
