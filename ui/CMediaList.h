#pragma once
// The media list: the main window's right pane, one row per catalogue file,
// each row carrying its FileID. The Folder column shows with search results
// and play lists, whose rows come from many folders, and hides with a
// folder's files; Album and Track show when the user asks for them from the
// headings' menu (the list control keeps which do, and the column layout
// stores it). It keeps no rows of the catalogue: every fill
// reads them afresh and keeps the catalogue's order, until the user clicks a
// column heading: from then on every fill is sorted by that column. No fill
// empties the list; callers Clear first. While bound it follows the
// catalogue change event: rows of changed files show their new texts in
// place, rows of removed files go. Changes to volumes, folders or play lists
// reach it through the tree, which fills it again.
// One object for the process; bound to its controls by the main window.
// User-interface thread only; catalogue failures end the process (MediaDB).

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "catalogue/MediaDB.h"
#include "platform/PopupMenu.h"

class CPlayListModel;
class FileInfoView;

namespace platform {
class ListControl;
}

struct MediaListColumn {
  const char* heading;
  int width;
};

// What the media list works on; all must outlive the binding.
struct MediaListControls {
  platform::ListControl& list;
  platform::PopupMenu& menu;
  FileInfoView& fileInfo;
};

class CMediaList {
 public:
  enum Command : int { kAddToPlayList = 9010, kFileInfo = 9011, kShowInLibrary = 9012 };
  // The headings' menu: this plus the column's number shows or hides it.
  static constexpr int kToggleColumn = 9100;
  // The list control's extended style bit that lets the user drag columns.
  static constexpr unsigned kHeaderDragDrop = 0x10;

  // Numbered in the order they came, so that stored layouts keep naming
  // the same columns.
  static constexpr std::array<MediaListColumn, 9> kColumns{{
      {"Song", 100},
      {"Artist", 100},
      {"FileName", 160},
      {"Rating", 50},
      {"Length", 50},
      {"Volume", 80},
      {"Folder", 200},
      {"Album", 120},
      {"Track", 40},
  }};
  enum Column : int { kSong, kArtist, kFileName, kRating, kLength, kVolume, kFolder, kAlbum, kTrack };
  // The columns the user shows or hides; hidden until asked for.
  static constexpr std::array<Column, 2> kOptionalColumns{kAlbum, kTrack};
  static constexpr const char* kStartHint = "Add a CD or a folder to begin";
  static constexpr std::array<platform::MenuEntry, 3> kMenu{{
      {kAddToPlayList, "Add To PlayList"},
      {kFileInfo, "File Info / Edit"},
      {kShowInLibrary, "Show in Library"},
  }};

  // playList: the play list window's model, which "Add To PlayList" appends to.
  CMediaList(MediaDB& db, CPlayListModel& playList);

  // Every other operation needs the controls bound first. Adds grid lines,
  // full-row selection and column dragging to the list's style.
  void Bind(const MediaListControls& controls);
  // How File Info finds a file for its cover: read on this thread, it gives
  // a function that any thread may call for the file's full path when its
  // volume is at hand ("" otherwise); it must never ask for a disc.
  using Locator = std::function<std::string()>;
  void LocateFilesWith(std::function<Locator(int fileId)> locate) { locate_ = std::move(locate); }
  // What "Show in Library" does with the file of the first selected row.
  void ShowInLibraryWith(std::function<void(int fileId)> show) { showInLibrary_ = std::move(show); }
  // Lets go of the controls; the binder calls it before they go away.
  void Unbind();
  // The columns, each at least as wide as its heading; the rating's as
  // wide as ten stars. Folder, Album and Track start hidden.
  void CreateColumns();

  void Clear();
  int RowCount() const;
  // Appends the file's row; its volume row is read for the Volume column.
  void AddRow(const CMediaFile& file);
  // The folder's own files, not its sub-folders'.
  void FillWithFolder(int pathId);
  // The play list's files in its order, an id listed twice giving two rows;
  // ids without a file row are passed over.
  void FillWithPlayList(int playListId);
  // The files whose name, titles or artists hold the text, as it is given.
  void FillWithSearch(const std::string& text);
  // The text whose results the list shows, if it shows a search's.
  const std::optional<std::string>& ShownSearch() const { return shownSearch_; }

  // A click on a column's heading: the rows sorted by it, ascending; a
  // second click on the same heading reverses them. Rating sorts by stars,
  // Length by seconds, the others by their texts regardless of ASCII case;
  // equal rows keep their order.
  void SortBy(int column);
  int SortColumn() const { return sortColumn_; }
  bool SortAscending() const { return sortAscending_; }

  // The hint in place of the rows while the catalogue holds no volume.
  void ShowStartHint(bool show);

  // The Song and Artist texts a row of the file shows; empty without its row.
  std::pair<std::string, std::string> SongAndArtist(int fileId) const;

  void SelectAll();
  IdList SelectedFileIds() const;
  // Every row's file, top to bottom.
  IdList AllFileIds() const;
  // Appends each selected file, top to bottom, that the play list lacks.
  void AddSelectedToPlayList();
  // "File Info / Edit" on the first selected row; true when the user left
  // the dialog with Update and the row was written.
  bool EditFileInfo();
  // Selects the file's row alone and brings it into view; false when no
  // row shows the file.
  bool SelectFile(int fileId);
  // Shows the list's menu (also with no row selected) and runs the choice;
  // returns what EditFileInfo returned, or false.
  bool OnContextMenu();
  // The headings' menu: a checked entry per optional column that shows; the
  // choice shows or hides its column.
  void OnHeaderContextMenu();

 private:
  void AppendRow(const MediaListRow& row);
  void AppendRowsOf(const IdList& fileIds);
  // The rows' texts of the files, one entry per id (empty for a file gone);
  // none while a worker holds the catalogue.
  std::vector<std::vector<std::string>> TextsOf(const IdList& fileIds) const;
  void ShowFolderColumn(bool show);
  void ShowFirstSelectedInLibrary();
  void ApplySort();
  void OnCatalogueChanged(const CatalogueChanges& changes);

  MediaDB& db_;
  CPlayListModel& playList_;
  std::optional<MediaListControls> controls_;
  std::function<Locator(int)> locate_;
  std::function<void(int)> showInLibrary_;
  std::optional<std::string> shownSearch_;
  int sortColumn_ = -1;  // none: the catalogue's order
  bool sortAscending_ = true;
  int changesToken_ = 0;
};
