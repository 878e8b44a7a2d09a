#pragma once
// The controls of a modal dialog that polls a worker (see CWorkerDlg), as
// each front end supplies them.

#include <string>

class WorkerDialogView {
 public:
  virtual ~WorkerDialogView() = default;
  virtual void SetStatusText(const std::string& text) = 0;
  // 0..100, or WorkerProgress::kBusy: working, share not known.
  virtual void SetProgressPos(int position) = 0;
  // The line under the bar: how far the whole job is.
  virtual void SetOverallText(const std::string& text) = 0;
  // Calls the dialog's OnTimer(id) every period until stopped.
  virtual void StartTimer(int id, int periodMs) = 0;
  virtual void StopTimer(int id) = 0;
  // Ends the modal run; the front end then destroys the dialog (OnDestroy).
  virtual void EndDialog(int result) = 0;
};
