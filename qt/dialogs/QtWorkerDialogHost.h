#pragma once
// Runs "Scan Volume" for the scan commands and "Copying Files" for the play
// list's copy commands in the desktop program. User-interface thread only.

#include <QPointer>
#include <QWidget>

#include "playlists/CCopyDlg.h"
#include "scan/ScanCommands.h"

namespace platform {
class MessageBox;
}

class QtWorkerDialogHost : public ScanDialogHost, public CopyDialogHost {
 public:
  // messages: where "Scan Complete." and the like go; must outlive the host.
  explicit QtWorkerDialogHost(platform::MessageBox& messages, QWidget* parent = nullptr);

  void SetParent(QWidget* parent);
  void RunScanDialog(CVolumeScanner& scanner) override;
  void RunCopyDialog(CopyWorker& worker, const IdList& fileIds) override;

 private:
  platform::MessageBox& messages_;
  QPointer<QWidget> parent_;
};
