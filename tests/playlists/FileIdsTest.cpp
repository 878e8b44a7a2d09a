#include <gtest/gtest.h>

#include <map>

#include "playlists/FileIds.h"

namespace {

TEST(FileIds, BuildWritesSignedDecimalsAndParseReadsThemBack) {
  EXPECT_EQ(BuildIdList({12, 7, 40}), "12,7,40");
  EXPECT_EQ(BuildIdList({}), "");
  EXPECT_EQ(BuildIdList({-1, 2147483647}), "-1,2147483647");
  EXPECT_EQ(ParseIdList(BuildIdList({40, 1, 2147483647, 12})), (IdList{40, 1, 2147483647, 12}));
}

TEST(FileIds, ParseKeepsThePositiveNumbersAfterEachCommaAndUniqueKeepsFirsts) {
  const std::map<std::string, IdList> cases = {
      {"", {}},
      {"12,,7", {12, 7}},
      {"abc,7", {7}},
      {"3,-2,0,9", {3, 9}},
      {" 5,\t 6", {5, 6}},
      {"8,", {8}},
      {",,,", {}},
      {"+4,4x,x4", {4, 4}},
      {"007", {7}},
      {"1 2,3", {1, 3}},
      {"- 5,--5", {}},
      {"99999999999,-99999999999,6", {2147483647, 6}},  // clamped, never undefined
  };
  for (const auto& [text, ids] : cases) EXPECT_EQ(ParseIdList(text), ids) << '"' << text << '"';

  EXPECT_EQ(UniqueIds({3, 1, 3, 2, 1, 3}), (IdList{3, 1, 2}));
  const IdList ids = {4, 5, 4};
  EXPECT_EQ(IndexOf(4, ids, 1), 2);
  EXPECT_EQ(IndexOf(5, ids, 2), -1);
  EXPECT_EQ(IndexOf(4, ids, 3), -1);
}

}  // namespace
