#pragma once
// The main window ("Tandrelo Vantrelle v1.4"): the row of buttons with the
// Find field, the library tree and the media list side by side with the
// splitter band between them, and the play list window that it owns. It is
// the face of CMainDlg: it draws what the logic asks for and routes every
// button, menu request and double-click to it; mouse messages on its own
// surface and key messages to its children pass through the logic's message
// pre-filter first. User-interface thread only.

#include <QWidget>
#include <functional>
#include <map>
#include <memory>

#include "qt/DesktopDialogs.h"
#include "ui/MainWindowView.h"

class CLibraryApp;
class CMainDlg;
class CopyCommands;
class CRemoteControl;
class MprisService;
class NowPlayingBar;
class QTimer;
class PlayListWindow;
class QLabel;
class QLineEdit;
class QPushButton;
class QtListControl;
class QtPopupMenu;
class QtTreeControl;
class ScanCommands;
class WindowStacking;

class MainWindow final : public QWidget, private MainWindowView {
 public:
  // app must be started and outlive the window.
  MainWindow(CLibraryApp& app, const DesktopDialogs& dialogs);
  ~MainWindow() override;

  // The window's start-up: tool tips, the panes' controls, the play list
  // window shown, the stored geometry restored, the tree built. Then show().
  void Start();
  // Offers the player on the session bus to media keys and remotes; false,
  // quietly, when there is no session bus.
  bool PublishOnSessionBus();
  // Called once, when the window has closed and put the geometry of both
  // windows into the settings (the program then saves them and ends).
  std::function<void()> onClosed;

  QtTreeControl& Tree() const { return *tree_; }
  QtListControl& List() const { return *list_; }
  QLineEdit& FindField() const { return *findField_; }
  PlayListWindow& PlayList() const { return *playListWindow_; }
  QLabel& StatusLine() const { return *statusLine_; }
  NowPlayingBar& Strip() const { return *strip_; }
  CMainDlg& Logic() const { return *logic_; }
  // The button of a CMainDlg command, or null.
  QPushButton* Button(int command) const;
  int Splitter() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void CreateControls();
  void SetUpMediaList();
  void CreateStrip();
  void PlaceButtonRow();
  bool RouteMouse(QEvent& event);
  bool RouteKey(QObject* watched, QEvent& event);

  void AttachToolTips(std::span<const MainControl> controls) override;
  void MoveWindow(int left, int top, int width, int height) override;
  Rect OuterRect() const override;
  Rect ClientRect() const override;
  void MoveTree(int x, int y, int width, int height) override;
  void MoveList(int x, int y, int width, int height) override;
  void MoveStatusLine(int x, int y, int width, int height) override;
  int StatusLineHeight() const override;
  void SetStatusLine(const std::string& text) override;
  Rect AvailableScreen() const override;
  bool IsMaximized() const override;
  void SetMaximized(bool maximized) override;
  void SetSizingCursor() override;
  void CaptureMouse() override;
  void ReleaseMouse() override;
  std::string FindText() const override;
  void SetFindText(const std::string& text) override;
  void ShowAbout() override;
  bool IsPlayListVisible() const override;
  void ShowPlayList(bool show) override;
  void MovePlayList(int left, int top, int width, int height) override;
  Rect PlayListRect() const override;
  void RaisePlayList() override;
  bool IsPlayListCovered() const override;
  void ShowNowPlaying(const NowPlayingStrip& strip) override;
  void ShowVolume(int level) override;
  void PollPlayer(bool on) override;
  void WaitForSearchPause(int milliseconds) override;
  void StopSearchPause() override;
  void FocusFindField() override;
  // The height above the strip, which takes the bottom of the window.
  int LayoutHeight() const;
  void PlaceStrip();

  DesktopDialogs dialogs_;
  QtTreeControl* tree_ = nullptr;  // children of the window
  QtListControl* list_ = nullptr;
  QLineEdit* findField_ = nullptr;
  QWidget* findLabel_ = nullptr;
  QLabel* statusLine_ = nullptr;
  WindowStacking* stacking_ = nullptr;  // a child of the window
  NowPlayingBar* strip_ = nullptr;
  QTimer* poll_ = nullptr;
  QTimer* searchPause_ = nullptr;
  std::map<int, QWidget*> controls_;  // by CMainDlg command
  std::unique_ptr<QtPopupMenu> menu_;
  std::unique_ptr<ScanCommands> scans_;
  std::unique_ptr<CopyCommands> copy_;
  std::unique_ptr<PlayListWindow> playListWindow_;
  std::unique_ptr<CMainDlg> logic_;         // it unbinds from the play list window
  std::unique_ptr<CRemoteControl> remote_;  // over the logic
  std::unique_ptr<MprisService> mpris_;
  bool closed_ = false;
};
