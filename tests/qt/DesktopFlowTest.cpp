#include <sys/stat.h>
#include <unistd.h>

#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QScreen>
#include <fstream>
#include <set>
#include <sstream>

#include "qt/WindowGeometry.h"
#include "qt/dialogs/QtFolderPicker.h"
#include "tests/qt/DesktopFixture.h"
#include "tests/qt/dialogs/WhenShown.h"

namespace {

using platform::Answer;

// The locks this process holds on the catalogue's files, as /proc/locks
// lists them (without the running number in front, which other processes'
// locks change). Locks on other files come and go with what Qt reads.
std::vector<std::string> CatalogueLocks(const std::string& programFolder) {
  std::set<std::string> inodes;
  for (const char* ending : {"", "-wal", "-shm"}) {
    struct stat facts {};
    if (stat((programFolder + "/" + MediaDB::kFileName + ending).c_str(), &facts) == 0)
      inodes.insert(std::to_string(facts.st_ino));
  }
  std::vector<std::string> locks;
  std::ifstream table("/proc/locks");
  for (std::string line; std::getline(table, line);) {
    std::istringstream fields(line);
    std::string number, kind, mode, access, file;
    int pid = 0;
    if (fields >> number >> kind >> mode >> access >> pid >> file && pid == getpid() &&
        inodes.count(file.substr(file.rfind(':') + 1)))
      locks.push_back(line.substr(line.find(' ') + 1));
  }
  return locks;
}

// The window after "Add HD" catalogued home/Music, the Rock folder shown.
class CataloguedDesktopTest : public DesktopTest {
 protected:
  CataloguedDesktopTest() {
    AddMusicFolder();
    Click(Node("Rock"));
  }
};

TEST_F(CataloguedDesktopTest, AddingAFolderShowsItsFilesAndAHeadingSortsThem) {
  ASSERT_NE(Node("Pop"), nullptr);
  EXPECT_EQ(window->StatusLine().text().toStdString(),
            "Found 3 folders: 4 files added, 0 files removed, 0 files could not be read. "
            "1 WMA file named in lower case was not read.");
  EXPECT_TRUE(Node("Rock")->font(0).bold());
  EXPECT_EQ(Column(List(), 2), (Strings{"id3v1.mp3", "SONG.MP3"}));
  EXPECT_EQ(Column(List(), 0), (Strings{"Café Müller", "Upper Case Extension"}));
  EXPECT_TRUE(List().horizontalHeader()->sectionsMovable());

  // A heading sorts by its column, a second click the other way round.
  QHeaderView& heading = *List().horizontalHeader();
  for (int click = 0; click < 2; ++click)
    QTest::mouseClick(heading.viewport(), Qt::LeftButton, {},
                      QPoint(heading.sectionViewportPosition(0) + 5, heading.height() / 2));
  EXPECT_EQ(Column(List(), 0), (Strings{"Upper Case Extension", "Café Müller"}));
  EXPECT_TRUE(heading.isSortIndicatorShown());
  EXPECT_EQ(heading.sortIndicatorOrder(), Qt::DescendingOrder);
}

// "File Info / Edit" on a row: a new title and three stars.
TEST_F(CataloguedDesktopTest, FileInfoEditsTheTitleAndTheRating) {
  ClickRow(List(), 0);
  user::ChooseFromMenu("File Info / Edit");
  WhenShown<QtFileInfoDialog>([](QtFileInfoDialog& dialog) {
    dialog.findChild<QLineEdit*>("Title:")->setText("Mine");
    QTest::mouseClick(dialog.findChildren<QRadioButton*>().at(2), Qt::LeftButton);
    QTest::mouseClick(ButtonSaying(dialog, "Update"), Qt::LeftButton);
  });
  RightClick(List(), 0);
  EXPECT_EQ(List().RowText(0, 0), "Mine");
  EXPECT_EQ(List().RowText(0, 3), "***       ");
}

// The list follows the Find field once typing pauses, through the whole
// library; Enter searches at once; Esc empties the field and the list.
TEST_F(CataloguedDesktopTest, FindSearchesAsYouTypeAndEscEmptiesTheField) {
  QTest::keyClicks(&window->FindField(), "VORB");
  EXPECT_FALSE(Node("Search Results")->font(0).bold());  // not before the pause
  EXPECT_EVENTUALLY(Column(List(), 2) == Strings{"vorbis.ogg"});
  EXPECT_TRUE(Node("Search Results")->font(0).bold());
  EXPECT_EQ(window->StatusLine().text(), "1 file found.");

  window->FindField().clear();
  QTest::keyClicks(&window->FindField(), "o ");
  QTest::keyClick(&window->FindField(), Qt::Key_Return);
  EXPECT_EQ(Column(List(), 2, true), (Strings{"SONG.MP3", "id3v1.mp3", "vorbis.ogg"}));
  EXPECT_EQ(window->StatusLine().text(), "3 files found.");
  QTest::keyClick(&window->FindField(), Qt::Key_Escape);
  EXPECT_EQ(window->FindField().text(), "");
  EXPECT_EQ(List().RowCount(), 0);
  EXPECT_TRUE(window->isVisible());
}

// Album comes from the headings' menu, and the choice (with the hidden
// columns' widths) is kept in the layout the next run restores. Folder shows
// with search results only; "Show in Library" goes from one to its folder.
TEST_F(CataloguedDesktopTest, AlbumShownOutlivesARestartAndShowInLibraryLeavesSearchResultsForTheFolder) {
  QHeaderView* heading = List().horizontalHeader();
  EXPECT_TRUE(heading->isSectionHidden(CMediaList::kFolder));
  user::ChooseFromMenu("Album");
  user::RightClick(heading->viewport(), QPoint(heading->sectionViewportPosition(0) + 5, heading->height() / 2));
  EXPECT_EQ(Column(List(), CMediaList::kAlbum), (Strings{"First Light", "Shouting"}));
  Restart();
  heading = List().horizontalHeader();
  EXPECT_FALSE(heading->isSectionHidden(CMediaList::kAlbum));
  EXPECT_TRUE(heading->isSectionHidden(CMediaList::kTrack));

  QTest::keyClicks(&window->FindField(), "vorbis");
  QTest::keyClick(&window->FindField(), Qt::Key_Return);
  EXPECT_EQ(heading->sectionSize(CMediaList::kFolder), CMediaList::kColumns[CMediaList::kFolder].width);
  EXPECT_EQ(Column(List(), CMediaList::kFolder), Strings{"[drive C:] \\Music\\Pop\\"});
  const std::int32_t fileId = List().RowValue(0);
  user::ChooseFromMenu("Show in Library");
  RightClick(List(), 0);
  ASSERT_NE(Tree().currentItem(), nullptr);
  EXPECT_EQ(Tree().currentItem()->text(0), "Pop");
  EXPECT_TRUE(Tree().currentItem()->font(0).bold());
  EXPECT_EQ(Column(List(), 2, true), (Strings{"quiet.wma", "vorbis.ogg"}));
  const int row = List().RowValue(0) == fileId ? 0 : 1;
  EXPECT_EQ(List().RowValue(row), fileId);
  EXPECT_TRUE(List().IsSelected(row) && !List().IsSelected(1 - row));
}

TEST_F(CataloguedDesktopTest, ARescanKeepsTheExpandedSelectedFolder) {
  QTreeWidgetItem* music = Node("Music");
  Click(music);
  music->setExpanded(true);
  std::filesystem::remove(home + "/Music/Pop/vorbis.ogg");
  user::ChooseFromMenu("rescan");
  Click(music, Qt::RightButton);
  music = Tree().currentItem();
  ASSERT_NE(music, nullptr);
  EXPECT_EQ(music->text(0), "Music");
  EXPECT_TRUE(music->isSelected());
  EXPECT_TRUE(music->isExpanded());
  EXPECT_TRUE(music->font(0).bold());
  EXPECT_EQ(music->childCount(), 2);
  EXPECT_EQ(window->StatusLine().text().toStdString(),
            "Found 3 folders: 0 files added, 1 file removed, 0 files could not be read. "
            "1 WMA file named in lower case was not read.");
}

// Delete on a folder asks first (the cascade itself is the library tree's).
TEST_F(CataloguedDesktopTest, DeleteOnAFolderAsksFirst) {
  messages.Script({Answer::Cancel, Answer::Ok});
  QTest::keyClick(&Tree(), Qt::Key_Delete);
  EXPECT_EQ(messages.Texts().back(), "Remove Path from database?");
  EXPECT_EQ(List().RowCount(), 2);
  QTest::keyClick(&Tree(), Qt::Key_Delete);
  EXPECT_EQ(Node("Rock"), nullptr);
  EXPECT_EQ(List().RowCount(), 0);
}

TEST_F(DesktopTest, BuildPlayAndSaveAPlayListThenCopyItToTheCache) {
  AddMusicFolder();
  Click(Node("Rock"));
  ClickRow(List(), 1);
  QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, List().visualRect(List().model()->index(1, 0)).center());
  ClickRow(List(), 0);
  ClickRow(List(), 1, Qt::ShiftModifier);
  user::ChooseFromMenu("Add To PlayList");
  RightClick(List(), 1);
  EXPECT_EQ(Column(PlayList(), 0), (Strings{"Upper Case Extension", "Café Müller"}));
  EXPECT_EQ(Column(PlayList(), 1), (Strings{"Capital Letters", "Dara O'Neill"}));

  // Play the selected row of the play list, then stop.
  ClickRow(PlayList(), 1);
  QTest::mouseClick(window->PlayList().Button(CPlayListDlg::kPlay), Qt::LeftButton);
  QTest::mouseClick(window->Button(CMainDlg::kStop), Qt::LeftButton);
  const Strings sent = media.Commands();
  EXPECT_TRUE(std::any_of(sent.begin(), sent.end(), [](const std::string& c) {
    return c.starts_with("open") && c.find("\\Rock\\id3v1.mp3") != std::string::npos;
  }));
  EXPECT_TRUE(std::any_of(sent.begin(), sent.end(), [](const std::string& c) { return c.starts_with("stop"); }));

  // Save it under a name: the tree shows it, and the list its files.
  user::ChooseFromMenu("Save PlayList");
  WhenShown<QtInputDialog>([](QtInputDialog& dialog) {
    dialog.findChild<QLineEdit*>()->setText("Road Trip");
    QTest::mouseClick(ButtonSaying(dialog, "Save"), Qt::LeftButton);
  });
  RightClick(PlayList(), 0);
  Click(Node("Road Trip"));
  EXPECT_EQ(Column(List(), 2), (Strings{"SONG.MP3", "id3v1.mp3"}));

  // Copy every row to the cache, then empty it after saying OK.
  const std::string cache = home + "/QORCache";
  QTest::mouseClick(window->PlayList().Button(CPlayListDlg::kCache), Qt::LeftButton);
  const QLabel& status = window->PlayList().StatusLine();
  EXPECT_EQ(status.text(), "2 files copied.");
  EXPECT_GT(status.geometry().top(), PlayList().geometry().bottom());
  messages.Script({Answer::Ok});
  QTest::mouseClick(window->PlayList().Button(CPlayListDlg::kClearCache), Qt::LeftButton);
  EXPECT_TRUE(std::filesystem::is_empty(cache));

  // Delete takes the selected rows out of the play list when it is released.
  ClickRow(PlayList(), 0);
  QTest::keyClick(&PlayList(), Qt::Key_Delete);
  EXPECT_EQ(PlayList().RowCount(), 1);
}

TEST_F(DesktopTest, SplitterKeysOptionsAboutAndGeometry) {
  EXPECT_TRUE(window->PlayList().isVisible());
  // The status line lies under the panes, the now-playing strip at the bottom.
  const int strip = window->Strip().height() + 5;
  const int paneHeight = 360 - strip - window->StatusLine().height() - 2;
  EXPECT_EQ(Tree().geometry(), QRect(5, 30, 245, paneHeight));
  EXPECT_EQ(window->Strip().geometry().bottom(), window->height() - 6);

  // The band lies right of the tree; a drag stops at both limits.
  QTest::mousePress(List().viewport(), Qt::LeftButton, {}, QPoint(2, 50));
  QTest::mouseMove(window.get(), QPoint(400, 100));
  QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, QPoint(2, 50));
  EXPECT_EQ(window->Splitter(), 250);
  QTest::mouseMove(window.get(), QPoint(252, 100));
  EXPECT_EQ(window->cursor().shape(), Qt::SizeHorCursor);
  QTest::mousePress(window.get(), Qt::LeftButton, {}, QPoint(252, 100));
  QTest::mouseMove(window.get(), QPoint(10, 100));
  EXPECT_EQ(window->Splitter(), 40);
  QTest::mouseMove(window.get(), QPoint(690, 100));
  EXPECT_EQ(window->Splitter(), 700 - 70);
  QTest::mouseMove(window.get(), QPoint(302, 100));
  QTest::mouseRelease(window.get(), Qt::LeftButton, {}, QPoint(302, 100));
  EXPECT_EQ(window->Splitter(), 300);
  EXPECT_EQ(List().geometry(), QRect(305, 30, 390, paneHeight));

  // "PL" raises the play list window while the main window covers it, then hides it.
  window->activateWindow();
  ASSERT_EVENTUALLY(window->isActiveWindow());
  ASSERT_TRUE(window->frameGeometry().intersects(window->PlayList().frameGeometry()));
  QTest::mouseClick(window->Button(CMainDlg::kTogglePlayList), Qt::LeftButton);
  EXPECT_TRUE(window->PlayList().isVisible());
  QTest::mouseClick(window->Button(CMainDlg::kTogglePlayList), Qt::LeftButton);
  EXPECT_FALSE(window->PlayList().isVisible());

  // "Op": a new cache folder, kept in memory until exit.
  WhenShown<QtOptionsDialog>([](QtOptionsDialog& dialog) {
    dialog.findChild<QLineEdit*>("Cache Path:")->setText("C:\\Elsewhere");
    QTest::mouseClick(ButtonSaying(dialog, "OK"), Qt::LeftButton);
  });
  QTest::mouseClick(window->Button(CMainDlg::kOptions), Qt::LeftButton);
  EXPECT_EQ(app.Settings().cacheFolder, "C:\\Elsewhere");

  int aboutBoxes = 0;
  WhenShown<QtAboutBox>([&aboutBoxes](QtAboutBox& box) {
    ++aboutBoxes;
    box.reject();
  });
  QTest::mouseClick(window->Button(CMainDlg::kAbout), Qt::LeftButton);
  EXPECT_EQ(aboutBoxes, 1);

  // Closing stores both windows' rectangles and the splitter, hidden or not.
  window->PlayList().resize(230, 410);
  window->resize(720, 480);
  window->close();
  const CAppSettings& settings = app.Settings();
  EXPECT_EQ(std::vector({settings.mainWidth, settings.mainHeight, settings.splitter, settings.playListWidth,
                         settings.playListHeight}),
            std::vector({720, 480, 300, 230, 410}));
}

TEST_F(DesktopTest, BothWindowsComeBackWhereTheyWereRunAfterRun) {
  MoveTopLevel(*window, 60, 80, 640, 420);
  MoveTopLevel(window->PlayList(), 720, 90, 260, 380);
  List().setColumnWidth(2, 190);
  List().horizontalHeader()->moveSection(2, 0);
  const QRect main = window->geometry(), playList = window->PlayList().geometry();
  for (int run = 0; run < 3; ++run) {
    Restart();
    EXPECT_EQ(window->geometry(), main) << run;
    EXPECT_EQ(window->PlayList().geometry(), playList) << run;
  }
  EXPECT_EQ(List().horizontalHeader()->logicalIndex(0), 2);
  EXPECT_EQ(List().columnWidth(2), 190);

  // Maximised, it comes back maximised, and its normal place stays.
  window->showMaximized();
  Restart();
  EXPECT_TRUE(window->isMaximized());
  EXPECT_EQ(window->normalGeometry(), main);
  EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry()));
}

TEST_F(DesktopTest, PlayListRowsMoveByDraggingAndFilesDropIn) {
  AddMusicFolder();
  Click(Node("Rock"));
  List().SelectAll();
  // Dropped on the upper edge of the row (or below the rows).
  const auto drop = [this](const QMimeData& carried, int row) {
    const QRect cell = PlayList().visualRect(PlayList().model()->index(row, 0));
    PlayList().Drop(carried, row < PlayList().RowCount() ? cell.topLeft() + QPoint(2, 1) : QPoint(5, 200));
    QCoreApplication::processEvents();
  };
  drop(*List().DragData(), 0);  // from the media list, as "Add To PlayList"
  EXPECT_EQ(Column(PlayList(), 0), (Strings{"Café Müller", "Upper Case Extension"}));

  // From a file manager: catalogued files only.
  QMimeData fromFileManager;
  fromFileManager.setUrls({QUrl::fromLocalFile(QString::fromStdString(home + "/Music/Pop/vorbis.ogg")),
                           QUrl::fromLocalFile(QString::fromStdString(folder.Path() + "/nowhere.mp3"))});
  drop(fromFileManager, 2);
  EXPECT_EQ(PlayList().RowCount(), 3);
  EXPECT_EQ(window->PlayList().StatusLine().text(), "1 file is not in the catalogue.");

  // The last row dragged to the top.
  const std::int32_t last = PlayList().RowValue(2);
  ClickRow(PlayList(), 2);
  drop(*PlayList().DragData(), 0);
  EXPECT_EQ(PlayList().RowValue(0), last);
  EXPECT_EQ(PlayList().RowCount(), 3);
  EXPECT_TRUE(PlayList().IsSelected(0));
}

TEST_F(DesktopTest, TheFolderPickerLeavesTheCataloguesLocksAlone) {
  app.Db().GetConfig(1);  // a read on the window's own connection
  const auto before = CatalogueLocks(folder.Path());
  ASSERT_TRUE(std::any_of(before.begin(), before.end(),
                          [](const std::string& lock) { return lock.find("FLOCK") != std::string::npos; }));
  QtFolderPicker realPicker(window.get());
  // Answered once the dialog has listed the program folder.
  WhenShown<QFileDialog>([this](QFileDialog& dialog) {
    auto* listing = dialog.findChild<QFileSystemModel*>();
    ASSERT_NE(listing, nullptr);
    const QModelIndex shown = listing->index(QString::fromStdString(folder.Path()));
    const bool filesToo = listing->filter() & QDir::Files;
    int expected = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
      expected += entry.path().filename().string()[0] != '.' && (filesToo || entry.is_directory());
    EXPECT_EVENTUALLY(listing->rowCount(shown) == expected);
    dialog.reject();
  });
  std::string chosen;
  realPicker.Browse("Select Folder", folder.Path(), chosen);
  EXPECT_EQ(CatalogueLocks(folder.Path()), before);
}

}  // namespace
