#pragma once
// The folders and files of one volume as a scan sees them: read from the
// catalogue in two statements, then kept in step with every row the scan
// adds, marks or removes, so that finding a folder or a file costs the same
// however large the volume is.
//
// A file takes a few small numbers and its name in one shared buffer, so that
// a volume of a million files fits in a few tens of megabytes. Files are kept
// in rising FileID order (the catalogue's order, and new rows get higher ids).
//
// Used by the scan worker; while the tag phase runs, reader threads may call
// the const members as long as the worker changes nothing but scan states.

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalogue/MediaDB.h"

class VolumeIndex {
 public:
  void Load(MediaDB& db, int volId);

  // -1 when the volume has no folder with that stored path.
  int FindPath(const std::string& fullPath) const;
  // -1 when the folder has no file of that name (exact comparison).
  int FindFile(int pathId, std::string_view fileName) const;

  const PathRow* Path(int pathId) const;
  bool HasFile(int fileId) const { return Slot(fileId) != nullptr; }
  // The file's columns; the file must be held.
  std::string_view FileName(int fileId) const;
  int FileScanState(int fileId) const { return Slot(fileId)->scanState; }
  int FileDirtyBit(int fileId) const { return Slot(fileId)->dirty; }
  void SetFileScanState(int fileId, int state);
  // Whether the file's stamp is known, and whether it differs from this one
  // (files of the same stamp digest alike; a change that keeps the digest is
  // as likely as two random 64-bit numbers meeting).
  bool HasStamp(int fileId) const { return Slot(fileId)->stamp != kNoStamp; }
  bool StampDiffers(int fileId, const FileStamp& stamp) const { return Slot(fileId)->stamp != Digest(stamp); }
  void SetFileStamp(int fileId, const FileStamp& stamp);
  // The folder's files, in the order the catalogue keeps them.
  const std::vector<int>& FilesOf(int pathId) const;
  // Every folder of the volume, in the order the catalogue keeps them.
  const std::vector<int>& PathIds() const { return pathOrder_; }

  void AddPath(const PathRow& row);
  void AddFile(const FileRow& row);
  // Dirty bits change here first; the catalogue learns them from
  // TakeDirtyBitChanges, so that a bit set and cleared again costs no write.
  void SetPathDirtyBit(int pathId, int bit);
  void SetFileDirtyBit(int fileId, int bit);

  // The rows (still held) whose dirty bit differs from the catalogue's since
  // they were loaded, added or last taken, by the bit they now have.
  struct DirtyBitChanges {
    IdList pathsSet, pathsCleared, filesSet, filesCleared;
    bool Empty() const { return pathsSet.empty() && pathsCleared.empty() && filesSet.empty() && filesCleared.empty(); }
  };
  DirtyBitChanges TakeDirtyBitChanges();

  // Removals in one pass each, however many rows go.
  void RemoveFiles(const IdList& fileIds);
  void RemovePaths(const IdList& pathIds);

 private:
  struct Folder {
    PathRow row;
    std::int32_t storedDirty = 0;
    std::vector<int> files;
  };
  static constexpr std::uint64_t kNoStamp = 0;
  static std::uint64_t Digest(const FileStamp& stamp);

  // 24 bytes a file. Names are at most 255 bytes on Linux file systems; scan
  // states are small numbers (kept within a byte).
  struct FileSlot {
    std::uint64_t stamp = kNoStamp;
    std::int32_t id = 0;
    std::int32_t pathId = 0;
    std::uint32_t nameAt = 0;
    std::uint16_t nameLength = 0;
    std::int8_t scanState = 0;
    std::uint8_t dirty : 1 = 0;
    std::uint8_t storedDirty : 1 = 0;
    std::uint8_t gone : 1 = 0;
  };

  const FileSlot* Slot(int fileId) const;
  FileSlot* Slot(int fileId);
  std::string_view NameOf(const FileSlot& slot) const { return {names_.data() + slot.nameAt, slot.nameLength}; }
  static std::size_t HashOf(int pathId, std::string_view name);
  // Enters the slot under its folder and name unless one is there already.
  void Enter(std::uint32_t slot);
  void Rehash(std::size_t capacity);
  void MapId(std::uint32_t slot);
  void MapIds();

  std::unordered_map<int, Folder> folders_;
  std::unordered_map<std::string, int> pathByFullPath_;
  std::vector<int> pathOrder_;
  std::vector<FileSlot> files_;  // rising FileID
  std::string names_;            // the files' names, one after the other
  // Open addressing by folder and name: a slot's number + 1, or 0 for none.
  std::vector<std::uint32_t> byName_;
  std::size_t named_ = 0;
  // A file's slot number + 1 by its id less firstId_ (0: none), while
  // idsMapped_; else files are found by binary search on their ids.
  std::vector<std::uint32_t> slotById_;
  std::int64_t firstId_ = 0;
  bool idsMapped_ = true;
};
