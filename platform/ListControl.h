#pragma once
// A list control in report view: columns with headings, rows of texts (one
// per column) that each carry an item value, and a selection of any number
// of rows. Rows are numbered from 0, top to bottom; a row argument must be
// below RowCount(). Used from the user-interface thread only.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace platform {

class ListControl {
 public:
  // Extended-style bits.
  static constexpr unsigned kGridLines = 0x1;
  static constexpr unsigned kFullRowSelect = 0x20;

  virtual ~ListControl() = default;

  virtual void InsertColumn(int column, const std::string& heading, int width) = 0;

  // Appends a row; texts beyond the columns are ignored and missing ones are
  // empty. Returns the new row's number.
  virtual int AppendRow(const std::vector<std::string>& texts, std::int32_t value) = 0;
  struct AddedRow {
    std::vector<std::string> texts;
    std::int32_t value = 0;
  };
  // Appends the rows, in order, as AppendRow takes each; a list that can
  // takes them in one batch.
  virtual void AppendRows(std::vector<AddedRow> rows) {
    for (const AddedRow& row : rows) AppendRow(row.texts, row.value);
  }
  // The texts of the rows carrying these values, one entry per value in
  // order; none at all when they cannot be read now (asked again later).
  using RowTextSource = std::function<std::vector<std::vector<std::string>>(const std::vector<std::int32_t>& values)>;
  // Appends a row for each value, whose texts are asked of the source when
  // first needed: a list that can asks only for the rows that come into view
  // (or are read), a page at a time; this one asks at once. The source must
  // answer for these values as long as the rows stand.
  virtual void AppendRowsByValue(const std::vector<std::int32_t>& values, RowTextSource source) {
    std::vector<std::vector<std::string>> texts = source(values);
    std::vector<AddedRow> rows(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (i < texts.size()) rows[i].texts = std::move(texts[i]);
      rows[i].value = values[i];
    }
    AppendRows(std::move(rows));
  }
  // Puts new texts into a row, as AppendRow takes them; its value stays.
  virtual void SetRowTexts(int row, const std::vector<std::string>& texts) = 0;
  virtual void DeleteRow(int row) = 0;
  virtual void DeleteAllRows() = 0;

  virtual int RowCount() const = 0;
  virtual std::int32_t RowValue(int row) const = 0;
  virtual std::string RowText(int row, int column) const = 0;

  virtual bool IsSelected(int row) const = 0;
  virtual void SelectAll() = 0;
  // Selects this row alone and brings it into view.
  virtual void SelectOnly(int row) = 0;

  virtual unsigned ExtendedStyle() const = 0;
  virtual void SetExtendedStyle(unsigned styles) = 0;

  // Puts the rows in a new order: new row i is old row order[i] (a
  // permutation of all rows). Selected rows stay selected.
  virtual void ReorderRows(const std::vector<int>& order) = 0;
  // Marks the column the rows are sorted by (-1: none) and the direction.
  virtual void SetSortIndicator(int column, bool ascending) = 0;
  // A line shown in place of the rows while there are none ("" for none).
  virtual void SetEmptyText(const std::string& text) = 0;

  // Columns by their number at insertion, whatever order the user dragged
  // them into. ColumnOrder lists them from left to right.
  virtual int ColumnWidth(int column) const = 0;
  virtual void SetColumnWidth(int column, int width) = 0;
  virtual std::vector<int> ColumnOrder() const = 0;
  virtual void SetColumnOrder(const std::vector<int>& order) = 0;
  // A hidden column keeps its place, width and texts, and shows them again
  // when shown; ColumnWidth gives the width it will show at.
  virtual void SetColumnHidden(int column, bool hidden) = 0;
  virtual bool IsColumnHidden(int column) const = 0;
  // How many pixels the text takes in the list's font.
  virtual int TextWidth(const std::string& text) const = 0;
};

}  // namespace platform
