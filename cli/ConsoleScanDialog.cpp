#include "cli/ConsoleScanDialog.h"

#include <chrono>
#include <thread>

#include "cli/ConsoleCommand.h"

ConsoleScanDialog::ConsoleScanDialog(platform::MessageBox& messages, std::FILE* err, bool terminal)
    : messages_(messages), err_(err), terminal_(terminal) {}

void ConsoleScanDialog::RunScanDialog(CVolumeScanner& scanner) {
  ended_ = false;
  status_.clear();
  position_ = 0;
  lastDrawn_.clear();
  CScanDlg dialog(scanner, messages_, *this);
  dialog.OnInitDialog();
  while (!ended_) {
    std::this_thread::sleep_for(std::chrono::milliseconds(timerPeriodMs_ > 0 ? timerPeriodMs_ : 500));
    dialog.OnTimer(CScanDlg::kTimerId);
  }
  dialog.OnDestroy();
}

void ConsoleScanDialog::SetStatusText(const std::string& text) {
  status_ = OneLine(text);
  Draw();
}

void ConsoleScanDialog::SetProgressPos(int position) {
  position_ = position;
  Draw();
}

void ConsoleScanDialog::StartTimer(int, int periodMs) { timerPeriodMs_ = periodMs; }
void ConsoleScanDialog::StopTimer(int) {}

void ConsoleScanDialog::EndDialog(int) {
  ended_ = true;
  if (terminal_ && !lastDrawn_.empty()) std::fputs("\n", err_);
  std::fflush(err_);
}

void ConsoleScanDialog::Draw() {
  constexpr int kWidth = 20;
  const int filled = position_ * kWidth / 100;
  const std::string line = "[" + std::string(filled, '#') + std::string(kWidth - filled, '-') +
                           "] " + std::to_string(position_) + "% " + status_;
  if (line == lastDrawn_) return;
  lastDrawn_ = line;
  if (terminal_) {
    // Back to the line's start, draw, clear what a longer line left behind.
    std::fprintf(err_, "\r%s\x1b[K", line.c_str());
  } else {
    std::fprintf(err_, "%s\n", line.c_str());
  }
  std::fflush(err_);
}
