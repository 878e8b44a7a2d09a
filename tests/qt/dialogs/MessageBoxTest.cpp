#include <gtest/gtest.h>

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
#include <atomic>
#include <thread>

#include "catalogue/MediaDB.h"
#include "qt/dialogs/QtFilePicker.h"
#include "qt/dialogs/QtFolderPicker.h"
#include "qt/dialogs/QtMessageBox.h"
#include "tests/qt/dialogs/WhenShown.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/QtEventually.h"
#include "tests/support/TempFolder.h"

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

TEST(QtMessageBox, QuestionsFromAWorkerAndFromTheUserInterfaceThreadAreAnswered) {
  QtMessageBox messages;
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.text(), "Please insert 'Jazz' into drive E:");
    EXPECT_EQ(box.icon(), QMessageBox::Information);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
    QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
  });
  std::atomic<bool> answered{false};
  Answer answer = Answer::Ok;
  std::thread worker([&] {
    answer = messages.Show("Please insert 'Jazz' into drive E:", Buttons::OkCancel, Icon::Information);
    answered = true;
  });
  const bool done = testing_support::TurnsUntil([&] { return answered.load(); });
  worker.join();
  ASSERT_TRUE(done);
  EXPECT_EQ(answer, Answer::Cancel);

  // On the user-interface thread itself.
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.standardButtons(), QMessageBox::Retry | QMessageBox::Cancel);
    QTest::mouseClick(box.button(QMessageBox::Retry), Qt::LeftButton);
  });
  EXPECT_EQ(messages.Show("Please Insert CD into drive E:", Buttons::RetryCancel, Icon::Information), Answer::Retry);
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  EXPECT_EQ(messages.Show("Failed.", Buttons::Ok, Icon::Error), Answer::Ok);
}

// Standard error is seen by nobody at a desktop: the failure that ends the
// program is shown first.
TEST(QtMessageBoxDeathTest, AFailedCatalogueStatementIsShownBeforeTheProgramEnds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  testing_support::TempFolder folder;
  MediaDB db;
  db.Open(folder.Path() + "/");
  testing_support::RunSql(db, "DROP TABLE PlayLists;");
  QtMessageBox messages;
  EXPECT_EXIT(
      {
        ShowCatalogueFailuresIn(&messages);
        WhenShown<QMessageBox>([](QMessageBox& box) {
          std::fprintf(stderr, "shown: %s\n", box.text().toStdString().c_str());
          box.accept();
        });
        db.DeletePlayList(1);
      },
      ::testing::ExitedWithCode(1), "shown: Vantrelle has to end: catalogue statement failed: .*no such table");
}

TEST(QtFolderPicker, StartsWhereAskedAndGivesTheChosenFolderOrCancel) {
  testing_support::TempFolder temp;
  const std::string music = temp.MakeFolder("Music");
  QtFolderPicker picker;
  std::string chosen;
  WhenShown<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Select Folder");
    EXPECT_EQ(dialog.directory(), QDir(QString::fromStdString(temp.Path())));
    dialog.selectFile(QString::fromStdString(music));
    static_cast<QDialog&>(dialog).accept();  // QFileDialog hides its own
  });
  EXPECT_EQ(picker.Browse("Select Folder", temp.Path(), chosen), platform::FolderPicker::kChosen);
  EXPECT_EQ(chosen, music);

  WhenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(picker.Browse("Select Folder", "", chosen), platform::FolderPicker::kCancelled);
}

TEST(QtFilePicker, SavesUnderTheSuggestedNameOrOpensAnExistingFile) {
  testing_support::TempFolder temp;
  const std::string list = temp.WriteFile("old.m3u", "#EXTM3U\n");
  QtFilePicker picker;
  std::string chosen;
  WhenShown<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.nameFilters(), QStringList{"Play lists (*.m3u *.xspf)"});
    EXPECT_EQ(dialog.directory(), QDir(QString::fromStdString(temp.Path())));
    static_cast<QDialog&>(dialog).accept();
  });
  EXPECT_EQ(picker.Pick(platform::FilePicker::Purpose::Save, "Export", "Play lists (*.m3u *.xspf)",
                        temp.Path() + "/Evening.m3u8", chosen),
            platform::FilePicker::kChosen);
  EXPECT_EQ(chosen, temp.Path() + "/Evening.m3u8");

  WhenShown<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    dialog.selectFile(QString::fromStdString(list));
    static_cast<QDialog&>(dialog).accept();
  });
  EXPECT_EQ(picker.Pick(platform::FilePicker::Purpose::Open, "Import", "", temp.Path(), chosen),
            platform::FilePicker::kChosen);
  EXPECT_EQ(chosen, list);
  WhenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(picker.Pick(platform::FilePicker::Purpose::Open, "Import", "", "", chosen),
            platform::FilePicker::kCancelled);
}

}  // namespace
