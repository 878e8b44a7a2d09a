#pragma once
// "Volume Info ": a volume's display name and description to edit, and its own
// name (the label read from the medium) to look at. The caller fills the
// fields, runs DoModal and, on Update, writes the two editable ones back.
// Created on the caller's stack for one run; user-interface thread.

#include <string>

#include "dialogs/DialogResult.h"

struct VolumeInfoForm {
  std::string displayName;
  std::string volumeName;  // read-only
  std::string description;
};

// The dialog's controls.
class VolumeInfoView {
 public:
  virtual ~VolumeInfoView() = default;
  // Shows the form's texts in the three edits until the user presses
  // "Update" or "Cancel"; on Update the form holds the edits' texts.
  virtual int RunModal(VolumeInfoForm& form) = 0;
};

class CVolumeInfoDlg {
 public:
  static constexpr const char* kCaption = "Volume Info ";

  explicit CVolumeInfoDlg(VolumeInfoView& view);

  VolumeInfoForm fields;

  // kDialogOk (Update) takes back the display name and the description, never
  // the volume name; kDialogCancel changes nothing.
  int DoModal();

 private:
  VolumeInfoView& view_;
};
