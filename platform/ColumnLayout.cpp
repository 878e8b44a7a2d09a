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

struct Column {
  int number;
  int width;
};

std::optional<std::vector<Column>> ParseLayout(const std::string& text, int columns) {
  std::vector<Column> parsed;
  std::istringstream fields(text);
  for (std::string field; std::getline(fields, field, ',');) {
    std::istringstream pair(field);
    Column column{};
    char colon = 0;
    if (!(pair >> column.number >> colon >> column.width) || colon != ':' || !pair.eof()) return {};
    if (column.number < 0 || column.number >= columns) return {};
    if (column.width < kNarrowest || column.width > kWidest) return {};
    parsed.push_back(column);
  }
  if (static_cast<int>(parsed.size()) != columns) return {};
  std::vector<bool> seen(static_cast<std::size_t>(columns), false);
  for (const Column& column : parsed) {
    if (seen[static_cast<std::size_t>(column.number)]) return {};
    seen[static_cast<std::size_t>(column.number)] = true;
  }
  return parsed;
}

}  // namespace

std::string SaveColumnLayout(const ListControl& list) {
  std::string text;
  for (int column : list.ColumnOrder()) {
    if (!text.empty()) text += ",";
    text += std::to_string(column) + ":" + std::to_string(list.ColumnWidth(column));
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
  }
  list.SetColumnOrder(order);
  return true;
}

void FitColumns(ListControl& list, int width, int keptColumn) {
  const std::vector<int> columns = list.ColumnOrder();
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
