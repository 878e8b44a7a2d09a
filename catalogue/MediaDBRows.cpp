// MediaDB's reads and changes of many rows at once: what a scan needs of a
// volume, and what the tree and the list show.
#include "catalogue/MediaDB.h"
#include "catalogue/MediaDBStatements.h"

namespace {

// The files' rows with their volumes'; LEFT JOIN keeps MediaFiles the outer
// loop, so the rows come in the order of the plain FileID queries.
std::string MediaListRowsWhere(const char* condition) {
  return std::string(
             "SELECT f.FileID,f.Title,f.id3Title,f.Artist,f.id3Artist,f.FileName,f.Rating,"
             "f.Length,v.VolType,v.DisplayName,v.DrvLtr FROM MediaFiles f LEFT JOIN MediaVolumes v "
             "ON v.VolID=f.VolID WHERE ") +
         condition;
}

}  // namespace

std::vector<PathRow> MediaDB::GetVolumePathRows(int volId) {
  return QueryRows<PathRow>(
      "SELECT PathID,ParentID,FullPath,DirtyBit FROM MediaPaths WHERE VolID=%d;", volId);
}

std::vector<FileRow> MediaDB::GetVolumeFileRows(int volId) {
  return QueryRows<FileRow>(
      "SELECT FileID,PathID,FileName,ScanState,DirtyBit FROM MediaFiles WHERE VolID=%d;", volId);
}

namespace {

// Long id lists go in pieces, so that SQLite never has to parse one huge statement.
constexpr std::size_t kIdsPerStatement = 1000;

std::string JoinIds(const IdList& ids, std::size_t from, std::size_t count) {
  std::string list;
  for (std::size_t i = from; i < from + count && i < ids.size(); ++i) {
    if (!list.empty()) list += ',';
    list += std::to_string(static_cast<std::int32_t>(ids[i]));
  }
  return list;
}

}  // namespace

template <class... Values>
int MediaDB::ExecuteForIds(const char* format, const IdList& ids, Values... values) {
  int result = 0;
  for (std::size_t from = 0; from < ids.size(); from += kIdsPerStatement)
    result = ExecuteChangeF(format, values..., JoinIds(ids, from, kIdsPerStatement).c_str());
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
  return ExecuteForIds("DELETE FROM MediaFiles WHERE FileID IN (%s);", fileIds);
}

int MediaDB::DeletePaths(const IdList& pathIds) {
  idMarks_.NoteRemoval(IdKind::Path);
  return ExecuteForIds("DELETE FROM MediaPaths WHERE PathID IN (%s);", pathIds);
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

std::vector<CPlayList> MediaDB::GetPlayLists() {
  return QueryRows<CPlayList>("SELECT * FROM PlayLists;");
}

std::vector<MediaListRow> MediaDB::GetFolderListRows(int pathId) {
  return QueryRows<MediaListRow>(MediaListRowsWhere("f.PathID=%d;").c_str(), pathId);
}

std::vector<MediaListRow> MediaDB::SearchListRows(const std::string& text) {
  const char* t = text.c_str();
  const std::string format = MediaListRowsWhere(
      "f.FileName LIKE '%%%q%%' OR f.Title LIKE '%%%q%%' OR f.Artist LIKE '%%%q%%' OR "
      "f.id3Title LIKE '%%%q%%' OR f.id3Artist LIKE '%%%q%%';");
  return QueryRows<MediaListRow>(format.c_str(), t, t, t, t, t);
}
