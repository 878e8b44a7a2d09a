#include "cli/ConsoleCopyDialog.h"

#include <chrono>
#include <thread>

ConsoleCopyDialog::ConsoleCopyDialog(platform::MessageBox& messages, std::FILE* err,
                                     bool terminal)
    : messages_(messages), line_(err, terminal) {}

void ConsoleCopyDialog::RunCopyDialog(CopyWorker& worker, const IdList& fileIds) {
  ended_ = false;
  CCopyDlg dialog(worker, fileIds, messages_, *this);
  dialog.OnInitDialog();
  while (!ended_) {
    std::this_thread::sleep_for(std::chrono::milliseconds(timerPeriodMs_));
    dialog.OnTimer(CCopyDlg::kTimerId);
  }
  dialog.OnDestroy();
}

void ConsoleCopyDialog::SetStatusText(const std::string& text) { line_.SetStatus(text); }
void ConsoleCopyDialog::SetProgressPos(int position) { line_.SetPosition(position); }
void ConsoleCopyDialog::StartTimer(int, int periodMs) { timerPeriodMs_ = periodMs; }
// The line ends before "File Copy Complete." is printed after it.
void ConsoleCopyDialog::StopTimer(int) { line_.Finish(); }

void ConsoleCopyDialog::EndDialog(int) {
  ended_ = true;
  line_.Finish();
}
