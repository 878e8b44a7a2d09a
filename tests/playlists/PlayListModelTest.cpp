#include "tests/playlists/PlayListFixture.h"

namespace {

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
