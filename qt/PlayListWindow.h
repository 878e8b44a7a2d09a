#pragma once
// The play list window ("Play List - Vantrelle"): a top-level window of its
// own with its buttons along the top, the play list below them and a status
// line under the list saying what the last copy (or drop) came to. Rows move
// by dragging, and files may be dropped in. It draws
// what CPlayListDlg asks for and hands the user's buttons, keys and context
// menu to it. Hiding is the way it closes: the main window owns it.
// User-interface thread only.

#include <QWidget>
#include <map>

#include "playlists/CPlayListDlg.h"

class QLabel;
class QPushButton;
class QtListControl;

class PlayListWindow final : public QWidget, public PlayListView {
 public:
  PlayListWindow();

  // The logic that the user's actions go to; it must outlive the window's
  // use (the main window owns both).
  void Attach(CPlayListDlg& logic) { logic_ = &logic; }

  QtListControl& ListControl() const { return *list_; }
  // The button of a CPlayListDlg command, or null.
  QPushButton* Button(int command) const;
  QLabel& StatusLine() const { return *status_; }

  platform::ListControl& List() override;
  void MoveWindow(int x, int y, int width, int height) override;
  // The list takes the rectangle less a line at its bottom for the status line.
  void MoveList(int x, int y, int width, int height) override;
  void AddButtons(std::span<const PlayListButton> buttons) override;
  int TrackPopupMenu(std::span<const platform::MenuEntry> entries) override;
  void SetStatusLine(const std::string& text) override;
  void SetChecked(int command, bool checked) override;
  void SetButtonText(int command, const std::string& text) override;
  void MarkPlayingFile(std::int32_t fileId) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void AcceptDrags();

  QtListControl* list_;  // children of the window
  QLabel* status_;
  std::map<int, QPushButton*> buttons_;
  CPlayListDlg* logic_ = nullptr;
};
