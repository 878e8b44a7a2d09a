#include "dialogs/COptionsDlg.h"

#include "base/MessageText.h"
#include "dialogs/CFolderDialog.h"
#include "platform/DriveTable.h"
#include "platform/MessageBox.h"
#include "settings/CAppSettings.h"
#include "volumes/CDriveServices.h"

COptionsDlg::COptionsDlg(CAppSettings& settings, const CDriveServices& drives, platform::FolderPicker& picker,
                         OptionsView& view)
    : settings_(settings), drives_(drives), picker_(picker), view_(view) {}

OptionsForm COptionsDlg::OpeningForm() const {
  OptionsForm form{settings_.cacheFolder, {}, -1, settings_.allFormats, settings_.replayGain};
  // The drive list is in letter order, so positions match the sorted drop-down.
  for (const std::string& letter : drives_.GetDriveList(platform::kDriveCdRom)) {
    if (letter == settings_.cdDrive) form.selectedDrive = static_cast<int>(form.drives.size());
    form.drives.push_back(letter + ":\\");
  }
  if (form.selectedDrive == -1 && !form.drives.empty()) form.selectedDrive = 0;
  return form;
}

void COptionsDlg::Browse(OptionsForm& form) {
  CFolderDialog picker(picker_, drives_, kPickerTitle);
  if (picker.DoModal() == CFolderDialog::kChosen) form.cachePath = picker.ChosenPath();
}

int COptionsDlg::DoModal() {
  const OptionsForm opening = OpeningForm();
  OptionsForm form = opening;
  const int result = view_.RunModal(form, [&] { Browse(form); });
  if (result != kDialogOk) return result;
  if (const std::string why = settings_.WhyNotKept(); !why.empty() && form != opening) {
    drives_.Messages().Show(why, platform::Buttons::Ok, platform::Icon::Warning);
    return kDialogCancel;
  }
  const bool selected = form.selectedDrive >= 0 && form.selectedDrive < static_cast<int>(form.drives.size());
  // The cache is emptied by "C": it must lie on its drive, in one spelling.
  const std::string cacheFolder = drives_.FolderWithinDrive(form.cachePath);
  if (cacheFolder.empty())
    drives_.Messages().Show(FillMessage(kOutsideDrive, {form.cachePath, settings_.cacheFolder}), platform::Buttons::Ok,
                            platform::Icon::Error);
  else
    settings_.cacheFolder = cacheFolder;
  settings_.cdDrive = selected ? form.drives[static_cast<std::size_t>(form.selectedDrive)].substr(0, 1) : "";
  settings_.allFormats = form.allFormats;
  if (form.replayGain == "off" || form.replayGain == "track" || form.replayGain == "album")
    settings_.replayGain = form.replayGain;
  return result;
}
