#include "cli/ConsoleProgressDialog.h"

#include <chrono>
#include <thread>

ConsoleProgressDialog::ConsoleProgressDialog(platform::MessageBox& messages, std::FILE* err, bool terminal)
    : messages_(messages), line_(err, terminal) {}

void ConsoleProgressDialog::RunModal(CWorkerDlg& dialog) {
  ended_ = false;
  dialog.OnInitDialog();
  while (!ended_) {
    std::this_thread::sleep_for(std::chrono::milliseconds(timerPeriodMs_));
    dialog.OnTimer(dialog.TimerId());
  }
  dialog.OnDestroy();
}

void ConsoleProgressDialog::RunWorkerDialog(const char*, const MakeLogic& makeLogic) {
  const std::unique_ptr<CWorkerDlg> dialog = makeLogic(*this, messages_);
  RunModal(*dialog);
}

void ConsoleProgressDialog::SetStatusText(const std::string& text) { line_.SetStatus(text); }
void ConsoleProgressDialog::SetProgressPos(int position) { line_.SetPosition(position); }
void ConsoleProgressDialog::StartTimer(int, int periodMs) { timerPeriodMs_ = periodMs; }
// The line ends before the closing message is printed after it.
void ConsoleProgressDialog::StopTimer(int) { line_.Finish(); }

void ConsoleProgressDialog::EndDialog(int) {
  ended_ = true;
  line_.Finish();
}
