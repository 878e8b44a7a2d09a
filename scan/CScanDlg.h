#pragma once
// The "Scan Volume" dialog: the scan worker under a worker dialog. It says
// "Scan Complete." unless cancelled, then one box of notes when the scan has
// any, such as folders it could not read.

#include "base/CWorkerDlg.h"

class CVolumeScanner;

namespace platform {
class MessageBox;
}

class CScanDlg : public CWorkerDlg {
 public:
  static constexpr const char* kCaption = "Scan Volume";
  static constexpr const char* kComplete = "Scan Complete.";
  static constexpr int kTimerId = 103;

  // The scanner is prepared and must outlive the dialog.
  CScanDlg(CVolumeScanner& scanner, platform::MessageBox& messages, WorkerDialogView& view);
};
