#pragma once
// How MediaDB formats and runs its statements; included by its source files
// only. A statement is formatted with SQLite's printf, run once and dropped.

#include "catalogue/CppSQLite3SqlText.h"
#include "catalogue/MediaDB.h"
#include "catalogue/RecordLoader.h"

template <class... Values>
int MediaDB::ExecuteForInsertIdF(const char* format, Values... values) {
  CppSQLite3SqlText sql;
  return ExecuteForInsertId(sql.Format(format, values...));
}

template <class... Values>
int MediaDB::QueryIntF(const char* format, Values... values) {
  CppSQLite3SqlText sql;
  return QueryInt(sql.Format(format, values...));
}

template <class... Values>
IdList MediaDB::QueryIdListF(const char* format, Values... values) {
  CppSQLite3SqlText sql;
  return QueryIdList(sql.Format(format, values...));
}

template <class Record>
std::unique_ptr<Record> MediaDB::QueryRecord(const char* format, int id) {
  CppSQLite3SqlText sql;
  sql.Format(format, id);
  CppSQLite3ResultSet result;
  RunQuery(sql, result);
  if (result.AtEnd()) return nullptr;
  auto record = std::make_unique<Record>();
  LoadRecord(result, *record);
  return record;
}

template <class Row, class... Values>
std::vector<Row> MediaDB::QueryRows(const char* format, Values... values) {
  CppSQLite3SqlText sql;
  sql.Format(format, values...);
  CppSQLite3ResultSet result;
  RunQuery(sql, result);
  std::vector<Row> rows;
  for (; !result.AtEnd(); result.NextRow()) LoadRecord(result, rows.emplace_back());
  return rows;
}
