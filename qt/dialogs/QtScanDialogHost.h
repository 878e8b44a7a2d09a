#pragma once
// Runs "Scan Volume" for the scan commands of the desktop program.
// User-interface thread only.

#include <QPointer>
#include <QWidget>

#include "scan/ScanCommands.h"

namespace platform {
class MessageBox;
}

class QtScanDialogHost : public ScanDialogHost {
 public:
  // messages: where "Scan Complete." goes; must outlive the host.
  explicit QtScanDialogHost(platform::MessageBox& messages, QWidget* parent = nullptr);

  void SetParent(QWidget* parent);
  void RunScanDialog(CVolumeScanner& scanner) override;

 private:
  platform::MessageBox& messages_;
  QPointer<QWidget> parent_;
};
