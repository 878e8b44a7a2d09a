#pragma once
// "Volume Info ": display name and description to edit, the volume's own name
// read-only, "Update" (the default button) and "Cancel".
// User-interface thread only.

#include <QDialog>

#include "dialogs/CVolumeInfoDlg.h"

class QLineEdit;

class QtVolumeInfoDialog : public QDialog, public VolumeInfoView {
  Q_OBJECT

 public:
  explicit QtVolumeInfoDialog(QWidget* parent = nullptr);

  // Shows the form and waits; on Update the form takes the three edits back.
  int RunModal(VolumeInfoForm& form) override;

  // Fills the edits from the form without running the dialog.
  void Load(const VolumeInfoForm& form);

 private:
  QLineEdit* displayName_;
  QLineEdit* volumeName_;
  QLineEdit* description_;
  VolumeInfoForm shown_;
};
