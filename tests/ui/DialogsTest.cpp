#include <gtest/gtest.h>

#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "scan/CDriveServices.h"
#include "tests/support/ScriptedFolderPicker.h"
#include "tests/support/ScriptedInputDialog.h"
#include "tests/support/ScriptedMessageBox.h"
#include "tests/support/TempFolder.h"
#include "ui/CFolderDialog.h"
#include "ui/CInputDlg.h"

namespace {

TEST(InputDialog, AnEmptyOkLabelKeepsOkAndCancelKeepsTheText) {
  testing_support::ScriptedInputDialog frontEnd;
  frontEnd.typed = "Typed";
  frontEnd.press = platform::InputDialog::kCancel;
  CInputDlg dialog(frontEnd);
  dialog.text = "Old";
  EXPECT_EQ(dialog.DoModal(), platform::InputDialog::kCancel);
  EXPECT_EQ(frontEnd.okLabel + " " + dialog.text, "OK Old");
}

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

}  // namespace
