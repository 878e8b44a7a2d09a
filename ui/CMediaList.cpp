#include "ui/CMediaList.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <unordered_map>
#include <variant>

#include "base/AsciiCase.h"
#include "base/LengthText.h"
#include "base/MessageText.h"
#include "dialogs/CFileInfoDlg.h"
#include "platform/DriveTable.h"
#include "platform/ListControl.h"
#include "playlists/CPlayListModel.h"
#include "playlists/FileIds.h"

namespace {

constexpr int kRatingWidth = 10;
constexpr int kColumnPadding = 16;  // room for the cell's margins and the sort arrow

// Ten characters: as many "*" as the rating, the rest blanks.
std::string RatingText(int rating) {
  const int stars = std::clamp(rating, 0, kRatingWidth);
  return std::string(stars, '*') + std::string(kRatingWidth - stars, ' ');
}

std::string LengthText(int seconds) { return MinutesAndSeconds(seconds, 2); }

std::string VolumeText(const MediaListRow& row) {
  return row.VolType == platform::kDriveCdRom ? row.DisplayName : FillMessage("[drive %s:]", {row.DrvLtr});
}

// The volume as the Volume column words it, then the folder's stored path:
// "[drive C:] \Music\Rock\".
std::string FolderText(const MediaListRow& row) {
  if (row.FullPath.empty()) return VolumeText(row);
  return VolumeText(row) + " " + row.FullPath;
}

std::string TrackText(int track) { return track > 0 ? std::to_string(track) : ""; }

std::vector<std::string> RowTexts(const MediaListRow& row) {
  return {UserOrTag(row.Title, row.id3Title),
          UserOrTag(row.Artist, row.id3Artist),
          row.FileName,
          RatingText(row.Rating),
          LengthText(row.Length),
          VolumeText(row),
          FolderText(row),
          UserOrTag(row.Album, row.id3Album),
          TrackText(row.Track)};
}

MediaListRow ListRowOf(const CMediaFile& file, const CMediaVolume* volume, const std::string& fullPath) {
  MediaListRow row{
      file.FileID, file.Title, file.id3Title, file.Artist, file.id3Artist, file.FileName, file.Rating, file.Length, 0,
      "",          "",         fullPath,      file.Album,  file.id3Album,  file.Track};
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

// What a row sorts by in a column: a number for Rating (stars) and Length
// (seconds), the text in lower case for the others.
using SortKey = std::variant<int, std::string>;

int StarsOf(const std::string& ratingText) {
  return static_cast<int>(std::count(ratingText.begin(), ratingText.end(), '*'));
}

int SecondsOf(const std::string& lengthText) {
  int minutes = 0, seconds = 0;
  if (std::sscanf(lengthText.c_str(), "%d:%d", &minutes, &seconds) != 2) return 0;
  return minutes * 60 + seconds;
}

SortKey KeyOf(int column, const std::string& text) {
  if (column == CMediaList::kRating) return StarsOf(text);
  if (column == CMediaList::kLength) return SecondsOf(text);
  if (column == CMediaList::kTrack) return std::atoi(text.c_str());
  return AsciiLower(text);
}

}  // namespace

CMediaList::CMediaList(MediaDB& db, CPlayListModel& playList) : db_(db), playList_(playList) {}

void CMediaList::Bind(const MediaListControls& controls) {
  controls_.emplace(controls);
  platform::ListControl& list = controls.list;
  list.SetExtendedStyle(list.ExtendedStyle() | platform::ListControl::kGridLines |
                        platform::ListControl::kFullRowSelect | kHeaderDragDrop);
  changesToken_ = db_.Events().Subscribe([this](const CatalogueChanges& changes) { OnCatalogueChanged(changes); });
}

void CMediaList::Unbind() {
  db_.Events().Unsubscribe(changesToken_);
  changesToken_ = 0;
  controls_.reset();
}

void CMediaList::OnCatalogueChanged(const CatalogueChanges& changes) {
  if (!changes.Touches(CatalogueTable::Files)) return;
  // The tree fills the list again after these.
  if (changes.Touches(CatalogueTable::Volumes) || changes.Touches(CatalogueTable::Paths) ||
      changes.Touches(CatalogueTable::PlayLists))
    return;
  platform::ListControl& list = controls_->list;
  IdList changed;
  for (int row = 0; row < list.RowCount(); ++row)
    if (changes.Touches(CatalogueTable::Files, list.RowValue(row))) changed.push_back(list.RowValue(row));
  if (changed.empty()) return;
  std::sort(changed.begin(), changed.end());
  changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
  const std::vector<MediaListRow> rows = db_.FileListRows(changed);
  std::unordered_map<std::int32_t, const MediaListRow*> byId;
  for (const MediaListRow& row : rows) byId.emplace(row.FileID, &row);
  for (int row = list.RowCount() - 1; row >= 0; --row) {
    if (!changes.Touches(CatalogueTable::Files, list.RowValue(row))) continue;
    const auto now = byId.find(list.RowValue(row));
    if (now == byId.end())
      list.DeleteRow(row);
    else
      list.SetRowTexts(row, RowTexts(*now->second));
  }
}

void CMediaList::CreateColumns() {
  platform::ListControl& list = controls_->list;
  for (std::size_t column = 0; column < kColumns.size(); ++column) {
    const std::string heading = kColumns[column].heading;
    int width = std::max(kColumns[column].width, list.TextWidth(heading) + kColumnPadding);
    if (column == kRating) width = std::max(width, list.TextWidth(std::string(kRatingWidth, '*')) + kColumnPadding);
    list.InsertColumn(static_cast<int>(column), heading, width);
  }
  for (Column optional : kOptionalColumns) list.SetColumnHidden(optional, true);
  ShowFolderColumn(false);
}

void CMediaList::ShowFolderColumn(bool show) { controls_->list.SetColumnHidden(kFolder, !show); }

void CMediaList::Clear() {
  controls_->list.DeleteAllRows();
  shownSearch_.reset();
}

int CMediaList::RowCount() const { return controls_->list.RowCount(); }

void CMediaList::ShowStartHint(bool show) { controls_->list.SetEmptyText(show ? kStartHint : ""); }

void CMediaList::SortBy(int column) {
  if (column < 0 || column >= static_cast<int>(kColumns.size())) return;
  sortAscending_ = column == sortColumn_ ? !sortAscending_ : true;
  sortColumn_ = column;
  controls_->list.SetSortIndicator(sortColumn_, sortAscending_);
  ApplySort();
}

void CMediaList::ApplySort() {
  if (sortColumn_ < 0) return;
  platform::ListControl& list = controls_->list;
  const int rows = list.RowCount();
  std::vector<SortKey> keys;
  keys.reserve(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) keys.push_back(KeyOf(sortColumn_, list.RowText(row, sortColumn_)));
  std::vector<int> order(static_cast<std::size_t>(rows));
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
    const SortKey& first = keys[static_cast<std::size_t>(sortAscending_ ? a : b)];
    const SortKey& second = keys[static_cast<std::size_t>(sortAscending_ ? b : a)];
    return first < second;
  });
  list.ReorderRows(order);
}

void CMediaList::AppendRow(const MediaListRow& row) { controls_->list.AppendRow(RowTexts(row), row.FileID); }

void CMediaList::AddRow(const CMediaFile& file) {
  const auto volume = db_.GetVolume(file.VolID);
  AppendRow(ListRowOf(file, volume.get(), db_.GetPathFullPath(file.PathID)));
}

void CMediaList::FillWithFolder(int pathId) {
  ShowFolderColumn(false);
  for (const MediaListRow& row : db_.GetFolderListRows(pathId)) AppendRow(row);
  ApplySort();
}

void CMediaList::FillWithPlayList(int playListId) {
  const auto playList = db_.GetPlayList(playListId);
  if (!playList) return;
  ShowFolderColumn(true);
  // Ids without a file row are passed over.
  AppendRowsOf(db_.ExistingFileIds(ParseIdList(playList->FileIDs)));
  ApplySort();
}

void CMediaList::FillWithSearch(const std::string& text) {
  ShowFolderColumn(true);
  AppendRowsOf(db_.SearchFileIds(text));
  shownSearch_ = text;
  ApplySort();
}

// A list of any length shows at once: its rows' texts are read as they come
// into view.
void CMediaList::AppendRowsOf(const IdList& fileIds) {
  controls_->list.AppendRowsByValue(fileIds, [this](const IdList& ids) { return TextsOf(ids); });
}

std::vector<std::vector<std::string>> CMediaList::TextsOf(const IdList& fileIds) const {
  if (db_.HeldByWorker()) return {};  // asked again once the worker is done
  const std::vector<MediaListRow> rows = db_.FileListRows(fileIds);
  std::unordered_map<std::int32_t, const MediaListRow*> byId;
  for (const MediaListRow& row : rows) byId.emplace(row.FileID, &row);
  std::vector<std::vector<std::string>> texts(fileIds.size());
  for (std::size_t i = 0; i < fileIds.size(); ++i)
    if (const auto found = byId.find(fileIds[i]); found != byId.end()) texts[i] = RowTexts(*found->second);
  return texts;
}

void CMediaList::SelectAll() { controls_->list.SelectAll(); }

IdList CMediaList::SelectedFileIds() const { return GetFileIds(controls_->list, true); }

IdList CMediaList::AllFileIds() const { return GetFileIds(controls_->list, false); }

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
  dialog.type = file->Type;
  dialog.fileId = file->FileID;
  if (locate_) dialog.locateCover = locate_(file->FileID);
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
    case kAddToPlayList:
      AddSelectedToPlayList();
      return false;
    case kFileInfo:
      return EditFileInfo();
    case kShowInLibrary:
      ShowFirstSelectedInLibrary();
      return false;
    default:
      return false;
  }
}

void CMediaList::ShowFirstSelectedInLibrary() {
  const IdList selected = SelectedFileIds();
  if (!selected.empty() && showInLibrary_) showInLibrary_(selected.front());
}

bool CMediaList::SelectFile(int fileId) {
  platform::ListControl& list = controls_->list;
  for (int row = 0; row < list.RowCount(); ++row)
    if (list.RowValue(row) == fileId) {
      list.SelectOnly(row);
      return true;
    }
  return false;
}

void CMediaList::OnHeaderContextMenu() {
  platform::ListControl& list = controls_->list;
  std::vector<platform::MenuEntry> entries;
  for (Column column : kOptionalColumns)
    entries.push_back({kToggleColumn + column, kColumns[column].heading, true, !list.IsColumnHidden(column)});
  const int column = controls_->menu.Track(entries) - kToggleColumn;
  if (std::find(kOptionalColumns.begin(), kOptionalColumns.end(), column) == kOptionalColumns.end()) return;
  list.SetColumnHidden(column, !list.IsColumnHidden(column));
}

std::pair<std::string, std::string> CMediaList::SongAndArtist(int fileId) const {
  const auto file = db_.GetFile(fileId);
  if (!file) return {};
  return {UserOrTag(file->Title, file->id3Title), UserOrTag(file->Artist, file->id3Artist)};
}
