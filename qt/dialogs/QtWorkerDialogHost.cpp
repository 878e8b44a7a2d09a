#include "qt/dialogs/QtWorkerDialogHost.h"

#include "qt/dialogs/QtWorkerDialog.h"

QtWorkerDialogHost::QtWorkerDialogHost(platform::MessageBox& messages, QWidget* parent)
    : messages_(messages), parent_(parent) {}

void QtWorkerDialogHost::SetParent(QWidget* parent) { parent_ = parent; }

void QtWorkerDialogHost::RunWorkerDialog(const char* caption, const MakeLogic& makeLogic) {
  QtWorkerDialog dialog(caption, parent_);
  const std::unique_ptr<CWorkerDlg> logic = makeLogic(dialog, messages_);
  dialog.Run(*logic);
}
