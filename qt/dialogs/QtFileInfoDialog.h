#pragma once
// "File Info": the file name (read-only), four editable texts, the rating
// buttons and the "MPEG Info" texts, with "Update" and "Cancel".
// User-interface thread only.

#include <QDialog>
#include <array>

#include "dialogs/CFileInfoDlg.h"

class QLabel;
class QLineEdit;
class QtRatingButtons;

class QtFileInfoDialog : public QDialog, public FileInfoView {
  Q_OBJECT

 public:
  explicit QtFileInfoDialog(QWidget* parent = nullptr);

  // Shows the form and waits; on Update the form takes the edits back.
  int RunModal(FileInfoForm& form) override;

  // Fills the controls from the form without running the dialog.
  void Load(const FileInfoForm& form);

 private:
  void Store(FileInfoForm& form) const;
  QLayout* MakeMpegInfo();

  QLineEdit* file_;
  QLineEdit* title_;
  QLineEdit* artist_;
  QLineEdit* album_;
  QLineEdit* comment_;
  QtRatingButtons* rating_;
  std::array<QLabel*, 4> mpegInfo_{};  // length, bit rate, sample rate, channels
  FileInfoForm shown_;
};
