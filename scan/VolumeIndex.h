#pragma once
// The folders and files of one volume as a scan sees them: read from the
// catalogue in two statements, then kept in step with every row the scan
// adds, marks or removes, so that finding a folder or a file costs the same
// however large the volume is.

#include <string>
#include <unordered_map>
#include <vector>

#include "catalogue/MediaDB.h"

class VolumeIndex {
 public:
  void Load(MediaDB& db, int volId);

  // -1 when the volume has no folder with that stored path.
  int FindPath(const std::string& fullPath) const;
  // -1 when the folder has no file of that name (exact comparison).
  int FindFile(int pathId, const std::string& fileName) const;

  const PathRow* Path(int pathId) const;
  FileRow* File(int fileId);
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
    bool Empty() const {
      return pathsSet.empty() && pathsCleared.empty() && filesSet.empty() && filesCleared.empty();
    }
  };
  DirtyBitChanges TakeDirtyBitChanges();
  // Removals in one pass each, however many rows go.
  void RemoveFiles(const IdList& fileIds);
  void RemovePaths(const IdList& pathIds);

 private:
  struct Folder {
    PathRow row;
    std::vector<int> files;
    std::unordered_map<std::string, int> fileByName;
  };

  std::unordered_map<int, Folder> folders_;
  std::unordered_map<std::string, int> pathByFullPath_;
  std::unordered_map<int, FileRow> files_;
  std::vector<int> pathOrder_;
  // The catalogue's bit of each row whose bit changed here since last taken.
  std::unordered_map<int, int> storedPathBits_;
  std::unordered_map<int, int> storedFileBits_;
};
