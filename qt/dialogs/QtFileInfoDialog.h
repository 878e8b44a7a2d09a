#pragma once
// "File Info": the file name (read-only), four editable texts, the rating
// buttons, the audio properties in a group named by the kind of file ("MPEG
// Info", "FLAC Info", ...) and, given a cover loader, the file's cover
// picture beside them, with "Update" and "Cancel". User-interface thread only.

#include <QDialog>
#include <array>

#include "dialogs/CFileInfoDlg.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QtCoverLoader;
class QtCoverView;
class QtRatingButtons;

class QtFileInfoDialog : public QDialog, public FileInfoView {
  Q_OBJECT

 public:
  // Without a loader the dialog shows no cover. The loader must outlive it.
  explicit QtFileInfoDialog(QWidget* parent = nullptr, QtCoverLoader* covers = nullptr);

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
  QGroupBox* info_ = nullptr;
  std::array<QLabel*, 4> mpegInfo_{};  // length, bit rate, sample rate, channels
  QtCoverView* cover_ = nullptr;
  FileInfoForm shown_;
};
