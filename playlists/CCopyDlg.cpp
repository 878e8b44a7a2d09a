#include "playlists/CCopyDlg.h"

#include "platform/MessageBox.h"
#include "playlists/CopyJob.h"
#include "playlists/CopyWorker.h"

CCopyDlg::CCopyDlg(CopyWorker& worker, IdList fileIds, platform::MessageBox& messages,
                   CopyDialogView& view)
    : worker_(worker), fileIds_(std::move(fileIds)), messages_(messages), view_(view) {}

CCopyDlg::~CCopyDlg() { OnDestroy(); }

void CCopyDlg::OnInitDialog() {
  // Reset here, before the thread exists, so that a Cancel pressed before the
  // worker gets going is not lost. The progress keeps its last value.
  WorkerProgress& state = worker_.Job().state;
  state.done = false;
  state.cancel = false;
  view_.StartTimer(kTimerId, kTimerPeriodMs);
  thread_ = std::thread([this] { worker_.Run(fileIds_); });
}

void CCopyDlg::OnTimer(int id) {
  if (id != kTimerId || ended_) return;
  const WorkerProgress& state = worker_.Job().state;
  view_.SetStatusText(state.Status());
  view_.SetProgressPos(state.progress);
  if (!state.done) return;
  view_.StopTimer(kTimerId);
  messages_.Show(kComplete, platform::Buttons::Ok, platform::Icon::Information);
  ended_ = true;
  view_.EndDialog(0);
}

void CCopyDlg::OnCancel() {
  if (ended_) return;
  ended_ = true;
  view_.EndDialog(0);
}

void CCopyDlg::OnDestroy() {
  worker_.Job().state.cancel = true;
  if (!thread_.joinable()) return;
  view_.StopTimer(kTimerId);
  thread_.join();
}

bool CCopyDlg::WorkerBusy() const { return thread_.joinable() && !worker_.Job().state.done; }
