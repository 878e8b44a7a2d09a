#pragma once
// The library tree: the main window's left pane. Seven fixed nodes ("All
// Media" with "CDs" and "Local Disks", a spacer, "Search Results", a spacer,
// "Play Lists"), the CD and disk volumes with their folders, and the stored
// play lists. Each node's item value tells what it stands for (NodeValue.h).
// The tree keeps no catalogue rows: it is rebuilt whole after every change
// and never updated in place. The start-up build shows the default
// expansion; a rebuild after something the user did keeps its place (the
// expanded nodes, the selection and what the list shows). One object for the process, bound to its controls by the main
// window. User-interface thread only; catalogue failures end the process.

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/PopupMenu.h"
#include "platform/TreeControl.h"
#include "ui/NodeValue.h"

class CatalogueChanges;
class CMediaList;
class LibraryCommands;
class MediaDB;
class ScanCommands;
class VolumeInfoView;
struct PathNodeRow;

namespace platform {
class FilePicker;
}

// What the tree works on; all must outlive the binding.
struct LibraryTreeControls {
  platform::TreeControl& tree;
  platform::PopupMenu& menu;
  VolumeInfoView& volumeInfo;
  ScanCommands& scans;               // the scan entry point, for "rescan"
  platform::FilePicker& filePicker;  // "Export…" of a play list
};

class CLibraryTree {
 public:
  enum Command : int { kVolumeInfo = 9001, kRemove = 9002, kRescan = 9003, kExport = 9004 };
  using TreeItem = platform::TreeItem;

  static constexpr const char* kAllMedia = "All Media";
  static constexpr const char* kCds = "CDs";
  static constexpr const char* kLocalDisks = "Local Disks";
  static constexpr const char* kSearchResults = "Search Results";
  static constexpr const char* kPlayLists = "Play Lists";
  static constexpr const char* kDiskVolumeLabel = "[%s:] %s";

  static constexpr std::array<platform::MenuEntry, 3> kVolumeMenu{
      {{kVolumeInfo, "Vol Info / Edit"}, {kRemove, "remove"}, {kRescan, "rescan"}}};
  static constexpr std::array<platform::MenuEntry, 2> kFolderMenu{{{kRemove, "remove"}, {kRescan, "rescan"}}};
  static constexpr std::array<platform::MenuEntry, 2> kPlayListMenu{{{kRemove, "remove"}, {kExport, "Export…"}}};

  // list: the media list that a selection fills; commands: what the menu's
  // entries do.
  CLibraryTree(MediaDB& db, LibraryCommands& commands, CMediaList& list);

  // Every other operation needs the controls bound first. While bound, the
  // tree follows the catalogue change event: a change to the volumes, the
  // folders or the play lists (a scan, a removal, an edit, a saved play
  // list) rebuilds it in place.
  void Bind(const LibraryTreeControls& controls);
  // Lets go of the controls; the binder calls it before they go away.
  void Unbind();

  void Clear();
  // The whole tree (and the list's start hint while no volume shows) from the catalogue, in its default expansion.
  void Rebuild();
  // The tree as Rebuild makes it, but of the folders only the one given and
  // those above it (none for -1): enough to select it, at a cost that does
  // not grow with the library. For a one-off look (the console's).
  void RebuildToward(int pathId);
  // Rebuild, then the nodes that were expanded and still exist expanded
  // again, and the selected node (or, when it is gone, its nearest remaining
  // ancestor) selected, scrolled into view and shown in the list. Nodes are
  // matched by their item values.
  void RebuildInPlace();

  DecodedNode Decode(TreeItem node) const;
  TreeItem SelectedNode() const;
  TreeItem CurrentNode() const { return current_; }
  // Bold moves to the node, which becomes current.
  void MarkCurrent(TreeItem node);

  // The control's selection changed (TVN_SELCHANGED): the node becomes
  // current, the list is emptied and, for a folder or a play list, filled.
  void OnSelectionChanged(TreeItem node);
  // Selects the node and runs the selection steps.
  void SelectNode(TreeItem node);
  void SelectSearchResults();
  // "Show in Library": the file's folder selected (its ancestors expanded,
  // scrolled into view), which fills the list, and then the file's row
  // selected. False, with nothing changed, when the file or its folder's
  // node is gone.
  bool ShowFile(int fileId);

  // A context-menu request with the node hit, or kNoItem: the node becomes
  // the context node, is selected, and its kind's menu (if any) is shown and
  // the choice carried out.
  void OnContextMenu(TreeItem hit);
  void RunCommand(int command);

  // Asks the kind's question and, on OK, removes the node's rows (the
  // Delete key on the selected node, "remove" on the context node); the
  // tree rebuilds on the change. Groups, roots and kNoItem ask nothing.
  // Returns whether anything was removed.
  bool RemoveNode(TreeItem node);
  // "Vol Info / Edit" on the context node; on Update writes the display name
  // and description. Returns whether Update was pressed.
  bool EditVolumeInfo();
  // "rescan" on the context node: a CD volume after asking for its disc in
  // the CD drive, a disk volume root folder by root folder, or one folder.
  void Rescan();

 private:
  class FolderIndex;
  struct Node {
    TreeItem parent;
    std::int32_t value;
  };
  // Where the user was: what a rebuild in place gives back.
  struct Place {
    std::vector<std::int32_t> expanded;
    std::vector<std::int32_t> selectedLine;  // the selected node's value, then its ancestors'
    std::optional<std::string> search;       // the text whose results the list showed
  };

  Place CurrentPlace() const;
  void RestorePlace(const Place& place);
  void SelectFirstFound(const Place& place, const std::unordered_map<std::int32_t, TreeItem>& byValue);

  void BuildRoots();
  void BuildWith(std::vector<PathNodeRow> folderRows);
  // Returns the number of volumes added.
  int AddVolumesOfType(int volType, const FolderIndex& folders);
  void AddFolders(TreeItem parent, std::span<const PathNodeRow* const> folders, const FolderIndex& index);
  void AddPlayLists();
  TreeItem Insert(TreeItem parent, const std::string& label, NodeKind kind, int id);
  // The first node of the last build with this item value, or kNoItem.
  TreeItem FindNode(std::int32_t value) const;
  void ExpandAncestors(TreeItem node);
  void OnCatalogueChanged(const CatalogueChanges& changes);
  platform::TreeControl& Control() const { return controls_->tree; }

  MediaDB& db_;
  LibraryCommands& commands_;
  CMediaList& list_;
  std::optional<LibraryTreeControls> controls_;
  std::unordered_map<TreeItem, Node> nodes_;  // every node of the last build
  TreeItem allMedia_ = platform::TreeControl::kNoItem;
  TreeItem cds_ = platform::TreeControl::kNoItem;
  TreeItem localDisks_ = platform::TreeControl::kNoItem;
  TreeItem searchResults_ = platform::TreeControl::kNoItem;
  TreeItem playLists_ = platform::TreeControl::kNoItem;
  TreeItem context_ = platform::TreeControl::kNoItem;
  TreeItem current_ = platform::TreeControl::kNoItem;
  int changesToken_ = 0;
};
