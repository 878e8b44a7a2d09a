// Rows appended by value read their texts a page at a time, only when they
// are first shown or read, and are asked again when the source cannot answer.
#include <gtest/gtest.h>

#include "qt/ReportListModel.h"

namespace {

TEST(ReportListModelTest, RowsByValueReadTheirTextsAPageAtATimeWhenFirstNeeded) {
  ReportListModel model;
  model.InsertColumn(0, "Song");
  model.InsertColumn(1, "Artist");
  std::vector<std::vector<std::int32_t>> asked;
  bool answering = true;
  std::vector<std::int32_t> values(1000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<std::int32_t>(i + 1);
  model.AppendByValue(values, [&](const std::vector<std::int32_t>& page) {
    asked.push_back(page);
    std::vector<std::vector<std::string>> texts;
    if (!answering) return texts;  // a worker holds the catalogue
    for (std::int32_t value : page) texts.push_back({"song " + std::to_string(value), "artist"});
    return texts;
  });
  EXPECT_EQ(model.rowCount(), 1000);
  EXPECT_TRUE(asked.empty());

  EXPECT_EQ(model.Text(900, 0), "song 901");
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(asked[0].front(), 901);
  EXPECT_EQ(asked[0].size(), 100u);  // from the row to the end
  EXPECT_EQ(model.Text(999, 1), "artist");
  EXPECT_EQ(asked.size(), 1u);  // read with its page

  answering = false;
  EXPECT_EQ(model.Text(0, 0), "");
  answering = true;
  EXPECT_EQ(model.Text(0, 0), "song 1");  // asked again
  EXPECT_EQ(asked.back().size(), 256u);
  model.SetTexts(300, {"mine", "me"});
  EXPECT_EQ(model.Text(300, 0), "mine");

  model.RemoveAllRows();
  model.AppendRow({"plain"}, 7);
  model.Flush();
  EXPECT_EQ(model.Text(0, 0), "plain");
}

}  // namespace
