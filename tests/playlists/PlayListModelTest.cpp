#include <algorithm>

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

// Files added or changed are read in one statement, not one per row; rows
// stay in the order given, each file once.
TEST_F(PlayListModelTest, ManyFilesAreReadInOneStatement) {
  app->PlayList().InsertColumns();
  IdList ids;
  for (int i = 0; i < 30; ++i) ids.push_back(AddFile("f" + std::to_string(i) + ".mp3"));
  std::reverse(ids.begin(), ids.end());
  int statements = 0;
  app->Db().ObserveStatements([&](const char*) { ++statements; });
  app->PlayList().AddFiles(ids);
  app->PlayList().AddFiles({ids[3], ids[1]});
  EXPECT_EQ(statements, 1);
  EXPECT_EQ(app->PlayList().GetFileIds(false), ids);
  EXPECT_EQ(list.RowText(0, 0), "f29.mp3");

  CMediaFile renamed = *app->Db().GetFile(ids[0]);
  renamed.Title = "Renamed";
  app->Db().Begin();
  app->Db().UpdateFileUserInfo(renamed);
  app->Db().DeleteFiles({ids[1]});
  statements = 0;
  app->Db().Commit();
  EXPECT_EQ(statements, 2);  // COMMIT, and the changed rows' texts
  app->Db().ObserveStatements(nullptr);
  EXPECT_EQ(list.RowText(0, 0), "Renamed");
  EXPECT_EQ(app->PlayList().GetFileIds(false).size(), ids.size() - 1);
}

}  // namespace
