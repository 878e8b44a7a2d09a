#include "qt/dialogs/QtScanDialogHost.h"

#include "qt/dialogs/QtScanDialog.h"

QtScanDialogHost::QtScanDialogHost(platform::MessageBox& messages, QWidget* parent)
    : messages_(messages), parent_(parent) {}

void QtScanDialogHost::SetParent(QWidget* parent) { parent_ = parent; }

void QtScanDialogHost::RunScanDialog(CVolumeScanner& scanner) {
  QtScanDialog dialog(parent_);
  dialog.Run(scanner, messages_);
}
