#include "ui/CMainDlg.h"

#include "dialogs/COptionsDlg.h"
#include "playback/CPlaybackControl.h"
#include "scan/ScanCommands.h"
#include "settings/CAppSettings.h"
#include "ui/QuickSearch.h"

namespace {

constexpr int kPaneTop = 30;
constexpr int kPaneBottomMargin = 10;
constexpr int kPaneMargin = 5;

}  // namespace

CMainDlg::CMainDlg(const MainWindowParts& parts, MainWindowView& view)
    : parts_(parts),
      view_(view),
      playListWindow_(parts.playList, parts.playListView),
      splitter_(parts.settings.splitter) {
  playListWindow_.OnLibraryChanged([this] { parts_.tree.Rebuild(); });
}

CMainDlg::~CMainDlg() {
  if (!panesBound_) return;
  parts_.tree.Unbind();
  parts_.list.Unbind();
}

void CMainDlg::OnInitDialog() {
  view_.AttachToolTips(kControls);
  parts_.tree.Bind(parts_.treeControls);
  parts_.list.Bind(parts_.listControls);
  parts_.list.CreateColumns();
  panesBound_ = true;

  const CAppSettings& settings = parts_.settings;
  playListWindow_.OnInitDialog();
  ShowPlayList(kShow);
  view_.MovePlayList(settings.playListLeft, settings.playListTop, settings.playListWidth,
                     settings.playListHeight);

  dragging_ = false;
  splitter_ = settings.splitter;
  band_ = {splitter_, 0, 1, 1};  // holds no point until the first layout
  view_.MoveWindow(settings.mainLeft, settings.mainTop, settings.mainWidth, settings.mainHeight);
  Layout();
  parts_.tree.Rebuild();
}

void CMainDlg::OnCommand(int command) {
  switch (command) {
    case kAddCd: parts_.scans.AddCd(); break;
    case kAddHd: parts_.scans.AddHd(); break;
    case kTogglePlayList: ShowPlayList(view_.IsPlayListVisible() ? kHide : kShow); break;
    case kOptions: RunOptions(); break;
    case kAbout: view_.ShowAbout(); break;
    case kGo: Search(); break;
    case kPlay: PlaySelected(); break;
    case kStop: parts_.playback.StopPlayback(); break;
    case kSkipForward: parts_.playback.SkipForward(); break;
    default: break;
  }
}

void CMainDlg::OnSize(int clientWidth, int clientHeight) { Layout(clientWidth, clientHeight); }

void CMainDlg::Layout() {
  const Rect client = view_.ClientRect();
  Layout(client.right - client.left, client.bottom - client.top);
}

void CMainDlg::Layout(int clientWidth, int clientHeight) {
  const int s = splitter_;
  const int paneHeight = clientHeight - kPaneTop - kPaneBottomMargin;
  if (panesBound_) {
    view_.MoveTree(kPaneMargin, kPaneTop, s - kPaneMargin, paneHeight);
    view_.MoveList(s + kPaneMargin, kPaneTop, clientWidth - (s + kPaneMargin) - kPaneMargin, paneHeight);
  }
  band_ = {s, kPaneTop, s + kBandWidth, clientHeight - kPaneBottomMargin};
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
    case MessageKind::KeyUp: OnKeyUp(message); return false;
    case MessageKind::KeyDown: OnKeyDown(message); return message.key == KeyCode::Enter || message.key == KeyCode::Escape;
    default: return false;
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
      break;
    case KeyCode::Escape:
      if (inFindField) view_.SetFindText("");
      break;
    case KeyCode::Control: controlHeld_ = true; break;
    case KeyCode::A:
      if (controlHeld_ && message.target == MessageTarget::List) parts_.list.SelectAll();
      break;
    default: break;
  }
}

void CMainDlg::OnKeyUp(const WindowMessage& message) {
  if (message.key == KeyCode::Control) controlHeld_ = false;
  if (message.key == KeyCode::Delete && message.target == MessageTarget::Tree)
    parts_.tree.RemoveAndRebuild(parts_.tree.SelectedNode());
}

void CMainDlg::OnTreeSelectionChanged(platform::TreeItem node) { parts_.tree.OnSelectionChanged(node); }

void CMainDlg::OnTreeContextMenu(platform::TreeItem hit) { parts_.tree.OnContextMenu(hit); }

// After an edit only a folder's rows are read again; play-list and search
// rows keep their old texts until the list is next filled.
void CMainDlg::OnListContextMenu() {
  if (!parts_.list.OnContextMenu()) return;
  const DecodedNode selected = parts_.tree.Decode(parts_.tree.SelectedNode());
  if (selected.kind != NodeKind::Folder) return;
  parts_.list.Clear();
  parts_.list.FillWithFolder(selected.id);
}

void CMainDlg::OnListDoubleClick() { parts_.list.AddSelectedToPlayList(); }

void CMainDlg::OnDestroy() {
  CAppSettings& settings = parts_.settings;
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

void CMainDlg::Search() { QuickSearch(parts_.tree, parts_.list, view_.FindText()); }

void CMainDlg::PlaySelected() {
  const IdList selected = parts_.list.SelectedFileIds();
  if (!selected.empty()) parts_.playback.PlayFile(static_cast<int>(selected.front()));
}

void CMainDlg::RunOptions() {
  COptionsDlg dialog(parts_.settings, parts_.drives, parts_.picker, parts_.options);
  dialog.DoModal();
}
