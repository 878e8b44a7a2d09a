#pragma once
// "Scan Volume": the scan worker's progress over the scan dialog's logic.
// User-interface thread only.

#include "qt/dialogs/QtProgressDialog.h"
#include "scan/CScanDlg.h"

class QtScanDialog : public QtProgressDialog, public ScanDialogView {
  Q_OBJECT

 public:
  explicit QtScanDialog(QWidget* parent = nullptr);

  // One modal run of a prepared scanner; returns when the worker has ended.
  void Run(CVolumeScanner& scanner, platform::MessageBox& messages);

  void SetStatusText(const std::string& text) override;
  void SetProgressPos(int position) override;
  void StartTimer(int id, int periodMs) override;
  void StopTimer(int id) override;
  void EndDialog(int result) override;
};
