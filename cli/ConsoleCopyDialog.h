#pragma once
// The "Copying Files" dialog on a terminal: the file being copied and a
// progress bar on standard error while the copy worker runs.

#include <cstdio>

#include "cli/ConsoleProgressLine.h"
#include "playlists/CCopyDlg.h"

namespace platform {
class MessageBox;
}

class ConsoleCopyDialog : public CopyDialogHost, private CopyDialogView {
 public:
  ConsoleCopyDialog(platform::MessageBox& messages, std::FILE* err, bool terminal);

  void RunCopyDialog(CopyWorker& worker, const IdList& fileIds) override;

 private:
  void SetStatusText(const std::string& text) override;
  void SetProgressPos(int position) override;
  void StartTimer(int id, int periodMs) override;
  void StopTimer(int id) override;
  void EndDialog(int result) override;

  platform::MessageBox& messages_;
  ConsoleProgressLine line_;
  int timerPeriodMs_ = CCopyDlg::kTimerPeriodMs;
  bool ended_ = false;
};
