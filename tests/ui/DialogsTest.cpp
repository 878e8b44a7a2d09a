#include <gtest/gtest.h>

#include "catalogue/MediaDB.h"
#include "dialogs/CFolderDialog.h"
#include "dialogs/COptionsDlg.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "scan/CDriveServices.h"
#include "settings/CAppSettings.h"
#include "tests/support/ScriptedFolderPicker.h"
#include "tests/support/ScriptedMessageBox.h"
#include "tests/support/ScriptedViews.h"
#include "tests/support/TempFolder.h"

namespace {

TEST(FolderDialog, AFolderNoDriveHoldsIsNoFileSystemPath) {
  testing_support::TempFolder folder;
  testing_support::TestDrives(folder.Path()).AddFixed('C', folder.MakeFolder("c"));
  platform::LinuxDriveTable table(folder.Path());
  platform::LinuxFileSystem files(table);
  testing_support::ScriptedMessageBox messages;
  CDriveServices drives(table, files, messages);
  testing_support::ScriptedFolderPicker picker;
  picker.answer = platform::FolderPicker::kChosen;
  picker.folder = "/proc";
  EXPECT_EQ(CFolderDialog(picker, drives, "Select Folder").DoModal(), CFolderDialog::kNoFileSystemPath);
  picker.answer = platform::FolderPicker::kCancelled;
  EXPECT_EQ(CFolderDialog(picker, drives, "Select Folder").DoModal(), CFolderDialog::kCancelled);
}

TEST(OptionsDialog, SelectsTheCdDriveOfTheSettingsOrElseTheFirstAndOkTakesItsLetter) {
  testing_support::TempFolder folder;
  testing_support::TestDrives testDrives(folder.Path());
  testDrives.AddFixed('C', folder.MakeFolder("c"));
  testDrives.AddCd('D');
  testDrives.AddCd('E');
  platform::LinuxDriveTable table(folder.Path());
  platform::LinuxFileSystem files(table);
  testing_support::ScriptedMessageBox messages;
  CDriveServices drives(table, files, messages);
  MediaDB db;
  CAppSettings settings(db, folder.Path());
  settings.cacheFolder = "C:\\Cache";
  settings.cdDrive = "E";
  testing_support::ScriptedFolderPicker picker;
  testing_support::ScriptedOptions view;
  COptionsDlg dialog(settings, drives, picker, view);

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
