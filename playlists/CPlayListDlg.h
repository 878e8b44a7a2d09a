#pragma once
// The logic of the play list window ("Play List - Vantrelle"): its buttons,
// keys and context menu over the play list, playing through playback
// control, copying through the copy commands (the status line then says what
// was not copied and why) and saving under a name typed in the input dialog. The front end supplies the controls
// (PlayListView) and calls the On* handlers on its user-interface thread.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/MediaDB.h"  // IdList
#include "platform/PopupMenu.h"

class CAppSettings;
class CDriveServices;
class CPlaybackControl;
class CPlayListModel;
class CPlayThrough;
struct PlayerStatus;
class CopyCommands;

namespace platform {
class FilePicker;
class FolderPicker;
class InputDialog;
class ListControl;
}  // namespace platform

struct PlayListButton {
  int command;
  const char* text;
  const char* toolTip;
  bool showsBitmap;  // the front end draws a picture instead of the text
  bool checkable;    // stays down when pressed, until pressed again
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
  virtual int TrackPopupMenu(std::span<const platform::MenuEntry> entries) = 0;
  // The one line under the list saying what the last copy came to.
  virtual void SetStatusLine(const std::string& text) = 0;
  // Whether a checkable button shows as down.
  virtual void SetChecked(int /*command*/, bool /*checked*/) {}
  // Shows a new text on a button.
  virtual void SetButtonText(int /*command*/, const std::string& /*text*/) {}
  // Marks the rows of the file playing (0: none), as the list should show it.
  virtual void MarkPlayingFile(std::int32_t /*fileId*/) {}
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
  CPlayThrough& playThrough;         // over the model's rows
  platform::FilePicker& filePicker;  // play list files to export and import
};

class CPlayListDlg {
 public:
  static constexpr const char* kTitle = "Play List - Vantrelle";
  static constexpr const char* kPickerTitle = "Select Folder";
  static constexpr const char* kSaveCaption = "Save Playlist";
  static constexpr const char* kSavePrompt = "Save Playlist as ..";
  static constexpr const char* kSaveButton = "Save";
  static constexpr const char* kNotCatalogued = "%s not in the catalogue.";
  static constexpr const char* kExportTitle = "Export Play List";
  static constexpr const char* kImportTitle = "Import Play List";
  static constexpr const char* kWrittenFilter = "Play lists (*.m3u *.m3u8 *.xspf)";
  static constexpr const char* kReadFilter = "Play lists (*.m3u *.m3u8 *.xspf *.pls)";

  enum Command : int {
    kCache = 1001,
    kClearCache = 1002,
    kPlay = 1003,
    kStop = 1004,
    kSkipForward = 1005,
    kPlayThrough = 1006,
    kShuffle = 1007,
    kRepeat = 1008,
    kCopySelectionTo = 9020,
    kCopyAllTo = 9021,
    kSavePlayList = 9022,
    kExportPlayList = 9023,
    kImportPlayList = 9024,
  };
  enum class Key { Delete, A, Enter, Other };

  static constexpr std::array<PlayListButton, 8> kButtons{{
      {kCache, "Cache", "Copy files to cache directory", false, false},
      {kClearCache, "C", "Clear the cache", false, false},
      {kPlay, "|>", "Play", true, false},
      {kStop, "[]", "Stop", true, false},
      {kSkipForward, "|>|>", "Skip Forward", true, false},
      {kPlayThrough, "Play through", "Play on to the end of the list", false, true},
      {kShuffle, "Shuffle", "Play the list in a shuffled order", false, true},
      {kRepeat, "Repeat: off", "Repeat the whole list, or one file (click to change)", false, false},
  }};
  static constexpr std::array<platform::MenuEntry, 5> kMenu{{
      {kCopySelectionTo, "Copy Selection To .."},
      {kCopyAllTo, "Copy All To .."},
      {kSavePlayList, "Save PlayList"},
      {kExportPlayList, "Export…"},
      {kImportPlayList, "Import…"},
  }};

  CPlayListDlg(PlayListWindowParts parts, PlayListView& view);
  // Unbinds the model from the view's list.
  ~CPlayListDlg();
  CPlayListDlg(const CPlayListDlg&) = delete;
  CPlayListDlg& operator=(const CPlayListDlg&) = delete;

  void OnInitDialog();
  void OnSize(int clientWidth, int clientHeight);
  void OnCommand(int command);
  // Delete acts when the key is released.
  void OnKeyReleased(Key key);
  // Ctrl+A while the list has the focus; Enter plays the selected row.
  void OnListKeyPressed(Key key, bool control);
  // The player's status as the main window polled it: a file played to its
  // end is followed by the next row, and the playing row is marked.
  void OnPlayerStatus(const PlayerStatus& status);
  void OnContextMenu(bool onList);
  // The user dragged these rows to stand before row `before`.
  void OnRowsDragged(const std::vector<int>& rows, int before);
  // Files dragged in from the media list, or from a file manager.
  void OnFilesDropped(const IdList& fileIds);
  void OnLocalFilesDropped(const std::vector<std::string>& localPaths);
  // Puts the list's column widths into the settings (at exit).
  void StoreColumns();
  // Keeps the rows and the one playing in the catalogue (at exit).
  void StoreQueue();

 private:
  void PlaySelected();
  void TogglePlayThrough();
  void NextRepeat();
  // Shows the play-through's order on its buttons (the bus may change it).
  void ShowOrder();
  void CopyToCache();
  void CopyToPickedFolder(bool selectionOnly);
  void SavePlayList();
  // The rows to a play list file, and the files of one added to them; the
  // status line says what it came to.
  void ExportRows();
  void ImportFile();

  PlayListWindowParts parts_;
  PlayListView& view_;
  std::int32_t marked_ = 0;
  std::optional<std::pair<bool, int>> shownOrder_;  // shuffle and repeat as the buttons show them
  std::string lastFile_;                            // where the last export or import went: the pickers start there
};
