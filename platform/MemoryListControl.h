#pragma once
// A list control kept in memory: for windows whose rows a command fills and
// reads but no one looks at (the console), and for tests, which read and
// select its rows directly.

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "platform/ListControl.h"

namespace platform {

class MemoryListControl : public ListControl {
 public:
  struct Row {
    std::vector<std::string> texts;
    std::int32_t value = 0;
    bool selected = false;
  };

  std::vector<std::string> headings;  // "heading/width"
  std::vector<int> widths;
  std::vector<int> order;  // left to right
  std::vector<bool> hidden;
  std::vector<Row> rows;
  unsigned styles = 0;
  int sortColumn = -1;
  bool sortAscending = true;
  std::string emptyText;

  void InsertColumn(int column, const std::string& heading, int width) override {
    const auto at =
        static_cast<std::ptrdiff_t>(std::min<std::size_t>(static_cast<std::size_t>(column), headings.size()));
    headings.insert(headings.begin() + at, heading + "/" + std::to_string(width));
    widths.insert(widths.begin() + at, width);
    hidden.insert(hidden.begin() + at, false);
    order.push_back(static_cast<int>(order.size()));
    for (Row& row : rows) row.texts.insert(row.texts.begin() + at, "");
  }
  int AppendRow(const std::vector<std::string>& texts, std::int32_t value) override {
    Row row{texts, value, false};
    row.texts.resize(headings.size());
    rows.push_back(std::move(row));
    return RowCount() - 1;
  }
  void SetRowTexts(int row, const std::vector<std::string>& texts) override {
    rows.at(static_cast<std::size_t>(row)).texts = texts;
    rows.at(static_cast<std::size_t>(row)).texts.resize(headings.size());
  }
  void DeleteRow(int row) override { rows.erase(rows.begin() + row); }
  void DeleteAllRows() override { rows.clear(); }
  int RowCount() const override { return static_cast<int>(rows.size()); }
  std::int32_t RowValue(int row) const override { return rows.at(row).value; }
  std::string RowText(int row, int column) const override {
    return rows.at(row).texts.at(static_cast<std::size_t>(column));
  }
  bool IsSelected(int row) const override { return rows.at(row).selected; }
  void SelectAll() override { Select({}, true); }
  void SelectOnly(int row) override { Select({row}); }
  unsigned ExtendedStyle() const override { return styles; }
  void SetExtendedStyle(unsigned newStyles) override { styles = newStyles; }
  void ReorderRows(const std::vector<int>& newOrder) override {
    std::vector<Row> reordered;
    reordered.reserve(newOrder.size());
    for (int from : newOrder) reordered.push_back(rows.at(static_cast<std::size_t>(from)));
    rows = std::move(reordered);
  }
  void SetSortIndicator(int column, bool ascending) override {
    sortColumn = column;
    sortAscending = ascending;
  }
  void SetEmptyText(const std::string& text) override { emptyText = text; }
  int ColumnWidth(int column) const override { return widths.at(static_cast<std::size_t>(column)); }
  void SetColumnWidth(int column, int width) override { widths.at(static_cast<std::size_t>(column)) = width; }
  std::vector<int> ColumnOrder() const override { return order; }
  void SetColumnOrder(const std::vector<int>& newOrder) override { order = newOrder; }
  void SetColumnHidden(int column, bool hide) override { hidden.at(static_cast<std::size_t>(column)) = hide; }
  bool IsColumnHidden(int column) const override { return hidden.at(static_cast<std::size_t>(column)); }
  // Seven pixels a byte.
  int TextWidth(const std::string& text) const override { return 7 * static_cast<int>(text.size()); }

  // Selects exactly these rows (or every row).
  void Select(std::initializer_list<int> selected, bool all = false) {
    for (int row = 0; row < RowCount(); ++row)
      rows[row].selected = all || std::count(selected.begin(), selected.end(), row) > 0;
  }
};

}  // namespace platform
