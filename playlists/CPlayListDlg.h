#pragma once
// The logic of the play list window ("Play List - Vantrelle"): its buttons,
// keys and context menu over the play list, playing through playback
// control, copying through the copy commands (the status line then says what
// was not copied and why) and saving under a name typed in the input dialog. The front end supplies the controls (PlayListView)
// and calls the On* handlers on its user-interface thread.

#include <array>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/MediaDB.h"  // IdList

class CAppSettings;
class CDriveServices;
class CPlaybackControl;
class CPlayListModel;
class CopyCommands;

namespace platform {
class FolderPicker;
class InputDialog;
class ListControl;
}  // namespace platform

struct PlayListButton {
  int command;
  const char* text;
  const char* toolTip;
  bool showsBitmap;  // the front end draws a picture instead of the text
};

struct PlayListMenuEntry {
  int command;
  const char* text;
};

class PlayListView {
 public:
  virtual ~PlayListView() = default;
  virtual platform::ListControl& List() = 0;
  virtual void MoveWindow(int x, int y, int width, int height) = 0;
  virtual void MoveList(int x, int y, int width, int height) = 0;
  // Creates the buttons along the top, left to right, tool tips active.
  virtual void AddButtons(std::span<const PlayListButton> buttons) = 0;
  // Shows the popup menu at the mouse; returns the chosen command, or 0.
  virtual int TrackPopupMenu(std::span<const PlayListMenuEntry> entries) = 0;
  // The one line under the list saying what the last copy came to.
  virtual void SetStatusLine(const std::string& text) = 0;
};

// What the window works with; all must outlive it.
struct PlayListWindowParts {
  CPlayListModel& model;
  CPlaybackControl& playback;
  CopyCommands& copy;
  CAppSettings& settings;  // the play list folder is read and replaced
  const CDriveServices& drives;
  platform::FolderPicker& picker;
  platform::InputDialog& input;
};

class CPlayListDlg {
 public:
  static constexpr const char* kTitle = "Play List - Vantrelle";
  static constexpr const char* kPickerTitle = "Select Folder";
  static constexpr const char* kSaveCaption = "Save Playlist";
  static constexpr const char* kSavePrompt = "Save Playlist as ..";
  static constexpr const char* kSaveButton = "Save";
  static constexpr const char* kNotCatalogued = "%s not in the catalogue.";

  enum Command : int {
    kCache = 1001,
    kClearCache = 1002,
    kPlay = 1003,
    kStop = 1004,
    kSkipForward = 1005,
    kCopySelectionTo = 9020,
    kCopyAllTo = 9021,
    kSavePlayList = 9022,
  };
  enum class Key { Delete, A, Other };

  static constexpr std::array<PlayListButton, 5> kButtons{{
      {kCache, "Cache", "Copy files to cache directory", false},
      {kClearCache, "C", "Clear the cache", false},
      {kPlay, "|>", "Play", true},
      {kStop, "[]", "Stop", true},
      {kSkipForward, "|>|>", "Skip Forward", true},
  }};
  static constexpr std::array<PlayListMenuEntry, 3> kMenu{{
      {kCopySelectionTo, "Copy Selection To .."},
      {kCopyAllTo, "Copy All To .."},
      {kSavePlayList, "Save PlayList"},
  }};

  CPlayListDlg(PlayListWindowParts parts, PlayListView& view);
  // Unbinds the model from the view's list.
  ~CPlayListDlg();
  CPlayListDlg(const CPlayListDlg&) = delete;
  CPlayListDlg& operator=(const CPlayListDlg&) = delete;

  // Called after a play list was saved (the library tree is rebuilt).
  void OnLibraryChanged(std::function<void()> rebuild) { libraryChanged_ = std::move(rebuild); }

  void OnInitDialog();
  void OnSize(int clientWidth, int clientHeight);
  void OnCommand(int command);
  // Delete acts when the key is released.
  void OnKeyReleased(Key key);
  // Ctrl+A while the list has the focus.
  void OnListKeyPressed(Key key, bool control);
  void OnContextMenu(bool onList);
  // The user dragged these rows to stand before row `before`.
  void OnRowsDragged(const std::vector<int>& rows, int before);
  // Files dragged in from the media list, or from a file manager.
  void OnFilesDropped(const IdList& fileIds);
  void OnLocalFilesDropped(const std::vector<std::string>& localPaths);
  // Puts the list's column widths into the settings (at exit).
  void StoreColumns();

 private:
  void PlaySelected();
  void CopyToCache();
  void CopyToPickedFolder(bool selectionOnly);
  void SavePlayList();

  PlayListWindowParts parts_;
  PlayListView& view_;
  std::function<void()> libraryChanged_;
};
