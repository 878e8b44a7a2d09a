#include "playlists/CopyCommands.h"
#include "tests/support/ScriptedInputDialog.h"
#include "tests/support/WorkerDialogDriver.h"
#include "tests/ui/LibraryFixture.h"
#include "ui/CMainDlg.h"

namespace {

using Strings = std::vector<std::string>;

// The main window, keeping its Find field's text and whether the play list shows.
class MainWindowTest : public LibraryTest, private MainWindowView, private PlayListView {
 protected:
  MainWindowTest() {
    const int folderId = AddFolder(AddVolume(3, "Music"), "\\Music\\");
    AddFile(folderId, "abc.mp3");
    AddFile(folderId, "xyz.mp3");
    window.OnInitDialog();
  }
  bool Key(MessageKind kind, KeyCode key, MessageTarget target) {
    return window.PreTranslateMessage({kind, target, key, 0, 0});
  }
  void UserSelects(std::int32_t value) {
    tree.selected = Node(value);
    window.OnTreeSelectionChanged(tree.selected);
  }

  void AttachToolTips(std::span<const MainControl>) override {}
  void MoveWindow(int, int, int, int) override {}
  Rect OuterRect() const override { return {40, 100, 540, 500}; }
  Rect ClientRect() const override { return {0, 0, 490, 370}; }
  void MoveTree(int, int, int, int) override {}
  void MoveList(int, int, int, int) override {}
  void MoveStatusLine(int, int, int, int) override {}
  int StatusLineHeight() const override { return 0; }
  Rect AvailableScreen() const override { return {0, 0, 1200, 900}; }
  bool IsMaximized() const override { return maximized; }
  void SetMaximized(bool value) override { maximized = value; }
  void SetSizingCursor() override {}
  void CaptureMouse() override {}
  void ReleaseMouse() override {}
  std::string FindText() const override { return findText; }
  void SetFindText(const std::string& text) override { findText = text; }
  void ShowAbout() override {}
  bool IsPlayListVisible() const override { return playListVisible; }
  void ShowPlayList(bool show) override { playListVisible = show; }
  void MovePlayList(int, int, int, int) override {}
  Rect PlayListRect() const override { return {550, 100, 760, 500}; }
  void RaisePlayList() override {}
  bool IsPlayListCovered() const override { return false; }

  platform::ListControl& List() override { return playList; }
  void AddButtons(std::span<const PlayListButton>) override {}
  int TrackPopupMenu(std::span<const platform::MenuEntry>) override { return 0; }
  // The main window's and the play list window's line alike.
  void SetStatusLine(const std::string& text) override { statusLine = text; }

  std::string findText;
  std::string statusLine;
  bool playListVisible = false;
  bool maximized = false;
  testing_support::WorkerDialogDriver copyDialogs{messages};
  CopyCommands copy{app->PlayList(), app->Db(), app->Drives(), app->Settings(), copyDialogs};
  testing_support::ScriptedInputDialog input;
  testing_support::ScriptedOptions options;
  CMainDlg window{
      {app->Db(),
       app->Tree(),
       app->List(),
       {tree, menu, volumeInfo, scans, filePicker},
       {list, menu, fileInfo},
       scans,
       app->Playback(),
       app->Settings(),
       app->Drives(),
       picker,
       options,
       {app->PlayList(), app->Playback(), copy, app->Settings(), app->Drives(), picker, input, app->PlayThrough(),
        filePicker},
       *this},
      *this,
  };
};

TEST_F(MainWindowTest, AFirstStartFitsBothWindowsOnTheScreenAndKeysAndMenusGoWhereTheyBelong) {
  // The stored values were the new catalogue's: two thirds of 1200 x 900.
  const CAppSettings& settings = app->Settings();
  EXPECT_EQ(std::vector({settings.mainLeft, settings.mainTop, settings.mainWidth, settings.mainHeight,
                         settings.splitter, settings.playListLeft, settings.playListWidth}),
            std::vector({100, 150, 800, 600, 266, 910, 280}));
  EXPECT_TRUE(playListVisible);

  // Enter and Escape outside the Find field neither search nor close the window.
  findText = "abc";
  EXPECT_TRUE(Key(MessageKind::KeyDown, KeyCode::Enter, MessageTarget::List));
  EXPECT_TRUE(Key(MessageKind::KeyDown, KeyCode::Escape, MessageTarget::Tree));
  EXPECT_EQ(tree.selected, platform::TreeControl::kNoItem);
  EXPECT_EQ(findText, "abc");

  UserSelects(1);
  Key(MessageKind::KeyDown, KeyCode::A, MessageTarget::List);
  Key(MessageKind::KeyDown, KeyCode::Control, MessageTarget::Tree);
  Key(MessageKind::KeyDown, KeyCode::A, MessageTarget::Tree);
  EXPECT_TRUE(app->List().SelectedFileIds().empty());
  Key(MessageKind::KeyDown, KeyCode::A, MessageTarget::List);
  EXPECT_EQ(app->List().SelectedFileIds().size(), 2u);
  window.OnListDoubleClick();
  window.OnListDoubleClick();
  EXPECT_EQ(playList.RowCount(), 2);

  // An edit refreshes every list that shows the file, search results too.
  menu.choice = CMediaList::kFileInfo;
  fileInfo.edit = [](FileInfoForm& form) { form.title = "New"; };
  window.OnListContextMenu();
  EXPECT_EQ(list.rows[0].texts[0], "New");
  findText.clear();
  window.OnCommand(CMainDlg::kGo);  // an empty Find field
  EXPECT_TRUE(Rows().empty());
  findText = "abc";
  window.OnCommand(CMainDlg::kGo);
  fileInfo.edit = [](FileInfoForm& form) { form.title = "Newer"; };
  list.Select({0});
  window.OnListContextMenu();
  EXPECT_EQ(list.rows[0].texts[0], "Newer");

  UserSelects(60000003);
  Key(MessageKind::KeyUp, KeyCode::Delete, MessageTarget::Tree);  // a group: nothing asked
  UserSelects(1);
  messages.Script({platform::Answer::Ok});
  Key(MessageKind::KeyUp, KeyCode::Delete, MessageTarget::List);
  Key(MessageKind::KeyUp, KeyCode::Delete, MessageTarget::Tree);
  EXPECT_EQ(messages.Texts(), Strings{"Remove Path from database?"});
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ(Node(1), platform::TreeControl::kNoItem);
}

// abc.mp3 lies in \Music\ of the first volume and again two folders down on
// another, so only the right folder's row can be the one selected.
TEST_F(MainWindowTest, ShowInLibrarySelectsTheFilesFolderAndThenItsRow) {
  const int disk = AddVolume(3, "Other", "D", "2");
  const int top = AddFolder(disk, "\\Top\\");
  const int deep = AddFolder(disk, "\\Top\\Deep\\", top);
  AddFile(deep, "first.mp3");
  const int deepAbc = AddFile(deep, "abc.mp3");
  Exec("INSERT INTO PlayLists(Name,FileIDs) VALUES ('Mixed','1,' || " + std::to_string(deepAbc) + ");");
  app->Tree().Rebuild();
  findText = "abc";
  window.OnCommand(CMainDlg::kGo);
  ASSERT_EQ(app->List().AllFileIds(), (IdList{1, deepAbc}));
  list.Select({1});
  menu.choice = CMediaList::kShowInLibrary;
  window.OnListContextMenu();
  EXPECT_EQ(tree.selected, Node(deep));
  EXPECT_TRUE(tree.At(Node(top)).expanded);
  EXPECT_TRUE(tree.At(Node(ItemValue(NodeKind::Volume, disk))).expanded);
  EXPECT_EQ(Rows().size(), 2u);
  EXPECT_EQ(app->List().SelectedFileIds(), IdList{deepAbc});

  // From a play list with both rows selected: the first row's file.
  UserSelects(ItemValue(NodeKind::PlayList, 1));
  app->List().SelectAll();
  window.OnListContextMenu();
  EXPECT_EQ(tree.selected, Node(1));
  EXPECT_EQ(app->List().AllFileIds(), (IdList{1, 2}));
  EXPECT_EQ(app->List().SelectedFileIds(), IdList{1});
  // A file that is gone since changes nothing.
  EXPECT_FALSE(app->Tree().ShowFile(99));
  EXPECT_EQ(app->List().SelectedFileIds(), IdList{1});
}

}  // namespace
