#include "qt/dialogs/QtCopyDialogHost.h"

#include "qt/dialogs/QtCopyDialog.h"

QtCopyDialogHost::QtCopyDialogHost(platform::MessageBox& messages, QWidget* parent)
    : messages_(messages), parent_(parent) {}

void QtCopyDialogHost::SetParent(QWidget* parent) { parent_ = parent; }

void QtCopyDialogHost::RunCopyDialog(CopyWorker& worker, const IdList& fileIds) {
  QtCopyDialog dialog(parent_);
  dialog.Run(worker, fileIds, messages_);
}
