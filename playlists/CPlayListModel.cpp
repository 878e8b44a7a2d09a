#include "playlists/CPlayListModel.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "base/LengthText.h"
#include "platform/ListControl.h"
#include "playlists/CataloguedFiles.h"
#include "playlists/FileIds.h"
#include "playlists/PlayListFiles.h"

std::vector<std::string> PlayListRowTexts(const MediaListRow& file) {
  const std::string& title = UserOrTag(file.Title, file.id3Title);
  const std::string& artist = UserOrTag(file.Artist, file.id3Artist);
  return {title.empty() ? file.FileName : title, artist, MinutesAndSeconds(file.Length)};
}

IdList GetFileIds(const platform::ListControl& list, bool selectedOnly) {
  IdList ids;
  for (int row = 0; row < list.RowCount(); ++row)
    if (!selectedOnly || list.IsSelected(row)) ids.push_back(list.RowValue(row));
  return ids;
}

CPlayListModel::CPlayListModel(MediaDB& db) : db_(db) {}

CPlayListModel::~CPlayListModel() { DetachList(); }

void CPlayListModel::AttachList(platform::ListControl& list) {
  DetachList();
  list_ = &list;
  list.SetExtendedStyle(list.ExtendedStyle() | platform::ListControl::kFullRowSelect |
                        platform::ListControl::kGridLines);
  changesToken_ = db_.Events().Subscribe([this](const CatalogueChanges& changes) { OnCatalogueChanged(changes); });
}

void CPlayListModel::DetachList() {
  db_.Events().Unsubscribe(changesToken_);
  changesToken_ = 0;
  list_ = nullptr;
}

// The changed rows' texts are read in one statement; rows whose file went are removed.
void CPlayListModel::OnCatalogueChanged(const CatalogueChanges& changes) {
  if (!changes.Touches(CatalogueTable::Files)) return;
  const IdList all = GetFileIds(false);
  IdList changed;
  std::copy_if(all.begin(), all.end(), std::back_inserter(changed),
               [&changes](std::int32_t id) { return changes.Touches(CatalogueTable::Files, id); });
  if (changed.empty()) return;
  std::unordered_map<std::int32_t, std::vector<std::string>> texts;
  for (const MediaListRow& file : db_.FileListRows(changed)) texts.emplace(file.FileID, PlayListRowTexts(file));
  for (int row = list_->RowCount() - 1; row >= 0; --row) {
    const std::int32_t id = list_->RowValue(row);
    if (!changes.Touches(CatalogueTable::Files, id)) continue;
    if (const auto found = texts.find(id); found != texts.end())
      list_->SetRowTexts(row, found->second);
    else
      list_->DeleteRow(row);
  }
}

void CPlayListModel::InsertColumns() {
  if (!list_) return;
  for (std::size_t column = 0; column < kColumns.size(); ++column)
    list_->InsertColumn(static_cast<int>(column), kColumns[column].heading, kColumns[column].width);
}

std::unordered_set<std::int32_t> CPlayListModel::ListedIds() const {
  std::unordered_set<std::int32_t> ids;
  if (!list_) return ids;
  ids.reserve(static_cast<std::size_t>(list_->RowCount()));
  for (int row = 0; row < list_->RowCount(); ++row) ids.insert(list_->RowValue(row));
  return ids;
}

IdList CPlayListModel::NotListedYet(const IdList& fileIds) const {
  // One set for the whole call: adding n files to m rows costs n + m, not n * m.
  std::unordered_set<std::int32_t> listed = ListedIds();
  IdList fresh;
  for (std::int32_t id : fileIds)
    if (listed.insert(id).second) fresh.push_back(id);
  return fresh;
}

// The files' texts come in one statement and the rows go to the list in one batch.
void CPlayListModel::AddFiles(const IdList& fileIds) {
  if (!list_) return;
  const std::vector<MediaListRow> files = db_.FileListRows(NotListedYet(fileIds));
  std::vector<platform::ListControl::AddedRow> rows;
  rows.reserve(files.size());
  for (const MediaListRow& file : files) rows.push_back({PlayListRowTexts(file), file.FileID});
  list_->AppendRows(std::move(rows));
}

void CPlayListModel::RestoreQueue() {
  if (list_ == nullptr) return;
  const MediaDB::Queue queue = db_.GetQueue();
  const int before = list_->RowCount();
  AddFiles(queue.files);
  if (queue.playingRow < 0) return;
  const IdList rows = GetFileIds(false);
  const auto found =
      std::find(rows.begin() + before, rows.end(), queue.files[static_cast<std::size_t>(queue.playingRow)]);
  if (found != rows.end()) list_->SelectOnly(static_cast<int>(found - rows.begin()));
}

void CPlayListModel::KeepQueue(int playingRow) {
  if (list_ == nullptr || db_.IsReadOnly()) return;
  db_.SaveQueue(GetFileIds(false), playingRow);
}

IdList CPlayListModel::GetFileIds(bool selectedOnly) const {
  return list_ ? ::GetFileIds(*list_, selectedOnly) : IdList{};
}

int CPlayListModel::AddLocalFiles(const std::vector<std::string>& localPaths, const CDriveServices& drives) {
  const CataloguedFiles found = FindCataloguedFiles(db_, drives, localPaths);
  AddFiles(found.fileIds);
  return static_cast<int>(found.notCatalogued.size());
}

PlayListFileImport CPlayListModel::AddFilesListedIn(const std::string& path, const CDriveServices& drives) {
  PlayListFileImport imported = ImportPlayListFile(db_, drives, path);
  AddFiles(imported.found.fileIds);
  return imported;
}

PlayListFileExport CPlayListModel::ExportRows(const std::string& path, const CDriveServices& drives,
                                              const std::string& cdDrive) {
  return ExportPlayListFile(db_, drives, cdDrive, GetFileIds(false), path);
}

void CPlayListModel::MoveRows(std::vector<int> rows, int before) {
  if (!list_) return;
  const int count = list_->RowCount();
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  rows.erase(std::remove_if(rows.begin(), rows.end(), [count](int row) { return row < 0 || row >= count; }),
             rows.end());
  if (rows.empty()) return;
  // The rows that stay, with the moved ones put in where `before` falls among them.
  std::vector<int> order;
  for (int row = 0; row < count; ++row)
    if (!std::binary_search(rows.begin(), rows.end(), row)) order.push_back(row);
  const auto staysAbove = std::count_if(order.begin(), order.end(), [before](int row) { return row < before; });
  order.insert(order.begin() + staysAbove, rows.begin(), rows.end());
  list_->ReorderRows(order);
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

int StorePlayList(MediaDB& db, const std::string& name, const IdList& fileIds) {
  CPlayList playList;
  playList.Name = name;
  playList.FileIDs = BuildIdList(fileIds);
  return db.AddPlayList(playList);
}

int CPlayListModel::SavePlayList(const std::string& name) { return StorePlayList(db_, name, GetFileIds(false)); }

void CPlayListModel::RemoveAllRows() {
  if (list_ != nullptr) list_->DeleteAllRows();
}
