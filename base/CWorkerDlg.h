#pragma once
// The logic of a modal dialog over a worker thread ("Scan Volume", "Copying
// Files"): it starts the worker, copies the worker's status text and progress
// into the view every 500 ms, and when the worker is done lets the caller say
// how it went, then closes. Cancel closes it at once; the worker is told to
// stop and waited for when the dialog goes away. The front end supplies the
// controls (WorkerDialogView) and calls the On* handlers on its
// user-interface thread.

#include <functional>
#include <thread>

#include "base/WorkerDialogView.h"
#include "base/WorkerProgress.h"

// What one kind of worker dialog runs and says.
struct WorkerDialogJob {
  int timerId;
  WorkerProgress& progress;
  std::function<void()> work;    // the worker thread's body; sets progress.done last
  std::function<void()> finish;  // on the user-interface thread once the worker is done
};

class CWorkerDlg {
 public:
  static constexpr int kTimerPeriodMs = 500;

  CWorkerDlg(WorkerDialogJob job, WorkerDialogView& view);
  // Waits for the worker if the front end did not call OnDestroy.
  ~CWorkerDlg();
  CWorkerDlg(const CWorkerDlg&) = delete;
  CWorkerDlg& operator=(const CWorkerDlg&) = delete;

  int TimerId() const { return job_.timerId; }

  void OnInitDialog();
  void OnTimer(int id);
  void OnCancel();
  // Cancels the worker and blocks until it has ended. A box the worker is
  // showing must be answered first: a front end that shows the worker's boxes
  // on its own thread keeps serving them while WorkerBusy().
  void OnDestroy();
  bool WorkerBusy() const;
  // Tells the worker to stop, without waiting.
  void StopWorker();

 private:
  void End();

  WorkerDialogJob job_;
  WorkerDialogView& view_;
  std::thread thread_;
  bool ended_ = false;
};
