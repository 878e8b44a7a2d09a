// MediaDB's reads and changes of many rows at once: what a scan needs of a
// volume, and what the tree and the list show.
#include <algorithm>
#include <functional>
#include <future>
#include <limits>
#include <thread>
#include <unordered_map>
#include <unordered_set>

#include "base/CaseFold.h"
#include "base/NameOrder.h"
#include "catalogue/CppSQLite3Exception.h"
#include "catalogue/MediaDB.h"
#include "catalogue/MediaDBStatements.h"

// The files' rows with their volumes', folders' and tracks'; LEFT JOIN keeps
// MediaFiles the outer loop, so the rows come in the order of the plain
// FileID queries.
std::string MediaDB::MediaListRowsWhere(const char* condition) const {
  return std::string(
             "SELECT f.FileID,f.Title,f.id3Title,f.Artist,f.id3Artist,f.FileName,f.Rating,f.Length,v.VolType,"
             "v.DisplayName,v.DrvLtr,p.FullPath,f.Album,f.id3Album,") +
         (stampsHoldTrack_ ? "s.Track" : "NULL") +
         " FROM MediaFiles f LEFT JOIN MediaVolumes v ON v.VolID=f.VolID LEFT JOIN MediaPaths p ON p.PathID=f.PathID " +
         (stampsHoldTrack_ ? "LEFT JOIN vantrelle_file_stamps s ON s.FileID=f.FileID " : "") + "WHERE " + condition;
}

std::vector<PathRow> MediaDB::GetVolumePathRows(int volId) {
  return QueryRows<PathRow>("SELECT PathID,ParentID,FullPath,DirtyBit FROM MediaPaths WHERE VolID=%d;", volId);
}

namespace {

constexpr const char* kVolumeFileRows =
    "SELECT f.FileID,f.PathID,f.FileName,f.ScanState,f.DirtyBit,s.ModifiedNs,s.Size "
    "FROM MediaFiles f LEFT JOIN vantrelle_file_stamps s ON s.FileID=f.FileID WHERE f.VolID=%d;";

}  // namespace

void MediaDB::ForEachVolumeFileRow(int volId, const std::function<void(const FileRow&)>& visit) {
  CppSQLite3SqlText sql;
  sql.Format(kVolumeFileRows, volId);
  CppSQLite3ResultSet result;
  RunQuery(sql, result);
  FileRow row;
  for (; !result.AtEnd(); result.NextRow()) {
    LoadRecord(result, row);
    visit(row);
  }
}

namespace {

// Long id lists go in pieces, so that SQLite never has to parse one huge statement.
constexpr std::size_t kIdsPerStatement = 1000;

std::string JoinIds(const IdList& ids, std::size_t from, std::size_t count) {
  std::string list;
  for (std::size_t i = from; i < from + count && i < ids.size(); ++i) {
    if (!list.empty()) list += ',';
    list += std::to_string(ids[i]);
  }
  return list;
}

}  // namespace

template <class... Values>
int MediaDB::ExecuteForIds(const char* format, const IdList& ids, Values... values) {
  int result = 0;
  for (std::size_t from = 0; from < ids.size(); from += kIdsPerStatement)
    result = ExecuteForInsertIdF(format, values..., JoinIds(ids, from, kIdsPerStatement).c_str());
  return result;
}

int MediaDB::SetPathsDirtyBit(const IdList& pathIds, int bit) {
  return ExecuteForIds("UPDATE MediaPaths SET DirtyBit=%d WHERE PathID IN (%s);", pathIds, bit);
}

int MediaDB::SetFilesDirtyBit(const IdList& fileIds, int bit) {
  return ExecuteForIds("UPDATE MediaFiles SET DirtyBit=%d WHERE FileID IN (%s);", fileIds, bit);
}

int MediaDB::DeleteFiles(const IdList& fileIds) {
  idMarks_.NoteRemoval(IdKind::File);
  ExecuteForIds("DELETE FROM vantrelle_file_stamps WHERE FileID IN (%s);", fileIds);
  const int result = ExecuteForIds("DELETE FROM MediaFiles WHERE FileID IN (%s);", fileIds);
  uncommitted_.AddIds(CatalogueTable::Files, fileIds);
  if (!fileIds.empty()) NoteChange(CatalogueTable::Files, fileIds.front());
  return result;
}

int MediaDB::SetFileStamp(int fileId, const FileStamp& stamp) {
  return ExecutePreparedForInsertId(
      "INSERT INTO vantrelle_file_stamps(FileID,ModifiedNs,Size) VALUES (?,?,?) ON CONFLICT(FileID) DO UPDATE SET "
      "ModifiedNs=excluded.ModifiedNs,Size=excluded.Size;",
      {fileId, stamp.modifiedNs, stamp.size});
}

int MediaDB::DeletePaths(const IdList& pathIds) {
  idMarks_.NoteRemoval(IdKind::Path);
  const int result = ExecuteForIds("DELETE FROM MediaPaths WHERE PathID IN (%s);", pathIds);
  uncommitted_.AddIds(CatalogueTable::Paths, pathIds);
  if (!pathIds.empty()) NoteChange(CatalogueTable::Paths, pathIds.front());
  return result;
}

IdList MediaDB::ExistingFileIds(const IdList& fileIds) {
  std::unordered_set<std::int32_t> present;
  for (std::size_t from = 0; from < fileIds.size(); from += kIdsPerStatement)
    for (std::int32_t id : QueryIdListF("SELECT FileID FROM MediaFiles WHERE FileID IN (%s);",
                                        JoinIds(fileIds, from, kIdsPerStatement).c_str()))
      present.insert(id);
  IdList existing;
  existing.reserve(fileIds.size());
  for (std::int32_t id : fileIds)
    if (present.count(id) != 0) existing.push_back(id);
  return existing;
}

int MediaDB::CountFilesOfTypeAbove(const IdList& pathIds, int type) {
  int count = 0;
  for (std::size_t from = 0; from < pathIds.size(); from += kIdsPerStatement)
    count += QueryIntF("SELECT COUNT(*) FROM MediaFiles WHERE Type>%d AND PathID IN (%s);", type,
                       JoinIds(pathIds, from, kIdsPerStatement).c_str());
  return count;
}

std::vector<CMediaVolume> MediaDB::GetVolumesOfType(int volType) {
  return QueryRows<CMediaVolume>("SELECT * FROM MediaVolumes WHERE VolType=%d;", volType);
}

std::vector<PathNodeRow> MediaDB::GetPathNodeRows() {
  return QueryRows<PathNodeRow>("SELECT PathID,ParentID,VolID,Name FROM MediaPaths;");
}

std::vector<PathNodeRow> MediaDB::GetPathNodeRowsUpFrom(int pathId) {
  // A loop of ParentIDs (a hand-edited catalogue) ends at a folder met before.
  std::vector<PathNodeRow> chain;
  std::unordered_set<int> seen;
  for (int id = pathId; id != -1 && seen.insert(id).second;) {
    std::vector<PathNodeRow> row =
        QueryRows<PathNodeRow>("SELECT PathID,ParentID,VolID,Name FROM MediaPaths WHERE PathID=%d;", id);
    if (row.empty()) break;
    id = row.front().ParentID;
    chain.push_back(std::move(row.front()));
  }
  return chain;
}

std::vector<CPlayList> MediaDB::GetPlayListNames() {
  return QueryRows<CPlayList>("SELECT PlayListID,Name,'' AS FileIDs FROM PlayLists;");
}

std::vector<CPlayList> MediaDB::GetPlayLists() { return QueryRows<CPlayList>("SELECT * FROM PlayLists;"); }

std::vector<MediaListRow> MediaDB::GetFolderListRows(int pathId) {
  std::vector<MediaListRow> rows = QueryRows<MediaListRow>(MediaListRowsWhere("f.PathID=%d;").c_str(), pathId);
  // In name order, whatever order the files were found in.
  const NameOrder order;
  std::sort(rows.begin(), rows.end(),
            [&](const MediaListRow& a, const MediaListRow& b) { return order(a.FileName, b.FileName); });
  return rows;
}

std::vector<MediaListRow> MediaDB::FileListRows(const IdList& fileIds) {
  if (fileIds.empty()) return {};
  const auto byId = [](const MediaListRow& a, const MediaListRow& b) { return a.FileID < b.FileID; };
  // Rising ids (a search's) need no reordering: the rows, sorted, are the answer.
  if (std::adjacent_find(fileIds.begin(), fileIds.end(), std::greater_equal<>()) == fileIds.end()) {
    const std::string ids = JoinIds(fileIds, 0, fileIds.size());
    std::vector<MediaListRow> rows =
        QueryRows<MediaListRow>(MediaListRowsWhere("f.FileID IN (%s);").c_str(), ids.c_str());
    if (!std::is_sorted(rows.begin(), rows.end(), byId)) std::sort(rows.begin(), rows.end(), byId);
    return rows;
  }
  // One statement for the distinct ids, then the rows in the list's order.
  IdList distinct;
  std::unordered_map<int, std::size_t> at;
  for (std::int32_t id : fileIds)
    if (at.emplace(id, 0).second) distinct.push_back(id);
  const std::string ids = JoinIds(distinct, 0, distinct.size());
  const std::vector<MediaListRow> found =
      QueryRows<MediaListRow>(MediaListRowsWhere("f.FileID IN (%s);").c_str(), ids.c_str());
  at.clear();
  for (std::size_t i = 0; i < found.size(); ++i) at.emplace(found[i].FileID, i);
  std::vector<MediaListRow> rows;
  rows.reserve(fileIds.size());
  for (std::int32_t id : fileIds)
    if (const auto row = at.find(id); row != at.end()) rows.push_back(found[row->second]);
  return rows;
}

namespace {

constexpr const char* kSearchTexts = "SELECT FileID,FileName,Title,Artist,id3Title,id3Artist FROM MediaFiles";

void AddSearchTexts(const CppSQLite3ResultSet& row, SearchTexts& texts, const CaseFold& fold) {
  texts.Add(row.FieldInt(0, 0),
            {row.FieldBytes(1), row.FieldBytes(2), row.FieldBytes(3), row.FieldBytes(4), row.FieldBytes(5)}, fold);
}

// The texts of the files with ids from first up to (not with) last, through
// the connection; none when cancelled.
std::shared_ptr<SearchTexts> ReadTexts(CppSQLite3Database& db, const std::atomic<bool>& cancel, std::int64_t first,
                                       std::int64_t last) {
  const CaseFold fold;
  auto texts = std::make_shared<SearchTexts>();
  const std::string range = " WHERE FileID>=" + std::to_string(first) + " AND FileID<" + std::to_string(last);
  const std::string select = kSearchTexts + range;
  {
    const CppSQLite3ResultSet count = db.ExecuteQuery(("SELECT count(*) FROM MediaFiles" + range + ";").c_str());
    // A name, a title and an artist (non-Latin letters take two bytes or
    // three) and five zero bytes: about 64 bytes a file.
    texts->Reserve(static_cast<std::size_t>(std::max(0, count.FieldInt(0, 0))), 64);
  }
  CppSQLite3ResultSet row = db.ExecuteQuery((select + " ORDER BY FileID;").c_str());
  for (; !row.AtEnd(); row.NextRow()) {
    if (cancel) return {};
    AddSearchTexts(row, *texts, fold);
  }
  return texts;
}

// Below this many files one thread reads them all.
constexpr std::int64_t kFilesForParts = 50000;

// Every file's texts, read and folded in parts by id, each part on a thread
// and connection of its own (one per core), then put together in id order.
// A part that cannot be read is thrown; none when cancelled.
SearchIndex::Texts ReadTextsInParts(const std::string& path, const std::atomic<bool>& cancel) {
  CppSQLite3Database first;
  first.OpenReadOnly(path.c_str());
  std::int64_t lowest = 0, highest = 0;
  {
    const CppSQLite3ResultSet ids = first.ExecuteQuery("SELECT min(FileID),max(FileID),count(*) FROM MediaFiles;");
    lowest = ids.FieldInt64(0, 0);
    highest = ids.FieldInt64(1, 0) + 1;
    if (ids.FieldInt64(2, 0) < kFilesForParts) return ReadTexts(first, cancel, lowest, highest);
  }
  const std::int64_t parts = std::clamp<std::int64_t>(std::thread::hardware_concurrency(), 1, 4);
  const std::int64_t step = (highest - lowest + parts - 1) / parts;
  std::vector<std::future<std::shared_ptr<SearchTexts>>> others;
  for (std::int64_t part = 1; part < parts; ++part)
    others.push_back(std::async(std::launch::async, [&path, &cancel, from = lowest + part * step, step] {
      CppSQLite3Database own;
      own.OpenReadOnly(path.c_str());
      return ReadTexts(own, cancel, from, from + step);
    }));
  std::shared_ptr<SearchTexts> joined = ReadTexts(first, cancel, lowest, lowest + step);
  std::vector<std::shared_ptr<SearchTexts>> rest;
  for (auto& other : others) rest.push_back(other.get());  // waits for all, and throws what a part threw
  if (!joined) return {};
  for (const auto& part : rest) {
    if (!part) return {};
    joined->Append(*part);
  }
  return joined;
}

}  // namespace

// In parts on their own connections where the catalogue allows it (a file
// opened for reading only may not show a second connection all it holds);
// else, or when that fails, on the catalogue's own connection.
SearchIndex::Texts MediaDB::ReadSearchTexts(const std::atomic<bool>& cancel) {
  if (!IsReadOnly()) {
    try {
      return ReadTextsInParts(path_, cancel);
    } catch (const CppSQLite3Exception&) {
    }
  }
  try {
    return ReadTexts(db_, cancel, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int64_t>::max());
  } catch (const CppSQLite3Exception& failure) {
    EndOnFailure(failure);
  }
}

void MediaDB::ReadSearchTextsOf(const IdList& fileIds, SearchTexts& texts) {
  const CaseFold fold;
  for (std::size_t from = 0; from < fileIds.size(); from += kIdsPerStatement) {
    CppSQLite3SqlText sql;
    sql.Format((std::string(kSearchTexts) + " WHERE FileID IN (%s) ORDER BY FileID;").c_str(),
               JoinIds(fileIds, from, kIdsPerStatement).c_str());
    CppSQLite3ResultSet row;
    RunQuery(sql, row);
    for (; !row.AtEnd(); row.NextRow()) AddSearchTexts(row, texts, fold);
  }
}

// Only a catalogue kept in a write-ahead log is read beside its own
// connection: with a rollback journal the reading would hold off commits.
void MediaDB::ReadSearchTextsAhead() {
  if (!db_.IsOpen() || IsReadOnly() || !WriteAheadLogged()) return;
  searchIndex_.ReadAhead([path = path_](const std::atomic<bool>& cancel) -> SearchIndex::Texts {
    try {
      return ReadTextsInParts(path, cancel);
    } catch (const CppSQLite3Exception&) {
      return {};  // read by the search itself, whose failures are reported
    }
  });
}

IdList MediaDB::SearchFileIds(const std::string& text) {
  const CaseFold fold;
  std::string part = fold.Fold(text);
  // The kept texts are separated by zero bytes, so a part must hold none.
  if (const std::size_t zero = part.find('\0'); zero != std::string::npos) part.erase(zero);
  // Every file holds the empty text.
  if (part.empty()) return QueryIdList("SELECT FileID FROM MediaFiles ORDER BY FileID;");
  return searchIndex_.Holding(
      part, [this](const std::atomic<bool>& cancel) { return ReadSearchTexts(cancel); },
      [this](const IdList& ids, SearchTexts& texts) { ReadSearchTextsOf(ids, texts); });
}
