#pragma once
// The "Scan Volume" dialog on a terminal: the status text and a progress bar
// on standard error, redrawn in place on a terminal and written as plain lines
// otherwise, while the scan worker runs.

#include <cstdio>
#include <string>

#include "cli/ConsoleProgressLine.h"
#include "scan/CScanDlg.h"
#include "scan/ScanCommands.h"

namespace platform {
class MessageBox;
}

class ConsoleScanDialog : public ScanDialogHost, private ScanDialogView {
 public:
  ConsoleScanDialog(platform::MessageBox& messages, std::FILE* err, bool terminal);

  void RunScanDialog(CVolumeScanner& scanner) override;

 private:
  void SetStatusText(const std::string& text) override;
  void SetProgressPos(int position) override;
  void StartTimer(int id, int periodMs) override;
  void StopTimer(int id) override;
  void EndDialog(int result) override;

  platform::MessageBox& messages_;
  ConsoleProgressLine line_;
  int timerPeriodMs_ = CScanDlg::kTimerPeriodMs;
  bool ended_ = false;
};
