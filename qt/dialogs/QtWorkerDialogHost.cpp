#include "qt/dialogs/QtWorkerDialogHost.h"

#include "qt/dialogs/QtWorkerDialog.h"
#include "scan/CScanDlg.h"

QtWorkerDialogHost::QtWorkerDialogHost(platform::MessageBox& messages, QWidget* parent)
    : messages_(messages), parent_(parent) {}

void QtWorkerDialogHost::SetParent(QWidget* parent) { parent_ = parent; }

void QtWorkerDialogHost::RunScanDialog(CVolumeScanner& scanner) {
  QtWorkerDialog dialog(CScanDlg::kCaption, parent_);
  CScanDlg logic(scanner, messages_, dialog);
  dialog.Run(logic);
}

void QtWorkerDialogHost::RunCopyDialog(CopyWorker& worker, const IdList& fileIds) {
  QtWorkerDialog dialog(CCopyDlg::kCaption, parent_);
  CCopyDlg logic(worker, fileIds, messages_, dialog);
  dialog.Run(logic);
}
