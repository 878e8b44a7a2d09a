#include "dialogs/CVolumeInfoDlg.h"

CVolumeInfoDlg::CVolumeInfoDlg(VolumeInfoView& view) : view_(view) {}

int CVolumeInfoDlg::DoModal() {
  VolumeInfoForm form = fields;
  const int result = view_.RunModal(form);
  if (result == kDialogOk) {
    fields.displayName = form.displayName;
    fields.description = form.description;
  }
  return result;
}
