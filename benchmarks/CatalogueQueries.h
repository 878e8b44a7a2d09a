#pragma once
// Numbers read straight from the catalogue file over a connection of its own,
// as another program would, for the checks no member of MediaDB answers.

#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench {

// The first column of every row the query returns; throws when it fails.
inline std::vector<std::int64_t> QueryNumbers(const std::string& catalogueFile, const char* sql) {
  sqlite3* connection = nullptr;
  std::vector<std::int64_t> numbers;
  sqlite3_stmt* statement = nullptr;
  int result = sqlite3_open_v2(catalogueFile.c_str(), &connection, SQLITE_OPEN_READONLY, nullptr);
  if (result == SQLITE_OK) result = sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr);
  while (result == SQLITE_OK && (result = sqlite3_step(statement)) == SQLITE_ROW) {
    numbers.push_back(sqlite3_column_int64(statement, 0));
    result = SQLITE_OK;
  }
  const std::string failure = sqlite3_errmsg(connection);
  sqlite3_finalize(statement);
  sqlite3_close(connection);
  if (result != SQLITE_DONE) throw std::runtime_error(std::string(sql) + ": " + failure);
  return numbers;
}

// The first row's number; -1 when there is no row.
inline int QueryNumber(const std::string& catalogueFile, const char* sql) {
  const std::vector<std::int64_t> numbers = QueryNumbers(catalogueFile, sql);
  return numbers.empty() ? -1 : static_cast<int>(numbers.front());
}

}  // namespace bench
