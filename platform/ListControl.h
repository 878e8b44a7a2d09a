#pragma once
// A list control in report view: columns with headings, rows of texts (one
// per column) that each carry an item value, and a selection of any number
// of rows. Rows are numbered from 0, top to bottom; a row argument must be
// below RowCount(). Used from the user-interface thread only.

#include <cstdint>
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
  virtual void DeleteRow(int row) = 0;
  virtual void DeleteAllRows() = 0;

  virtual int RowCount() const = 0;
  virtual std::int32_t RowValue(int row) const = 0;
  virtual std::string RowText(int row, int column) const = 0;

  virtual bool IsSelected(int row) const = 0;
  virtual void SetSelected(int row, bool selected) = 0;
  virtual void SelectAll() = 0;

  virtual unsigned ExtendedStyle() const = 0;
  virtual void SetExtendedStyle(unsigned styles) = 0;
};

}  // namespace platform
