#include "qt/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "app/CLibraryApp.h"
#include "playlists/CopyCommands.h"
#include "qt/MprisService.h"
#include "qt/NowPlayingBar.h"
#include "qt/PlayListWindow.h"
#include "qt/PlaybackIcons.h"
#include "qt/QtListControl.h"
#include "qt/QtPopupMenu.h"
#include "qt/QtTreeControl.h"
#include "qt/WindowGeometry.h"
#include "qt/WindowStacking.h"
#include "qt/dialogs/QtText.h"
#include "scan/ScanCommands.h"
#include "ui/CMainDlg.h"
#include "ui/CRemoteControl.h"

namespace {

// Where the controls of the row above the panes lie, in dialog units of the
// window's font (a quarter of its average character width across, an eighth
// of its height down).
struct DialogRect {
  int x, y, width, height;
};

constexpr DialogRect kFindLabel{144, 5, 15, 8};
constexpr DialogRect kRowEnd{0, 0, 4, 0};  // room right of the last button
constexpr int kMinimumHeight = 120;
constexpr int kPollMs = 250;
constexpr int kStripMargin = 5;

DialogRect PlaceOf(int command) {
  switch (command) {
    case CMainDlg::kAddCd:
      return {2, 2, 32, 12};
    case CMainDlg::kAddHd:
      return {35, 2, 32, 12};
    case CMainDlg::kTogglePlayList:
      return {83, 2, 16, 12};
    case CMainDlg::kOptions:
      return {100, 2, 16, 12};
    case CMainDlg::kAbout:
      return {117, 2, 16, 12};
    case CMainDlg::kFindField:
      return {161, 2, 103, 12};
    case CMainDlg::kGo:
      return {266, 2, 14, 12};
    case CMainDlg::kPlay:
      return {297, 2, 16, 12};
    case CMainDlg::kStop:
      return {315, 2, 16, 12};
    default:
      return {333, 2, 16, 12};  // kSkipForward
  }
}

// The panes start 30 pixels down (CMainDlg's layout): the row stays above.
constexpr double kRowBottom = 28.0;
constexpr double kRowDialogUnits = 14.0;

QRect ToPixels(const DialogRect& place, const QFontMetrics& metrics) {
  const double across =
      metrics.horizontalAdvance(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz")) / 52.0 / 4.0;
  const double down = std::min(metrics.height() / 8.0, kRowBottom / kRowDialogUnits);
  return {static_cast<int>(std::lround(place.x * across)), static_cast<int>(std::lround(place.y * down)),
          static_cast<int>(std::lround(place.width * across)), static_cast<int>(std::lround(place.height * down))};
}

KeyCode KeyOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return KeyCode::Enter;
    case Qt::Key_Escape:
      return KeyCode::Escape;
    case Qt::Key_Control:
      return KeyCode::Control;
    case Qt::Key_Delete:
      return KeyCode::Delete;
    case Qt::Key_A:
      return KeyCode::A;
    case Qt::Key_F:
      return KeyCode::F;
    case Qt::Key_Space:
      return KeyCode::Space;
    default:
      return KeyCode::Other;
  }
}

}  // namespace

MainWindow::MainWindow(CLibraryApp& app, const DesktopDialogs& dialogs)
    : dialogs_(dialogs),
      menu_(std::make_unique<QtPopupMenu>(this)),
      scans_(
          std::make_unique<ScanCommands>(app.Scanner(), app.Drives(), app.Settings(), dialogs.picker, dialogs.workers)),
      copy_(std::make_unique<CopyCommands>(app.PlayList(), app.Db(), app.Drives(), app.Settings(), dialogs.workers)),
      playListWindow_(std::make_unique<PlayListWindow>()) {
  setWindowTitle(QString::fromUtf8(CLibraryApp::kTitle));
  setMouseTracking(true);  // the sizing arrow over the splitter band
  installEventFilter(this);
  CreateControls();
  const MainWindowParts parts{
      app.Db(),
      app.Tree(),
      app.List(),
      {*tree_, *menu_, dialogs.volumeInfo, *scans_, dialogs.filePicker},
      {*list_, *menu_, dialogs.fileInfo},
      *scans_,
      app.Playback(),
      app.Settings(),
      app.Drives(),
      dialogs.picker,
      dialogs.options,
      {app.PlayList(), app.Playback(), *copy_, app.Settings(), app.Drives(), dialogs.picker, dialogs.input,
       app.PlayThrough(), dialogs.filePicker},
      *playListWindow_,
  };
  MainWindowView& view = *this;
  logic_ = std::make_unique<CMainDlg>(parts, view);
  playListWindow_->Attach(logic_->PlayListWindow());
  playListWindow_->setAttribute(Qt::WA_QuitOnClose, false);
  stacking_ = new WindowStacking(this);
  stacking_->Watch(*this);
  stacking_->Watch(*playListWindow_);
  remote_ = std::make_unique<CRemoteControl>(*logic_, app.PlayList(), app.PlayThrough(), app.Playback(), app.Db(),
                                             app.Platform().files);
  mpris_ = std::make_unique<MprisService>(*remote_, *this, app.Db().Events());
  logic_->OnStatusShown([this] { mpris_->AnnounceChanges(); });
}

bool MainWindow::PublishOnSessionBus() { return mpris_->Register(); }

MainWindow::~MainWindow() = default;

void MainWindow::CreateControls() {
  for (const MainControl& control : CMainDlg::kControls) {
    QWidget* widget = nullptr;
    if (control.id == CMainDlg::kFindField) {
      findField_ = new QLineEdit(this);
      connect(findField_, &QLineEdit::textEdited, this, [this] { logic_->OnFindTextEdited(); });
      widget = findField_;
    } else {
      auto* button = new QPushButton(QString::fromUtf8(control.label), this);
      if (!PlaybackIcon(control.label).isNull()) ShowPicture(*button, control.label);
      const int command = control.id;
      connect(button, &QPushButton::clicked, this, [this, command] { logic_->OnCommand(command); });
      button->setCursor(Qt::ArrowCursor);
      widget = button;
    }
    widget->installEventFilter(this);
    controls_[control.id] = widget;
  }
  auto* label = new QLabel(QStringLiteral("Find:"), this);
  label->setCursor(Qt::ArrowCursor);
  findLabel_ = label;
  PlaceButtonRow();

  tree_ = new QtTreeControl(this);
  list_ = new QtListControl(this);
  for (QWidget* pane : {static_cast<QWidget*>(tree_), static_cast<QWidget*>(list_)}) {
    pane->setCursor(Qt::ArrowCursor);
    pane->installEventFilter(this);
  }
  tree_->onSelectionChanged = [this](platform::TreeItem node) { logic_->OnTreeSelectionChanged(node); };
  tree_->onContextMenu = [this](platform::TreeItem hit) { logic_->OnTreeContextMenu(hit); };
  SetUpMediaList();
  statusLine_ = new QLabel(this);
  statusLine_->setCursor(Qt::ArrowCursor);
  CreateStrip();
}

// The now-playing strip at the bottom, and the timer that polls the player.
void MainWindow::CreateStrip() {
  strip_ = new NowPlayingBar(this, dialogs_.covers);
  strip_->onPauseResume = [this] { logic_->OnPauseResume(); };
  strip_->onSeek = [this](int ms) { logic_->OnSeek(ms); };
  strip_->onVolume = [this](int level) { logic_->OnVolume(level); };
  for (QWidget* part : strip_->findChildren<QWidget*>()) part->installEventFilter(this);
  poll_ = new QTimer(this);
  poll_->setInterval(kPollMs);
  connect(poll_, &QTimer::timeout, this, [this] { logic_->OnPlayerTick(); });
  searchPause_ = new QTimer(this);
  searchPause_->setSingleShot(true);
  connect(searchPause_, &QTimer::timeout, this, [this] { logic_->OnSearchPause(); });
}

// Headings sort, the last column takes the free width, rows drag out as files.
void MainWindow::SetUpMediaList() {
  list_->onContextMenu = [this] { logic_->OnListContextMenu(); };
  list_->onDoubleClick = [this] { logic_->OnListDoubleClick(); };
  list_->onHeaderClicked = [this](int column) { logic_->OnListHeaderClicked(column); };
  list_->onHeaderContextMenu = [this] { logic_->OnListHeaderContextMenu(); };
  list_->horizontalHeader()->setSectionsClickable(true);
  list_->horizontalHeader()->setStretchLastSection(true);
  list_->AllowDragging(false);
}

// The window is never narrower than the row, so that every button stays in
// reach whatever the desktop's font.
void MainWindow::PlaceButtonRow() {
  const QFontMetrics metrics = fontMetrics();
  int rowRight = 0;
  for (const auto& [command, widget] : controls_) {
    widget->setGeometry(ToPixels(PlaceOf(command), metrics));
    rowRight = std::max(rowRight, widget->geometry().right());
  }
  findLabel_->setGeometry(ToPixels(kFindLabel, metrics));
  setMinimumSize(rowRight + ToPixels(kRowEnd, metrics).width(), kMinimumHeight);
}

void MainWindow::Start() { logic_->OnInitDialog(); }

QPushButton* MainWindow::Button(int command) const {
  const auto found = controls_.find(command);
  return found == controls_.end() ? nullptr : qobject_cast<QPushButton*>(found->second);
}

int MainWindow::Splitter() const { return logic_->Splitter(); }

// Qt calls the overrides of its virtuals; cppcheck sees no caller.
// cppcheck-suppress unusedFunction
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!logic_) return false;
  switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
      return watched == this && RouteMouse(*event);
    // A key the child did not take travels on to this window: it was seen.
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return watched != this && RouteKey(watched, *event);
    default:
      return false;
  }
}

bool MainWindow::RouteMouse(QEvent& event) {
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  const QPoint at = mouse.position().toPoint();
  WindowMessage message;
  message.x = at.x();
  message.y = at.y();
  // While captured every message is the window's own, as under a capture.
  const bool ownSurface = QWidget::mouseGrabber() == this || childAt(at) == nullptr;
  message.target = ownSurface ? MessageTarget::Window : MessageTarget::OtherChild;
  const bool left = mouse.button() == Qt::LeftButton;
  if (event.type() == QEvent::MouseMove) {
    message.kind = MessageKind::MouseMove;
    // The platform's default cursor comes back unless a drag keeps the arrow.
    if (!logic_->OnSetCursor()) unsetCursor();
  } else if (event.type() == QEvent::MouseButtonPress) {
    message.kind = left ? MessageKind::LeftButtonDown : MessageKind::Other;
  } else {
    message.kind = left ? MessageKind::LeftButtonUp : MessageKind::Other;
  }
  return logic_->PreTranslateMessage(message);
}

bool MainWindow::RouteKey(QObject* watched, QEvent& event) {
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (event.type() == QEvent::KeyRelease && key.isAutoRepeat()) return false;
  WindowMessage message;
  message.kind = event.type() == QEvent::KeyPress ? MessageKind::KeyDown : MessageKind::KeyUp;
  message.key = KeyOf(key);
  message.target = watched == findField_ ? MessageTarget::FindField
                   : watched == tree_    ? MessageTarget::Tree
                   : watched == list_    ? MessageTarget::List
                                         : MessageTarget::OtherChild;
  return logic_->PreTranslateMessage(message);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceStrip();
  if (logic_) logic_->OnSize(width(), LayoutHeight());
}

// The play list window opened first; it must not start hidden behind.
void MainWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (playListWindow_->isVisible()) RaisePlayList();
}

void MainWindow::PlaceStrip() {
  const int stripHeight = strip_->PreferredHeight();
  strip_->setGeometry(kStripMargin, height() - stripHeight - kStripMargin, std::max(width() - 2 * kStripMargin, 0),
                      stripHeight);
}

int MainWindow::LayoutHeight() const { return std::max(height() - strip_->PreferredHeight() - kStripMargin, 0); }

void MainWindow::ShowNowPlaying(const NowPlayingStrip& strip) { strip_->Show(strip); }

void MainWindow::ShowVolume(int level) { strip_->ShowVolume(level); }

void MainWindow::WaitForSearchPause(int milliseconds) { searchPause_->start(milliseconds); }

void MainWindow::StopSearchPause() { searchPause_->stop(); }

void MainWindow::PollPlayer(bool on) {
  if (on)
    poll_->start();
  else
    poll_->stop();
}

void MainWindow::FocusFindField() {
  findField_->setFocus(Qt::ShortcutFocusReason);
  findField_->selectAll();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (closed_) return;
  closed_ = true;
  logic_->OnDestroy();
  playListWindow_->hide();
  if (onClosed) onClosed();
}

void MainWindow::AttachToolTips(std::span<const MainControl> controls) {
  for (const MainControl& control : controls) {
    const auto found = controls_.find(control.id);
    if (found != controls_.end()) found->second->setToolTip(QString::fromUtf8(control.toolTip));
  }
}

void MainWindow::MoveWindow(int left, int top, int width, int height) { MoveTopLevel(*this, left, top, width, height); }

Rect MainWindow::OuterRect() const { return TopLevelRect(*this); }

// The logic lays out the panes and the status line above the strip.
Rect MainWindow::ClientRect() const { return {0, 0, width(), LayoutHeight()}; }

void MainWindow::MoveTree(int x, int y, int width, int height) {
  tree_->setGeometry(x, y, std::max(width, 0), std::max(height, 0));
}

void MainWindow::MoveList(int x, int y, int width, int height) {
  list_->setGeometry(x, y, std::max(width, 0), std::max(height, 0));
}

void MainWindow::MoveStatusLine(int x, int y, int width, int height) {
  statusLine_->setGeometry(x, y, std::max(width, 0), std::max(height, 0));
}

int MainWindow::StatusLineHeight() const { return fontMetrics().height() + 2; }

// A line too long for the window is cut; its tool tip holds all of it.
void MainWindow::SetStatusLine(const std::string& text) {
  statusLine_->setText(ToQString(text));
  statusLine_->setToolTip(statusLine_->text());
}

Rect MainWindow::AvailableScreen() const { return AvailableScreenOf(*this); }

bool MainWindow::IsMaximized() const { return isMaximized(); }

void MainWindow::SetMaximized(bool maximized) {
  setWindowState(maximized ? windowState() | Qt::WindowMaximized : windowState() & ~Qt::WindowMaximized);
}

void MainWindow::SetSizingCursor() { setCursor(Qt::SizeHorCursor); }

void MainWindow::CaptureMouse() { grabMouse(); }

void MainWindow::ReleaseMouse() { releaseMouse(); }

std::string MainWindow::FindText() const { return ToStdString(findField_->text()); }

void MainWindow::SetFindText(const std::string& text) { findField_->setText(ToQString(text)); }

void MainWindow::ShowAbout() {
  if (dialogs_.about) dialogs_.about(this);
}

bool MainWindow::IsPlayListVisible() const { return playListWindow_->isVisible(); }

void MainWindow::ShowPlayList(bool show) { playListWindow_->setVisible(show); }

void MainWindow::MovePlayList(int left, int top, int width, int height) {
  MoveTopLevel(*playListWindow_, left, top, width, height);
}

Rect MainWindow::PlayListRect() const { return TopLevelRect(*playListWindow_); }

void MainWindow::RaisePlayList() {
  if (playListWindow_->isMinimized())
    playListWindow_->setWindowState(playListWindow_->windowState() & ~Qt::WindowMinimized);
  playListWindow_->raise();
  stacking_->Raised(*playListWindow_);
}

// A minimised window counts as covered: "PL" brings it back.
bool MainWindow::IsPlayListCovered() const {
  return playListWindow_->isMinimized() || stacking_->Covers(*this, *playListWindow_);
}
