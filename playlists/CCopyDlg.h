#pragma once
// The "Copying Files" dialog: the copy worker under a worker dialog, showing
// the file being copied. It says "File Copy Complete." when the worker is
// done. After Cancel the worker finishes the file it is copying and stops.

#include "base/CWorkerDlg.h"
#include "catalogue/MediaDB.h"

class CopyWorker;

namespace platform {
class MessageBox;
}

class CCopyDlg : public CWorkerDlg {
 public:
  static constexpr const char* kCaption = "Copying Files";
  static constexpr const char* kComplete = "File Copy Complete.";
  static constexpr int kTimerId = 104;

  // The worker must outlive the dialog.
  CCopyDlg(CopyWorker& worker, IdList fileIds, platform::MessageBox& messages, WorkerDialogView& view);
};
