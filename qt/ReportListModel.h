#pragma once
// The rows of a report-view list: column headings, and rows of texts (one per
// column) that each carry an item value. Texts are kept as the logic gave
// them and shown through ToQString, or read from a source of texts as their
// rows come into view. Rows are appended, removed or put in a
// new order that the logic gives; the model never sorts by itself. Appended rows reach the views in one batch when the
// event loop next turns, or at the next Flush, so that a fill of many rows
// costs the views one insertion. User-interface thread only.

#include <QAbstractTableModel>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class ReportListModel final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void InsertColumn(int column, const std::string& heading);
  // Texts beyond the columns are dropped and missing ones are empty. Returns
  // the row's number once it is shown.
  int AppendRow(std::vector<std::string> texts, std::int32_t value);
  // Appends rows whose texts are read from the source, a page at a time, as
  // they are first shown or read; shown at once.
  using TextSource = std::function<std::vector<std::vector<std::string>>(const std::vector<std::int32_t>& values)>;
  void AppendByValue(const std::vector<std::int32_t>& values, TextSource source);
  // Shows the rows appended since the last flush. The calls below need the
  // rows they name shown.
  void Flush();
  void SetTexts(int row, std::vector<std::string> texts);
  void RemoveRow(int row);
  void RemoveAllRows();
  // New row i is old row order[i]; views and selections follow their rows.
  void Reorder(const std::vector<int>& order);

  // Rows carrying this value show in bold (0: none).
  void MarkValue(std::int32_t value);
  std::int32_t MarkedValue() const { return marked_; }
  std::int32_t Value(int row) const { return rows_.at(static_cast<std::size_t>(row)).value; }
  const std::string& Text(int row, int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  // Rows may be dragged (where the view allows it).
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  struct Row {
    std::vector<std::string> texts;
    std::int32_t value = 0;
    bool filled = true;  // false: its texts are still to be read from source_
  };
  // Reads the texts of the unfilled rows from this one on, a page of them.
  void FillFrom(int row) const;

  std::vector<std::string> headings_;
  // Texts are filled in on first use, also through the const reads.
  mutable std::vector<Row> rows_;
  TextSource source_;
  std::vector<Row> appended_;  // not shown yet
  bool flushQueued_ = false;
  std::int32_t marked_ = 0;
};
