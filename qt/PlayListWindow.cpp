#include "qt/PlayListWindow.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "qt/PlaybackIcons.h"
#include "qt/QtListControl.h"
#include "qt/QtPopupMenu.h"
#include "qt/ReportListModel.h"
#include "qt/WindowGeometry.h"
#include "qt/dialogs/QtText.h"

namespace {

constexpr int kButtonTop = 2;
constexpr int kButtonHeight = 21;
constexpr int kButtonGap = 2;
constexpr int kFirstButtonLeft = 5;
constexpr int kStatusGap = 2;

CPlayListDlg::Key KeyOf(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Delete) return CPlayListDlg::Key::Delete;
  if (event.key() == Qt::Key_A) return CPlayListDlg::Key::A;
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) return CPlayListDlg::Key::Enter;
  return CPlayListDlg::Key::Other;
}

}  // namespace

PlayListWindow::PlayListWindow() : list_(new QtListControl(this)), status_(new QLabel(this)) {
  setWindowTitle(QString::fromUtf8(CPlayListDlg::kTitle));
  list_->installEventFilter(this);
  list_->onContextMenu = [this] {
    if (logic_) logic_->OnContextMenu(true);
  };
  AcceptDrags();
}

// Rows move by dragging; files come in from the media list or a file manager.
void PlayListWindow::AcceptDrags() {
  list_->AllowDragging(true);
  list_->onRowsMoved = [this](const std::vector<int>& rows, int before) {
    if (logic_) logic_->OnRowsDragged(rows, before);
  };
  list_->onFileIdsDropped = [this](const std::vector<std::int32_t>& ids) {
    if (logic_) logic_->OnFilesDropped(ids);
  };
  list_->onLocalFilesDropped = [this](const std::vector<std::string>& paths) {
    if (logic_) logic_->OnLocalFilesDropped(paths);
  };
}

QPushButton* PlayListWindow::Button(int command) const {
  const auto found = buttons_.find(command);
  return found == buttons_.end() ? nullptr : found->second;
}

platform::ListControl& PlayListWindow::List() { return *list_; }

void PlayListWindow::MoveWindow(int x, int y, int width, int height) { MoveTopLevel(*this, x, y, width, height); }

void PlayListWindow::MoveList(int x, int y, int width, int height) {
  const int statusHeight = fontMetrics().height();
  const int listHeight = std::max(height - statusHeight - kStatusGap, 0);
  list_->setGeometry(x, y, std::max(width, 0), listHeight);
  status_->setGeometry(x, y + listHeight + kStatusGap, std::max(width, 0), statusHeight);
}

// A line too long for the window is cut; its tool tip holds all of it.
void PlayListWindow::SetStatusLine(const std::string& text) {
  status_->setText(ToQString(text));
  status_->setToolTip(status_->text());
}

void PlayListWindow::SetButtonText(int command, const std::string& text) {
  if (QPushButton* button = Button(command)) {
    button->setText(ToQString(text));
  }
}

void PlayListWindow::SetChecked(int command, bool checked) {
  if (QPushButton* button = Button(command)) button->setChecked(checked);
}

void PlayListWindow::MarkPlayingFile(std::int32_t fileId) { list_->Model().MarkValue(fileId); }

void PlayListWindow::AddButtons(std::span<const PlayListButton> buttons) {
  int left = kFirstButtonLeft;
  for (const PlayListButton& wanted : buttons) {
    auto* button = new QPushButton(QString::fromUtf8(wanted.text), this);
    if (wanted.showsBitmap) ShowPicture(*button, wanted.text);
    button->setCheckable(wanted.checkable);
    button->setToolTip(QString::fromUtf8(wanted.toolTip));
    const int width = wanted.showsBitmap
                          ? kButtonHeight + 6
                          : std::max(kButtonHeight, fontMetrics().horizontalAdvance(button->text()) + 14);
    button->setGeometry(left, kButtonTop, width, kButtonHeight);
    button->installEventFilter(this);
    left += width + kButtonGap;
    const int command = wanted.command;
    connect(button, &QPushButton::clicked, this, [this, command] {
      if (logic_) logic_->OnCommand(command);
    });
    buttons_[command] = button;
  }
}

int PlayListWindow::TrackPopupMenu(std::span<const platform::MenuEntry> entries) {
  std::vector<std::pair<int, const char*>> items;
  for (const platform::MenuEntry& entry : entries) items.emplace_back(entry.command, entry.text);
  return TrackPopupAtCursor(this, items);
}

// Delete acts when it is released, wherever the focus is in the window;
// Ctrl+A only while the list has the focus.
bool PlayListWindow::eventFilter(QObject* watched, QEvent* event) {
  if (logic_ == nullptr) return false;
  if (event->type() == QEvent::KeyRelease) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (!key.isAutoRepeat()) logic_->OnKeyReleased(KeyOf(key));
  } else if (event->type() == QEvent::KeyPress && watched == list_) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (KeyOf(key) == CPlayListDlg::Key::A && key.modifiers().testFlag(Qt::ControlModifier)) {
      logic_->OnListKeyPressed(CPlayListDlg::Key::A, true);
      return true;
    }
    if (KeyOf(key) == CPlayListDlg::Key::Enter) {
      logic_->OnListKeyPressed(CPlayListDlg::Key::Enter, false);
      return true;
    }
  }
  return false;
}

void PlayListWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (logic_) logic_->OnSize(width(), height());
}

// Qt calls the overrides of its virtuals; cppcheck sees no caller.
// cppcheck-suppress unusedFunction
void PlayListWindow::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (logic_) logic_->OnContextMenu(false);
}
