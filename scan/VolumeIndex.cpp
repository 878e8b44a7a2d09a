#include "scan/VolumeIndex.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <unordered_set>

void VolumeIndex::Load(MediaDB& db, int volId) {
  folders_.clear();
  pathByFullPath_.clear();
  pathOrder_.clear();
  files_.clear();
  names_.clear();
  byName_.assign(1024, 0);
  named_ = 0;
  slotById_.clear();
  idsMapped_ = true;
  for (const PathRow& row : db.GetVolumePathRows(volId)) AddPath(row);
  db.ForEachVolumeFileRow(volId, [&](const FileRow& row) { AddFile(row); });
}

int VolumeIndex::FindPath(const std::string& fullPath) const {
  const auto found = pathByFullPath_.find(fullPath);
  return found == pathByFullPath_.end() ? -1 : found->second;
}

std::size_t VolumeIndex::HashOf(int pathId, std::string_view name) {
  return std::hash<std::string_view>{}(name) ^ (static_cast<std::size_t>(pathId) * 0x9E3779B97F4A7C15ull);
}

int VolumeIndex::FindFile(int pathId, std::string_view fileName) const {
  const std::size_t mask = byName_.size() - 1;
  for (std::size_t at = HashOf(pathId, fileName) & mask; byName_[at] != 0; at = (at + 1) & mask) {
    const FileSlot& slot = files_[byName_[at] - 1];
    if (slot.pathId == pathId && NameOf(slot) == fileName) return slot.id;
  }
  return -1;
}

const PathRow* VolumeIndex::Path(int pathId) const {
  const auto folder = folders_.find(pathId);
  return folder == folders_.end() ? nullptr : &folder->second.row;
}

const VolumeIndex::FileSlot* VolumeIndex::Slot(int fileId) const {
  if (idsMapped_) {
    const auto at = static_cast<std::size_t>(static_cast<std::int64_t>(fileId) - firstId_);
    const std::uint32_t slot = at < slotById_.size() ? slotById_[at] : 0;
    return slot == 0 || files_[slot - 1].gone ? nullptr : &files_[slot - 1];
  }
  const auto found =
      std::lower_bound(files_.begin(), files_.end(), fileId, [](const FileSlot& slot, int id) { return slot.id < id; });
  return found == files_.end() || found->id != fileId || found->gone ? nullptr : &*found;
}

VolumeIndex::FileSlot* VolumeIndex::Slot(int fileId) {
  return const_cast<FileSlot*>(static_cast<const VolumeIndex*>(this)->Slot(fileId));
}

std::string_view VolumeIndex::FileName(int fileId) const { return NameOf(*Slot(fileId)); }

std::uint64_t VolumeIndex::Digest(const FileStamp& stamp) {
  if (!stamp.Known()) return kNoStamp;
  std::uint64_t mixed = static_cast<std::uint64_t>(stamp.modifiedNs) * 0x9E3779B97F4A7C15ull;
  mixed ^= static_cast<std::uint64_t>(stamp.size) + 0x632BE59BD9B4E019ull + (mixed << 6) + (mixed >> 2);
  mixed ^= mixed >> 31;
  return mixed == kNoStamp ? 1 : mixed;
}

void VolumeIndex::SetFileStamp(int fileId, const FileStamp& stamp) {
  if (FileSlot* slot = Slot(fileId)) slot->stamp = Digest(stamp);
}

void VolumeIndex::SetFileScanState(int fileId, int state) {
  if (FileSlot* slot = Slot(fileId)) slot->scanState = static_cast<std::int8_t>(std::clamp(state, -128, 127));
}

const std::vector<int>& VolumeIndex::FilesOf(int pathId) const {
  static const std::vector<int> kNone;
  const auto folder = folders_.find(pathId);
  return folder == folders_.end() ? kNone : folder->second.files;
}

void VolumeIndex::AddPath(const PathRow& row) {
  Folder& folder = folders_[row.PathID];
  folder.row = row;
  folder.storedDirty = row.DirtyBit;
  // Two rows with one stored path: the first in catalogue order is the one found.
  pathByFullPath_.emplace(row.FullPath, row.PathID);
  pathOrder_.push_back(row.PathID);
}

void VolumeIndex::AddFile(const FileRow& row) {
  FileSlot slot;
  slot.stamp = Digest(row.Stamp);
  slot.id = row.FileID;
  slot.pathId = row.PathID;
  slot.nameAt = static_cast<std::uint32_t>(names_.size());
  const std::string_view name = std::string_view(row.FileName).substr(0, std::numeric_limits<std::uint16_t>::max());
  slot.nameLength = static_cast<std::uint16_t>(name.size());
  slot.scanState = static_cast<std::int8_t>(std::clamp(row.ScanState, -128, 127));
  slot.dirty = slot.storedDirty = row.DirtyBit != 0 ? 1 : 0;
  names_ += name;
  // Ids rise along the catalogue; one that does not goes in its place.
  auto at = files_.end();
  if (!files_.empty() && files_.back().id >= row.FileID)
    at =
        std::upper_bound(files_.begin(), files_.end(), row.FileID, [](int id, const FileSlot& s) { return id < s.id; });
  const bool inOrder = at == files_.end();
  files_.insert(at, slot);
  folders_[row.PathID].files.push_back(row.FileID);
  if (!inOrder) {
    Rehash(byName_.size());  // slot numbers moved
    MapIds();
    return;
  }
  if (2 * (named_ + 1) > byName_.size()) Rehash(2 * byName_.size());
  Enter(static_cast<std::uint32_t>(files_.size() - 1));
  MapId(static_cast<std::uint32_t>(files_.size() - 1));
}

// Ids are mostly dense (the catalogue hands them out one after the other),
// so a file's slot is found by its id directly; ids too sparse for that
// (more than four numbers a file) are searched for instead.
void VolumeIndex::MapId(std::uint32_t slot) {
  if (!idsMapped_) return;
  const std::int32_t id = files_[slot].id;
  if (slotById_.empty()) firstId_ = id;
  const std::int64_t at = static_cast<std::int64_t>(id) - firstId_;
  if (at < 0 || static_cast<std::size_t>(at) > 4 * files_.size() + 4096) {
    idsMapped_ = false;
    slotById_ = {};
    return;
  }
  if (static_cast<std::size_t>(at) >= slotById_.size()) slotById_.resize(static_cast<std::size_t>(at) + 1, 0);
  slotById_[static_cast<std::size_t>(at)] = slot + 1;
}

void VolumeIndex::MapIds() {
  slotById_.clear();
  idsMapped_ = true;
  for (std::size_t i = 0; i < files_.size() && idsMapped_; ++i) MapId(static_cast<std::uint32_t>(i));
}

void VolumeIndex::Enter(std::uint32_t slot) {
  const FileSlot& file = files_[slot];
  const std::string_view name = NameOf(file);
  const std::size_t mask = byName_.size() - 1;
  std::size_t at = HashOf(file.pathId, name) & mask;
  for (; byName_[at] != 0; at = (at + 1) & mask) {
    const FileSlot& other = files_[byName_[at] - 1];
    if (other.pathId == file.pathId && NameOf(other) == name) return;  // the first stays found
  }
  byName_[at] = slot + 1;
  ++named_;
}

void VolumeIndex::Rehash(std::size_t capacity) {
  byName_.assign(std::max<std::size_t>(capacity, 1024), 0);
  named_ = 0;
  for (std::size_t i = 0; i < files_.size(); ++i)
    if (!files_[i].gone) Enter(static_cast<std::uint32_t>(i));
}

void VolumeIndex::SetPathDirtyBit(int pathId, int bit) {
  const auto folder = folders_.find(pathId);
  if (folder != folders_.end()) folder->second.row.DirtyBit = bit;
}

void VolumeIndex::SetFileDirtyBit(int fileId, int bit) {
  if (FileSlot* slot = Slot(fileId)) slot->dirty = bit != 0 ? 1 : 0;
}

VolumeIndex::DirtyBitChanges VolumeIndex::TakeDirtyBitChanges() {
  DirtyBitChanges changes;
  for (auto& [pathId, folder] : folders_) {
    if (folder.row.DirtyBit == folder.storedDirty) continue;
    (folder.row.DirtyBit ? changes.pathsSet : changes.pathsCleared).push_back(pathId);
    folder.storedDirty = folder.row.DirtyBit;
  }
  // Sorted, so that the writes go through the catalogue in key order.
  std::sort(changes.pathsSet.begin(), changes.pathsSet.end());
  std::sort(changes.pathsCleared.begin(), changes.pathsCleared.end());
  for (FileSlot& slot : files_) {
    if (slot.gone || slot.dirty == slot.storedDirty) continue;
    (slot.dirty ? changes.filesSet : changes.filesCleared).push_back(slot.id);
    slot.storedDirty = slot.dirty;
  }
  return changes;
}

void VolumeIndex::RemoveFiles(const IdList& fileIds) {
  if (fileIds.empty()) return;
  std::unordered_set<int> gone(fileIds.begin(), fileIds.end());
  std::unordered_set<int> touchedFolders;
  for (int id : gone) {
    FileSlot* slot = Slot(id);
    if (!slot) continue;
    slot->gone = true;
    touchedFolders.insert(slot->pathId);
  }
  for (int pathId : touchedFolders) {
    auto& ids = folders_[pathId].files;
    ids.erase(std::remove_if(ids.begin(), ids.end(), [&](int id) { return gone.count(id) > 0; }), ids.end());
  }
  Rehash(byName_.size());
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
  pathOrder_.erase(std::remove_if(pathOrder_.begin(), pathOrder_.end(), [&](int id) { return gone.count(id) > 0; }),
                   pathOrder_.end());
}
