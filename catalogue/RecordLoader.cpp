#include "catalogue/RecordLoader.h"

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
