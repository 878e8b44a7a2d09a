#include "playlists/CPlayListDlg.h"
#include "playlists/CopyCommands.h"
#include "settings/CAppSettings.h"
#include "tests/playlists/PlayListFixture.h"
#include "tests/support/ScriptedFilePicker.h"
#include "tests/support/ScriptedFolderPicker.h"
#include "tests/support/ScriptedInputDialog.h"
#include "tests/support/WorkerDialogDriver.h"

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;
using Key = CPlayListDlg::Key;

class PlayListWindowTest : public PlayListTest, private PlayListView {
 protected:
  PlayListWindowTest() {
    window.OnInitDialog();
    app->Db().Events().Subscribe([this](const CatalogueChanges& changes) {
      if (changes.Touches(CatalogueTable::PlayLists)) ++rebuilds;
    });
    app->PlayList().AddFiles({AddFile("a.mp3"), AddFile("b.mp3"), AddFile("c.mp3")});
  }
  std::size_t FilesIn(const std::string& relative) const {
    return std::distance(fs::directory_iterator(Local(relative)), fs::directory_iterator());
  }

  platform::ListControl& List() override { return list; }
  void MoveWindow(int, int, int, int) override {}
  void MoveList(int, int, int, int) override {}
  void AddButtons(std::span<const PlayListButton>) override {}
  int TrackPopupMenu(std::span<const platform::MenuEntry>) override { return menuChoice; }
  void SetStatusLine(const std::string& text) override { statusLine = text; }

  testing_support::WorkerDialogDriver copyDialogs{messages};
  CopyCommands copy{app->PlayList(), app->Db(), app->Drives(), app->Settings(), copyDialogs};
  testing_support::ScriptedFolderPicker picker;
  testing_support::ScriptedFilePicker filePicker;
  testing_support::ScriptedInputDialog input;
  CPlayListDlg window{{app->PlayList(), app->Playback(), copy, app->Settings(), app->Drives(), picker, input,
                       app->PlayThrough(), filePicker},
                      *this};
  int rebuilds = 0;
  int menuChoice = CPlayListDlg::kSavePlayList;
  std::string statusLine;
};

TEST_F(PlayListWindowTest, PlaysTheFirstSelectedRowAndKeysChangeRowsOnly) {
  window.OnCommand(CPlayListDlg::kPlay);
  EXPECT_TRUE(media.Commands().empty());
  list.Select({2, 1});
  window.OnCommand(CPlayListDlg::kPlay);
  ASSERT_FALSE(media.Commands().empty());
  EXPECT_EQ(media.Commands()[0], "open \"C:\\Music\\b.mp3\" type mpegvideo alias QL_MCI_DEV_1");

  window.OnListKeyPressed(Key::A, false);
  window.OnKeyReleased(Key::Delete);
  EXPECT_EQ(app->PlayList().GetFileIds(false), IdList{1});
  EXPECT_TRUE(fs::exists(Local("c/Music/b.mp3")));
  list.AppendRow({"d"}, 4);
  window.OnListKeyPressed(Key::A, true);
  EXPECT_EQ(app->PlayList().GetFileIds(true).size(), 2u);
}

TEST_F(PlayListWindowTest, SaveStoresARowWhicheverWayTheDialogClosed) {
  window.OnContextMenu(false);  // not on the list: no menu
  input.typed = "Evening";
  list.Select({1});  // a save holds every row, selected or not
  window.OnContextMenu(true);
  EXPECT_EQ(input.caption + "|" + input.prompt + "|" + input.okLabel, "Save Playlist|Save Playlist as ..|Save");
  input.press = platform::InputDialog::kCancel;
  window.OnContextMenu(true);
  const std::vector<CPlayList> stored = app->Db().GetPlayLists();
  ASSERT_EQ(stored.size(), 2u);
  EXPECT_EQ(stored[0].Name, "Evening");
  EXPECT_EQ(stored[1].Name, "");
  EXPECT_EQ(stored[1].FileIDs, "1,2,3");
  EXPECT_EQ(rebuilds, 2);
}

TEST_F(PlayListWindowTest, CopyToStartsInTheLastConfirmedFolderAndRemembersIt) {
  app->Settings().playListFolder = "C:\\Start";
  window.OnCommand(CPlayListDlg::kCopyAllTo);  // cancelled
  EXPECT_EQ(picker.title, "Select Folder");
  EXPECT_EQ(statusLine, "");
  picker.answer = platform::FolderPicker::kChosen;
  picker.folder = folder.MakeFolder("c/Out");
  list.Select({1, 2});
  window.OnCommand(CPlayListDlg::kCopySelectionTo);
  EXPECT_EQ(FilesIn("c/Out"), 2u);
  EXPECT_EQ(statusLine, "2 files copied.");
  window.OnCommand(CPlayListDlg::kCopyAllTo);
  EXPECT_EQ(FilesIn("c/Out"), 3u);
  EXPECT_EQ(statusLine, "1 file copied, 2 already there.");
  EXPECT_EQ(picker.startedAt, (Strings{Local("c/Start"), Local("c/Start"), Local("c/Out")}));
  EXPECT_EQ(app->Settings().playListFolder, "C:\\Out");

  // The first failures are named, the rest counted, on one line.
  app->PlayList().AddFiles({AddFile("d.mp3"), AddFile("e.mp3")});
  app->Settings().cacheFolder = "C:\\Missing";
  window.OnCommand(CPlayListDlg::kCache);
  EXPECT_EQ(statusLine,
            "0 files copied, 5 failed: a.mp3 (target folder missing), b.mp3 (target folder missing), "
            "c.mp3 (target folder missing) and 2 more.");
}

TEST_F(PlayListWindowTest, ExportWritesTheRowsAndImportAddsTheCataloguedFilesNotListedYet) {
  // A file on a CD is listed where the CD drive holds its disc; without the disc it is left out.
  const std::int32_t onDisc = AddFile("x.mp3", "data", AddVolume(5, "Jazz", 7), "\\Disc\\", "Jazz/Disc");
  app->PlayList().AddFiles({onDisc});
  menuChoice = CPlayListDlg::kExportPlayList;
  window.OnContextMenu(true);  // cancelled
  EXPECT_FALSE(fs::exists(Local("evening.m3u8")));
  filePicker.answer = platform::FilePicker::kChosen;
  filePicker.file = Local("evening");
  window.OnContextMenu(true);
  EXPECT_EQ(statusLine,
            "3 files exported to " + Local("evening.m3u8") + ". 1 file left out: their disc or disk is not at hand.");
  EXPECT_EQ(Read("evening.m3u8"), "#EXTM3U\n#EXTINF:-1,a.mp3\n" + Local("c/Music/a.mp3") + "\n#EXTINF:-1,b.mp3\n" +
                                      Local("c/Music/b.mp3") + "\n#EXTINF:-1,c.mp3\n" + Local("c/Music/c.mp3") + "\n");
  drives.InsertDisc('E', Local("Jazz"));
  window.OnContextMenu(true);
  EXPECT_TRUE(Read("evening.m3u8").ends_with("\n#EXTINF:-1,x.mp3\n" + Local("Jazz/Disc/x.mp3") + "\n"));

  const int lists = testing_support::StoreFolder(app->Db(), disk, "\\Lists\\");
  folder.WriteFile("c/Lists/d.mp3", "d");
  folder.WriteFile("c/Lists/e.mp3", "e");
  const IdList added{testing_support::StoreFile(app->Db(), lists, "d.mp3"),
                     testing_support::StoreFile(app->Db(), lists, "e.mp3")};
  folder.WriteFile("c/Lists/more.m3u", "d.mp3\n../Music/a.mp3\ne.mp3\n/gone.mp3\n");
  filePicker.file = Local("c/Lists/more.m3u");
  menuChoice = CPlayListDlg::kImportPlayList;
  window.OnContextMenu(true);
  EXPECT_EQ(app->PlayList().GetFileIds(false), (IdList{1, 2, 3, onDisc, added[0], added[1]}));
  EXPECT_EQ(statusLine, "2 files imported; 1 file is not in the catalogue.");
  ASSERT_EQ(filePicker.runs.size(), 4u);
  EXPECT_EQ(filePicker.runs[1].title + "|" + filePicker.runs[1].filter,
            "Export Play List|Play lists (*.m3u *.m3u8 *.xspf)");
  EXPECT_EQ(filePicker.runs[3].purpose, platform::FilePicker::Purpose::Open);
  EXPECT_EQ(filePicker.runs[3].filter, "Play lists (*.m3u *.m3u8 *.xspf *.pls)");
  EXPECT_EQ(filePicker.runs[3].start, Local("evening.m3u8"));  // where the last one went
}

TEST_F(PlayListWindowTest, ClearingTheCacheAsksThenDeletesItsFilesButNotItsSubFolders) {
  window.OnCommand(CPlayListDlg::kCache);
  folder.WriteFile("c/QORCache/Keep/inner.mp3", "x");
  window.OnCommand(CPlayListDlg::kClearCache);  // Cancel
  EXPECT_EQ(FilesIn("c/QORCache"), 4u);
  messages.Script({platform::Answer::Ok});
  window.OnCommand(CPlayListDlg::kClearCache);
  EXPECT_EQ(FilesIn("c/QORCache"), 1u);
  EXPECT_TRUE(fs::exists(Local("c/QORCache/Keep/inner.mp3")));
  EXPECT_EQ(messages.Texts(),
            (Strings{"File Copy Complete.", "Delete all files in cache?", "Delete all files in cache?"}));
  EXPECT_EQ(messages.Shown()[1].icon, platform::Icon::Information);

  // An empty setting deletes nothing, not even in the working folder.
  app->Settings().cacheFolder = "";
  const fs::path workingFolder = fs::current_path();
  fs::current_path(Local("c/Music"));
  messages.Script({platform::Answer::Ok});
  window.OnCommand(CPlayListDlg::kClearCache);
  fs::current_path(workingFolder);
  EXPECT_EQ(FilesIn("c/Music"), 3u);
}

}  // namespace
