#include <gtest/gtest.h>

#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <optional>

#include "qt/dialogs/QtMessageBox.h"
#include "qt/dialogs/QtWorkerDialog.h"
#include "qt/dialogs/QtWorkerDialogHost.h"
#include "scan/CScanDlg.h"
#include "tests/qt/dialogs/WhenShown.h"
#include "tests/scan/ScanFixture.h"
#include "tests/support/QtEventually.h"

namespace {

class QtScanDialogTest : public ScanTest {
 protected:
  QtScanDialogTest() : host(messages) { Put("c/Music/a.mp3", "id3v1.mp3"); }

  void ScanMusic() {
    scanner.Prepare(3, "C:\\Music\\");
    host.RunWorkerDialog(CScanDlg::kCaption, [this](WorkerDialogView& view, platform::MessageBox& shown) {
      return std::make_unique<CScanDlg>(scanner, shown, view);
    });
  }

  QtWorkerDialogHost host;
};

TEST_F(QtScanDialogTest, ARealScanShowsItsLastFileAndEndsWithScanComplete) {
  QString statusAtEnd;
  messages.OnShow([&](const testing_support::ShownMessage&) {
    if (auto* dialog = VisibleWindow<QtWorkerDialog>()) statusAtEnd = dialog->findChild<QLabel*>()->text();
  });
  ScanMusic();
  EXPECT_EQ(messages.Texts(), std::vector<std::string>{"Scan Complete."});
  EXPECT_EQ(statusAtEnd, "a.mp3");
  EXPECT_EQ(CataloguedFiles().size(), 1u);
}

TEST_F(QtScanDialogTest, CancelKeepsTheDialogUpUntilTheWorkerEndsAndItsBoxesAreAnswered) {
  QtMessageBox workerBoxes;
  std::atomic<bool> reading{false};
  std::optional<platform::Answer> workerAnswer;
  reader.beforeRead = [&](const std::string&) {
    reading = true;
    EXPECT_TRUE(testing_support::Eventually([&] { return scanner.Progress().cancel.load(); }));
    workerAnswer = workerBoxes.Show("Go on?", platform::Buttons::OkCancel, platform::Icon::Warning);
  };
  WhenShown<QtWorkerDialog>([&](QtWorkerDialog& dialog) {
    ASSERT_EVENTUALLY(reading.load());
    QTest::mouseClick(ButtonSaying(dialog, "Cancel"), Qt::LeftButton);
    WhenShown<QMessageBox>([&dialog](QMessageBox& box) {
      EXPECT_TRUE(dialog.isVisible());  // still up while the worker waits for the answer
      QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    });
  });
  ScanMusic();
  EXPECT_EQ(workerAnswer, platform::Answer::Ok);
  EXPECT_TRUE(messages.Texts().empty());  // no "Scan Complete." after Cancel
  EXPECT_TRUE(scanner.Progress().done);
}

}  // namespace
