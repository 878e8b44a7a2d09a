#pragma once
// Runs a worker dialog ("Scan Volume", "Copying Files") modally. Each front
// end has one host: it supplies the controls and the message boxes, and the
// caller says which dialog logic runs over them.

#include <functional>
#include <memory>

#include "base/CWorkerDlg.h"

namespace platform {
class MessageBox;
}

class WorkerDialogHost {
 public:
  using MakeLogic = std::function<std::unique_ptr<CWorkerDlg>(WorkerDialogView& view, platform::MessageBox& messages)>;

  virtual ~WorkerDialogHost() = default;
  // Returns when the dialog has closed and its worker has ended.
  virtual void RunWorkerDialog(const char* caption, const MakeLogic& makeLogic) = 0;
};
