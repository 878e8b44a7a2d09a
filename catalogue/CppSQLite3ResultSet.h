#pragma once
// A forward-only cursor over one prepared statement. Every failure is thrown
// as CppSQLite3Exception; a failed step finalizes the statement first.
//
// A default-constructed result set is an empty slot into which a query result
// is moved; moving transfers the statement, so exactly one result set owns it.

#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

class CppSQLite3ResultSet {
 public:
  CppSQLite3ResultSet() = default;
  CppSQLite3ResultSet(sqlite3* connection, sqlite3_stmt* statement, bool atEnd, bool ownsStatement);
  CppSQLite3ResultSet(CppSQLite3ResultSet&& other) noexcept;
  CppSQLite3ResultSet& operator=(CppSQLite3ResultSet&& other) noexcept;
  CppSQLite3ResultSet(const CppSQLite3ResultSet&) = delete;
  CppSQLite3ResultSet& operator=(const CppSQLite3ResultSet&) = delete;
  virtual ~CppSQLite3ResultSet();

  bool AtEnd() const;
  // Steps to the next row; returns SQLite's step result (100 row, 101 done).
  int NextRow();

  // The column text, or null for an SQL NULL (and for a finished result set).
  const char* FieldText(int index) const;
  const char* FieldText(const char* name) const;
  // The column text with all its bytes (zero bytes too); empty for NULL.
  std::string_view FieldBytes(int index) const;
  // The first column whose name equals name byte for byte.
  int FieldIndex(const char* name) const;
  int FieldType(int index) const;
  bool FieldIsNull(int index) const;
  bool FieldIsNull(const char* name) const;
  // nullValue for an SQL NULL, otherwise the leading integer of the text (atoi).
  int FieldInt(int index, int nullValue) const;
  int FieldInt(const char* name, int nullValue) const;
  // The column as a 64-bit integer; nullValue for an SQL NULL.
  std::int64_t FieldInt64(int index, std::int64_t nullValue) const;

  void Finalize();

 private:
  void RequireStatement() const;
  void CheckIndex(int index) const;
  void FinalizeQuietly() noexcept;

  sqlite3* connection_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
  bool atEnd_ = true;
  int columnCount_ = 0;
  bool ownsStatement_ = false;
};
