#pragma once
// The face of a modal dialog that polls a worker: a centred status line, a
// progress bar 0..100 and "Cancel". The logic behind it starts the worker,
// reacts to the timer and ends the run; when it ends the run while the worker
// is still busy, the dialog cancels the worker and stays up, its event loop
// turning (so boxes the worker asks for can be answered), until the worker
// has finished. Closing the window or Esc counts as Cancel.
// User-interface thread only.

#include <QDialog>
#include <functional>
#include <string>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

class QtProgressDialog : public QDialog {
  Q_OBJECT

 public:
  // What the dialog asks of its logic and worker during a run.
  struct Hooks {
    std::function<void()> start;            // the logic's opening: timer and worker
    std::function<void(int timerId)> tick;  // the logic's timer handler
    std::function<void()> cancel;           // the logic's Cancel handler
    std::function<void()> stopWorker;       // tells the worker to stop
    std::function<bool()> workerBusy;       // whether the worker still runs
    std::function<void()> finish;           // the logic's destruction: joins the worker
  };

  static constexpr int kWaitPollMs = 50;

  QtProgressDialog(const char* caption, QWidget* parent);

  // One modal run; returns the result that ended it.
  int Run(Hooks hooks);

  void SetStatus(const std::string& text);
  void SetPosition(int position);
  void StartTicking(int timerId, int periodMs);
  void StopTicking();
  // Ends the run once the worker is no longer busy.
  void End(int result);

  void reject() override;

 private:
  void WaitForWorker();

  QLabel* status_;
  QProgressBar* bar_;
  QPushButton* cancel_;
  QTimer* ticks_;
  QTimer* waiting_;
  int timerId_ = 0;
  Hooks hooks_;
};
