#pragma once
// Runs "Scan Volume" for the scan commands and "Copying Files" for the play
// list's copy commands in the desktop program. User-interface thread only.

#include <QPointer>
#include <QWidget>

#include "base/WorkerDialogHost.h"

class QtWorkerDialogHost : public WorkerDialogHost {
 public:
  // messages: where "Scan Complete." and the like go; must outlive the host.
  explicit QtWorkerDialogHost(platform::MessageBox& messages, QWidget* parent = nullptr);

  void SetParent(QWidget* parent);
  void RunWorkerDialog(const char* caption, const MakeLogic& makeLogic) override;

 private:
  platform::MessageBox& messages_;
  QPointer<QWidget> parent_;
};
