#include "ui/CMediaList.h"

#include <algorithm>
#include <cstdio>

#include "base/LengthText.h"
#include "base/MessageText.h"
#include "dialogs/CFileInfoDlg.h"
#include "platform/DriveTable.h"
#include "platform/ListControl.h"
#include "playlists/CPlayListModel.h"
#include "playlists/FileIds.h"

namespace {

constexpr int kRatingWidth = 10;

const std::string& UserOrTag(const std::string& user, const std::string& tag) {
  return user.empty() ? tag : user;
}

// Ten characters: as many "*" as the rating, the rest blanks.
std::string RatingText(int rating) {
  const int stars = std::clamp(rating, 0, kRatingWidth);
  return std::string(stars, '*') + std::string(kRatingWidth - stars, ' ');
}

std::string LengthText(int seconds) { return MinutesAndSeconds(seconds, 2); }

std::string VolumeText(const MediaListRow& row) {
  return row.VolType == platform::kDriveCdRom ? row.DisplayName : FillMessage("[drive %s:]", {row.DrvLtr});
}

MediaListRow ListRowOf(const CMediaFile& file, const CMediaVolume* volume) {
  MediaListRow row{file.FileID, file.Title,  file.id3Title, file.Artist, file.id3Artist,
                   file.FileName, file.Rating, file.Length, 0, "", ""};
  if (volume) {
    row.VolType = volume->VolType;
    row.DisplayName = volume->DisplayName;
    row.DrvLtr = volume->DrvLtr;
  }
  return row;
}

// A user text takes the edit only when the edit differs from the tag's text:
// an unedited text never copies the tag into the user's field.
void TakeEdit(std::string& user, const std::string& tag, const std::string& edited) {
  if (edited != tag) user = edited;
}

}  // namespace

CMediaList::CMediaList(MediaDB& db, CPlayListModel& playList) : db_(db), playList_(playList) {}

void CMediaList::Bind(const MediaListControls& controls) {
  controls_.emplace(controls);
  platform::ListControl& list = controls.list;
  list.SetExtendedStyle(list.ExtendedStyle() | platform::ListControl::kGridLines |
                        platform::ListControl::kFullRowSelect | kHeaderDragDrop);
}

void CMediaList::CreateColumns() {
  for (std::size_t column = 0; column < kColumns.size(); ++column)
    controls_->list.InsertColumn(static_cast<int>(column), kColumns[column].heading,
                                 kColumns[column].width);
}

void CMediaList::Clear() { controls_->list.DeleteAllRows(); }

void CMediaList::AppendRow(const MediaListRow& row) {
  controls_->list.AppendRow({UserOrTag(row.Title, row.id3Title), UserOrTag(row.Artist, row.id3Artist),
                             row.FileName, RatingText(row.Rating), LengthText(row.Length),
                             VolumeText(row)},
                            static_cast<std::uint32_t>(row.FileID));
}

void CMediaList::AddRow(const CMediaFile& file) {
  const auto volume = db_.GetVolume(file.VolID);
  AppendRow(ListRowOf(file, volume.get()));
}

void CMediaList::FillWithFolder(int pathId) {
  for (const MediaListRow& row : db_.GetFolderListRows(pathId)) AppendRow(row);
}

void CMediaList::FillWithPlayList(int playListId) {
  const auto playList = db_.GetPlayList(playListId);
  if (!playList) return;
  for (std::uint32_t id : ParseIdList(playList->FileIDs))
    if (const auto file = db_.GetFile(static_cast<int>(id))) AddRow(*file);
}

void CMediaList::FillWithSearch(const std::string& text) {
  for (const MediaListRow& row : db_.SearchListRows(text)) AppendRow(row);
}

void CMediaList::SelectAll() { controls_->list.SelectAll(); }

IdList CMediaList::SelectedFileIds() const { return GetFileIds(controls_->list, true); }

void CMediaList::AddSelectedToPlayList() { playList_.AddFiles(SelectedFileIds()); }

bool CMediaList::EditFileInfo() {
  const IdList selected = SelectedFileIds();
  if (selected.empty()) return false;
  const auto file = db_.GetFile(static_cast<int>(selected.front()));
  if (!file) return false;

  CFileInfoDlg dialog(controls_->fileInfo);
  dialog.fileName = file->FileName;
  dialog.title = UserOrTag(file->Title, file->id3Title);
  dialog.artist = UserOrTag(file->Artist, file->id3Artist);
  dialog.album = UserOrTag(file->Album, file->id3Album);
  dialog.comment = UserOrTag(file->Comment, file->id3Comment);
  dialog.length = file->Length;
  dialog.bitRate = file->BitRate;
  dialog.sampleRate = file->SampleRate;
  dialog.channels = file->Channels;
  dialog.rating = file->Rating;
  if (dialog.DoModal() != kDialogOk) return false;

  TakeEdit(file->Title, file->id3Title, dialog.title);
  TakeEdit(file->Artist, file->id3Artist, dialog.artist);
  TakeEdit(file->Album, file->id3Album, dialog.album);
  TakeEdit(file->Comment, file->id3Comment, dialog.comment);
  file->Rating = dialog.rating;
  db_.UpdateFileUserInfo(*file);
  return true;
}

bool CMediaList::OnContextMenu() {
  switch (controls_->menu.Track(kMenu)) {
    case kAddToPlayList: AddSelectedToPlayList(); return false;
    case kFileInfo: return EditFileInfo();
    default: return false;
  }
}

std::pair<std::string, std::string> CMediaList::SongAndArtist(int fileId) const {
  const auto file = db_.GetFile(fileId);
  if (!file) return {};
  return {UserOrTag(file->Title, file->id3Title), UserOrTag(file->Artist, file->id3Artist)};
}
