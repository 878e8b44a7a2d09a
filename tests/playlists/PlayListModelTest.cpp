#include "tests/playlists/PlayListFixture.h"

namespace {

TEST(SongLabel, ArtistAndTitleOrElseTheFileName) {
  const auto label = [](const char* title, const char* id3Title, const char* artist, const char* id3Artist) {
    CMediaFile file;
    file.FileName = "track.mp3";
    file.Title = title;
    file.id3Title = id3Title;
    file.Artist = artist;
    file.id3Artist = id3Artist;
    return SongLabel(file);
  };
  EXPECT_EQ(label("Blue Road", "Tag", "Quartet", "Tag"), "Quartet - Blue Road");
  EXPECT_EQ(label("", "Blue", "X", ""), "X - Blue");
  EXPECT_EQ(label("T", "", "", "Tagged"), "Tagged - T");
  EXPECT_EQ(label("", "", "X", "Y"), "track.mp3");
  EXPECT_EQ(label("T", "", "", ""), "track.mp3");
  EXPECT_EQ(label("T", "", "Unknown Artist", "Y"), "track.mp3");
  EXPECT_EQ(label("T", "", "", "Unknown Artist"), "track.mp3");
  EXPECT_EQ(label("T", "", "unknown artist", ""), "unknown artist - T");
}

using PlayListModelTest = PlayListTest;

TEST_F(PlayListModelTest, RowsHoldEachFileOnceInTheOrderAdded) {
  app->PlayList().InsertColumns();
  const std::int32_t a = AddFile("a.mp3"), b = AddFile("b.mp3"), c = AddFile("c.mp3");
  app->PlayList().AddFiles({b, 999, a, b});
  app->PlayList().AddFiles({c, a});
  EXPECT_EQ(app->PlayList().GetFileIds(false), (IdList{b, a, c}));
  EXPECT_EQ(list.RowText(1, 0), "a.mp3");
  EXPECT_EQ(list.RowText(1, 2), "0:00");
  list.Select({2, 0});
  EXPECT_EQ(app->PlayList().GetFileIds(true), (IdList{b, c}));

  // Dragged rows keep their order and their selection; rows out of range are ignored.
  app->PlayList().MoveRows({2, 0, 0, 7, -1}, 3);
  EXPECT_EQ(app->PlayList().GetFileIds(false), (IdList{a, b, c}));
  EXPECT_EQ(app->PlayList().GetFileIds(true), (IdList{b, c}));
  app->PlayList().MoveRows({2}, 0);
  EXPECT_EQ(app->PlayList().GetFileIds(false), (IdList{c, a, b}));
  app->PlayList().MoveRows({99}, 0);
  EXPECT_EQ(app->PlayList().GetFileIds(false), (IdList{c, a, b}));
}

}  // namespace
