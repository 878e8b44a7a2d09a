#pragma once
// The logic of the "Scan Volume" dialog: it starts the scan worker, polls the
// scanner every 500 ms, says "Scan Complete." unless cancelled (then one box
// of notes when the scan has any, such as folders it could not read), and
// when it goes away cancels the scan and waits for the worker. The front end
// supplies the controls (ScanDialogView) and calls the On* handlers on its
// user-interface thread.

#include <string>
#include <thread>

class CVolumeScanner;

namespace platform {
class MessageBox;
}

class ScanDialogView {
 public:
  virtual ~ScanDialogView() = default;
  virtual void SetStatusText(const std::string& text) = 0;
  virtual void SetProgressPos(int position) = 0;
  // Calls the dialog's OnTimer(id) every period until stopped.
  virtual void StartTimer(int id, int periodMs) = 0;
  virtual void StopTimer(int id) = 0;
  // Ends the modal run; the front end then destroys the dialog (OnDestroy).
  virtual void EndDialog(int result) = 0;
};

class CScanDlg {
 public:
  static constexpr const char* kCaption = "Scan Volume";
  static constexpr const char* kComplete = "Scan Complete.";
  static constexpr int kTimerId = 103;
  static constexpr int kTimerPeriodMs = 500;

  CScanDlg(CVolumeScanner& scanner, platform::MessageBox& messages, ScanDialogView& view);
  // Waits for the worker if the front end did not call OnDestroy.
  ~CScanDlg();
  CScanDlg(const CScanDlg&) = delete;
  CScanDlg& operator=(const CScanDlg&) = delete;

  void OnInitDialog();
  void OnTimer(int id);
  void OnCancel();
  // Cancels the scan and blocks until the worker has finished its sweep and commit.
  void OnDestroy();

 private:
  void TellOutcome();

  CVolumeScanner& scanner_;
  platform::MessageBox& messages_;
  ScanDialogView& view_;
  std::thread worker_;
  bool ended_ = false;
};
