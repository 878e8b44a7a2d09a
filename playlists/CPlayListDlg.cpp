#include "playlists/CPlayListDlg.h"

#include <algorithm>

#include "base/CountText.h"
#include "base/MessageText.h"
#include "dialogs/CFolderDialog.h"
#include "dialogs/CInputDlg.h"
#include "platform/ColumnLayout.h"
#include "platform/FilePicker.h"
#include "playback/CPlaybackControl.h"
#include "playlists/CPlayListModel.h"
#include "playlists/CPlayThrough.h"
#include "playlists/CopyCommands.h"
#include "playlists/CopySummary.h"
#include "playlists/PlayListFiles.h"
#include "settings/CAppSettings.h"

CPlayListDlg::CPlayListDlg(PlayListWindowParts parts, PlayListView& view) : parts_(parts), view_(view) {}

CPlayListDlg::~CPlayListDlg() { parts_.model.DetachList(); }

void CPlayListDlg::OnInitDialog() {
  view_.MoveWindow(10, 10, 180, 300);
  view_.AddButtons(kButtons);
  parts_.model.AttachList(view_.List());
  parts_.model.InsertColumns();
  platform::RestoreColumnLayout(view_.List(), parts_.settings.playListColumns);
  view_.SetChecked(kPlayThrough, parts_.settings.playThrough);
  ShowOrder();
  parts_.model.RestoreQueue();
}

void CPlayListDlg::StoreQueue() {
  const auto playing = parts_.playThrough.OnPlayList() ? parts_.playThrough.PlayingRow() : std::nullopt;
  parts_.model.KeepQueue(playing.value_or(-1));
}

void CPlayListDlg::StoreColumns() { parts_.settings.playListColumns = platform::SaveColumnLayout(view_.List()); }

void CPlayListDlg::OnRowsDragged(const std::vector<int>& rows, int before) { parts_.model.MoveRows(rows, before); }

void CPlayListDlg::OnFilesDropped(const IdList& fileIds) { parts_.model.AddFiles(fileIds); }

void CPlayListDlg::OnLocalFilesDropped(const std::vector<std::string>& localPaths) {
  const int missing = parts_.model.AddLocalFiles(localPaths, parts_.drives);
  view_.SetStatusLine(missing == 0 ? "" : FillMessage(kNotCatalogued, {Counted(missing, "file is", "files are")}));
}

void CPlayListDlg::OnSize(int clientWidth, int clientHeight) {
  view_.MoveList(5, 25, clientWidth - 10, clientHeight - 30);
}

void CPlayListDlg::OnCommand(int command) {
  switch (command) {
    case kCache:
      CopyToCache();
      break;
    case kClearCache:
      parts_.copy.ClearCache();
      break;
    case kPlay:
      PlaySelected();
      break;
    case kStop:
      parts_.playThrough.Stop();
      parts_.playback.StopPlayback();
      break;
    case kPlayThrough:
      TogglePlayThrough();
      break;
    case kShuffle:
      parts_.playThrough.SetShuffle(!parts_.playThrough.Shuffle());
      ShowOrder();
      break;
    case kRepeat:
      NextRepeat();
      break;
    case kSkipForward:
      parts_.playback.SkipForward();
      break;
    case kCopySelectionTo:
      CopyToPickedFolder(true);
      break;
    case kCopyAllTo:
      CopyToPickedFolder(false);
      break;
    case kSavePlayList:
      SavePlayList();
      break;
    case kExportPlayList:
      ExportRows();
      break;
    case kImportPlayList:
      ImportFile();
      break;
    default:
      break;
  }
}

void CPlayListDlg::OnKeyReleased(Key key) {
  if (key == Key::Delete) parts_.model.RemoveSelectedRows();
}

void CPlayListDlg::OnListKeyPressed(Key key, bool control) {
  if (key == Key::A && control) parts_.model.SelectAllRows();
  if (key == Key::Enter) PlaySelected();
}

void CPlayListDlg::OnPlayerStatus(const PlayerStatus& status) {
  parts_.playThrough.OnStatus(status);
  ShowOrder();
  const bool sounding = status.mode == CMciPlayer::Mode::Playing || status.mode == CMciPlayer::Mode::Paused;
  const std::int32_t playing = sounding ? status.fileId : 0;
  if (playing == marked_) return;
  marked_ = playing;
  view_.MarkPlayingFile(playing);
}

void CPlayListDlg::TogglePlayThrough() {
  parts_.settings.playThrough = !parts_.settings.playThrough;
  parts_.playThrough.SetEnabled(parts_.settings.playThrough);
  view_.SetChecked(kPlayThrough, parts_.settings.playThrough);
}

// Off, the whole list, one file, and round again.
void CPlayListDlg::NextRepeat() {
  using Repeat = CPlayThrough::Repeat;
  const Repeat now = parts_.playThrough.GetRepeat();
  parts_.playThrough.SetRepeat(now == Repeat::Off ? Repeat::All : now == Repeat::All ? Repeat::One : Repeat::Off);
  ShowOrder();
}

void CPlayListDlg::ShowOrder() {
  const std::pair<bool, int> order{parts_.playThrough.Shuffle(), static_cast<int>(parts_.playThrough.GetRepeat())};
  if (shownOrder_ == order) return;
  shownOrder_ = order;
  view_.SetChecked(kShuffle, order.first);
  view_.SetChecked(kRepeat, parts_.playThrough.GetRepeat() != CPlayThrough::Repeat::Off);
  view_.SetButtonText(kRepeat, std::string("Repeat: ") + RepeatText(parts_.playThrough.GetRepeat()));
}

void CPlayListDlg::OnContextMenu(bool onList) {
  if (onList) OnCommand(view_.TrackPopupMenu(kMenu));
}

// The first selected row, played on through the rows below it.
void CPlayListDlg::PlaySelected() {
  const IdList selected = parts_.model.GetFileIds(true);
  if (selected.empty()) return;
  const IdList all = parts_.model.GetFileIds(false);
  const auto row = std::find(all.begin(), all.end(), selected.front()) - all.begin();
  parts_.playThrough.PlayRow(static_cast<int>(row));
}

void CPlayListDlg::CopyToCache() { view_.SetStatusLine(parts_.copy.CopyToCache().StatusLine()); }

void CPlayListDlg::CopyToPickedFolder(bool selectionOnly) {
  CFolderDialog picker(parts_.picker, parts_.drives, kPickerTitle, parts_.settings.playListFolder);
  if (picker.DoModal() != CFolderDialog::kChosen) return;
  view_.SetStatusLine(parts_.copy.CopyFiles(picker.ChosenPath(), selectionOnly).StatusLine());
  parts_.settings.playListFolder = picker.ChosenPath();
}

void CPlayListDlg::SavePlayList() {
  CInputDlg input(parts_.input);
  input.caption = kSaveCaption;
  input.prompt = kSavePrompt;
  input.okLabel = kSaveButton;
  // The answer is not looked at: Cancel saves too, under the empty name.
  input.DoModal();
  parts_.model.SavePlayList(input.text);
}

void CPlayListDlg::ExportRows() {
  std::string path;
  if (parts_.filePicker.Pick(platform::FilePicker::Purpose::Save, kExportTitle, kWrittenFilter, lastFile_, path) !=
      platform::FilePicker::kChosen)
    return;
  lastFile_ = WithPlayListExtension(path);
  view_.SetStatusLine(
      ExportOutcome(parts_.model.ExportRows(lastFile_, parts_.drives, parts_.settings.cdDrive), lastFile_));
}

void CPlayListDlg::ImportFile() {
  std::string path;
  if (parts_.filePicker.Pick(platform::FilePicker::Purpose::Open, kImportTitle, kReadFilter, lastFile_, path) !=
      platform::FilePicker::kChosen)
    return;
  lastFile_ = path;
  const std::size_t before = parts_.model.GetFileIds(false).size();
  const PlayListFileImport imported = parts_.model.AddFilesListedIn(path, parts_.drives);
  const auto added = static_cast<int>(parts_.model.GetFileIds(false).size() - before);
  view_.SetStatusLine(ImportOutcome(imported, path, added));
}
