#include "catalogue/MediaDB.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "catalogue/CatalogueFailure.h"
#include "catalogue/CppSQLite3Exception.h"
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
    {"PlayLists", "CREATE TABLE PlayLists ( PlayListID INTEGER PRIMARY KEY, Name TEXT, FileIDs TEXT);"},
    {"Configs", "CREATE TABLE Configs(ConfigID INTEGER, Value TEXT);"},
};

// Write-ahead logging makes a scan's frequent commits (one a batch of rows)
// cheap while a committed transaction still survives a killed process.
constexpr const char* kJournalSettings = "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;";
// Where the write-ahead index cannot be shared (network and FUSE file
// systems), a rollback journal. A catalogue left in write-ahead mode is
// turned over in exclusive locking mode, in which SQLite reads its log
// without the shared index.
constexpr const char* kRollbackJournal =
    "PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=DELETE; PRAGMA locking_mode=NORMAL;";
constexpr const char* kRollbackJournalSettings = "PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL;";

constexpr const char* kReadOnly = "The catalogue is read-only.";

// The catalogue's own additions beside the five tables: what the statements
// look rows up by, and the file stamps (a catalogue made without them gains
// them when next opened for writing).
constexpr const char* kAdditions[] = {
    "CREATE INDEX IF NOT EXISTS vantrelle_files_by_path ON MediaFiles(PathID);",
    "CREATE INDEX IF NOT EXISTS vantrelle_paths_by_volume ON MediaPaths(VolID,ParentID);",
    "CREATE INDEX IF NOT EXISTS vantrelle_paths_by_parent ON MediaPaths(ParentID);",
    // A file's modification time and size when its tags were read, so that a
    // scan reads a changed file again, and the tag's track number, which
    // MediaFiles has no column for. Other programs on the catalogue ignore it.
    ("CREATE TABLE IF NOT EXISTS vantrelle_file_stamps(FileID INTEGER PRIMARY KEY, ModifiedNs INTEGER, "
     "Size INTEGER, Track INTEGER);"),
    // The play list window's rows as they were left at exit, and the row
    // that played (Playing=1), so that the queue comes back.
    ("CREATE TABLE IF NOT EXISTS vantrelle_queue(Position INTEGER PRIMARY KEY, FileID INTEGER NOT NULL, "
     "Playing INTEGER NOT NULL DEFAULT 0);"),
};

bool Holds(const std::vector<std::string>& names, const char* name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool Exists(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

// Whether the user (the real one, as access() asks) may change the file and
// make its journal beside it. A missing file is to be made.
bool UserMayWrite(const std::string& path, const std::string& folder) {
  if (!Exists(path)) return true;
  return access(path.c_str(), W_OK) == 0 && access(folder.empty() ? "." : folder.c_str(), W_OK) == 0;
}

}  // namespace

int MediaDB::Open(const std::string& programFolder, const std::function<void()>& fillNewCatalogue, bool writeAheadLog) {
  searchIndex_.Forget();
  writeAheadLog_ = false;
  path_ = programFolder + kFileName;
  if (UserMayWrite(path_, programFolder))
    OpenReadable(path_, writeAheadLog);
  else
    OpenForReadingOnly(path_);
  const std::vector<std::string> present = TableNames();
  const bool created = present.empty();
  const bool complete = std::all_of(std::begin(kTables), std::end(kTables),
                                    [&](const TableDefinition& t) { return Holds(present, t.name); });
  if (IsReadOnly()) {  // nothing can be created or added; reading is all there is
    if (!complete)
      throw CppSQLite3Exception(SQLITE_READONLY, (path_ + " is read-only and holds no whole catalogue").c_str());
    stampsHoldTrack_ = StampsHoldTrack();
    return 0;
  }
  ExecuteForInsertId(writeAheadLog ? kJournalSettings : kRollbackJournalSettings);
  writeAheadLog_ = writeAheadLog;
  if (!complete || idMarks_.AnyMarkMissing()) {
    Begin();
    CreateMissingTables(present);
    idMarks_.WriteMissingMarks();
    if (created && fillNewCatalogue) fillNewCatalogue();
    Commit();
  }
  for (const char* addition : kAdditions) ExecuteForInsertId(addition);
  // Stamps kept by versions that read no track numbers.
  if (!StampsHoldTrack()) ExecuteForInsertId("ALTER TABLE vantrelle_file_stamps ADD COLUMN Track INTEGER;");
  stampsHoldTrack_ = true;
  idMarks_.Start();
  return created ? 1 : 0;
}

void MediaDB::OpenReadable(const std::string& path, bool writeAheadLog) {
  db_.Open(path.c_str());
  try {
    // Before the first read, which would open the write-ahead index.
    if (!writeAheadLog) {
      db_.ExecuteStatement(kRollbackJournal);
      // The index a write-ahead run left is of no use now, and nobody else
      // holds the catalogue.
      const CppSQLite3ResultSet mode = db_.ExecuteQuery("PRAGMA journal_mode;");
      if (mode.FieldText(0) && std::string(mode.FieldText(0)) == "delete") unlink((path + "-shm").c_str());
    }
    db_.ExecuteQuery("SELECT count(*) FROM sqlite_master;");
  } catch (const CppSQLite3Exception& failure) {
    const int code = failure.Code() & 0xff;
    const std::string reason = db_.ErrorMessage();
    db_.Close();
    if (code == SQLITE_NOTADB) throw CppSQLite3Exception(code, (path + " is not a catalogue (" + reason + ")").c_str());
    throw CppSQLite3Exception(code, (path + ": " + reason).c_str());
  }
}

// Reading must leave nothing behind: a write-ahead index made here could not
// be removed from a folder the user may not write, and one made beside a
// file the user may not write would keep that file's mode and stop its owner's
// next changes. So the catalogue is read as it stands (immutable), unless a
// program that ended without closing it left both files of its write-ahead
// log, whose last commits a plain reader sees without making anything.
void MediaDB::OpenForReadingOnly(const std::string& path) {
  // A rollback journal left by a program that ended mid-change: the file
  // holds half a change until someone who may write it rolls that back.
  struct stat journal {};
  if (stat((path + "-journal").c_str(), &journal) == 0 && journal.st_size > 0)
    throw CppSQLite3Exception(SQLITE_READONLY, (path + " was left in the middle of a change, which only a user who "
                                                       "may write it can take back")
                                                   .c_str());
  if (Exists(path + "-wal") && Exists(path + "-shm")) {
    try {
      db_.OpenReadOnly(path.c_str());
      db_.ExecuteQuery("SELECT count(*) FROM sqlite_master;");
      return;
    } catch (const CppSQLite3Exception&) {
      db_.Close();
    }
  }
  db_.OpenImmutable(path.c_str());
  try {
    db_.ExecuteQuery("SELECT count(*) FROM sqlite_master;");
  } catch (const CppSQLite3Exception& failure) {
    const std::string reason = db_.ErrorMessage();
    db_.Close();
    throw CppSQLite3Exception(failure.Code() & 0xff, (path + ": " + reason).c_str());
  }
}

std::string MediaDB::ReadOnlyMessage() const {
  return std::string(kReadOnly) + " Nothing was changed in " + path_ + ".";
}

void MediaDB::EndOnReadOnly() const { EndOnCatalogueFailure(ReadOnlyMessage()); }

void MediaDB::EndOnFailure(const CppSQLite3Exception& failure) const {
  if ((failure.Code() & 0xff) == SQLITE_READONLY && db_.IsReadOnly()) EndOnReadOnly();
  EndOnCatalogueFailure(failure, db_.ErrorMessage());
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

bool MediaDB::StampsHoldTrack() {
  return QueryInt("SELECT count(*) FROM pragma_table_info('vantrelle_file_stamps') WHERE name='Track';") > 0;
}

void MediaDB::CreateMissingTables(const std::vector<std::string>& present) {
  for (const TableDefinition& t : kTables)
    if (!Holds(present, t.name)) ExecuteForInsertId(t.create);
}

int MediaDB::ExecuteForInsertId(const char* sql) {
  owner_.Check();
  try {
    db_.ExecuteStatement(sql);
    return static_cast<int>(db_.LastInsertId());
  } catch (const CppSQLite3Exception& failure) {
    EndOnFailure(failure);
  }
}

int MediaDB::ExecutePreparedForInsertId(const char* sql, std::initializer_list<CppSQLite3Database::BoundValue> values) {
  owner_.Check();
  try {
    db_.ExecutePrepared(sql, values);
    return static_cast<int>(db_.LastInsertId());
  } catch (const CppSQLite3Exception& failure) {
    EndOnFailure(failure);
  }
}

void MediaDB::RunQuery(const char* sql, CppSQLite3ResultSet& result) {
  owner_.Check();
  try {
    result = db_.ExecuteQuery(sql);
  } catch (const CppSQLite3Exception& failure) {
    EndOnFailure(failure);
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

void MediaDB::Begin() { ExecuteForInsertId("BEGIN"); }
void MediaDB::Commit() {
  ExecuteForInsertId("COMMIT");
  PublishChanges();
}

void MediaDB::NoteChange(CatalogueTable table, std::int32_t id) {
  uncommitted_.Add(table, id);
  if (!db_.InTransaction()) PublishChanges();
}

void MediaDB::NoteChangedRows(CatalogueTable table) {
  uncommitted_.AddAll(table);
  if (!db_.InTransaction()) PublishChanges();
}

void MediaDB::PublishChanges() {
  if (uncommitted_.Empty()) return;
  searchIndex_.Note(uncommitted_);
  CatalogueChanges committed;
  std::swap(committed, uncommitted_);
  events_.Publish(committed);
}

MediaDB::WorkerLoan::~WorkerLoan() {
  loan_.reset();
  db_.events_.LoanEnded();
}

int MediaDB::AddVolume(CMediaVolume& volume) {
  volume.VolID = idMarks_.InsertAboveMark(IdKind::Volume, [&] {
    return ExecuteForInsertIdF(
        "INSERT INTO MediaVolumes(SerialNo,Name,VolType,DrvLtr,DisplayName,Description) "
        "values (%Q,%Q,%d,%Q,%Q,%Q);",
        volume.SerialNo.c_str(), volume.Name.c_str(), volume.VolType, volume.DrvLtr.c_str(), volume.DisplayName.c_str(),
        volume.Description.c_str());
  });
  NoteChange(CatalogueTable::Volumes, volume.VolID);
  return volume.VolID;
}

int MediaDB::AddPath(CMediaPath& path) {
  path.PathID = idMarks_.InsertAboveMark(IdKind::Path, [&] {
    return ExecutePreparedForInsertId(
        "INSERT INTO MediaPaths(VolID,ParentID,DirtyBit,Name,FullPath) values (?,?,?,?,?);",
        {path.VolID, path.ParentID, path.DirtyBit, path.Name, path.FullPath});
  });
  NoteChange(CatalogueTable::Paths, path.PathID);
  return path.PathID;
}

int MediaDB::AddFile(CMediaFile& file) {
  file.FileID = idMarks_.InsertAboveMark(IdKind::File, [&] {
    return ExecutePreparedForInsertId(
        "INSERT INTO MediaFiles( VolID,PathID,ScanState,DirtyBit,FileName,Type) VALUES (?,?,?,?,?,?);",
        {file.VolID, file.PathID, file.ScanState, file.DirtyBit, file.FileName, file.Type});
  });
  NoteChange(CatalogueTable::Files, file.FileID);
  return file.FileID;
}

int MediaDB::AddPlayList(CPlayList& playList) {
  playList.PlayListID = idMarks_.InsertAboveMark(IdKind::PlayList, [&] {
    return ExecuteForInsertIdF("INSERT INTO PlayLists(Name,FileIDs) VALUES (%Q,%Q);", playList.Name.c_str(),
                               playList.FileIDs.c_str());
  });
  NoteChange(CatalogueTable::PlayLists, playList.PlayListID);
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
  return QueryIntF("SELECT PathID FROM MediaPaths WHERE FullPath=%Q AND VolID=%d", fullPath.c_str(), volId);
}

int MediaDB::FindFile(const std::string& fileName, int pathId) {
  return QueryIntF("SELECT FileID FROM MediaFiles WHERE FileName=%Q AND PathID=%d", fileName.c_str(), pathId);
}

int MediaDB::FindVolumeBySerial(const std::string& serialNo) {
  return QueryIntF("SELECT VolID FROM MediaVolumes WHERE SerialNo=%Q;", serialNo.c_str());
}

int MediaDB::GetIntField(const std::string& table, const std::string& column, const std::string& keyColumn,
                         int keyValue) {
  const std::string format = "SELECT " + column + " FROM " + table + " WHERE " + keyColumn + "=%d;";
  return QueryIntF(format.c_str(), keyValue);
}

std::string MediaDB::GetTextField(const std::string& table, const std::string& column, const std::string& keyColumn,
                                  int keyValue) {
  const std::string format = "SELECT " + column + " FROM " + table + " WHERE " + keyColumn + "=%d;";
  CppSQLite3SqlText sql;
  sql.Format(format.c_str(), keyValue);
  return QueryFirstText(sql);
}

int MediaDB::SetIntField(const std::string& table, const std::string& column, int value, const std::string& keyColumn,
                         int keyValue) {
  const std::string format = "UPDATE " + table + " SET " + column + "=%d WHERE " + keyColumn + "=%d;";
  return ExecuteForInsertIdF(format.c_str(), value, keyValue);
}

std::string MediaDB::GetVolumeSerial(int volId) { return GetTextField("MediaVolumes", "SerialNo", "VolID", volId); }
std::string MediaDB::GetPathFullPath(int pathId) { return GetTextField("MediaPaths", "FullPath", "PathID", pathId); }
std::string MediaDB::GetVolumeDrive(int volId) { return GetTextField("MediaVolumes", "DrvLtr", "VolID", volId); }
int MediaDB::GetPathVolume(int pathId) { return GetIntField("MediaPaths", "VolID", "PathID", pathId); }
int MediaDB::GetFileVolume(int fileId) { return GetIntField("MediaFiles", "VolID", "FileID", fileId); }

int MediaDB::SetFileScanState(int fileId, int state) {
  const int result = ExecutePreparedForInsertId("UPDATE MediaFiles SET ScanState=? WHERE FileID=?;", {state, fileId});
  NoteChange(CatalogueTable::Files, fileId);
  return result;
}
int MediaDB::SetPathDirtyBit(int pathId, int bit) {
  return SetIntField("MediaPaths", "DirtyBit", bit, "PathID", pathId);
}
int MediaDB::UpdateVolumeInfo(const CMediaVolume& volume) {
  const int result = ExecuteForInsertIdF("UPDATE MediaVolumes SET DisplayName=%Q,Description=%Q WHERE VolID=%d;",
                                         volume.DisplayName.c_str(), volume.Description.c_str(), volume.VolID);
  NoteChange(CatalogueTable::Volumes, volume.VolID);
  return result;
}

int MediaDB::UpdateFileUserInfo(const CMediaFile& file) {
  const int result = ExecuteForInsertIdF(
      "UPDATE MediaFiles SET Title=%Q,Artist=%Q,Album=%Q,Comment=%Q,Rating=%d WHERE FileID=%d;", file.Title.c_str(),
      file.Artist.c_str(), file.Album.c_str(), file.Comment.c_str(), file.Rating, file.FileID);
  NoteChange(CatalogueTable::Files, file.FileID);
  return result;
}

int MediaDB::UpdateFileTagsAndProperties(const CMediaFile& file, int scanState) {
  const int result = ExecutePreparedForInsertId(
      "UPDATE MediaFiles SET id3Title=?,id3Artist=?,id3Album=?,id3Comment=?,Length=?,"
      "BitRate=?,SampleRate=?,Channels=?,ScanState=? WHERE FileID=?;",
      {file.id3Title, file.id3Artist, file.id3Album, file.id3Comment, file.Length, file.BitRate, file.SampleRate,
       file.Channels, scanState, file.FileID});
  ExecutePreparedForInsertId(
      "INSERT INTO vantrelle_file_stamps(FileID,Track) VALUES (?,?) ON CONFLICT(FileID) DO UPDATE SET "
      "Track=excluded.Track;",
      {file.FileID, file.Track});
  NoteChange(CatalogueTable::Files, file.FileID);
  return result;
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
  ExecuteForInsertIdF((std::string("DELETE FROM MediaFiles WHERE PathID IN (") + subtree + ");").c_str(),
                      fullPath.c_str(), volId);
  ExecuteForInsertIdF((std::string("DELETE FROM MediaPaths WHERE PathID IN (") + subtree + ");").c_str(),
                      fullPath.c_str(), volId);
  uncommitted_.AddAll(CatalogueTable::Files);
  NoteChangedRows(CatalogueTable::Paths);
}

void MediaDB::DeleteVolume(int volId) {
  idMarks_.NoteRemoval(IdKind::File);
  idMarks_.NoteRemoval(IdKind::Path);
  idMarks_.NoteRemoval(IdKind::Volume);
  ExecuteForInsertIdF("DELETE FROM MediaFiles WHERE VolID=%d;", volId);
  ExecuteForInsertIdF("DELETE FROM MediaPaths WHERE VolID=%d;", volId);
  ExecuteForInsertIdF("DELETE FROM MediaVolumes WHERE VolID=%d;", volId);
  uncommitted_.AddAll(CatalogueTable::Files);
  uncommitted_.AddAll(CatalogueTable::Paths);
  NoteChange(CatalogueTable::Volumes, volId);
}

int MediaDB::DeletePlayList(int playListId) {
  idMarks_.NoteRemoval(IdKind::PlayList);
  const int result = ExecuteForInsertIdF("DELETE FROM PlayLists WHERE PlayListID=%d;", playListId);
  NoteChange(CatalogueTable::PlayLists, playListId);
  return result;
}

int MediaDB::SetConfig(int configId, const std::string& value, bool insert) {
  const int result =
      insert ? ExecuteForInsertIdF("INSERT INTO Configs(ConfigID,Value) VALUES(%d,%Q);", configId, value.c_str())
             : ExecuteForInsertIdF("UPDATE Configs SET Value=%Q WHERE ConfigID=%d;", value.c_str(), configId);
  NoteChange(CatalogueTable::Settings, configId);
  return result;
}

MediaDB::Queue MediaDB::GetQueue() {
  Queue queue;
  if (!Holds(TableNames(), "vantrelle_queue")) return queue;  // a catalogue never opened for writing
  queue.files = QueryIdList("SELECT FileID FROM vantrelle_queue ORDER BY Position;");
  const IdList playing = QueryIdList("SELECT Position FROM vantrelle_queue WHERE Playing=1;");
  if (!playing.empty() && playing.front() < static_cast<std::int32_t>(queue.files.size()))
    queue.playingRow = playing.front();
  return queue;
}

void MediaDB::SaveQueue(const IdList& files, int playingRow) {
  if (!Holds(TableNames(), "vantrelle_queue")) return;
  Begin();
  ExecuteForInsertId("DELETE FROM vantrelle_queue;");
  for (std::size_t row = 0; row < files.size(); ++row)
    ExecutePreparedForInsertId("INSERT INTO vantrelle_queue(Position,FileID,Playing) VALUES (?,?,?);",
                               {static_cast<int>(row), files[row], static_cast<int>(row) == playingRow ? 1 : 0});
  Commit();
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
