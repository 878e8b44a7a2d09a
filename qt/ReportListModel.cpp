#include "qt/ReportListModel.h"

#include <QFont>
#include <algorithm>
#include <iterator>

#include "qt/dialogs/QtText.h"

void ReportListModel::InsertColumn(int column, const std::string& heading) {
  Flush();
  const int at = std::clamp(column, 0, columnCount());
  beginInsertColumns({}, at, at);
  headings_.insert(headings_.begin() + at, heading);
  for (Row& row : rows_)
    if (row.filled) row.texts.insert(row.texts.begin() + at, std::string());
  endInsertColumns();
}

int ReportListModel::AppendRow(std::vector<std::string> texts, std::int32_t value) {
  texts.resize(headings_.size());
  appended_.push_back(Row{std::move(texts), value});
  if (!flushQueued_) {
    flushQueued_ = true;
    QMetaObject::invokeMethod(this, &ReportListModel::Flush, Qt::QueuedConnection);
  }
  return static_cast<int>(rows_.size() + appended_.size()) - 1;
}

void ReportListModel::AppendByValue(const std::vector<std::int32_t>& values, TextSource source) {
  Flush();
  source_ = std::move(source);
  if (values.empty()) return;
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(values.size()) - 1);
  rows_.reserve(rows_.size() + values.size());
  for (std::int32_t value : values) rows_.push_back(Row{{}, value, false});
  endInsertRows();
}

namespace {

// Rows read from the source at once: a view's worth and more.
constexpr std::size_t kPage = 256;

}  // namespace

void ReportListModel::FillFrom(int row) const {
  if (!source_) return;
  std::vector<std::size_t> at;
  std::vector<std::int32_t> values;
  for (auto i = static_cast<std::size_t>(row); i < rows_.size() && values.size() < kPage; ++i)
    if (!rows_[i].filled) {
      at.push_back(i);
      values.push_back(rows_[i].value);
    }
  std::vector<std::vector<std::string>> texts = source_(values);
  if (texts.size() != values.size()) return;  // not now: shown empty, asked again
  for (std::size_t k = 0; k < at.size(); ++k) {
    Row& filled = rows_[at[k]];
    filled.texts = std::move(texts[k]);
    filled.texts.resize(headings_.size());
    filled.filled = true;
  }
}

void ReportListModel::Flush() {
  flushQueued_ = false;
  if (appended_.empty()) return;
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(appended_.size()) - 1);
  std::move(appended_.begin(), appended_.end(), std::back_inserter(rows_));
  appended_.clear();
  endInsertRows();
}

void ReportListModel::SetTexts(int row, std::vector<std::string> texts) {
  Flush();
  texts.resize(headings_.size());
  Row& changed = rows_.at(static_cast<std::size_t>(row));
  changed.texts = std::move(texts);
  changed.filled = true;
  emit dataChanged(index(row, 0), index(row, columnCount() - 1), {Qt::DisplayRole});
}

void ReportListModel::RemoveRow(int row) {
  Flush();
  beginRemoveRows({}, row, row);
  rows_.erase(rows_.begin() + row);
  endRemoveRows();
}

void ReportListModel::RemoveAllRows() {
  appended_.clear();
  source_ = nullptr;
  if (rows_.empty()) return;
  beginResetModel();
  rows_.clear();
  endResetModel();
}

void ReportListModel::Reorder(const std::vector<int>& order) {
  Flush();
  if (order.size() != rows_.size()) return;
  emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
  std::vector<int> newRowOf(order.size());
  std::vector<Row> reordered;
  reordered.reserve(rows_.size());
  for (std::size_t to = 0; to < order.size(); ++to) {
    const auto from = static_cast<std::size_t>(order[to]);
    newRowOf[from] = static_cast<int>(to);
    reordered.push_back(std::move(rows_[from]));
  }
  rows_ = std::move(reordered);
  const QModelIndexList before = persistentIndexList();
  QModelIndexList after;
  after.reserve(before.size());
  for (const QModelIndex& index : before)
    after.push_back(index.isValid() ? this->index(newRowOf[static_cast<std::size_t>(index.row())], index.column())
                                    : index);
  changePersistentIndexList(before, after);
  emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

const std::string& ReportListModel::Text(int row, int column) const {
  static const std::string kNotRead;
  if (!rows_.at(static_cast<std::size_t>(row)).filled) FillFrom(row);
  const Row& shown = rows_[static_cast<std::size_t>(row)];
  return shown.filled ? shown.texts.at(static_cast<std::size_t>(column)) : kNotRead;
}

int ReportListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ReportListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant ReportListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) return {};
  if (role == Qt::FontRole) {
    if (marked_ == 0 || Value(index.row()) != marked_) return {};
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  return ToQString(Text(index.row(), index.column()));
}

void ReportListModel::MarkValue(std::int32_t value) {
  if (value == marked_) return;
  marked_ = value;
  if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::FontRole});
}

// Qt calls the overrides of its virtuals; cppcheck sees no caller.
// cppcheck-suppress unusedFunction
QVariant ReportListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount()) return {};
  return ToQString(headings_[static_cast<std::size_t>(section)]);
}

Qt::ItemFlags ReportListModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags plain = QAbstractTableModel::flags(index);
  return index.isValid() ? plain | Qt::ItemIsDragEnabled : plain;
}
