#include "base/CWorkerDlg.h"

CWorkerDlg::CWorkerDlg(WorkerDialogJob job, WorkerDialogView& view) : job_(std::move(job)), view_(view) {}

CWorkerDlg::~CWorkerDlg() { OnDestroy(); }

void CWorkerDlg::OnInitDialog() {
  // Reset here, before the thread exists, so that a Cancel pressed before the
  // worker gets going is not lost. The progress keeps its last value.
  job_.progress.done = false;
  job_.progress.cancel = false;
  view_.StartTimer(job_.timerId, kTimerPeriodMs);
  thread_ = std::thread([this] { job_.work(); });
}

void CWorkerDlg::OnTimer(int id) {
  if (id != job_.timerId || ended_) return;
  const WorkerProgress& progress = job_.progress;
  view_.SetStatusText(progress.Status());
  view_.SetProgressPos(progress.progress);
  view_.SetOverallText(progress.Overall());
  if (!progress.done) return;
  view_.StopTimer(job_.timerId);
  job_.finish();
  End();
}

// The worker hears of the Cancel at once, not only when the dialog goes: it
// could otherwise finish meanwhile and report a whole run.
void CWorkerDlg::OnCancel() {
  StopWorker();
  if (!ended_) End();
}

void CWorkerDlg::End() {
  ended_ = true;
  view_.EndDialog(0);
}

void CWorkerDlg::OnDestroy() {
  StopWorker();
  if (!thread_.joinable()) return;
  view_.StopTimer(job_.timerId);
  thread_.join();
}

bool CWorkerDlg::WorkerBusy() const { return thread_.joinable() && !job_.progress.done; }

void CWorkerDlg::StopWorker() { job_.progress.cancel = true; }
