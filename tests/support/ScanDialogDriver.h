#pragma once
// Runs the "Scan Volume" dialog's logic the way a front end does, with
// controls that record what they were shown and a timer ticked by hand.

#include <chrono>
#include <functional>
#include <thread>
#include <vector>

#include "scan/CScanDlg.h"
#include "scan/CVolumeScanner.h"
#include "scan/ScanCommands.h"

namespace testing_support {

class RecordingScanView : public ScanDialogView {
 public:
  void SetStatusText(const std::string& text) override { statusTexts.push_back(text); }
  void SetProgressPos(int position) override { positions.push_back(position); }
  void StartTimer(int id, int) override { timerRunning = id; }
  void StopTimer(int) override { timerRunning = 0; }
  void EndDialog(int result) override { endedWith = result; }

  std::vector<std::string> statusTexts;
  std::vector<int> positions;
  int timerRunning = 0;
  int endedWith = -1;
};

// A modal run: ticks the timer (faster than a person's 500 ms) until the
// dialog ends. beforeTick may press Cancel, for instance.
class ScanDialogDriver : public ScanDialogHost {
 public:
  explicit ScanDialogDriver(platform::MessageBox& messages) : messages_(messages) {}

  std::function<void(CScanDlg&, int tick)> beforeTick;
  RecordingScanView lastView;
  int runs = 0;

  void RunScanDialog(CVolumeScanner& scanner) override {
    ++runs;
    lastView = RecordingScanView();
    CScanDlg dialog(scanner, messages_, lastView);
    dialog.OnInitDialog();
    for (int tick = 0; lastView.endedWith == -1; ++tick) {
      if (beforeTick) beforeTick(dialog, tick);
      if (lastView.endedWith != -1) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      dialog.OnTimer(CScanDlg::kTimerId);
    }
    dialog.OnDestroy();
  }

 private:
  platform::MessageBox& messages_;
};

}  // namespace testing_support
