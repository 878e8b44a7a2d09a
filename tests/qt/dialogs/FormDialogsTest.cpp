#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>

#include "dialogs/CInputDlg.h"
#include "qt/dialogs/QtAboutBox.h"
#include "qt/dialogs/QtFileInfoDialog.h"
#include "qt/dialogs/QtInputDialog.h"
#include "qt/dialogs/QtOptionsDialog.h"
#include "qt/dialogs/QtVolumeInfoDialog.h"
#include "tests/qt/dialogs/WhenShown.h"

namespace {

QLineEdit& Edit(QWidget& dialog, const char* label) {
  auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(label));
  EXPECT_NE(edit, nullptr) << label;
  return *edit;
}

void Retype(QLineEdit& edit, const QString& text) {
  edit.selectAll();
  QTest::keyClick(&edit, Qt::Key_Delete);
  QTest::keyClicks(&edit, text);
}

std::vector<bool> Checked(const QWidget& dialog) {
  std::vector<bool> checked;
  for (QRadioButton* button : dialog.findChildren<QRadioButton*>()) checked.push_back(button->isChecked());
  return checked;
}

FileInfoForm SongForm(int rating) {
  return {"song.mp3",
          "Caf\xe9",
          "Artist",
          "Album",
          "Comment",
          "Length:  4:05",
          "Bit Rate: 192 kb/s",
          "Sample Rate: 44100 Hz",
          "Channels: 2",
          rating,
          "MPEG Info",
          0,
          "",
          {}};
}

TEST(FileInfoDialog, ShowsTheFormHandsBackTheEditsAndCancelChangesNothing) {
  QtFileInfoDialog dialog;
  FileInfoForm form = SongForm(3);
  WhenShown<QtFileInfoDialog>([](QtFileInfoDialog& shown) {
    EXPECT_EQ(shown.windowTitle(), "File Info");
    EXPECT_EQ(Edit(shown, "Title:").text(), QString::fromUtf8("Caf\u00e9"));  // not UTF-8: Latin-1
    EXPECT_EQ(Checked(shown), (std::vector<bool>{false, false, true, false, false}));
    QStringList info;
    for (QLabel* label : shown.findChild<QGroupBox*>()->findChildren<QLabel*>()) info << label->text();
    EXPECT_EQ(info, QStringList({"Length:  4:05", "Bit Rate: 192 kb/s", "Sample Rate: 44100 Hz", "Channels: 2"}));
    QLineEdit& file = Edit(shown, "File:");
    QTest::keyClicks(&file, "x");
    EXPECT_EQ(file.text(), "song.mp3");
    Retype(Edit(shown, "Artist:"), "New Artist");
    QTest::mouseClick(shown.findChildren<QRadioButton*>().at(4), Qt::LeftButton);
    QTest::mouseClick(ButtonSaying(shown, "Update"), Qt::LeftButton);
  });
  EXPECT_EQ(dialog.RunModal(form), kDialogOk);
  EXPECT_EQ(form.artist, "New Artist");
  EXPECT_EQ(form.title, "Caf\xe9");  // left alone, so the same bytes come back
  EXPECT_EQ(form.checkedRating, 5);

  // A run without a rating checks no button, though the last run checked one.
  form = SongForm(0);
  WhenShown<QtFileInfoDialog>([](QtFileInfoDialog& shown) {
    EXPECT_EQ(Checked(shown), std::vector<bool>(5, false));
    Retype(Edit(shown, "Title:"), "Changed");
    QTest::mouseClick(ButtonSaying(shown, "Cancel"), Qt::LeftButton);
  });
  EXPECT_EQ(dialog.RunModal(form), kDialogCancel);
  EXPECT_EQ(form.title, "Caf\xe9");
  EXPECT_EQ(form.checkedRating, 0);
}

TEST(VolumeInfoDialog, TheVolumeNameIsReadOnlyAndEnterPressesUpdate) {
  QtVolumeInfoDialog dialog;
  VolumeInfoForm form{"Jazz", "JAZZ_01", "Old"};
  WhenShown<QtVolumeInfoDialog>([](QtVolumeInfoDialog& shown) {
    EXPECT_EQ(shown.windowTitle(), "Volume Info ");
    EXPECT_EQ(Edit(shown, "Display Name:").text(), "Jazz");
    QLineEdit& name = Edit(shown, "Volume Name:");
    QTest::keyClicks(&name, "x");
    EXPECT_EQ(name.text(), "JAZZ_01");
    Retype(Edit(shown, "Description:"), "Live sets");
    QTest::keyClick(&Edit(shown, "Display Name:"), Qt::Key_Return);
  });
  EXPECT_EQ(dialog.RunModal(form), kDialogOk);
  EXPECT_EQ(form.displayName, "Jazz");
  EXPECT_EQ(form.volumeName, "JAZZ_01");
  EXPECT_EQ(form.description, "Live sets");
}

TEST(OptionsDialog, ListsDrivesSortedAndTakesThePickedFolderAndTheChosenDrive) {
  QtOptionsDialog dialog;
  OptionsForm form{"C:\\QORCache", {"E:\\", "D:\\"}, 0, false};
  int browsed = 0;
  const auto browse = [&] {
    if (++browsed == 2) form.cachePath = "C:\\Chosen\\";  // the first pick is cancelled
  };
  WhenShown<QtOptionsDialog>([](QtOptionsDialog& shown) {
    auto& drives = *shown.findChild<QComboBox*>("CD Drive:");
    EXPECT_FALSE(drives.isEditable());
    EXPECT_EQ(drives.itemText(0), "D:\\");
    EXPECT_EQ(drives.currentText(), "E:\\");
    QLineEdit& path = Edit(shown, "Cache Path:");
    Retype(path, "C:\\Typed");
    QTest::mouseClick(ButtonSaying(shown, "..."), Qt::LeftButton);
    EXPECT_EQ(path.text(), "C:\\Typed");
    QTest::mouseClick(ButtonSaying(shown, "..."), Qt::LeftButton);
    EXPECT_EQ(path.text(), "C:\\Chosen\\");
    QTest::keyClick(&drives, Qt::Key_Up);
    auto& allFormats = *shown.findChild<QCheckBox*>();
    EXPECT_EQ(allFormats.text(), "Catalogue every audio format");
    EXPECT_FALSE(allFormats.isChecked());
    EXPECT_TRUE(allFormats.toolTip().contains("next scan")) << allFormats.toolTip().toStdString();
    allFormats.click();
    QTest::mouseClick(ButtonSaying(shown, "OK"), Qt::LeftButton);
  });
  EXPECT_EQ(dialog.RunModal(form, browse), kDialogOk);
  EXPECT_EQ(form.cachePath, "C:\\Chosen\\");
  EXPECT_EQ(form.selectedDrive, 1);  // "D:\" in the form's own order
  EXPECT_TRUE(form.allFormats);
}

TEST(InputDialog, ShowsCaptionPromptAndLabelAndGivesTheLabelBackAfterTheRun) {
  QtInputDialog frontEnd;
  CInputDlg input(frontEnd);
  input.caption = "Save Playlist";
  input.prompt = "Save Playlist as ..";
  input.text = "Old";
  input.okLabel = "Save";
  WhenShown<QtInputDialog>([](QtInputDialog& shown) {
    EXPECT_EQ(shown.windowTitle(), "Save Playlist");
    EXPECT_EQ(shown.findChild<QLabel*>()->text(), "Save Playlist as ..");
    Retype(*shown.findChild<QLineEdit*>(), "Mix");
    QTest::mouseClick(ButtonSaying(shown, "Save"), Qt::LeftButton);
  });
  EXPECT_EQ(input.DoModal(), platform::InputDialog::kOk);
  EXPECT_EQ(input.text, "Mix");

  input.okLabel.clear();
  WhenShown<QtInputDialog>([](QtInputDialog& shown) {
    EXPECT_NE(ButtonSaying(shown, "OK"), nullptr);
    Retype(*shown.findChild<QLineEdit*>(), "Other");
    QTest::mouseClick(ButtonSaying(shown, "Cancel"), Qt::LeftButton);
  });
  EXPECT_EQ(input.DoModal(), platform::InputDialog::kCancel);
  EXPECT_EQ(input.text, "Mix");
}

TEST(AboutBox, NamesTheProductAndLinksTheProjectsReadmeAndLicence) {
  QtAboutBox box;
  QString text;
  for (QLabel* label : box.findChildren<QLabel*>()) text += label->text();
  EXPECT_TRUE(text.contains("Tandrelo Vantrelle") && text.contains("v1.4"));
  QStringList linked;
  for (const QRegularExpressionMatch& link : QRegularExpression("href=\"file://([^\"]+)\"").globalMatch(text)) {
    EXPECT_TRUE(QFileInfo(link.captured(1)).isFile()) << link.captured(1).toStdString();
    linked << QFileInfo(link.captured(1)).fileName();
  }
  EXPECT_EQ(linked, QStringList({"README.md", "LICENSE"}));
}

}  // namespace
