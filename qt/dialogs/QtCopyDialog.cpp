#include "qt/dialogs/QtCopyDialog.h"

#include "playlists/CopyJob.h"
#include "playlists/CopyWorker.h"

QtCopyDialog::QtCopyDialog(QWidget* parent) : QtProgressDialog(CCopyDlg::kCaption, parent) {}

void QtCopyDialog::Run(CopyWorker& worker, const IdList& fileIds, platform::MessageBox& messages) {
  CCopyDlg logic(worker, fileIds, messages, *this);
  QtProgressDialog::Run({
      .start = [&] { logic.OnInitDialog(); },
      .tick = [&](int id) { logic.OnTimer(id); },
      .cancel = [&] { logic.OnCancel(); },
      .stopWorker = [&] { worker.Job().state.cancel = true; },
      .workerBusy = [&] { return logic.WorkerBusy(); },
      .finish = [&] { logic.OnDestroy(); },
  });
}

void QtCopyDialog::SetStatusText(const std::string& text) { SetStatus(text); }
void QtCopyDialog::SetProgressPos(int position) { SetPosition(position); }
void QtCopyDialog::StartTimer(int id, int periodMs) { StartTicking(id, periodMs); }
void QtCopyDialog::StopTimer(int) { StopTicking(); }
void QtCopyDialog::EndDialog(int result) { End(result); }
