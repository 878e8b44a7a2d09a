#include "platform/ColumnLayout.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <vector>

#include "platform/ListControl.h"

namespace platform {

namespace {

constexpr int kNarrowest = 10;
constexpr int kWidest = 5000;
constexpr int kNarrowestFitted = 60;

constexpr const char* kHiddenMark = ":hidden";

struct Column {
  int number;
  int width;
  bool hidden;
};

std::optional<Column> ParseColumn(std::string field) {
  Column column{0, 0, field.ends_with(kHiddenMark)};
  if (column.hidden) field.resize(field.size() - std::string(kHiddenMark).size());
  std::istringstream pair(field);
  char colon = 0;
  if (!(pair >> column.number >> colon >> column.width) || colon != ':' || !pair.eof()) return {};
  if (column.width < kNarrowest || column.width > kWidest) return {};
  return column;
}

// Each of the first parsed.size() numbers once.
bool NamesTheFirstColumns(const std::vector<Column>& parsed) {
  std::vector<bool> seen(parsed.size(), false);
  for (const Column& column : parsed) {
    if (column.number < 0 || column.number >= static_cast<int>(parsed.size())) return false;
    if (seen[static_cast<std::size_t>(column.number)]) return false;
    seen[static_cast<std::size_t>(column.number)] = true;
  }
  return !parsed.empty();
}

std::optional<std::vector<Column>> ParseLayout(const std::string& text, int columns) {
  std::vector<Column> parsed;
  std::istringstream fields(text);
  for (std::string field; std::getline(fields, field, ',');) {
    const auto column = ParseColumn(field);
    if (!column) return {};
    parsed.push_back(*column);
  }
  if (static_cast<int>(parsed.size()) > columns || !NamesTheFirstColumns(parsed)) return {};
  return parsed;
}

}  // namespace

std::string SaveColumnLayout(const ListControl& list) {
  std::string text;
  for (int column : list.ColumnOrder()) {
    if (!text.empty()) text += ",";
    text += std::to_string(column) + ":" + std::to_string(list.ColumnWidth(column));
    if (list.IsColumnHidden(column)) text += kHiddenMark;
  }
  return text;
}

bool RestoreColumnLayout(ListControl& list, const std::string& text) {
  const auto columns = ParseLayout(text, static_cast<int>(list.ColumnOrder().size()));
  if (!columns) return false;
  std::vector<int> order;
  for (const Column& column : *columns) {
    order.push_back(column.number);
    list.SetColumnWidth(column.number, column.width);
    list.SetColumnHidden(column.number, column.hidden);
  }
  for (int column = static_cast<int>(order.size()); column < static_cast<int>(list.ColumnOrder().size()); ++column)
    order.push_back(column);
  list.SetColumnOrder(order);
  return true;
}

void FitColumns(ListControl& list, int width, int keptColumn) {
  std::vector<int> columns = list.ColumnOrder();
  std::erase_if(columns, [&](int column) { return list.IsColumnHidden(column); });
  int scaled = 0;
  for (int column : columns) {
    if (column == keptColumn)
      width -= list.ColumnWidth(column);
    else
      scaled += list.ColumnWidth(column);
  }
  if (scaled <= 0 || width <= 0) return;
  for (int column : columns) {
    if (column == keptColumn) continue;
    const int before = list.ColumnWidth(column);
    const auto share = static_cast<int>(static_cast<long long>(before) * width / scaled);
    list.SetColumnWidth(column, std::max(share, std::min(before, kNarrowestFitted)));
  }
}

}  // namespace platform
