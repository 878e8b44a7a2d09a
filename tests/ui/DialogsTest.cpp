#include <gtest/gtest.h>
#include <sys/mount.h>

#include "catalogue/MediaDB.h"
#include "dialogs/CFolderDialog.h"
#include "dialogs/COptionsDlg.h"
#include "settings/CAppSettings.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedFolderPicker.h"
#include "tests/support/ScriptedViews.h"
#include "volumes/CDriveServices.h"

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

// A catalogue seen through a read-only mount: a change is refused with the
// reason, an OK that changes nothing is no change.
TEST_F(DialogsTest, OptionsOnACatalogueThatCannotBeWrittenTakeNothingAndSaySo) {
  { MediaDB().Open(folder.Path() + "/"); }
  const std::string readOnly = folder.MakeFolder("ro");
  if (mount(folder.Path().c_str(), readOnly.c_str(), nullptr, MS_BIND, nullptr) != 0)
    GTEST_SKIP() << "bind mounts need privileges";
  const bool remounted = mount(nullptr, readOnly.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
  bool opened = false;
  if (remounted) {
    MediaDB db;
    db.Open(readOnly + "/");
    opened = db.IsReadOnly();
    CAppSettings settings(db, readOnly + "/");
    settings.cacheFolder = "C:\\Cache";
    settings.cdDrive = "D";
    testing_support::ScriptedOptions view;
    COptionsDlg dialog(settings, services, picker, view);
    view.press = kDialogOk;
    EXPECT_EQ(dialog.DoModal(), kDialogOk);  // nothing changed
    view.edit = [](OptionsForm& form) { form.allFormats = true; };
    EXPECT_EQ(dialog.DoModal(), kDialogCancel);
    EXPECT_FALSE(settings.allFormats);
    EXPECT_EQ(messages.Texts(), std::vector<std::string>{db.ReadOnlyMessage()});
  }
  umount2(readOnly.c_str(), MNT_DETACH);
  ASSERT_TRUE(opened) << "the catalogue did not open read-only through a read-only mount";
}

}  // namespace
