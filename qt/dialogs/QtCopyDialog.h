#pragma once
// "Copying Files": the copy worker's progress over the copy dialog's logic.
// User-interface thread only.

#include "playlists/CCopyDlg.h"
#include "qt/dialogs/QtProgressDialog.h"

class QtCopyDialog : public QtProgressDialog, public CopyDialogView {
  Q_OBJECT

 public:
  explicit QtCopyDialog(QWidget* parent = nullptr);

  // One modal run of a copy; returns when the worker has ended.
  void Run(CopyWorker& worker, const IdList& fileIds, platform::MessageBox& messages);

  void SetStatusText(const std::string& text) override;
  void SetProgressPos(int position) override;
  void StartTimer(int id, int periodMs) override;
  void StopTimer(int id) override;
  void EndDialog(int result) override;
};
