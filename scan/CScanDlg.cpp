#include "scan/CScanDlg.h"

#include "platform/MessageBox.h"
#include "scan/CVolumeScanner.h"

CScanDlg::CScanDlg(CVolumeScanner& scanner, platform::MessageBox& messages, ScanDialogView& view)
    : scanner_(scanner), messages_(messages), view_(view) {}

CScanDlg::~CScanDlg() { OnDestroy(); }

void CScanDlg::OnInitDialog() {
  view_.StartTimer(kTimerId, kTimerPeriodMs);
  worker_ = std::thread([this] { scanner_.Run(); });
}

void CScanDlg::OnTimer(int id) {
  if (id != kTimerId || ended_) return;
  WorkerProgress& progress = scanner_.Progress();
  view_.SetStatusText(progress.Status());
  view_.SetProgressPos(progress.progress);
  if (!progress.done) return;
  view_.StopTimer(kTimerId);
  if (!progress.cancel) TellOutcome();
  ended_ = true;
  view_.EndDialog(0);
}

// "Scan Complete.", then what the user should know about the scan in one box;
// or, for a root that was not scanned, why not.
void CScanDlg::TellOutcome() {
  const ScanReport& report = scanner_.Report();
  if (!report.Refusal().empty()) {
    messages_.Show(report.Refusal(), platform::Buttons::Ok, platform::Icon::Information);
    return;
  }
  messages_.Show(kComplete, platform::Buttons::Ok, platform::Icon::Information);
  const std::string notes = report.Notes();
  if (!notes.empty()) messages_.Show(notes, platform::Buttons::Ok, platform::Icon::Information);
}

void CScanDlg::OnCancel() {
  if (ended_) return;
  ended_ = true;
  view_.EndDialog(0);
}

void CScanDlg::OnDestroy() {
  scanner_.Progress().cancel = true;
  if (!worker_.joinable()) return;
  view_.StopTimer(kTimerId);
  worker_.join();
}
