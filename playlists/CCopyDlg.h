#pragma once
// The logic of the "Copying Files" dialog: it starts the copy worker, shows
// the file being copied and the progress every 500 ms, says "File Copy
// Complete." when the worker is done, and closes. Cancel closes it at once;
// the worker then finishes the file it is copying and stops. The front end
// supplies the controls (CopyDialogView) and calls the On* handlers on its
// user-interface thread.

#include <thread>

#include "catalogue/MediaDB.h"

class CopyWorker;

namespace platform {
class MessageBox;
}

class CopyDialogView {
 public:
  virtual ~CopyDialogView() = default;
  virtual void SetStatusText(const std::string& text) = 0;
  virtual void SetProgressPos(int position) = 0;  // 0..100
  // Calls the dialog's OnTimer(id) every period until stopped.
  virtual void StartTimer(int id, int periodMs) = 0;
  virtual void StopTimer(int id) = 0;
  // Ends the modal run; the front end then destroys the dialog (OnDestroy).
  virtual void EndDialog(int result) = 0;
};

// Runs the "Copying Files" dialog modally; each front end has one.
class CopyDialogHost {
 public:
  virtual ~CopyDialogHost() = default;
  virtual void RunCopyDialog(CopyWorker& worker, const IdList& fileIds) = 0;
};

class CCopyDlg {
 public:
  static constexpr const char* kCaption = "Copying Files";
  static constexpr const char* kComplete = "File Copy Complete.";
  static constexpr int kTimerId = 104;
  static constexpr int kTimerPeriodMs = 500;

  // The worker must outlive the dialog.
  CCopyDlg(CopyWorker& worker, IdList fileIds, platform::MessageBox& messages,
           CopyDialogView& view);
  // Waits for the worker if the front end did not call OnDestroy.
  ~CCopyDlg();
  CCopyDlg(const CCopyDlg&) = delete;
  CCopyDlg& operator=(const CCopyDlg&) = delete;

  void OnInitDialog();
  void OnTimer(int id);
  void OnCancel();
  // Cancels the copy and blocks until the worker has ended. A disc prompt the
  // worker is showing must be answered first: a front end that shows the
  // worker's boxes on its own thread keeps serving them while WorkerBusy().
  void OnDestroy();
  bool WorkerBusy() const;

 private:
  CopyWorker& worker_;
  IdList fileIds_;
  platform::MessageBox& messages_;
  CopyDialogView& view_;
  std::thread thread_;
  bool ended_ = false;
};
