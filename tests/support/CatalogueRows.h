#pragma once
// Catalogue rows for tests that start from a filled catalogue, stored as a
// scan stores them: a folder row named by its last part, a file row on its
// folder's volume.

#include <string>

#include "catalogue/MediaDB.h"

namespace testing_support {

inline int StoreVolume(MediaDB& db, int volType, const std::string& drive, const std::string& displayName,
                       const std::string& serial = "1") {
  CMediaVolume volume;
  volume.VolType = volType;
  volume.DrvLtr = drive;
  volume.DisplayName = displayName;
  volume.SerialNo = serial;
  return db.AddVolume(volume);
}

// fullPath as "\Music\Rock\"; a root folder has no parent (-1).
inline int StoreFolder(MediaDB& db, int volId, const std::string& fullPath, int parentId = -1) {
  CMediaPath path;
  path.VolID = volId;
  path.ParentID = parentId;
  path.FullPath = fullPath;
  const std::string trimmed = fullPath.substr(0, fullPath.size() - 1);
  path.Name = fullPath == "\\" ? fullPath : trimmed.substr(trimmed.rfind('\\') + 1);
  return db.AddPath(path);
}

inline int StoreFile(MediaDB& db, int pathId, const std::string& fileName) {
  CMediaFile file;
  file.PathID = pathId;
  file.VolID = db.GetPathVolume(pathId);
  file.FileName = fileName;
  return db.AddFile(file);
}

}  // namespace testing_support
