#pragma once
// The main window as its logic sees it: the controls and window services it
// drives, and the plain values in which the front end hands over mouse and
// key messages. User-interface thread only.

#include <span>
#include <string>

struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  // As the platform tests points: the right and bottom edges lie outside.
  bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};

// A control of the row above the panes, with its tool tip ("" for none).
struct MainControl {
  int id;
  const char* label;
  const char* toolTip;
};

enum class MessageKind { MouseMove, LeftButtonDown, LeftButtonUp, KeyDown, KeyUp, Other };
// Where a message goes: the main window's own surface or one of its children;
// for a key, the window that has the focus.
enum class MessageTarget { Window, FindField, Tree, List, OtherChild };
enum class KeyCode { Enter, Escape, Control, Delete, A, F, Space, Other };

// The now-playing strip: the file's song and artist as the media list shows
// them, "elapsed / total", the seek slider's place and the pause button.
struct NowPlayingStrip {
  bool open = false;  // false: nothing to show, the controls are idle
  std::string song;
  std::string artist;
  std::string time;  // "1:23 / 4:05"
  int positionMs = 0;
  int lengthMs = 0;
  bool paused = false;  // the button offers "resume" rather than "pause"
  int fileId = 0;
  std::string coverPath;  // the file's path for its cover when it is at hand, else ""
  // "Opening NAME…" while a file's open is waited for, else "".
  std::string opening;
};

struct WindowMessage {
  MessageKind kind = MessageKind::Other;
  MessageTarget target = MessageTarget::Window;
  KeyCode key = KeyCode::Other;
  int x = 0;  // the mouse, in the main window's client pixels
  int y = 0;
};

class MainWindowView {
 public:
  virtual ~MainWindowView() = default;

  // Attaches the controls' tool tips, then activates them.
  virtual void AttachToolTips(std::span<const MainControl> controls) = 0;

  // Screen pixels; OuterRect is the whole window's rectangle.
  virtual void MoveWindow(int left, int top, int width, int height) = 0;
  virtual Rect OuterRect() const = 0;
  // From (0, 0) to the client area's width and height.
  virtual Rect ClientRect() const = 0;
  // Client pixels.
  virtual void MoveTree(int x, int y, int width, int height) = 0;
  virtual void MoveList(int x, int y, int width, int height) = 0;
  // The line under the panes: what the last scan found, how many files a
  // search found.
  virtual void MoveStatusLine(int x, int y, int width, int height) = 0;
  virtual int StatusLineHeight() const = 0;
  virtual void SetStatusLine(const std::string& text) = 0;

  // The part of the screen that windows may take (without panels), in
  // screen pixels; the screen the main window is on.
  virtual Rect AvailableScreen() const = 0;
  // Maximised: OuterRect still gives the rectangle it comes back to.
  virtual bool IsMaximized() const = 0;
  virtual void SetMaximized(bool maximized) = 0;

  // The east-west sizing arrow.
  virtual void SetSizingCursor() = 0;
  virtual void CaptureMouse() = 0;
  virtual void ReleaseMouse() = 0;

  virtual std::string FindText() const = 0;
  virtual void SetFindText(const std::string& text) = 0;
  // A modal About box.
  virtual void ShowAbout() = 0;

  // The play list window, a top-level window of its own (screen pixels).
  virtual bool IsPlayListVisible() const = 0;
  virtual void ShowPlayList(bool show) = 0;
  virtual void MovePlayList(int left, int top, int width, int height) = 0;
  virtual Rect PlayListRect() const = 0;
  // Brings the play list window above the program's other windows.
  virtual void RaisePlayList() = 0;
  // Whether another of the program's windows lies over the visible play
  // list window.
  virtual bool IsPlayListCovered() const = 0;

  // The now-playing strip and its volume slider (0 to 1000).
  virtual void ShowNowPlaying(const NowPlayingStrip& /*strip*/) {}
  virtual void ShowVolume(int /*level*/) {}
  // Starts or stops calling CMainDlg::OnPlayerTick about four times a second.
  virtual void PollPlayer(bool /*on*/) {}
  // Puts the cursor into the Find field.
  virtual void FocusFindField() {}
  // Calls CMainDlg::OnSearchPause once, milliseconds from now; a second
  // call before then starts the wait again. Stop takes a waiting call back.
  virtual void WaitForSearchPause(int /*milliseconds*/) {}
  virtual void StopSearchPause() {}
};
