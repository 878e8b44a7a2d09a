#pragma once
// "Scan Volume" and "Copying Files": a centred status line, a progress bar
// 0..100, a line saying how far the whole job is, and "Cancel" over a worker
// dialog's logic. When the logic ends the
// run while the worker is still busy, the dialog cancels the worker and stays
// up, its event loop turning (so boxes the worker asks for can be answered),
// until the worker has finished. Closing the window or Esc counts as Cancel.
// User-interface thread only.

#include <QDialog>
#include <string>

#include "base/CWorkerDlg.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

class QtWorkerDialog : public QDialog, public WorkerDialogView {
  Q_OBJECT

 public:
  static constexpr int kWaitPollMs = 50;

  QtWorkerDialog(const char* caption, QWidget* parent = nullptr);

  // One modal run of logic made over this dialog; returns the result that
  // ended it, once the worker has ended.
  int Run(CWorkerDlg& logic);

  void SetStatusText(const std::string& text) override;
  void SetProgressPos(int position) override;
  void SetOverallText(const std::string& text) override;
  QLabel& OverallLine() const { return *overall_; }
  void StartTimer(int id, int periodMs) override;
  void StopTimer(int id) override;
  // Ends the run once the worker is no longer busy.
  void EndDialog(int result) override;

  void reject() override;

 private:
  void WaitForWorker();

  QLabel* status_;
  QProgressBar* bar_;
  QLabel* overall_;
  QPushButton* cancel_;
  QTimer* ticks_;
  QTimer* waiting_;
  int timerId_ = 0;
  CWorkerDlg* logic_ = nullptr;
};
