#pragma once
// Runs the "Copying Files" dialog's logic the way a front end does, with a
// timer ticked by hand (faster than a person's 500 ms) until the dialog ends.

#include <chrono>
#include <functional>
#include <thread>

#include "playlists/CCopyDlg.h"

namespace testing_support {

class CopyDialogDriver : public CopyDialogHost, private CopyDialogView {
 public:
  explicit CopyDialogDriver(platform::MessageBox& messages) : messages_(messages) {}

  std::function<void(CCopyDlg&, int tick)> beforeTick;  // may press Cancel
  std::string statusText;
  int position = -1;
  int timerPeriodMs = 0;
  int endedWith = -1;

  void RunCopyDialog(CopyWorker& worker, const IdList& fileIds) override {
    endedWith = -1;
    CCopyDlg dialog(worker, fileIds, messages_, *this);
    dialog.OnInitDialog();
    for (int tick = 0; endedWith == -1; ++tick) {
      if (beforeTick) beforeTick(dialog, tick);
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      dialog.OnTimer(CCopyDlg::kTimerId);
    }
    dialog.OnDestroy();
  }

 private:
  void SetStatusText(const std::string& text) override { statusText = text; }
  void SetProgressPos(int newPosition) override { position = newPosition; }
  void StartTimer(int id, int periodMs) override { timerPeriodMs = id == CCopyDlg::kTimerId ? periodMs : 0; }
  void StopTimer(int) override {}
  void EndDialog(int result) override { endedWith = result; }

  platform::MessageBox& messages_;
};

}  // namespace testing_support
