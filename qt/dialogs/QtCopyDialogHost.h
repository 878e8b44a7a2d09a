#pragma once
// Runs "Copying Files" for the play list's copy commands in the desktop
// program. User-interface thread only.

#include <QPointer>
#include <QWidget>

#include "playlists/CCopyDlg.h"

namespace platform {
class MessageBox;
}

class QtCopyDialogHost : public CopyDialogHost {
 public:
  // messages: where "File Copy Complete." goes; must outlive the host.
  explicit QtCopyDialogHost(platform::MessageBox& messages, QWidget* parent = nullptr);

  void SetParent(QWidget* parent);
  void RunCopyDialog(CopyWorker& worker, const IdList& fileIds) override;

 private:
  platform::MessageBox& messages_;
  QPointer<QWidget> parent_;
};
