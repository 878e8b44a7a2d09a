#include "catalogue/RecordLoader.h"

#include <limits>

namespace {

int Int(const CppSQLite3ResultSet& row, const char* column) { return row.FieldInt(column, 0); }

std::string Text(const CppSQLite3ResultSet& row, const char* column) {
  const char* text = row.FieldText(column);
  return text ? text : "";
}

}  // namespace

void LoadRecord(const CppSQLite3ResultSet& row, CMediaFile& file) {
  file.FileID = Int(row, "FileID");
  file.PathID = Int(row, "PathID");
  file.VolID = Int(row, "VolID");
  file.ScanState = Int(row, "ScanState");
  file.DirtyBit = Int(row, "DirtyBit");
  file.FileName = Text(row, "FileName");
  file.Type = Int(row, "Type");
  file.Title = Text(row, "Title");
  file.Artist = Text(row, "Artist");
  file.Album = Text(row, "Album");
  file.Rating = Int(row, "Rating");
  file.Comment = Text(row, "Comment");
  file.id3Title = Text(row, "id3Title");
  file.id3Artist = Text(row, "id3Artist");
  file.id3Album = Text(row, "id3Album");
  file.id3Comment = Text(row, "id3Comment");
  file.Length = Int(row, "Length");
  file.BitRate = Int(row, "BitRate");
  file.SampleRate = Int(row, "SampleRate");
  file.Channels = Int(row, "Channels");
}

void LoadRecord(const CppSQLite3ResultSet& row, CMediaPath& path) {
  path.PathID = Int(row, "PathID");
  path.VolID = Int(row, "VolID");
  path.ParentID = Int(row, "ParentID");
  path.Name = Text(row, "Name");
  path.FullPath = Text(row, "FullPath");
  path.DirtyBit = Int(row, "DirtyBit");
}

void LoadRecord(const CppSQLite3ResultSet& row, CMediaVolume& volume) {
  volume.VolID = Int(row, "VolID");
  volume.SerialNo = Text(row, "SerialNo");
  volume.DrvLtr = Text(row, "DrvLtr");
  volume.Name = Text(row, "Name");
  volume.VolType = Int(row, "VolType");
  volume.DisplayName = Text(row, "DisplayName");
  volume.Description = Text(row, "Description");
}

void LoadRecord(const CppSQLite3ResultSet& row, CPlayList& playList) {
  playList.PlayListID = Int(row, "PlayListID");
  playList.Name = Text(row, "Name");
  playList.FileIDs = Text(row, "FileIDs");
}

namespace {

std::string TextAt(const CppSQLite3ResultSet& row, int column) {
  const char* text = row.FieldText(column);
  return text ? text : "";
}

// A NULL ParentID matches no folder's PathID, as in "ParentID=%d".
constexpr int kNoParent = std::numeric_limits<std::int32_t>::min();

}  // namespace

void LoadRecord(const CppSQLite3ResultSet& row, PathRow& path) {
  path = {row.FieldInt(0, 0), row.FieldInt(1, 0), TextAt(row, 2), row.FieldInt(3, 0)};
}

void LoadRecord(const CppSQLite3ResultSet& row, FileRow& file) {
  file = {row.FieldInt(0, 0), row.FieldInt(1, 0), TextAt(row, 2),
          row.FieldInt(3, 0), row.FieldInt(4, 0), {row.FieldInt64(5, 0), row.FieldInt64(6, -1)}};
}

void LoadRecord(const CppSQLite3ResultSet& row, PathNodeRow& path) {
  path = {row.FieldInt(0, 0), row.FieldInt(1, kNoParent), row.FieldInt(2, 0), TextAt(row, 3)};
}

void LoadRecord(const CppSQLite3ResultSet& row, MediaListRow& file) {
  file = {row.FieldInt(0, 0), TextAt(row, 1),     TextAt(row, 2),     TextAt(row, 3),     TextAt(row, 4),
          TextAt(row, 5),     row.FieldInt(6, 0), row.FieldInt(7, 0), row.FieldInt(8, 0), TextAt(row, 9),
          TextAt(row, 10),    TextAt(row, 11),    TextAt(row, 12),    TextAt(row, 13),    row.FieldInt(14, 0)};
}
