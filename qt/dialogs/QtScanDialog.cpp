#include "qt/dialogs/QtScanDialog.h"

#include "scan/CVolumeScanner.h"

QtScanDialog::QtScanDialog(QWidget* parent) : QtProgressDialog(CScanDlg::kCaption, parent) {}

void QtScanDialog::Run(CVolumeScanner& scanner, platform::MessageBox& messages) {
  CScanDlg logic(scanner, messages, *this);
  WorkerProgress& progress = scanner.Progress();
  QtProgressDialog::Run({
      .start = [&] { logic.OnInitDialog(); },
      .tick = [&](int id) { logic.OnTimer(id); },
      .cancel = [&] { logic.OnCancel(); },
      .stopWorker = [&] { progress.cancel = true; },
      .workerBusy = [&] { return !progress.done; },
      .finish = [&] { logic.OnDestroy(); },
  });
}

void QtScanDialog::SetStatusText(const std::string& text) { SetStatus(text); }
void QtScanDialog::SetProgressPos(int position) { SetPosition(position); }
void QtScanDialog::StartTimer(int id, int periodMs) { StartTicking(id, periodMs); }
void QtScanDialog::StopTimer(int) { StopTicking(); }
void QtScanDialog::EndDialog(int result) { End(result); }
