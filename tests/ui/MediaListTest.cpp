#include "platform/ColumnLayout.h"
#include "tests/ui/LibraryFixture.h"
#include "ui/QuickSearch.h"

namespace {

using Strings = std::vector<std::string>;

class MediaListTest : public LibraryTest {
 protected:
  MediaListTest() {
    const int cd = AddVolume(5, "Jazz 1", "D");
    const int disk = AddVolume(3, "Music", "E");
    folderId = AddFolder(disk, "\\Music\\");
    AddFile(folderId, "a.mp3");
    AddFile(folderId, "b.mp3");
    AddFile(folderId, "c.mp3");
    AddFile(AddFolder(cd, "\\Disc\\"), "d.mp3");
    Exec("UPDATE MediaFiles SET id3Title='Song A',id3Artist='Quartet',Rating=3,Length=245 WHERE FileID=1;");
    Exec("UPDATE MediaFiles SET Title='Mine',id3Title='Song B',Artist='Me',Rating=-1,Length=59 WHERE FileID=2;");
    Exec("UPDATE MediaFiles SET Rating=12,Length=6000 WHERE FileID=3;");
    Exec("UPDATE MediaFiles SET Title='It''s  abc',Length=600 WHERE FileID=4;");
    Exec("INSERT INTO PlayLists(Name,FileIDs) VALUES ('All','4,1,2,3');");
    app->Tree().Rebuild();
  }
  Strings Search(const std::string& text) {
    QuickSearch(app->Tree(), app->List(), text);
    Strings ids;
    for (const auto& row : list.rows) ids.push_back(std::to_string(row.value));
    return ids;
  }

  int folderId = 0;
};

// Folder shows where rows come from many folders (a play list, search
// results), not with a folder's own files; Album is the user's over the
// tag's, and a track the tag scan never gave shows empty.
TEST_F(MediaListTest, RowsShowUserTextsOverTagsRatingsLengthsVolumesFoldersAlbumsAndTracks) {
  Exec("UPDATE MediaFiles SET id3Album='Tag A' WHERE FileID=1;");
  Exec("UPDATE MediaFiles SET Album='Mine',id3Album='Tag B' WHERE FileID=2;");
  Exec("INSERT INTO vantrelle_file_stamps(FileID,Track) VALUES (1,4),(3,0);");
  app->List().FillWithFolder(folderId);
  const Strings folderRows{"1|Song A|Quartet|a.mp3|***       | 4:05|[drive E:]|[drive E:] \\Music\\|Tag A|4",
                           "2|Mine|Me|b.mp3|          | 0:59|[drive E:]|[drive E:] \\Music\\|Mine|",
                           "3|||c.mp3|**********|100:00|[drive E:]|[drive E:] \\Music\\||"};
  EXPECT_EQ(Rows(), folderRows);
  EXPECT_TRUE(list.IsColumnHidden(CMediaList::kFolder));
  // A play list's rows come in its order and look the same.
  app->Tree().SelectNode(Node(80000001));
  EXPECT_EQ(Rows(), (Strings{"4|It's  abc||d.mp3|          |10:00|Jazz 1|Jazz 1 \\Disc\\||", folderRows[0],
                             folderRows[1], folderRows[2]}));
  EXPECT_FALSE(list.IsColumnHidden(CMediaList::kFolder));
  app->Tree().SelectNode(Node(folderId));
  EXPECT_EQ(Search("abc"), Strings{"4"});
  EXPECT_FALSE(list.IsColumnHidden(CMediaList::kFolder));
}

TEST_F(MediaListTest, QuickSearchTrimsTrailingBlanksOnlyMatchesLiterallyAndFoldsCase) {
  AddFile(folderId, "100% Łódź_\\.mp3");
  Exec("UPDATE MediaFiles SET id3Artist='Édith Ñu',id3Title='ΣΊΣΥΦΟΣ' WHERE FileID=5;");
  Exec("UPDATE MediaFiles SET Title='10 a1' WHERE FileID=3;");
  // "%", "_" and "\" are plain characters ("0%" would find "10 a1" as a
  // pattern); the final sigma meets the capital; rows come in catalogue order.
  for (const auto& [text, ids] : std::vector<std::pair<std::string, Strings>>{{"  abc  ", {"4"}},
                                                                              {"   abc", {}},
                                                                              {"'s", {"4"}},
                                                                              {"SONG", {"1", "2"}},
                                                                              {"0%", {"5"}},
                                                                              {"łÓDŹ", {"5"}},
                                                                              {"édith ñ", {"5"}},
                                                                              {"ÉDITH", {"5"}},
                                                                              {"σίσυφος", {"5"}},
                                                                              {"_\\.", {"5"}},
                                                                              {"a_", {}},
                                                                              {"1", {"3", "5"}}})
    EXPECT_EQ(Search(text), ids) << text;
  app->Tree().SelectNode(Node(folderId));
  EXPECT_EQ(Search(" \t"), Strings{});
  EXPECT_EQ(tree.selected, Node(70000003));
  EXPECT_TRUE(tree.At(Node(70000003)).bold);
}

TEST_F(MediaListTest, FileInfoKeepsUserTextsUnlessTheEditDiffersFromTheTag) {
  Exec(
      "UPDATE MediaFiles SET Album='Mine',id3Album='Tag',id3Artist='Band',id3Comment='Note',BitRate=128,"
      "SampleRate=44100,Channels=2 WHERE FileID=2;");
  app->List().FillWithFolder(folderId);
  EXPECT_FALSE(app->List().EditFileInfo());  // no row selected
  list.Select({1});
  fileInfo.edit = [](FileInfoForm& form) {
    form.title = "Song B";  // the tag's title typed back: the user's title stays
    form.artist = "";       // emptied: stored empty, so the tag shows again
    form.album = "Tag";
    form.checkedRating = 0;
  };
  EXPECT_TRUE(app->List().EditFileInfo());
  const FileInfoForm& opened = *fileInfo.opened;
  EXPECT_EQ(opened.title + "|" + opened.comment + "|" + opened.length + "|" + opened.bitRate + "|" + opened.sampleRate +
                "|" + opened.channels,
            "Mine|Note|Length:  0:59|Bit Rate: 128 kb/s|Sample Rate: 44100 Hz|Channels: 2");
  EXPECT_EQ(opened.checkedRating, 0);
  const auto file = app->Db().GetFile(2);
  EXPECT_EQ(file->Title + "|" + file->Artist + "|" + file->Album + "|" + file->Comment, "Mine||Mine|");
  EXPECT_EQ(file->Rating, -1);

  fileInfo.edit = [](FileInfoForm& form) { form.checkedRating = 5; };
  list.Select({0});
  EXPECT_TRUE(app->List().EditFileInfo());
  EXPECT_EQ(fileInfo.opened->checkedRating, 3);
  EXPECT_EQ(app->Db().GetFile(1)->Title + "|" + std::to_string(app->Db().GetFile(1)->Rating), "|5");
  fileInfo.press = kDialogCancel;
  EXPECT_FALSE(app->List().EditFileInfo());
}

TEST_F(MediaListTest, HeadingsSortByStarsSecondsAndTextsAndTheSortOutlivesRefills) {
  const auto ids = [this] {
    std::string text;
    for (const auto& row : list.rows) text += std::to_string(row.value);
    return text;
  };
  app->List().FillWithPlayList(1);
  EXPECT_EQ(ids(), "4123");  // no heading clicked: the play list's order
  // Lengths 600, 245, 59, 6000 s: by seconds, where the texts would put 100:00 before 10:00.
  app->List().SortBy(CMediaList::kLength);
  EXPECT_EQ(ids(), "2143");
  EXPECT_EQ(list.sortColumn, CMediaList::kLength);
  app->List().SortBy(CMediaList::kLength);
  EXPECT_EQ(ids(), "3412");
  EXPECT_FALSE(list.sortAscending);
  // Ratings 12 (ten stars), 3, none, none: the unrated keep their order.
  app->List().SortBy(CMediaList::kRating);
  EXPECT_EQ(ids(), "4213");
  // Songs regardless of case, the empty title first; kept for the next fill.
  Exec("UPDATE MediaFiles SET Title='apple' WHERE FileID=3;");
  app->List().SortBy(CMediaList::kSong);
  app->List().Clear();
  app->List().FillWithFolder(folderId);
  EXPECT_EQ(ids(), "321");
  list.Select({0});
  app->List().SortBy(CMediaList::kSong);
  EXPECT_EQ(ids(), "123");
  EXPECT_TRUE(list.rows[2].selected);  // the selection moves with its row
}

TEST_F(MediaListTest, ColumnLayoutsRoundTripOlderLayoutsStillServeAndJunkChangesNothing) {
  // Album and Track start hidden, as does Folder until rows of many folders show.
  EXPECT_EQ(platform::SaveColumnLayout(list), "0:100,1:100,2:160,3:86,4:58,5:80,6:200:hidden,7:120:hidden,8:51:hidden");
  list.SetColumnOrder({2, 0, 1, 3, 4, 5, 6, 7, 8});
  list.SetColumnWidth(2, 190);
  list.SetColumnHidden(CMediaList::kTrack, false);
  const std::string stored = platform::SaveColumnLayout(list);
  EXPECT_EQ(stored, "2:190,0:100,1:100,3:86,4:58,5:80,6:200:hidden,7:120:hidden,8:51");
  list.SetColumnOrder({0, 1, 2, 3, 4, 5, 6, 7, 8});
  list.SetColumnHidden(CMediaList::kTrack, true);
  for (const char* junk : {"", "2:190", "2:190,0:100,1:100,3:86,4:58,4:80", "0:100,1:100,2:100,3:86,4:58,6:80",
                           "2:9,0:100,1:100,3:86,4:58,5:80", "2:190;0:100,1:100,3:86,4:58,5:80x", "0:100,1:100:shown",
                           "0:100,1:100,2:160,3:86,4:58,5:80,6:200,7:120,8:51,9:50", "garbage"}) {
    EXPECT_FALSE(platform::RestoreColumnLayout(list, junk)) << junk;
    EXPECT_EQ(list.order, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8})) << junk;
  }
  EXPECT_TRUE(platform::RestoreColumnLayout(list, stored));
  EXPECT_EQ(platform::SaveColumnLayout(list), stored);
  // A layout stored before the list had Folder, Album and Track.
  EXPECT_TRUE(platform::RestoreColumnLayout(list, "5:90,0:100,1:100,2:160,3:86,4:58"));
  EXPECT_EQ(list.order, (std::vector<int>{5, 0, 1, 2, 3, 4, 6, 7, 8}));
  EXPECT_EQ(list.ColumnWidth(5), 90);
  EXPECT_FALSE(list.IsColumnHidden(CMediaList::kTrack));  // as it was
  // Fitting leaves hidden columns as they are.
  list.SetColumnHidden(CMediaList::kAlbum, true);
  platform::FitColumns(list, 2000);
  EXPECT_EQ(list.ColumnWidth(CMediaList::kAlbum), 120);
  EXPECT_GT(list.ColumnWidth(CMediaList::kSong), 100);
}

// The headings' menu lists the optional columns, checked while shown; a
// choice shows or hides its column and nothing else.
TEST_F(MediaListTest, TheHeadingsMenuShowsAndHidesAlbumAndTrack) {
  for (int choice :
       {int{CMediaList::kAlbum}, int{CMediaList::kTrack}, int{CMediaList::kAlbum}, int{CMediaList::kFolder}, -9100}) {
    menu.choice = CMediaList::kToggleColumn + choice;
    app->List().OnHeaderContextMenu();
  }
  EXPECT_EQ(menu.shown[2], (Strings{"[x] Album", "[x] Track"}));
  EXPECT_EQ(menu.shown[3], (Strings{"[ ] Album", "[x] Track"}));
  EXPECT_EQ(platform::SaveColumnLayout(list), "0:100,1:100,2:160,3:86,4:58,5:80,6:200:hidden,7:120:hidden,8:51");
}

}  // namespace
