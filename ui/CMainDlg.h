#pragma once
// The logic of the main window: it routes every button, key and menu request
// to the part that carries it out, drags the splitter between the tree and
// the list, lays out the panes, shows and hides the play list window (which
// it owns), and puts the windows' geometry into the settings at exit. The
// front end supplies the controls (MainWindowView and the parts' controls)
// and calls the On* handlers on its user-interface thread.

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "base/Listeners.h"
#include "playback/PlayerStatus.h"
#include "playlists/CPlayListDlg.h"
#include "ui/CLibraryTree.h"
#include "ui/CMediaList.h"
#include "ui/MainWindowView.h"

class CAppSettings;
class CDriveServices;
class CPlaybackControl;
class OptionsView;
class ScanCommands;

namespace platform {
class FolderPicker;
}

// What the window works with; all must outlive it.
struct MainWindowParts {
  MediaDB& catalogue;  // its change event refreshes the now-playing strip; searched
  CLibraryTree& tree;
  CMediaList& list;
  LibraryTreeControls treeControls;
  MediaListControls listControls;
  ScanCommands& scans;  // Add CD and Add HD
  CPlaybackControl& playback;
  CAppSettings& settings;  // geometry read at start-up and written at exit
  const CDriveServices& drives;
  platform::FolderPicker& picker;  // the Options dialog's "..."
  OptionsView& options;
  PlayListWindowParts playList;
  PlayListView& playListView;
};

class CMainDlg {
 public:
  static constexpr const char* kCaption = "Tandrelo Vantrelle";

  enum Command : int {
    kAddCd = 2001,
    kAddHd,
    kTogglePlayList,
    kOptions,
    kAbout,
    kFindField,
    kGo,
    kPlay,
    kStop,
    kSkipForward,
  };
  enum PlayListShow : int { kShow = 1, kHide = 2 };

  static constexpr std::array<MainControl, 10> kControls{{
      {kAddCd, "Add CD", "Scan CD and Store in Library"},
      {kAddHd, "Add HD", "Scan a Local Path (on HD) and Store in Library"},
      {kTogglePlayList, "PL", "Toggle Play List"},
      {kOptions, "Op", "Options"},
      {kAbout, "?", ""},
      {kFindField, "", "Quick Search (All Media)"},
      {kGo, "Go", "Search"},
      {kPlay, "|>", "Play"},
      {kStop, "[]", "Stop"},
      {kSkipForward, "|>|>", "Skip Forward"},
  }};

  static constexpr int kBandWidth = 5;
  static constexpr int kLeftmostSplitter = 40;
  // How far the splitter stays from the window's outer right edge.
  static constexpr int kRightMargin = 70;

  CMainDlg(const MainWindowParts& parts, MainWindowView& view);
  // Unbinds the tree and the list from the window's controls.
  ~CMainDlg();
  CMainDlg(const CMainDlg&) = delete;
  CMainDlg& operator=(const CMainDlg&) = delete;

  // Binds the tree and the list, opens the play list window, restores the
  // stored geometry (or, at the first start, fits both windows to the
  // screen), lays out and builds the tree.
  void OnInitDialog();
  void OnCommand(int command);
  void OnSize(int clientWidth, int clientHeight);
  // Every message to the window or its children passes here first (after the
  // tool tips saw it); returns true when it is consumed.
  bool PreTranslateMessage(const WindowMessage& message);
  // The platform asks for the cursor; true (handled, no default processing)
  // while dragging keeps the sizing arrow on screen.
  bool OnSetCursor() const { return dragging_; }
  void OnTreeSelectionChanged(platform::TreeItem node);
  void OnTreeContextMenu(platform::TreeItem hit);
  void OnListContextMenu();
  void OnListDoubleClick();
  // A click on a heading of the media list sorts by that column.
  void OnListHeaderClicked(int column);
  void OnListHeaderContextMenu();
  // The user changed the Find field's text: the list follows it once the
  // typing pauses (kSearchPauseMs); Enter and "Go" search at once.
  void OnFindTextEdited();
  void OnSearchPause();
  static constexpr int kSearchPauseMs = 150;
  // The strip: about four times a second while a file is open; the pause
  // button; the seek slider let go at ms; the volume slider at 0 to 1000.
  void OnPlayerTick();
  void OnPauseResume();
  void OnSeek(int ms);
  void OnVolume(int level);
  // A volume set from elsewhere (the session bus): applied, and the slider follows.
  void ChangeVolume(int level);
  const PlayerStatus& LastStatus() const { return status_; }
  // The volume of the settings, 0 to 1000.
  int Volume() const;
  // Called after each status was shown; returns a token for
  // RemoveStatusListener.
  int OnStatusShown(std::function<void()> listener) { return statusShown_.Subscribe(std::move(listener)); }
  void RemoveStatusListener(int token) { statusShown_.Unsubscribe(token); }
  // Asks the player at once (after what was handed to it so far).
  void PollNow();
  // Plays the first selected file of the media list; ends a play-through.
  void PlaySelected();
  // Puts both windows' geometry and the splitter into the settings; the
  // front end then ends the run with CLibraryApp::Exit, which writes them.
  void OnDestroy();

  // kShow shows a hidden play list window, kHide hides a visible one.
  void ShowPlayList(int how);
  // "PL": a hidden or covered play list window is shown above the others;
  // a visible one in plain view is hidden.
  void TogglePlayList();
  void Layout();
  void Layout(int clientWidth, int clientHeight);

  int Splitter() const { return splitter_; }
  const Rect& SplitterBand() const { return band_; }
  CPlayListDlg& PlayListWindow() { return playListWindow_; }

 private:
  void OnMouseMove(const WindowMessage& message);
  void OnKeyDown(const WindowMessage& message);
  void OnKeyUp(const WindowMessage& message);
  void Search();
  void FitWindowsToScreen();
  void RestoreWindows();
  void RestoreColumns();
  void StoreWindows();
  void RunOptions();
  void StopPlayback();
  void OnPlayerStatus(const PlayerStatus& status);
  void OnCatalogueChanged(const CatalogueChanges& changes);
  NowPlayingStrip DescribeStatus(const PlayerStatus& status);

  MainWindowParts parts_;
  MainWindowView& view_;
  CPlayListDlg playListWindow_;
  int splitter_;
  Rect band_;
  bool dragging_ = false;
  bool controlHeld_ = false;
  bool panesBound_ = false;
  int startedListener_ = 0;
  int openingListener_ = 0;
  bool pollPending_ = false;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);  // gone with this window
  PlayerStatus status_;
  int scanReportedListener_ = 0;
  int changesListener_ = 0;
  Listeners<> statusShown_;
  int describedFileId_ = 0;  // whose song and artist are below
  std::string song_;
  std::string artist_;
  std::string coverPath_;
};
