#pragma once
// "Options": the cache folder in an edit with "..." beside it for the folder
// picker, the CD drive in a sorted drop-down that takes no typing, the check
// box "Catalogue every audio format", "OK" (the default button) and
// "Cancel". User-interface thread only.

#include <QDialog>
#include <functional>

#include "dialogs/COptionsDlg.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

class QtOptionsDialog : public QDialog, public OptionsView {
  Q_OBJECT

 public:
  explicit QtOptionsDialog(QWidget* parent = nullptr);

  // Shows the form and waits; "..." calls browse, after which the edit shows
  // form.cachePath. On OK the form takes the edit and the selected drive.
  int RunModal(OptionsForm& form, const std::function<void()>& browse) override;

  // Fills the controls from the form without running the dialog.
  void Load(const OptionsForm& form);

 private:
  void Browse(OptionsForm& form, const std::function<void()>& browse);
  void Store(OptionsForm& form) const;

  QLineEdit* cachePath_;
  QComboBox* drives_;
  QPushButton* browse_;
  QCheckBox* allFormats_;
  QComboBox* replayGain_;
  OptionsForm shown_;
};
