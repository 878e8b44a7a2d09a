#include <limits>

#include "tests/support/CatalogueRows.h"
#include "tests/ui/LibraryFixture.h"
#include "ui/NodeValue.h"
#include "ui/QuickSearch.h"

namespace {

using Strings = std::vector<std::string>;

TEST(NodeValue, DecodesTheFiveRangesAndNothingOutsideThem) {
  const std::pair<std::int32_t, std::string> cases[] = {{0, "-1 -1"},
                                                        {-7, "-1 -1"},
                                                        {80000000, "-1 -1"},
                                                        {1, "0 1"},
                                                        {49999999, "0 49999999"},
                                                        {50000000, "1 0"},
                                                        {59999999, "1 9999999"},
                                                        {60000005, "2 5"},
                                                        {70000003, "3 3"},
                                                        {79999999, "3 9999999"},
                                                        {80000001, "4 1"},
                                                        {std::numeric_limits<std::int32_t>::max(), "4 2067483647"}};
  for (const auto& [value, expected] : cases) {
    const DecodedNode node = DecodeItemValue(value);
    EXPECT_EQ(std::to_string(static_cast<int>(node.kind)) + " " + std::to_string(node.id), expected) << value;
  }
}

class LibraryTreeTest : public LibraryTest {
 protected:
  LibraryTreeTest() {
    cd = AddVolume(5, "Jazz 1", "E", "3405691582");  // read back as unsigned decimal
    const int disc = AddFolder(cd, "\\Disc\\");
    AddFolder(cd, "\\Disc\\Side A\\", disc);
    disk = AddVolume(3, "Music", "D");
    music = AddFolder(disk, "\\Music\\");
    rock = AddFolder(disk, "\\Music\\Rock\\", music);
    AddFolder(disk, "\\Music\\Pop\\", music);
    live = AddFolder(disk, "\\Music\\Rock\\Live\\", rock);
    AddFolder(disk, "\\Audio\\");
    const int network = AddVolume(4, "Net");
    AddFolder(network, "\\Net\\");
    rockFile = AddFile(rock, "a.mp3");
    liveFile = AddFile(live, "b.mp3");
    Exec("INSERT INTO PlayLists(Name,FileIDs) VALUES ('Evening','" + std::to_string(liveFile) + ",99," +
         std::to_string(liveFile) + "');");
    app->Tree().Rebuild();
  }
  std::string Count(const std::string& rows) {
    return std::to_string(testing_support::QueryNumber(app->Db(), "SELECT count(*) FROM " + rows));
  }

  int cd = 0, disk = 0, music = 0, rock = 0, live = 0, rockFile = 0, liveFile = 0;
};

TEST_F(LibraryTreeTest, VolumesInCatalogueOrderFoldersInNameOrderAndSelectingMovesTheBold) {
  EXPECT_EQ(Dump(),
            "All Media=70000002+\n"
            "  CDs=60000005+\n"
            "    Jazz 1=50000001\n"
            "      Disc=1\n"
            "        Side A=2\n"
            "  Local Disks=60000003+\n"
            "    [D:] Music=50000002\n"
            "      Audio=7\n"
            "      Music=3\n"
            "        Pop=5\n"
            "        Rock=4\n"
            "          Live=6\n"
            "=70000001\n"
            "Search Results=70000003\n"
            "=70000001\n"
            "Play Lists=70000004+\n"
            "  Evening=80000001\n");

  // Selecting fills the list and moves the bold.
  CLibraryTree& libraryTree = app->Tree();
  libraryTree.SelectNode(Node(rock));
  EXPECT_EQ(Rows().size(), 1u);
  libraryTree.SelectNode(Node(80000001));  // an id without a file row is passed over
  ASSERT_EQ(list.rows.size(), 2u);
  EXPECT_EQ(list.rows[0].value + list.rows[1].value, 2u * liveFile);
  libraryTree.SelectNode(Node(ItemValue(NodeKind::Volume, disk)));
  EXPECT_TRUE(Rows().empty());
  const std::string dump = Dump();
  EXPECT_EQ(std::count(dump.begin(), dump.end(), '*'), 1);
  EXPECT_NE(dump.find("[D:] Music=50000002*"), std::string::npos);

  Exec("INSERT INTO PlayLists(Name,FileIDs) VALUES ('','');");  // as Cancel in the save dialog stores it
  libraryTree.Rebuild();
  EXPECT_NE(Dump().find("\n  (no name)=80000002"), std::string::npos);
}

TEST_F(LibraryTreeTest, EachKindHasItsMenuAndOtherNodesOnlyGetSelected) {
  CLibraryTree& libraryTree = app->Tree();
  libraryTree.SelectNode(Node(rock));
  libraryTree.OnContextMenu(platform::TreeControl::kNoItem);
  EXPECT_EQ(tree.selected, Node(rock));
  libraryTree.OnContextMenu(Node(60000003));
  EXPECT_EQ(tree.selected, Node(60000003));
  EXPECT_TRUE(Rows().empty());
  EXPECT_TRUE(menu.shown.empty());
  for (std::int32_t value : {50000001, rock, 80000001}) libraryTree.OnContextMenu(Node(value));
  EXPECT_EQ(menu.shown, (std::vector<Strings>{
                            {"Vol Info / Edit", "remove", "rescan"}, {"remove", "rescan"}, {"remove", "Export…"}}));
}

TEST_F(LibraryTreeTest, ExportWritesAStoredPlayListWhereThePickerSays) {
  menu.choice = CLibraryTree::kExport;
  app->Tree().OnContextMenu(Node(80000001));  // cancelled
  EXPECT_TRUE(messages.Texts().empty());
  filePicker.answer = platform::FilePicker::kChosen;
  filePicker.file = folder.Path() + "/evening.xspf";
  app->Tree().OnContextMenu(Node(80000001));
  EXPECT_EQ(filePicker.runs[0].start, "Evening.m3u8");
  // Drive D is not in the drive table: its file is left out, each time listed.
  EXPECT_EQ(messages.Texts(), Strings{"0 files exported to " + filePicker.file +
                                      ". 2 files left out: their disc or disk is not at hand."});
  EXPECT_TRUE(std::filesystem::exists(filePicker.file));
}

TEST_F(LibraryTreeTest, RemovalAsksFirstAndCascadesByPathPrefix) {
  const int oldRoot = AddFolder(disk, "\\Music\\Rock\\Old\\");  // no child of Rock, same prefix
  AddFile(oldRoot, "c.mp3");
  AddFolder(disk, "\\Music\\ROCK\\", music);
  std::vector<std::string> statements;
  app->Db().ObserveStatements([&](const char* sql) { statements.push_back(sql); });
  CLibraryTree& libraryTree = app->Tree();

  libraryTree.RemoveNode(Node(60000005));  // a group: no question
  libraryTree.RemoveNode(Node(rock));      // Cancel
  EXPECT_EQ(Count("MediaPaths") + Count("MediaFiles"), "103");
  messages.Script({platform::Answer::Ok, platform::Answer::Ok, platform::Answer::Ok});
  statements.clear();
  libraryTree.RemoveNode(Node(rock));
  EXPECT_EQ(statements.front(), "BEGIN");
  const auto commit = std::find(statements.begin(), statements.end(), "COMMIT");
  EXPECT_LT(commit, std::find(statements.begin(), statements.end(), "SELECT * FROM PlayLists;"));
  EXPECT_EQ(Count("MediaPaths") + Count("MediaFiles"), "70");
  EXPECT_EQ(Node(rock), platform::TreeControl::kNoItem);
  EXPECT_NE(Dump().find("        ROCK=10\n"), std::string::npos);

  libraryTree.RemoveNode(Node(50000002));
  EXPECT_EQ(Count("MediaVolumes") + Count("MediaPaths") + Count("MediaFiles"), "230");
  statements.clear();
  libraryTree.RemoveNode(Node(80000001));
  EXPECT_EQ(Count("PlayLists"), "0");
  EXPECT_EQ(statements.front(), "DELETE FROM PlayLists WHERE PlayListID=1;");
  EXPECT_EQ(messages.Texts(), (Strings{"Remove Path from database?", "Remove Path from database?",
                                       "Remove volume from database?", "Remove PlayList from database?"}));
}

TEST_F(LibraryTreeTest, VolumeInfoWritesDisplayNameAndDescriptionOnUpdateOnly) {
  menu.choice = CLibraryTree::kVolumeInfo;
  volumeInfo.edit = [](VolumeInfoForm& form) { form = {"Jazz One", "EDITED", "Blue Note"}; };
  volumeInfo.press = kDialogCancel;
  app->Tree().OnContextMenu(Node(50000001));
  EXPECT_EQ(volumeInfo.opened->displayName + "|" + volumeInfo.opened->volumeName, "Jazz 1|LABEL");
  volumeInfo.press = kDialogOk;
  app->Tree().OnContextMenu(Node(50000001));
  const auto volume = app->Db().GetVolume(cd);
  EXPECT_EQ(volume->DisplayName + "|" + volume->Name + "|" + volume->Description, "Jazz One|LABEL|Blue Note");
  EXPECT_NE(Dump().find("    Jazz One=50000001*\n"), std::string::npos);
}

TEST_F(LibraryTreeTest, RescanAsksForTheDiscAndScansThroughTheEntryPoint) {
  menu.choice = CLibraryTree::kRescan;
  CLibraryTree& libraryTree = app->Tree();
  libraryTree.OnContextMenu(Node(50000001));  // no disc: Cancel
  libraryTree.OnContextMenu(Node(1));
  EXPECT_TRUE(scanHost.scanned.empty());
  EXPECT_EQ(messages.Texts(), (Strings{"Please insert correct CD.", "Please Insert CD: Jazz 1"}));

  const std::string disc = folder.MakeFolder("disc/Disc");
  std::filesystem::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", disc + "/new.mp3");
  testing_support::LabelDisc(folder.Path() + "/disc", "JAZZ", 0xCAFEBABE);
  drives.InsertDisc('E', folder.Path() + "/disc");
  libraryTree.OnContextMenu(Node(50000001));
  // Drive D is not there: its folders are not scanned, and nothing of them goes.
  libraryTree.OnContextMenu(Node(ItemValue(NodeKind::Volume, disk)));
  const Strings texts = messages.Texts();
  EXPECT_EQ(Strings(texts.end() - 2, texts.end()),
            (Strings{"The folder D:\\Music\\ is not there. Its entries were kept.",
                     "The folder D:\\Audio\\ is not there. Its entries were kept."}));
  EXPECT_EQ(Count("MediaPaths WHERE VolID=" + std::to_string(disk)), "5");

  // Another disk in drive D: nothing is scanned, nothing of the volume goes.
  drives.AddFixed('D', folder.MakeFolder("d"));
  folder.MakeFolder("d/Music");
  folder.MakeFolder("d/Audio");
  folder.WriteFile("d/.windows-serial", "2");
  const std::string volumes = Count("MediaVolumes");
  libraryTree.OnContextMenu(Node(ItemValue(NodeKind::Volume, disk)));
  libraryTree.OnContextMenu(Node(music));
  const Strings refused = messages.Texts();
  EXPECT_EQ(Strings(refused.end() - 2, refused.end()),
            Strings(2, "Drive D: holds another volume, not \"Music\" (serial 1). Nothing was scanned."));
  EXPECT_EQ(Count("MediaPaths WHERE VolID=" + std::to_string(disk)), "5");
  EXPECT_EQ(Count("MediaVolumes"), volumes);

  folder.WriteFile("d/.windows-serial", "1");
  folder.MakeFolder("disc/Disc/Side A");
  libraryTree.OnContextMenu(Node(ItemValue(NodeKind::Volume, disk)));
  libraryTree.OnContextMenu(Node(2));
  EXPECT_EQ(scanHost.scanned, (Strings{"5 E:\\", "3 D:\\Music\\", "3 D:\\Audio\\", "5 E:\\Disc\\Side A\\"}));
  EXPECT_EQ(app->Db().GetFolderListRows(1).size(), 1u);
  // Rebuilt after the scans: the empty Side A went, its parent is selected.
  EXPECT_NE(Dump().find("      Disc=1*\n"), std::string::npos) << Dump();
}

TEST_F(LibraryTreeTest, ARebuildInPlaceKeepsExpandedNodesAndTheSelectionOrItsNearestAncestor) {
  CLibraryTree& libraryTree = app->Tree();
  const std::int32_t diskNode = ItemValue(NodeKind::Volume, disk);
  for (std::int32_t value : {diskNode, music, rock}) tree.At(Node(value)).expanded = true;
  libraryTree.SelectNode(Node(live));
  const int jazz = AddFolder(disk, "\\Music\\Jazz\\", music);
  libraryTree.RebuildInPlace();
  for (std::int32_t value : {diskNode, music, rock}) EXPECT_TRUE(tree.At(Node(value)).expanded) << value;
  EXPECT_FALSE(tree.At(Node(jazz)).expanded);
  EXPECT_FALSE(tree.At(Node(ItemValue(NodeKind::Volume, cd))).expanded);
  EXPECT_EQ(tree.selected, Node(live));
  EXPECT_EQ(tree.shown, Node(live));
  EXPECT_TRUE(tree.At(Node(live)).bold);
  EXPECT_EQ(list.RowCount(), 1);
  EXPECT_EQ(list.RowValue(0), liveFile);
  EXPECT_EQ(list.emptyText, "");

  // The selected folder gone: its parent is selected and listed.
  Exec("DELETE FROM MediaPaths WHERE PathID=" + std::to_string(live) + ";");
  libraryTree.RebuildInPlace();
  EXPECT_EQ(tree.selected, Node(rock));
  EXPECT_EQ(list.RowValue(0), rockFile);

  // Search results are searched again; with no volume left the list says how to begin.
  QuickSearch(libraryTree, app->List(), "b.mp3");
  libraryTree.RebuildInPlace();
  EXPECT_EQ(tree.selected, Node(70000003));
  EXPECT_EQ(list.RowCount(), 1);
  Exec("DELETE FROM MediaVolumes;");
  libraryTree.RebuildInPlace();
  EXPECT_EQ(list.emptyText, CMediaList::kStartHint);
}

}  // namespace
