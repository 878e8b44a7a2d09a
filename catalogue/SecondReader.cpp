#include "catalogue/SecondReader.h"

#include "catalogue/CppSQLite3Exception.h"
#include "catalogue/FoldedSearch.h"
#include "catalogue/RecordLoader.h"

bool SecondReader::Open(const std::string& path) {
  if (connection_.IsOpen()) return true;
  try {
    connection_.Open(path.c_str());
    folded_search::Register(connection_.Handle());
    connection_.ExecuteStatement("PRAGMA query_only=1;");
    return true;
  } catch (const CppSQLite3Exception&) {
    connection_.Close();
    return false;
  }
}

void SecondReader::Close() { connection_.Close(); }

std::future<std::vector<MediaListRow>> SecondReader::ListRows(std::string sql) {
  return std::async(std::launch::async, [this, sql = std::move(sql)] {
    std::vector<MediaListRow> rows;
    for (CppSQLite3ResultSet result = connection_.ExecuteQuery(sql.c_str()); !result.AtEnd(); result.NextRow())
      LoadRecord(result, rows.emplace_back());
    return rows;
  });
}
