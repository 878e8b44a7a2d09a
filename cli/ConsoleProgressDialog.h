#pragma once
// The "Scan Volume" and "Copying Files" dialogs on a terminal: the status text
// and a progress bar on standard error while the worker runs, the timer ticked
// by sleeping for its period.

#include <cstdio>

#include "base/WorkerDialogHost.h"
#include "base/WorkerDialogView.h"
#include "cli/ConsoleProgressLine.h"

namespace platform {
class MessageBox;
}

class ConsoleProgressDialog : public WorkerDialogHost, private WorkerDialogView {
 public:
  ConsoleProgressDialog(platform::MessageBox& messages, std::FILE* err, bool terminal);

  void RunWorkerDialog(const char* caption, const MakeLogic& makeLogic) override;

 private:
  void SetStatusText(const std::string& text) override;
  void SetProgressPos(int position) override;
  // The terminal's one line keeps the status text alone.
  void SetOverallText(const std::string&) override {}
  void StartTimer(int id, int periodMs) override;
  void StopTimer(int id) override;
  void EndDialog(int result) override;

  void RunModal(CWorkerDlg& dialog);

  platform::MessageBox& messages_;
  ConsoleProgressLine line_;
  int timerPeriodMs_ = 500;
  bool ended_ = false;
};
