#pragma once
// The desktop program in a temporary program folder: disk C is a home folder
// holding Music/Rock (two files) and Music/Pop (two files). The real windows
// and Qt dialogs run on the offscreen platform; only the folder picker and
// the message boxes, which a person answers, are scripted, and the media
// control records what it was told to play. Every item model of the windows
// runs under QAbstractItemModelTester.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QPushButton>
#include <QTreeWidgetItem>
#include <filesystem>
#include <memory>

#include "app/CLibraryApp.h"
#include "qt/MainWindow.h"
#include "qt/NowPlayingBar.h"
#include "qt/PlayListWindow.h"
#include "qt/QtListControl.h"
#include "qt/QtTreeControl.h"
#include "qt/dialogs/QtCoverLoader.h"
#include "tests/qt/DesktopDialogSet.h"
#include "tests/qt/UserActions.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/QtEventually.h"
#include "tests/support/RecordingMediaControl.h"
#include "ui/CMainDlg.h"

class DesktopTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  using Strings = std::vector<std::string>;

  DesktopTest() {
    namespace fs = std::filesystem;
    drives.AddFixed('C', home);
    const std::string fixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/";
    for (const auto& [file, genre] :
         {std::pair{"id3v1.mp3", "Rock"}, {"SONG.MP3", "Rock"}, {"vorbis.ogg", "Pop"}, {"quiet.wma", "Pop"}})
      fs::copy_file(fixtures + file, folder.MakeFolder("home/Music/" + std::string(genre)) + "/" + file);
    app.Start();
    // As if stored by the last run: room for the tree's deeper levels.
    app.Settings().mainWidth = 700;
    app.Settings().splitter = 250;
    OpenWindow();
  }

  // Starts the main window (and with it the play list window) and shows it.
  void OpenWindow() {
    window = std::make_unique<MainWindow>(app, dialogs.For(&covers));
    modelTesters.clear();
    for (QAbstractItemModel* model : {List().model(), PlayList().model()})
      modelTesters.push_back(
          std::make_unique<QAbstractItemModelTester>(model, QAbstractItemModelTester::FailureReportingMode::Fatal));
    window->Start();
    window->show();
    EXPECT_EVENTUALLY(window->windowHandle() && window->windowHandle()->isExposed());
  }
  // Closes the window, which stores the windows' places in the settings,
  // and opens it again from them, as the next run would.
  void Restart() {
    window->close();
    modelTesters.clear();
    window.reset();
    OpenWindow();
  }

  // Add HD with the picker answering home/Music; returns when the scan is done.
  void AddMusicFolder() {
    dialogs.picker.answer = platform::FolderPicker::kChosen;
    dialogs.picker.folder = home + "/Music";
    QTest::mouseClick(window->Button(CMainDlg::kAddHd), Qt::LeftButton);
  }

  // The first tree item with this label, its parents expanded so it shows.
  QTreeWidgetItem* Node(const QString& label) const {
    const auto found = Tree().findItems(label, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) return nullptr;
    for (QTreeWidgetItem* parent = found.front()->parent(); parent; parent = parent->parent())
      parent->setExpanded(true);
    return found.front();
  }
  void Click(QTreeWidgetItem* node, Qt::MouseButton button = Qt::LeftButton) {
    ASSERT_NE(node, nullptr);
    Tree().scrollToItem(node);
    const QPoint at = Tree().visualItemRect(node).center();
    if (button == Qt::RightButton)
      user::RightClick(Tree().viewport(), at);
    else
      QTest::mouseClick(Tree().viewport(), button, {}, at);
  }
  // A row of a list, once it shows: a left click selects it alone.
  static void ClickRow(QtListControl& list, int row, Qt::KeyboardModifiers keys = {}) {
    QCoreApplication::processEvents();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, list.visualRect(list.model()->index(row, 0)).center());
  }
  // A right click on a row, which keeps the selection when the row is in it.
  static void RightClick(QtListControl& list, int row) {
    user::RightClick(list.viewport(), list.visualRect(list.model()->index(row, 0)).center());
  }

  // One column of a list, top to bottom.
  static Strings Column(const QtListControl& list, int column, bool sorted = false) {
    Strings texts;
    for (int row = 0; row < list.RowCount(); ++row) texts.push_back(list.RowText(row, column));
    if (sorted) std::sort(texts.begin(), texts.end());
    return texts;
  }

  QtTreeControl& Tree() const { return window->Tree(); }
  QtListControl& List() const { return window->List(); }
  QtListControl& PlayList() const { return window->PlayList().ListControl(); }

  std::string home = folder.MakeFolder("home");
  testing_support::RecordingMediaControl media;
  CLibraryApp app{folder.Path() + "/", PlatformServices{table, files, messages, media}};

  DesktopDialogSet dialogs{messages};
  QtCoverLoader covers{files};
  std::unique_ptr<MainWindow> window;
  std::vector<std::unique_ptr<QAbstractItemModelTester>> modelTesters;
};
