#include <gtest/gtest.h>

#include "catalogue/MediaDB.h"
#include "dialogs/CFolderDialog.h"
#include "dialogs/COptionsDlg.h"
#include "scan/CDriveServices.h"
#include "settings/CAppSettings.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedFolderPicker.h"
#include "tests/support/ScriptedViews.h"

namespace {

class DialogsTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  DialogsTest() {
    drives.AddFixed('C', folder.MakeFolder("c"));
    drives.AddCd('D');
    drives.AddCd('E');
  }
  CDriveServices services{table, files, messages};
  testing_support::ScriptedFolderPicker picker;
};

TEST_F(DialogsTest, AFolderNoDriveHoldsIsNoFileSystemPath) {
  picker.answer = platform::FolderPicker::kChosen;
  picker.folder = "/proc";
  EXPECT_EQ(CFolderDialog(picker, services, "Select Folder").DoModal(), CFolderDialog::kNoFileSystemPath);
  picker.answer = platform::FolderPicker::kCancelled;
  EXPECT_EQ(CFolderDialog(picker, services, "Select Folder").DoModal(), CFolderDialog::kCancelled);
}

TEST_F(DialogsTest, OptionsSelectTheCdDriveOfTheSettingsOrElseTheFirstAndOkTakesItsLetter) {
  MediaDB db;
  CAppSettings settings(db, folder.Path());
  settings.cacheFolder = "C:\\Cache";
  settings.cdDrive = "E";
  testing_support::ScriptedOptions view;
  COptionsDlg dialog(settings, services, picker, view);

  view.press = kDialogCancel;
  dialog.DoModal();
  EXPECT_EQ(view.opened->drives, (std::vector<std::string>{"D:\\", "E:\\"}));
  EXPECT_EQ(view.opened->selectedDrive, 1);

  settings.cdDrive = "Z";
  view.press = kDialogOk;
  view.browse = true;
  picker.answer = platform::FolderPicker::kNotAFolder;
  dialog.DoModal();
  EXPECT_EQ(view.opened->selectedDrive, 0);
  EXPECT_EQ(settings.cacheFolder + " " + settings.cdDrive, "C:\\Cache D");
  EXPECT_EQ(picker.title + "|" + picker.startedAt.back(), "Select Folder|");

  picker.answer = platform::FolderPicker::kChosen;
  picker.folder = folder.MakeFolder("c/New");
  dialog.DoModal();
  EXPECT_EQ(settings.cacheFolder, "C:\\New");
}

}  // namespace
