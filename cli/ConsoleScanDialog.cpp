#include "cli/ConsoleScanDialog.h"

#include <chrono>
#include <thread>


ConsoleScanDialog::ConsoleScanDialog(platform::MessageBox& messages, std::FILE* err, bool terminal)
    : messages_(messages), line_(err, terminal) {}

void ConsoleScanDialog::RunScanDialog(CVolumeScanner& scanner) {
  ended_ = false;
  CScanDlg dialog(scanner, messages_, *this);
  dialog.OnInitDialog();
  while (!ended_) {
    std::this_thread::sleep_for(std::chrono::milliseconds(timerPeriodMs_));
    dialog.OnTimer(CScanDlg::kTimerId);
  }
  dialog.OnDestroy();
}

void ConsoleScanDialog::SetStatusText(const std::string& text) { line_.SetStatus(text); }
void ConsoleScanDialog::SetProgressPos(int position) { line_.SetPosition(position); }
void ConsoleScanDialog::StartTimer(int, int periodMs) { timerPeriodMs_ = periodMs; }
// The line ends before "Scan Complete." is printed after it.
void ConsoleScanDialog::StopTimer(int) { line_.Finish(); }

void ConsoleScanDialog::EndDialog(int) {
  ended_ = true;
  line_.Finish();
}
