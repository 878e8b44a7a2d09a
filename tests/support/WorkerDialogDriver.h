#pragma once
// Runs the worker dialogs' logic the way a front end does, with controls that
// record what they were shown and a timer ticked by hand (faster than a
// person's 500 ms) until the dialog ends.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/CWorkerDlg.h"
#include "base/WorkerDialogHost.h"
#include "tests/support/Eventually.h"

namespace testing_support {

class WorkerDialogDriver : public WorkerDialogHost, public WorkerDialogView {
 public:
  explicit WorkerDialogDriver(platform::MessageBox& messages) : messages_(messages) {}

  std::function<void(CWorkerDlg&, int tick)> beforeTick;  // may press Cancel
  // What the last run showed.
  std::vector<std::string> statusTexts;
  std::vector<int> positions;
  std::vector<std::string> overallTexts;
  int timerRunning = 0;  // the running timer's id
  int timerPeriodMs = 0;
  int endedWith = -1;
  int runs = 0;

  void SetStatusText(const std::string& text) override { statusTexts.push_back(text); }
  void SetProgressPos(int position) override { positions.push_back(position); }
  void SetOverallText(const std::string& text) override { overallTexts.push_back(text); }
  void StartTimer(int id, int periodMs) override {
    timerRunning = id;
    timerPeriodMs = periodMs;
  }
  void StopTimer(int) override { timerRunning = 0; }
  void EndDialog(int result) override { endedWith = result; }

  void RunWorkerDialog(const char*, const MakeLogic& makeLogic) override {
    const std::unique_ptr<CWorkerDlg> dialog = makeLogic(*this, messages_);
    Drive(*dialog);
  }

 private:
  void Drive(CWorkerDlg& dialog) {
    ++runs;
    statusTexts.clear();
    positions.clear();
    overallTexts.clear();
    endedWith = -1;
    dialog.OnInitDialog();
    int tick = 0;
    const bool ended = Eventually([&] {
      if (beforeTick) beforeTick(dialog, tick++);
      if (endedWith == -1) dialog.OnTimer(dialog.TimerId());
      return endedWith != -1;
    });
    if (!ended) ADD_FAILURE() << "the worker dialog never ended";
    dialog.OnDestroy();
  }

  platform::MessageBox& messages_;
};

}  // namespace testing_support
