#include "playlists/CPlayListModel.h"

#include "platform/ListControl.h"
#include "playlists/FileIds.h"

std::string SongLabel(const CMediaFile& file) {
  const std::string& title = file.Title.empty() ? file.id3Title : file.Title;
  const std::string& artist = file.Artist.empty() ? file.id3Artist : file.Artist;
  if (title.empty() || artist.empty() || artist == "Unknown Artist") return file.FileName;
  return artist + " - " + title;
}

IdList GetFileIds(const platform::ListControl& list, bool selectedOnly) {
  IdList ids;
  for (int row = 0; row < list.RowCount(); ++row)
    if (!selectedOnly || list.IsSelected(row)) ids.push_back(list.RowValue(row));
  return ids;
}

CPlayListModel::CPlayListModel(MediaDB& db) : db_(db) {}

void CPlayListModel::AttachList(platform::ListControl& list) {
  list_ = &list;
  list.SetExtendedStyle(list.ExtendedStyle() | platform::ListControl::kFullRowSelect |
                        platform::ListControl::kGridLines);
}

void CPlayListModel::DetachList() { list_ = nullptr; }

void CPlayListModel::InsertColumns() {
  if (list_) list_->InsertColumn(0, kSongColumn, kSongColumnWidth);
}

bool CPlayListModel::Contains(std::uint32_t fileId) const {
  if (!list_) return false;
  for (int row = 0; row < list_->RowCount(); ++row)
    if (list_->RowValue(row) == fileId) return true;
  return false;
}

void CPlayListModel::AddFile(const CMediaFile& file) {
  if (list_) list_->AppendRow({SongLabel(file)}, static_cast<std::uint32_t>(file.FileID));
}

void CPlayListModel::AddFiles(const IdList& fileIds) {
  for (std::uint32_t id : fileIds) {
    if (Contains(id)) continue;
    if (const auto file = db_.GetFile(static_cast<int>(id))) AddFile(*file);
  }
}

IdList CPlayListModel::GetFileIds(bool selectedOnly) const {
  return list_ ? ::GetFileIds(*list_, selectedOnly) : IdList{};
}

void CPlayListModel::RemoveSelectedRows() {
  if (!list_) return;
  for (int row = 0; row < list_->RowCount();) {
    if (list_->IsSelected(row))
      list_->DeleteRow(row);
    else
      ++row;
  }
}

void CPlayListModel::SelectAllRows() {
  if (list_) list_->SelectAll();
}

int CPlayListModel::SavePlayList(const std::string& name) {
  CPlayList playList;
  playList.Name = name;
  playList.FileIDs = BuildIdList(GetFileIds(false));
  return db_.AddPlayList(playList);
}

void CPlayListModel::RemoveAllRows() {
  if (list_ != nullptr) list_->DeleteAllRows();
}
