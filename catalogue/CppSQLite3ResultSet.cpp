#include "catalogue/CppSQLite3ResultSet.h"

#include <sqlite3.h>

#include <cstdlib>
#include <cstring>
#include <utility>

#include "catalogue/CppSQLite3Exception.h"

CppSQLite3ResultSet::CppSQLite3ResultSet(sqlite3* connection, sqlite3_stmt* statement, bool atEnd, bool ownsStatement)
    : connection_(connection),
      statement_(statement),
      atEnd_(atEnd),
      columnCount_(sqlite3_column_count(statement)),
      ownsStatement_(ownsStatement) {}

CppSQLite3ResultSet::CppSQLite3ResultSet(CppSQLite3ResultSet&& other) noexcept { *this = std::move(other); }

CppSQLite3ResultSet& CppSQLite3ResultSet::operator=(CppSQLite3ResultSet&& other) noexcept {
  if (this == &other) return *this;
  FinalizeQuietly();
  // The connection travels too, so that later errors report its text.
  connection_ = other.connection_;
  statement_ = std::exchange(other.statement_, nullptr);
  atEnd_ = other.atEnd_;
  columnCount_ = other.columnCount_;
  ownsStatement_ = other.ownsStatement_;
  return *this;
}

CppSQLite3ResultSet::~CppSQLite3ResultSet() { FinalizeQuietly(); }

void CppSQLite3ResultSet::FinalizeQuietly() noexcept {
  try {
    Finalize();
  } catch (const CppSQLite3Exception&) {
    // A destructor or a transfer cannot report; the statement is gone either way.
  }
}

void CppSQLite3ResultSet::Finalize() {
  if (statement_ && ownsStatement_) {
    int result = sqlite3_finalize(statement_);
    statement_ = nullptr;
    if (result != SQLITE_OK) throw CppSQLite3Exception(result, sqlite3_errmsg(connection_));
  }
}

void CppSQLite3ResultSet::RequireStatement() const {
  if (!statement_) throw CppSQLite3Exception(CppSQLite3Exception::kLayerError, "Null Virtual Machine pointer");
}

void CppSQLite3ResultSet::CheckIndex(int index) const {
  if (index < 0 || index > columnCount_ - 1)
    throw CppSQLite3Exception(CppSQLite3Exception::kLayerError, "Invalid field index requested");
}

bool CppSQLite3ResultSet::AtEnd() const {
  RequireStatement();
  return atEnd_;
}

int CppSQLite3ResultSet::NextRow() {
  RequireStatement();
  int result = sqlite3_step(statement_);
  if (result == SQLITE_DONE) {
    atEnd_ = true;
  } else if (result != SQLITE_ROW) {
    result = sqlite3_finalize(statement_);
    statement_ = nullptr;
    throw CppSQLite3Exception(result, sqlite3_errmsg(connection_));
  }
  return result;
}

const char* CppSQLite3ResultSet::FieldText(int index) const {
  RequireStatement();
  CheckIndex(index);
  // Past the last row SQLite has no column values to give: read as NULL.
  if (atEnd_) return nullptr;
  return reinterpret_cast<const char*>(sqlite3_column_text(statement_, index));
}

std::string_view CppSQLite3ResultSet::FieldBytes(int index) const {
  const char* text = FieldText(index);
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, index))};
}

const char* CppSQLite3ResultSet::FieldText(const char* name) const { return FieldText(FieldIndex(name)); }

int CppSQLite3ResultSet::FieldIndex(const char* name) const {
  RequireStatement();
  if (name) {
    for (int i = 0; i < columnCount_; ++i) {
      const char* column = sqlite3_column_name(statement_, i);
      if (column && std::strcmp(name, column) == 0) return i;
    }
  }
  throw CppSQLite3Exception(CppSQLite3Exception::kLayerError, "Invalid field name requested");
}

int CppSQLite3ResultSet::FieldType(int index) const {
  RequireStatement();
  CheckIndex(index);
  if (atEnd_) return SQLITE_NULL;
  return sqlite3_column_type(statement_, index);
}

bool CppSQLite3ResultSet::FieldIsNull(int index) const { return FieldType(index) == SQLITE_NULL; }

bool CppSQLite3ResultSet::FieldIsNull(const char* name) const { return FieldIsNull(FieldIndex(name)); }

// An integer is taken as it is stored; any other value as its text reads,
// up to the first character that is no digit.
int CppSQLite3ResultSet::FieldInt(int index, int nullValue) const {
  const int type = FieldType(index);
  if (type == SQLITE_NULL) return nullValue;
  if (type == SQLITE_INTEGER) return static_cast<int>(sqlite3_column_int64(statement_, index));
  const char* text = FieldText(index);
  return text ? std::atoi(text) : 0;
}

std::int64_t CppSQLite3ResultSet::FieldInt64(int index, std::int64_t nullValue) const {
  const int type = FieldType(index);
  if (type == SQLITE_NULL) return nullValue;
  if (type == SQLITE_INTEGER) return sqlite3_column_int64(statement_, index);
  const char* text = FieldText(index);
  return text ? std::strtoll(text, nullptr, 10) : 0;
}

int CppSQLite3ResultSet::FieldInt(const char* name, int nullValue) const {
  return FieldInt(FieldIndex(name), nullValue);
}
