#include "ui/CMainDlg.h"

#include <algorithm>
#include <tuple>

#include "base/CountText.h"
#include "base/LengthText.h"
#include "catalogue/MediaDB.h"
#include "dialogs/COptionsDlg.h"
#include "platform/ColumnLayout.h"
#include "platform/ListControl.h"
#include "playback/CPlaybackControl.h"
#include "playlists/CPlayThrough.h"
#include "scan/ScanCommands.h"
#include "settings/CAppSettings.h"
#include "ui/QuickSearch.h"

namespace {

constexpr int kPaneTop = 30;
constexpr int kPaneBottomMargin = 10;
constexpr int kPaneMargin = 5;
constexpr int kStatusGap = 2;
constexpr int kScrollBarRoom = 24;  // a list's frame and vertical scroll bar
constexpr int kWindowGap = 10;      // between the main window and the play list window at first start

// Stopped, or played to its end, the file is shown no more: nothing plays.
bool Sounding(const PlayerStatus& status) {
  return status.fileId != 0 && (status.mode == CMciPlayer::Mode::Playing || status.mode == CMciPlayer::Mode::Paused);
}

}  // namespace

CMainDlg::CMainDlg(const MainWindowParts& parts, MainWindowView& view)
    : parts_(parts),
      view_(view),
      playListWindow_(parts.playList, parts.playListView),
      splitter_(parts.settings.splitter) {
  startedListener_ = parts_.playback.OnStarted([this](int) {
    view_.PollPlayer(true);
    PollNow();
  });
  openingListener_ = parts_.playback.OnOpening([this] { view_.ShowNowPlaying(DescribeStatus(status_)); });
  changesListener_ =
      parts_.catalogue.Events().Subscribe([this](const CatalogueChanges& changes) { OnCatalogueChanged(changes); });
}

// An edit of the playing file shows in the strip at once.
void CMainDlg::OnCatalogueChanged(const CatalogueChanges& changes) {
  if (describedFileId_ == 0 || !changes.Touches(CatalogueTable::Files, describedFileId_)) return;
  describedFileId_ = 0;
  view_.ShowNowPlaying(DescribeStatus(status_));
}

CMainDlg::~CMainDlg() {
  parts_.playback.RemoveListener(startedListener_);
  parts_.playback.RemoveListener(openingListener_);
  parts_.catalogue.Events().Unsubscribe(changesListener_);
  parts_.scans.Unsubscribe(scanReportedListener_);
  if (!panesBound_) return;
  parts_.tree.Unbind();
  parts_.list.Unbind();
}

void CMainDlg::OnInitDialog() {
  parts_.catalogue.ReadSearchTextsAhead();  // so that no typed search waits for them
  view_.AttachToolTips(kControls);
  parts_.tree.Bind(parts_.treeControls);
  parts_.list.Bind(parts_.listControls);
  parts_.list.CreateColumns();
  parts_.list.ShowInLibraryWith([this](int fileId) { parts_.tree.ShowFile(fileId); });
  panesBound_ = true;
  scanReportedListener_ = parts_.scans.OnScanReported([this](const std::string& found) { view_.SetStatusLine(found); });

  if (parts_.settings.GeometryIsDefault()) FitWindowsToScreen();
  playListWindow_.OnInitDialog();
  RestoreWindows();
  Layout();
  RestoreColumns();
  view_.ShowVolume(parts_.settings.volume);
  view_.ShowNowPlaying({});
  parts_.tree.Rebuild();
}

// The stored columns, or else columns that share the lists' widths.
void CMainDlg::RestoreColumns() {
  const CAppSettings& settings = parts_.settings;
  platform::ListControl& list = parts_.listControls.list;
  if (!platform::RestoreColumnLayout(list, settings.mediaListColumns)) {
    const Rect client = view_.ClientRect();
    platform::FitColumns(list, client.right - client.left - splitter_ - 2 * kPaneMargin - kScrollBarRoom,
                         CMediaList::kRating);
  }
  if (settings.playListColumns.empty())
    platform::FitColumns(parts_.playListView.List(), settings.playListWidth - 2 * kPaneMargin - kScrollBarRoom);
}

// Two thirds of the screen for the main window, a third of it for the tree,
// and the play list window beside it on the right.
void CMainDlg::FitWindowsToScreen() {
  const Rect screen = view_.AvailableScreen();
  const int width = screen.right - screen.left;
  const int height = screen.bottom - screen.top;
  if (width <= 0 || height <= 0) return;
  CAppSettings& settings = parts_.settings;
  settings.mainWidth = width * 2 / 3;
  settings.mainHeight = height * 2 / 3;
  settings.mainLeft = screen.left + width / 12;
  settings.mainTop = screen.top + height / 6;
  settings.splitter = settings.mainWidth / 3;
  settings.playListLeft = settings.mainLeft + settings.mainWidth + kWindowGap;
  settings.playListTop = settings.mainTop;
  settings.playListWidth = std::max(screen.right - kWindowGap - settings.playListLeft, kWindowGap);
  settings.playListHeight = settings.mainHeight;
}

void CMainDlg::RestoreWindows() {
  const CAppSettings& settings = parts_.settings;
  ShowPlayList(kShow);
  view_.MovePlayList(settings.playListLeft, settings.playListTop, settings.playListWidth, settings.playListHeight);
  dragging_ = false;
  splitter_ = settings.splitter;
  band_ = {splitter_, 0, 1, 1};  // holds no point until the first layout
  view_.MoveWindow(settings.mainLeft, settings.mainTop, settings.mainWidth, settings.mainHeight);
  if (settings.mainMaximized == 1) view_.SetMaximized(true);
}

void CMainDlg::OnCommand(int command) {
  switch (command) {
    case kAddCd:
      parts_.scans.AddCd();
      break;
    case kAddHd:
      parts_.scans.AddHd();
      break;
    case kTogglePlayList:
      TogglePlayList();
      break;
    case kOptions:
      RunOptions();
      break;
    case kAbout:
      view_.ShowAbout();
      break;
    case kGo:
      Search();
      break;
    case kPlay:
      PlaySelected();
      break;
    case kStop:
      StopPlayback();
      break;
    case kSkipForward:
      parts_.playback.SkipForward();
      break;
    default:
      break;
  }
}

void CMainDlg::OnSize(int clientWidth, int clientHeight) { Layout(clientWidth, clientHeight); }

void CMainDlg::Layout() {
  const Rect client = view_.ClientRect();
  Layout(client.right - client.left, client.bottom - client.top);
}

void CMainDlg::Layout(int clientWidth, int clientHeight) {
  const int s = splitter_;
  const int statusHeight = view_.StatusLineHeight();
  const int statusRoom = statusHeight > 0 ? statusHeight + kStatusGap : 0;
  const int paneHeight = clientHeight - kPaneTop - kPaneBottomMargin - statusRoom;
  if (panesBound_) {
    view_.MoveTree(kPaneMargin, kPaneTop, s - kPaneMargin, paneHeight);
    view_.MoveList(s + kPaneMargin, kPaneTop, clientWidth - (s + kPaneMargin) - kPaneMargin, paneHeight);
    view_.MoveStatusLine(kPaneMargin, kPaneTop + paneHeight + kStatusGap, clientWidth - 2 * kPaneMargin, statusHeight);
  }
  band_ = {s, kPaneTop, s + kBandWidth, clientHeight - kPaneBottomMargin - statusRoom};
}

bool CMainDlg::PreTranslateMessage(const WindowMessage& message) {
  switch (message.kind) {
    case MessageKind::MouseMove:
      if (message.target == MessageTarget::Window) OnMouseMove(message);
      return false;
    case MessageKind::LeftButtonDown:
      if (message.target == MessageTarget::Window && band_.Contains(message.x, message.y)) {
        dragging_ = true;
        view_.SetSizingCursor();
        view_.CaptureMouse();
      }
      return false;
    case MessageKind::LeftButtonUp:
      if (dragging_) {
        dragging_ = false;
        view_.ReleaseMouse();
      }
      return false;
    case MessageKind::KeyUp:
      OnKeyUp(message);
      return false;
    case MessageKind::KeyDown: {
      OnKeyDown(message);
      // Space is the play key everywhere but in the Find field, where it types.
      const bool space = message.key == KeyCode::Space && message.target != MessageTarget::FindField;
      return message.key == KeyCode::Enter || message.key == KeyCode::Escape || space ||
             (message.key == KeyCode::F && controlHeld_);
    }
    default:
      return false;
  }
}

// The lower limit is in client pixels and the upper one uses the outer
// width; a later resize does not bring the splitter back within them.
void CMainDlg::OnMouseMove(const WindowMessage& message) {
  if (!dragging_) {
    if (band_.Contains(message.x, message.y)) view_.SetSizingCursor();
    return;
  }
  const Rect outer = view_.OuterRect();
  const int rightmost = outer.right - outer.left - kRightMargin;
  splitter_ = message.x - 2;
  if (splitter_ < kLeftmostSplitter)
    splitter_ = kLeftmostSplitter;
  else if (splitter_ > rightmost)
    splitter_ = rightmost;
  Layout();
}

void CMainDlg::OnKeyDown(const WindowMessage& message) {
  const bool inFindField = message.target == MessageTarget::FindField;
  switch (message.key) {
    case KeyCode::Enter:
      if (inFindField) Search();
      if (message.target == MessageTarget::List) PlaySelected();
      break;
    case KeyCode::Space:
      if (!inFindField) OnPauseResume();
      break;
    case KeyCode::F:
      if (controlHeld_) view_.FocusFindField();
      break;
    case KeyCode::Escape:
      // Esc empties the field, and so the list that follows it.
      if (inFindField && !view_.FindText().empty()) {
        view_.SetFindText("");
        Search();
      }
      break;
    case KeyCode::Control:
      controlHeld_ = true;
      break;
    case KeyCode::A:
      if (controlHeld_ && message.target == MessageTarget::List) parts_.list.SelectAll();
      break;
    default:
      break;
  }
}

void CMainDlg::OnKeyUp(const WindowMessage& message) {
  if (message.key == KeyCode::Control) controlHeld_ = false;
  if (message.key == KeyCode::Delete && message.target == MessageTarget::Tree)
    parts_.tree.RemoveNode(parts_.tree.SelectedNode());
}

void CMainDlg::OnTreeSelectionChanged(platform::TreeItem node) { parts_.tree.OnSelectionChanged(node); }

void CMainDlg::OnTreeContextMenu(platform::TreeItem hit) { parts_.tree.OnContextMenu(hit); }

// An edit reaches the rows through the catalogue change event.
void CMainDlg::OnListContextMenu() { parts_.list.OnContextMenu(); }

void CMainDlg::OnListDoubleClick() { parts_.list.AddSelectedToPlayList(); }

void CMainDlg::OnListHeaderClicked(int column) { parts_.list.SortBy(column); }

void CMainDlg::OnListHeaderContextMenu() { parts_.list.OnHeaderContextMenu(); }

void CMainDlg::OnDestroy() {
  StoreWindows();
  parts_.settings.mediaListColumns = platform::SaveColumnLayout(parts_.listControls.list);
  playListWindow_.StoreColumns();
  playListWindow_.StoreQueue();
}

void CMainDlg::StoreWindows() {
  CAppSettings& settings = parts_.settings;
  settings.mainMaximized = view_.IsMaximized() ? 1 : 0;
  const Rect main = view_.OuterRect();
  settings.mainLeft = main.left;
  settings.mainTop = main.top;
  settings.mainHeight = main.bottom - main.top;
  settings.mainWidth = main.right - main.left;
  settings.splitter = splitter_;
  const Rect playList = view_.PlayListRect();
  settings.playListLeft = playList.left;
  settings.playListTop = playList.top;
  settings.playListHeight = playList.bottom - playList.top;
  settings.playListWidth = playList.right - playList.left;
}

void CMainDlg::ShowPlayList(int how) {
  const bool visible = view_.IsPlayListVisible();
  if (how == kShow && !visible) view_.ShowPlayList(true);
  if (how == kHide && visible) view_.ShowPlayList(false);
}

void CMainDlg::TogglePlayList() {
  if (view_.IsPlayListVisible() && !view_.IsPlayListCovered()) {
    ShowPlayList(kHide);
    return;
  }
  ShowPlayList(kShow);
  view_.RaisePlayList();
}

void CMainDlg::OnFindTextEdited() { view_.WaitForSearchPause(kSearchPauseMs); }

// The texts searched are read on a thread at start and after large changes;
// a typed search waits for them without holding up the window.
void CMainDlg::OnSearchPause() {
  if (parts_.catalogue.SearchWouldWait()) return view_.WaitForSearchPause(kSearchPauseMs);
  Search();
}

void CMainDlg::Search() {
  view_.StopSearchPause();
  QuickSearch(parts_.tree, parts_.list, view_.FindText());
  view_.SetStatusLine(Counted(parts_.list.RowCount(), "file found.", "files found."));
}

// With "Play through" down the file plays on into the rows below it, in the
// list as it is shown now (a folder, search results, a stored play list).
void CMainDlg::PlaySelected() {
  const IdList selected = parts_.list.SelectedFileIds();
  if (selected.empty()) return;
  if (parts_.playList.playThrough.Enabled()) {
    IdList rows = parts_.list.AllFileIds();
    const auto row = std::find(rows.begin(), rows.end(), selected.front()) - rows.begin();
    parts_.playList.playThrough.PlayList(std::move(rows), static_cast<int>(row));
    PollNow();
    return;
  }
  parts_.playList.playThrough.Stop();
  parts_.playback.PlayFile(static_cast<int>(selected.front()));
}

void CMainDlg::StopPlayback() {
  parts_.playList.playThrough.Stop();
  parts_.playback.StopPlayback();
  PollNow();
}

void CMainDlg::OnPlayerTick() { PollNow(); }

// One question at a time: answers then follow the commands in their order.
void CMainDlg::PollNow() {
  if (pollPending_) return;
  pollPending_ = true;
  // An answer that comes after this window is gone (the player's thread
  // may outlive it) finds it gone and is dropped.
  parts_.playback.Poll([this, alive = std::weak_ptr<bool>(alive_)](const PlayerStatus& status) {
    if (alive.expired()) return;
    pollPending_ = false;
    OnPlayerStatus(status);
  });
}

void CMainDlg::OnPlayerStatus(const PlayerStatus& status) {
  status_ = status;
  view_.ShowNowPlaying(DescribeStatus(status));
  if (status.mode == CMciPlayer::Mode::NotReady) view_.PollPlayer(false);
  playListWindow_.OnPlayerStatus(status);
  statusShown_.Notify();
}

int CMainDlg::Volume() const { return parts_.settings.volume; }

NowPlayingStrip CMainDlg::DescribeStatus(const PlayerStatus& status) {
  NowPlayingStrip strip;
  if (parts_.playback.OpeningFileId() != 0) {
    strip.opening = "Opening " + parts_.playback.OpeningName() + "\u2026";
    return strip;
  }
  if (!Sounding(status)) return strip;
  // While a worker holds the catalogue the strip keeps the texts it has.
  if (status.fileId != describedFileId_ && !parts_.catalogue.HeldByWorker()) {
    describedFileId_ = status.fileId;
    std::tie(song_, artist_) = parts_.list.SongAndArtist(status.fileId);
    // The file plays, so it lies where it was opened: no disc to read here.
    coverPath_ = status.fileId == parts_.playback.CurrentFileId() ? parts_.playback.CurrentPath() : "";
  }
  strip.open = true;
  strip.song = song_;
  strip.artist = artist_;
  strip.positionMs = status.positionMs;
  strip.lengthMs = status.lengthMs;
  strip.time = FormatPlayTime(status.positionMs) + " / " + FormatPlayTime(status.lengthMs);
  strip.paused = status.mode == CMciPlayer::Mode::Paused;
  strip.fileId = status.fileId;
  strip.coverPath = coverPath_;
  return strip;
}

// Pauses what plays, resumes what was paused, and otherwise plays the
// selected file.
void CMainDlg::OnPauseResume() {
  switch (status_.mode) {
    case CMciPlayer::Mode::Playing:
      parts_.playback.Pause();
      break;
    case CMciPlayer::Mode::Paused:
      parts_.playback.Resume();
      break;
    default:
      PlaySelected();
      return;
  }
  PollNow();
}

void CMainDlg::OnSeek(int ms) {
  parts_.playback.SeekTo(ms);
  PollNow();
}

void CMainDlg::OnVolume(int level) {
  parts_.settings.volume = std::clamp(level, 0, CAppSettings::kFullVolume);
  parts_.playback.SetVolume(parts_.settings.volume);
}

void CMainDlg::ChangeVolume(int level) {
  OnVolume(level);
  view_.ShowVolume(parts_.settings.volume);
}

void CMainDlg::RunOptions() {
  COptionsDlg dialog(parts_.settings, parts_.drives, parts_.picker, parts_.options);
  if (dialog.DoModal() == kDialogOk) parts_.playback.SetReplayGain(parts_.settings.replayGain);
}
