#include "ui/CLibraryTree.h"

#include <algorithm>
#include <span>
#include <unordered_map>

#include "base/MessageText.h"
#include "base/NameOrder.h"
#include "catalogue/MediaDB.h"
#include "platform/DriveTable.h"
#include "playlists/PlayListName.h"
#include "scan/ScanCommands.h"
#include "ui/CMediaList.h"
#include "ui/LibraryCommands.h"

namespace {

constexpr platform::TreeItem kNoItem = platform::TreeControl::kNoItem;

}  // namespace

// Every folder of the catalogue, read in one statement and grouped: a
// volume's root folders, and the folders whose ParentID is a given PathID,
// each group in name order, whatever order a scan found them in.
class CLibraryTree::FolderIndex {
 public:
  using Folders = std::span<const PathNodeRow* const>;

  explicit FolderIndex(std::vector<PathNodeRow> rows) : rows_(std::move(rows)) {
    for (const PathNodeRow& row : rows_) {
      if (row.ParentID == -1) roots_[row.VolID].push_back(&row);
      children_[row.ParentID].push_back(&row);
    }
    const NameOrder order;
    const auto byName = [&](const PathNodeRow* a, const PathNodeRow* b) { return order(a->Name, b->Name); };
    for (Groups* groups : {&roots_, &children_})
      for (auto& [key, folders] : *groups) std::sort(folders.begin(), folders.end(), byName);
  }

  Folders RootsOf(int volId) const { return Find(roots_, volId); }
  Folders ChildrenOf(int pathId) const { return Find(children_, pathId); }

 private:
  using Groups = std::unordered_map<int, std::vector<const PathNodeRow*>>;

  static Folders Find(const Groups& groups, int key) {
    const auto found = groups.find(key);
    return found == groups.end() ? Folders() : Folders(found->second);
  }

  std::vector<PathNodeRow> rows_;
  Groups roots_;
  Groups children_;
};

CLibraryTree::CLibraryTree(MediaDB& db, LibraryCommands& commands, CMediaList& list)
    : db_(db), commands_(commands), list_(list) {}

void CLibraryTree::Unbind() {
  if (!controls_) return;
  db_.Events().Unsubscribe(changesToken_);
  changesToken_ = 0;
  controls_.reset();
  current_ = context_ = kNoItem;
}

void CLibraryTree::Bind(const LibraryTreeControls& controls) {
  controls_.emplace(controls);
  changesToken_ = db_.Events().Subscribe([this](const CatalogueChanges& changes) { OnCatalogueChanged(changes); });
}

void CLibraryTree::OnCatalogueChanged(const CatalogueChanges& changes) {
  if (changes.Touches(CatalogueTable::Volumes) || changes.Touches(CatalogueTable::Paths) ||
      changes.Touches(CatalogueTable::PlayLists))
    RebuildInPlace();
}

void CLibraryTree::Clear() {
  Control().DeleteAllItems();
  nodes_.clear();
  current_ = kNoItem;
}

void CLibraryTree::Rebuild() { BuildWith(db_.GetPathNodeRows()); }

void CLibraryTree::RebuildToward(int pathId) { BuildWith(db_.GetPathNodeRowsUpFrom(pathId)); }

void CLibraryTree::BuildWith(std::vector<PathNodeRow> folderRows) {
  Clear();
  BuildRoots();
  const FolderIndex folders(std::move(folderRows));
  const int volumes =
      AddVolumesOfType(platform::kDriveCdRom, folders) + AddVolumesOfType(platform::kDriveFixed, folders);
  AddPlayLists();
  list_.ShowStartHint(volumes == 0);
  for (TreeItem node : {allMedia_, cds_, localDisks_, playLists_}) Control().Expand(node);
}

void CLibraryTree::RebuildInPlace() {
  const Place place = CurrentPlace();
  Rebuild();
  RestorePlace(place);
}

CLibraryTree::Place CLibraryTree::CurrentPlace() const {
  Place place;
  for (const auto& [item, node] : nodes_)
    if (Control().IsExpanded(item)) place.expanded.push_back(node.value);
  for (TreeItem item = SelectedNode(); item != kNoItem;) {
    const auto found = nodes_.find(item);
    if (found == nodes_.end()) break;
    place.selectedLine.push_back(found->second.value);
    item = found->second.parent;
  }
  place.search = list_.ShownSearch();
  return place;
}

void CLibraryTree::RestorePlace(const Place& place) {
  std::unordered_map<std::int32_t, TreeItem> byValue;
  for (const auto& [item, node] : nodes_) {
    const auto [at, added] = byValue.emplace(node.value, item);
    if (!added && item < at->second) at->second = item;  // the first of equal values
  }
  for (std::int32_t value : place.expanded) {
    const auto found = byValue.find(value);
    if (found != byValue.end()) Control().Expand(found->second);
  }
  SelectFirstFound(place, byValue);
}

void CLibraryTree::SelectFirstFound(const Place& place, const std::unordered_map<std::int32_t, TreeItem>& byValue) {
  for (std::int32_t value : place.selectedLine) {
    const auto found = byValue.find(value);
    if (found == byValue.end()) continue;
    SelectNode(found->second);
    Control().EnsureVisible(found->second);
    // Search results are the one list no node's selection fills.
    if (found->second == searchResults_ && place.search) list_.FillWithSearch(*place.search);
    return;
  }
}

platform::TreeItem CLibraryTree::Insert(TreeItem parent, const std::string& label, NodeKind kind, int id) {
  const std::int32_t value = ItemValue(kind, id);
  const TreeItem item = Control().InsertItem(parent, label, value);
  nodes_[item] = Node{parent, value};
  return item;
}

void CLibraryTree::BuildRoots() {
  allMedia_ = Insert(kNoItem, kAllMedia, NodeKind::Root, kAllMediaRoot);
  cds_ = Insert(allMedia_, kCds, NodeKind::Group, kCdsGroup);
  localDisks_ = Insert(allMedia_, kLocalDisks, NodeKind::Group, kLocalDisksGroup);
  Insert(kNoItem, "", NodeKind::Root, kSpacerRoot);
  searchResults_ = Insert(kNoItem, kSearchResults, NodeKind::Root, kSearchResultsRoot);
  Insert(kNoItem, "", NodeKind::Root, kSpacerRoot);
  playLists_ = Insert(kNoItem, kPlayLists, NodeKind::Root, kPlayListsRoot);
}

int CLibraryTree::AddVolumesOfType(int volType, const FolderIndex& folders) {
  // The group follows the type asked for, not the row's own VolType.
  const bool cd = volType == platform::kDriveCdRom;
  int added = 0;
  for (const CMediaVolume& volume : db_.GetVolumesOfType(volType)) {
    const std::string label =
        cd ? volume.DisplayName : FillMessage(kDiskVolumeLabel, {volume.DrvLtr, volume.DisplayName});
    const TreeItem node = Insert(cd ? cds_ : localDisks_, label, NodeKind::Volume, volume.VolID);
    AddFolders(node, folders.RootsOf(volume.VolID), folders);
    ++added;
  }
  return added;
}

void CLibraryTree::AddFolders(TreeItem parent, std::span<const PathNodeRow* const> folders, const FolderIndex& index) {
  for (const PathNodeRow* folder : folders) {
    const TreeItem node = Insert(parent, folder->Name, NodeKind::Folder, folder->PathID);
    AddFolders(node, index.ChildrenOf(folder->PathID), index);
  }
}

void CLibraryTree::AddPlayLists() {
  for (const CPlayList& playList : db_.GetPlayListNames())
    Insert(playLists_, ShownPlayListName(playList.Name), NodeKind::PlayList, playList.PlayListID);
}

DecodedNode CLibraryTree::Decode(TreeItem node) const {
  return node == kNoItem ? DecodedNode{} : DecodeItemValue(Control().ItemValue(node));
}

platform::TreeItem CLibraryTree::SelectedNode() const { return Control().SelectedItem(); }

void CLibraryTree::MarkCurrent(TreeItem node) {
  if (current_ != kNoItem) Control().SetBold(current_, false);
  if (node != kNoItem) Control().SetBold(node, true);
  current_ = node;
}

void CLibraryTree::OnSelectionChanged(TreeItem node) {
  MarkCurrent(node);
  const DecodedNode decoded = Decode(node);
  list_.Clear();
  if (decoded.kind == NodeKind::Folder) list_.FillWithFolder(decoded.id);
  if (decoded.kind == NodeKind::PlayList) list_.FillWithPlayList(decoded.id);
}

void CLibraryTree::SelectNode(TreeItem node) {
  Control().Select(node);
  OnSelectionChanged(node);
}

void CLibraryTree::SelectSearchResults() { SelectNode(searchResults_); }

bool CLibraryTree::ShowFile(int fileId) {
  const auto file = db_.GetFile(fileId);
  if (!file) return false;
  const TreeItem folder = FindNode(ItemValue(NodeKind::Folder, file->PathID));
  if (folder == kNoItem) return false;
  ExpandAncestors(folder);
  SelectNode(folder);
  Control().EnsureVisible(folder);
  list_.SelectFile(fileId);
  return true;
}

platform::TreeItem CLibraryTree::FindNode(std::int32_t value) const {
  TreeItem found = kNoItem;
  for (const auto& [item, node] : nodes_)
    if (node.value == value && (found == kNoItem || item < found)) found = item;
  return found;
}

void CLibraryTree::ExpandAncestors(TreeItem node) {
  for (TreeItem parent = nodes_.at(node).parent; parent != kNoItem; parent = nodes_.at(parent).parent)
    Control().Expand(parent);
}

void CLibraryTree::OnContextMenu(TreeItem hit) {
  context_ = hit;
  if (hit == kNoItem) return;
  SelectNode(hit);
  std::span<const platform::MenuEntry> entries;
  switch (Decode(hit).kind) {
    case NodeKind::Volume:
      entries = kVolumeMenu;
      break;
    case NodeKind::Folder:
      entries = kFolderMenu;
      break;
    case NodeKind::PlayList:
      entries = kPlayListMenu;
      break;
    default:
      return;
  }
  RunCommand(controls_->menu.Track(entries));
}

void CLibraryTree::RunCommand(int command) {
  switch (command) {
    case kVolumeInfo:
      EditVolumeInfo();
      break;
    case kRemove:
      RemoveNode(context_);
      break;
    case kRescan:
      Rescan();
      break;
    case kExport:
      if (const DecodedNode decoded = Decode(context_); decoded.kind == NodeKind::PlayList)
        commands_.ExportPlayList(decoded.id, controls_->filePicker);
      break;
    default:
      break;
  }
}

bool CLibraryTree::RemoveNode(TreeItem node) {
  const DecodedNode decoded = Decode(node);
  switch (decoded.kind) {
    case NodeKind::Volume:
      return commands_.RemoveVolume(decoded.id);
    case NodeKind::Folder:
      return commands_.RemoveFolder(decoded.id);
    case NodeKind::PlayList:
      return commands_.RemovePlayList(decoded.id);
    default:
      return false;
  }
}

bool CLibraryTree::EditVolumeInfo() {
  const DecodedNode decoded = Decode(context_);
  if (decoded.kind != NodeKind::Volume) return false;
  return commands_.EditVolume(decoded.id, controls_->volumeInfo);
}

// Each scan goes through the scan entry point, which rebuilds the tree when
// its dialog closes; so the last rebuild follows the last scan.
void CLibraryTree::Rescan() {
  const DecodedNode decoded = Decode(context_);
  if (decoded.kind == NodeKind::Volume) commands_.RescanVolume(decoded.id, controls_->scans);
  if (decoded.kind == NodeKind::Folder) commands_.RescanFolder(decoded.id, controls_->scans);
}
