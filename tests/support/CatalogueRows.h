#pragma once
// Catalogue rows for tests that start from a filled catalogue, stored as a
// scan stores them: a folder row named by its last part, a file row on its
// folder's volume. And plain SQL on the catalogue file, over a connection of
// its own as another program would run it, for what no member of MediaDB
// tells or does (counting rows, dropping a table).

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

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

// Runs sql on the catalogue file; the rows it returns, each column as text
// ("" for NULL). A failure fails the test.
inline std::vector<std::vector<std::string>> RunSql(const std::string& catalogueFile, const std::string& sql) {
  std::vector<std::vector<std::string>> rows;
  sqlite3* connection = nullptr;
  if (sqlite3_open_v2(catalogueFile.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK) {
    sqlite3_busy_timeout(connection, 60000);
    const auto keep = [](void* out, int columns, char** texts, char**) {
      auto& kept = *static_cast<std::vector<std::vector<std::string>>*>(out);
      kept.emplace_back();
      for (int i = 0; i < columns; ++i) kept.back().emplace_back(texts[i] ? texts[i] : "");
      return 0;
    };
    char* failure = nullptr;
    if (sqlite3_exec(connection, sql.c_str(), keep, &rows, &failure) != SQLITE_OK) {
      ADD_FAILURE() << sql << ": " << (failure ? failure : "");
      sqlite3_free(failure);
    }
  } else {
    ADD_FAILURE() << catalogueFile << ": " << sqlite3_errmsg(connection);
  }
  sqlite3_close(connection);
  return rows;
}

inline void RunSql(const MediaDB& db, const std::string& sql) { RunSql(db.Path(), sql); }

// The first column of the first row as a number; -1 when there is no row.
inline int QueryNumber(const MediaDB& db, const std::string& sql) {
  const auto rows = RunSql(db.Path(), sql);
  return rows.empty() || rows[0].empty() ? -1 : std::stoi(rows[0][0]);
}

}  // namespace testing_support
