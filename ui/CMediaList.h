#pragma once
// The media list: the main window's right pane, one row per catalogue file,
// each row carrying its FileID. It keeps no rows of the catalogue: every fill
// reads them afresh, and rows are only ever appended, so a fill keeps the
// catalogue's order. No fill empties the list; callers Clear first.
// One object for the process; bound to its controls by the main window.
// User-interface thread only; catalogue failures end the process (MediaDB).

#include <array>
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
  enum Command : int { kAddToPlayList = 9010, kFileInfo = 9011 };
  // The list control's extended style bit that lets the user drag columns.
  static constexpr unsigned kHeaderDragDrop = 0x10;

  static constexpr std::array<MediaListColumn, 6> kColumns{{
      {"Song", 100},
      {"Artist", 100},
      {"FileName", 160},
      {"Rating", 50},
      {"Length", 50},
      {"Volume", 80},
  }};
  static constexpr std::array<platform::MenuEntry, 2> kMenu{{
      {kAddToPlayList, "Add To PlayList"},
      {kFileInfo, "File Info / Edit"},
  }};

  // playList: the play list window's model, which "Add To PlayList" appends to.
  CMediaList(MediaDB& db, CPlayListModel& playList);

  // Every other operation needs the controls bound first. Adds grid lines,
  // full-row selection and column dragging to the list's style.
  void Bind(const MediaListControls& controls);
  // Lets go of the controls; the binder calls it before they go away.
  void Unbind() { controls_.reset(); }
  void CreateColumns();

  void Clear();
  // Appends the file's row; its volume row is read for the Volume column.
  void AddRow(const CMediaFile& file);
  // The folder's own files, not its sub-folders'.
  void FillWithFolder(int pathId);
  // The play list's files in its order, an id listed twice giving two rows;
  // ids without a file row are passed over.
  void FillWithPlayList(int playListId);
  // The files whose name, titles or artists hold the text, as it is given.
  void FillWithSearch(const std::string& text);

  // The Song and Artist texts a row of the file shows; empty without its row.
  std::pair<std::string, std::string> SongAndArtist(int fileId) const;

  void SelectAll();
  IdList SelectedFileIds() const;
  // Appends each selected file, top to bottom, that the play list lacks.
  void AddSelectedToPlayList();
  // "File Info / Edit" on the first selected row; true when the user left
  // the dialog with Update and the row was written.
  bool EditFileInfo();
  // Shows the list's menu (also with no row selected) and runs the choice;
  // returns what EditFileInfo returned, or false.
  bool OnContextMenu();

 private:
  void AppendRow(const MediaListRow& row);

  MediaDB& db_;
  CPlayListModel& playList_;
  std::optional<MediaListControls> controls_;
};
