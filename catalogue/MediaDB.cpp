#include "catalogue/MediaDB.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>

#include "catalogue/CatalogueFailure.h"
#include "catalogue/CppSQLite3Exception.h"
#include "catalogue/FoldedSearch.h"
#include "catalogue/MediaDBStatements.h"

namespace {

struct TableDefinition {
  const char* name;
  const char* create;
};

constexpr TableDefinition kTables[] = {
    {"MediaFiles",
     "CREATE TABLE MediaFiles (  FileID INTEGER PRIMARY KEY,VolID INTEGER, PathID INTEGER,"
     "ScanState INTEGER,  FileName TEXT, Type INTEGER, Size INTEGER, DirtyBit INTEGER,  "
     "Title TEXT, Artist TEXT,Album TEXT, Rating INTEGER,Comment TEXT,  id3Title TEXT, "
     "id3Artist TEXT,id3Album,id3Genre TEXT,id3Comment TEXT,  Length INTEGER,BitRate INTEGER,"
     "SampleRate INTEGER,Channels INTEGER);"},
    {"MediaVolumes",
     "CREATE TABLE MediaVolumes (  VolID INTEGER PRIMARY KEY,VolType INTEGER,SerialNo TEXT, "
     "Name TEXT,   ScanState INTEGER,DrvLtr TEXT,DisplayName TEXT,Description TEXT);"},
    {"MediaPaths",
     "CREATE TABLE MediaPaths (  PathID INTEGER PRIMARY KEY, VolID INTEGER, ParentID INTEGER,   "
     "Name TEXT, FullPath TEXT, DirtyBit INTEGER);"},
    {"PlayLists",
     "CREATE TABLE PlayLists ( PlayListID INTEGER PRIMARY KEY, Name TEXT, FileIDs TEXT);"},
    {"Configs", "CREATE TABLE Configs(ConfigID INTEGER, Value TEXT);"},
};

// Write-ahead logging makes a commit per folder cheap while a committed
// transaction still survives a killed process.
constexpr const char* kJournalSettings = "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;";

// The catalogue's own additions beside the five tables: what the statements
// look rows up by, and the file stamps (a catalogue made without them gains
// them when next opened for writing).
constexpr const char* kAdditions[] = {
    "CREATE INDEX IF NOT EXISTS vantrelle_files_by_path ON MediaFiles(PathID);",
    "CREATE INDEX IF NOT EXISTS vantrelle_paths_by_volume ON MediaPaths(VolID,ParentID);",
    "CREATE INDEX IF NOT EXISTS vantrelle_paths_by_parent ON MediaPaths(ParentID);",
    // A file's modification time and size when its tags were read, so that a
    // scan reads a changed file again. Other programs on the catalogue ignore it.
    "CREATE TABLE IF NOT EXISTS vantrelle_file_stamps(FileID INTEGER PRIMARY KEY, ModifiedNs INTEGER, "
    "Size INTEGER);",
};

bool Holds(const std::vector<std::string>& names, const char* name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

int MediaDB::Open(const std::string& programFolder, const std::function<void()>& fillNewCatalogue) {
  searchTexts_.Clear();
  searchTextsChanges_ = -1;
  OpenReadable(programFolder + kFileName);
  folded_search::Register(db_.Handle());
  const std::vector<std::string> present = TableNames();
  const bool created = present.empty();
  if (IsReadOnly()) return 0;  // nothing can be created; reading is all there is
  ExecuteChange(kJournalSettings);
  const bool complete = std::all_of(std::begin(kTables), std::end(kTables),
                                    [&](const TableDefinition& t) { return Holds(present, t.name); });
  if (!complete || idMarks_.AnyMarkMissing()) {
    Begin();
    CreateMissingTables(present);
    idMarks_.WriteMissingMarks();
    if (created && fillNewCatalogue) fillNewCatalogue();
    Commit();
  }
  for (const char* addition : kAdditions) ExecuteChange(addition);
  idMarks_.Start();
  return created ? 1 : 0;
}

void MediaDB::OpenReadable(const std::string& path) {
  db_.Open(path.c_str());
  for (bool immutable = false;; immutable = true) {
    try {
      db_.ExecuteQuery("SELECT count(*) FROM sqlite_master;");
      return;
    } catch (const CppSQLite3Exception& failure) {
      const int code = failure.Code() & 0xff;
      const std::string reason = db_.ErrorMessage();
      db_.Close();
      if (code == SQLITE_NOTADB)
        throw CppSQLite3Exception(code, (path + " is not a catalogue (" + reason + ")").c_str());
      // A catalogue on read-only storage, whose write-ahead index cannot be made.
      if (code != SQLITE_CANTOPEN || immutable || access(path.c_str(), W_OK) == 0)
        throw CppSQLite3Exception(code, (path + ": " + reason).c_str());
      db_.OpenImmutable(path.c_str());
    }
  }
}

std::vector<std::string> MediaDB::TableNames() {
  CppSQLite3ResultSet result;
  RunQuery("SELECT name FROM sqlite_master WHERE type='table';", result);
  std::vector<std::string> names;
  for (; !result.AtEnd(); result.NextRow()) {
    const char* name = result.FieldText(0);
    names.emplace_back(name ? name : "");
  }
  return names;
}

void MediaDB::CreateMissingTables(const std::vector<std::string>& present) {
  for (const TableDefinition& t : kTables)
    if (!Holds(present, t.name)) ExecuteChange(t.create);
}

int MediaDB::ExecuteChange(const char* sql) {
  try {
    db_.ExecuteStatement(sql);
    return static_cast<int>(db_.LastInsertId());
  } catch (const CppSQLite3Exception& failure) {
    EndOnCatalogueFailure(failure, db_.ErrorMessage());
  }
}

int MediaDB::ExecutePreparedChange(const char* sql,
                                   std::initializer_list<CppSQLite3Database::BoundValue> values) {
  try {
    db_.ExecutePrepared(sql, values);
    return static_cast<int>(db_.LastInsertId());
  } catch (const CppSQLite3Exception& failure) {
    EndOnCatalogueFailure(failure, db_.ErrorMessage());
  }
}

void MediaDB::RunQuery(const char* sql, CppSQLite3ResultSet& result) {
  try {
    result = db_.ExecuteQuery(sql);
  } catch (const CppSQLite3Exception& failure) {
    EndOnCatalogueFailure(failure, db_.ErrorMessage());
  }
}

int MediaDB::QueryInt(const char* sql) {
  CppSQLite3ResultSet result;
  RunQuery(sql, result);
  if (result.AtEnd()) return -1;
  return result.FieldInt(0, 0);
}

IdList MediaDB::QueryIdList(const char* sql) {
  IdList ids;
  CppSQLite3ResultSet result;
  RunQuery(sql, result);
  while (!result.AtEnd()) {
    ids.push_back(result.FieldInt(0, 0));
    result.NextRow();
  }
  return ids;
}

std::string MediaDB::QueryFirstText(const char* sql) {
  CppSQLite3ResultSet result;
  RunQuery(sql, result);
  if (result.AtEnd()) return "";  // no row reads as the empty text
  const char* text = result.FieldText(0);
  return text ? text : "";
}

void MediaDB::Begin() { ExecuteChange("BEGIN"); }
void MediaDB::Commit() { ExecuteChange("COMMIT"); }

int MediaDB::AddVolume(CMediaVolume& volume) {
  volume.VolID = idMarks_.InsertAboveMark(IdKind::Volume, [&] {
    return ExecuteChangeF(
        "INSERT INTO MediaVolumes(SerialNo,Name,VolType,DrvLtr,DisplayName,Description) "
        "values (%Q,%Q,%d,%Q,%Q,%Q);",
        volume.SerialNo.c_str(), volume.Name.c_str(), volume.VolType, volume.DrvLtr.c_str(),
        volume.DisplayName.c_str(), volume.Description.c_str());
  });
  return volume.VolID;
}

int MediaDB::AddPath(CMediaPath& path) {
  path.PathID = idMarks_.InsertAboveMark(IdKind::Path, [&] {
    return ExecutePreparedChange(
        "INSERT INTO MediaPaths(VolID,ParentID,DirtyBit,Name,FullPath) values (?,?,?,?,?);",
        {path.VolID, path.ParentID, path.DirtyBit, path.Name, path.FullPath});
  });
  return path.PathID;
}

int MediaDB::AddFile(CMediaFile& file) {
  file.FileID = idMarks_.InsertAboveMark(IdKind::File, [&] {
    return ExecutePreparedChange(
        "INSERT INTO MediaFiles( VolID,PathID,ScanState,DirtyBit,FileName,Type) VALUES (?,?,?,?,?,?);",
        {file.VolID, file.PathID, file.ScanState, file.DirtyBit, file.FileName, file.Type});
  });
  return file.FileID;
}

int MediaDB::AddPlayList(CPlayList& playList) {
  playList.PlayListID = idMarks_.InsertAboveMark(IdKind::PlayList, [&] {
    return ExecuteChangeF("INSERT INTO PlayLists(Name,FileIDs) VALUES (%Q,%Q);",
                          playList.Name.c_str(), playList.FileIDs.c_str());
  });
  return playList.PlayListID;
}

std::unique_ptr<CMediaVolume> MediaDB::GetVolume(int volId) {
  return QueryRecord<CMediaVolume>("SELECT * FROM MediaVolumes WHERE VolID=%d;", volId);
}

std::unique_ptr<CMediaPath> MediaDB::GetPath(int pathId) {
  return QueryRecord<CMediaPath>("SELECT * FROM MediaPaths WHERE PathID=%d;", pathId);
}

std::unique_ptr<CMediaFile> MediaDB::GetFile(int fileId) {
  return QueryRecord<CMediaFile>("SELECT * FROM MediaFiles WHERE FileID=%d;", fileId);
}

std::unique_ptr<CPlayList> MediaDB::GetPlayList(int playListId) {
  return QueryRecord<CPlayList>("SELECT * FROM PlayLists WHERE PlayListID=%d;", playListId);
}

IdList MediaDB::GetVolumeRootPathIds(int volId) {
  return QueryIdListF("SELECT PathID FROM MediaPaths WHERE VolID=%d AND ParentID=-1;", volId);
}

IdList MediaDB::GetVolumeIds(int volType) {
  if (volType == -1) return QueryIdList("SELECT VolID FROM MediaVolumes;");
  return QueryIdListF("SELECT VolID FROM MediaVolumes WHERE VolType=%d;", volType);
}

IdList MediaDB::GetSubtreePathIds(int pathId) {
  const std::string fullPath = GetTextField("MediaPaths", "FullPath", "PathID", pathId);
  const int volId = GetIntField("MediaPaths", "VolID", "PathID", pathId);
  // Compared as bytes: folders that differ only in letter case, or whose names
  // hold "%" or "_", are different folders and must not fall into the subtree.
  return QueryIdListF(
      "SELECT PathID FROM MediaPaths WHERE instr(CAST(FullPath AS BLOB),CAST(%Q AS BLOB))=1 "
      "AND VolID=%d;",
      fullPath.c_str(), volId);
}

int MediaDB::FindPath(const std::string& fullPath, int volId) {
  return QueryIntF("SELECT PathID FROM MediaPaths WHERE FullPath=%Q AND VolID=%d",
                   fullPath.c_str(), volId);
}

int MediaDB::FindFile(const std::string& fileName, int pathId) {
  return QueryIntF("SELECT FileID FROM MediaFiles WHERE FileName=%Q AND PathID=%d",
                   fileName.c_str(), pathId);
}

int MediaDB::FindVolumeBySerial(const std::string& serialNo) {
  return QueryIntF("SELECT VolID FROM MediaVolumes WHERE SerialNo=%Q;", serialNo.c_str());
}

int MediaDB::GetIntField(const std::string& table, const std::string& column,
                         const std::string& keyColumn, int keyValue) {
  const std::string format = "SELECT " + column + " FROM " + table + " WHERE " + keyColumn + "=%d;";
  return QueryIntF(format.c_str(), keyValue);
}

std::string MediaDB::GetTextField(const std::string& table, const std::string& column,
                                  const std::string& keyColumn, int keyValue) {
  const std::string format = "SELECT " + column + " FROM " + table + " WHERE " + keyColumn + "=%d;";
  CppSQLite3SqlText sql;
  sql.Format(format.c_str(), keyValue);
  return QueryFirstText(sql);
}

int MediaDB::SetIntField(const std::string& table, const std::string& column, int value,
                         const std::string& keyColumn, int keyValue) {
  const std::string format = "UPDATE " + table + " SET " + column + "=%d WHERE " + keyColumn + "=%d;";
  return ExecuteChangeF(format.c_str(), value, keyValue);
}

std::string MediaDB::GetVolumeSerial(int volId) {
  return GetTextField("MediaVolumes", "SerialNo", "VolID", volId);
}
std::string MediaDB::GetPathFullPath(int pathId) {
  return GetTextField("MediaPaths", "FullPath", "PathID", pathId);
}
std::string MediaDB::GetVolumeDrive(int volId) {
  return GetTextField("MediaVolumes", "DrvLtr", "VolID", volId);
}
int MediaDB::GetVolumeType(int volId) {
  return GetIntField("MediaVolumes", "VolType", "VolID", volId);
}
int MediaDB::GetPathVolume(int pathId) { return GetIntField("MediaPaths", "VolID", "PathID", pathId); }
int MediaDB::GetFileVolume(int fileId) { return GetIntField("MediaFiles", "VolID", "FileID", fileId); }

int MediaDB::SetFileScanState(int fileId, int state) {
  return ExecutePreparedChange("UPDATE MediaFiles SET ScanState=? WHERE FileID=?;", {state, fileId});
}
int MediaDB::SetPathDirtyBit(int pathId, int bit) {
  return SetIntField("MediaPaths", "DirtyBit", bit, "PathID", pathId);
}
int MediaDB::UpdateVolumeInfo(const CMediaVolume& volume) {
  return ExecuteChangeF("UPDATE MediaVolumes SET DisplayName=%Q,Description=%Q WHERE VolID=%d;",
                        volume.DisplayName.c_str(), volume.Description.c_str(), volume.VolID);
}

int MediaDB::UpdateFileUserInfo(const CMediaFile& file) {
  return ExecuteChangeF(
      "UPDATE MediaFiles SET Title=%Q,Artist=%Q,Album=%Q,Comment=%Q,Rating=%d WHERE FileID=%d;",
      file.Title.c_str(), file.Artist.c_str(), file.Album.c_str(), file.Comment.c_str(),
      file.Rating, file.FileID);
}

int MediaDB::UpdateFileTagsAndProperties(const CMediaFile& file, int scanState) {
  return ExecutePreparedChange(
      "UPDATE MediaFiles SET id3Title=?,id3Artist=?,id3Album=?,id3Comment=?,Length=?,"
      "BitRate=?,SampleRate=?,Channels=?,ScanState=? WHERE FileID=?;",
      {file.id3Title, file.id3Artist, file.id3Album, file.id3Comment, file.Length, file.BitRate,
       file.SampleRate, file.Channels, scanState, file.FileID});
}

int MediaDB::DeletePathFiles(int pathId) {
  idMarks_.NoteRemoval(IdKind::File);
  return ExecuteChangeF("DELETE FROM MediaFiles WHERE PathID=%d;", pathId);
}

int MediaDB::DeletePath(int pathId) {
  idMarks_.NoteRemoval(IdKind::Path);
  return ExecuteChangeF("DELETE FROM MediaPaths WHERE PathID=%d;", pathId);
}

void MediaDB::DeletePathTree(int pathId) {
  const std::string fullPath = GetTextField("MediaPaths", "FullPath", "PathID", pathId);
  const int volId = GetIntField("MediaPaths", "VolID", "PathID", pathId);
  // The folders of GetSubtreePathIds, with their files, in two statements.
  const char* subtree =
      "SELECT PathID FROM MediaPaths WHERE instr(CAST(FullPath AS BLOB),CAST(%Q AS BLOB))=1 "
      "AND VolID=%d";
  idMarks_.NoteRemoval(IdKind::File);
  idMarks_.NoteRemoval(IdKind::Path);
  ExecuteChangeF((std::string("DELETE FROM MediaFiles WHERE PathID IN (") + subtree + ");").c_str(),
                 fullPath.c_str(), volId);
  ExecuteChangeF((std::string("DELETE FROM MediaPaths WHERE PathID IN (") + subtree + ");").c_str(),
                 fullPath.c_str(), volId);
}

void MediaDB::DeleteVolume(int volId) {
  idMarks_.NoteRemoval(IdKind::File);
  idMarks_.NoteRemoval(IdKind::Path);
  idMarks_.NoteRemoval(IdKind::Volume);
  ExecuteChangeF("DELETE FROM MediaFiles WHERE VolID=%d;", volId);
  ExecuteChangeF("DELETE FROM MediaPaths WHERE VolID=%d;", volId);
  ExecuteChangeF("DELETE FROM MediaVolumes WHERE VolID=%d;", volId);
}

int MediaDB::DeletePlayList(int playListId) {
  idMarks_.NoteRemoval(IdKind::PlayList);
  return ExecuteChangeF("DELETE FROM PlayLists WHERE PlayListID=%d;", playListId);
}

int MediaDB::SetConfig(int configId, const std::string& value, bool insert) {
  if (insert)
    return ExecuteChangeF("INSERT INTO Configs(ConfigID,Value) VALUES(%d,%Q);", configId,
                          value.c_str());
  return ExecuteChangeF("UPDATE Configs SET Value=%Q WHERE ConfigID=%d;", value.c_str(), configId);
}

IdList MediaDB::GetConfigIds() { return QueryIdList("SELECT ConfigID FROM Configs;"); }

std::string MediaDB::GetConfig(int configId) {
  CppSQLite3SqlText sql;
  sql.Format("SELECT Value FROM Configs WHERE ConfigID=%d;", configId);
  CppSQLite3ResultSet result;
  RunQuery(sql, result);
  if (result.AtEnd()) return "";  // a missing row reads as the empty text
  const char* value = result.FieldText("Value");
  return value ? value : "";
}

void MediaDB::ObserveStatements(std::function<void(const char*)> observer) {
  db_.ObserveStatements(std::move(observer));
}
