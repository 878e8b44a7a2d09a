#include "catalogue/CppSQLite3Database.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "catalogue/CppSQLite3Exception.h"

CppSQLite3Database::~CppSQLite3Database() { Close(); }

namespace {

// A file name as a "file:" URI: the characters URIs give a meaning are escaped.
std::string FileUri(const char* path) {
  std::string uri = "file:";
  for (const char* c = path; *c; ++c) {
    if (*c == '%' || *c == '?' || *c == '#') {
      char escaped[4];
      std::snprintf(escaped, sizeof escaped, "%%%02X", static_cast<unsigned char>(*c));
      uri += escaped;
    } else {
      uri += *c;
    }
  }
  return uri;
}

}  // namespace

// A connection is used by one thread at a time (the catalogue is lent to a
// worker whole), so SQLite need not lock it around every call.
void CppSQLite3Database::Open(const char* path) {
  Connect(
      sqlite3_open_v2(path, &connection_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr));
}

void CppSQLite3Database::OpenImmutable(const char* path) {
  const std::string uri = FileUri(path) + "?immutable=1";
  Connect(sqlite3_open_v2(uri.c_str(), &connection_, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX,
                          nullptr));
}

void CppSQLite3Database::OpenReadOnly(const char* path) {
  Connect(sqlite3_open_v2(path, &connection_, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr));
}

bool CppSQLite3Database::IsReadOnly() const { return connection_ && sqlite3_db_readonly(connection_, "main") == 1; }

bool CppSQLite3Database::InTransaction() const { return connection_ && sqlite3_get_autocommit(connection_) == 0; }

void CppSQLite3Database::Connect(int result) {
  if (result != SQLITE_OK) {
    CppSQLite3Exception error(result, sqlite3_errmsg(connection_));
    sqlite3_close(connection_);
    connection_ = nullptr;
    throw error;
  }
  SetBusyTimeout(busyTimeoutMs_);
  InstallObserver();
}

int CppSQLite3Database::Close() {
  if (!connection_) return 0;
  FinalizePrepared();
  int result = sqlite3_close(connection_);
  connection_ = nullptr;
  return result;
}

void CppSQLite3Database::RequireOpen() const {
  if (!connection_) throw CppSQLite3Exception(CppSQLite3Exception::kLayerError, "Database not open");
}

int CppSQLite3Database::ExecuteStatement(const char* sql) {
  RequireOpen();
  char* error = nullptr;
  int result = sqlite3_exec(connection_, sql, nullptr, nullptr, &error);
  if (result != SQLITE_OK) throw CppSQLite3Exception(result, error, true);
  return sqlite3_changes(connection_);
}

CppSQLite3ResultSet CppSQLite3Database::ExecuteQuery(const char* sql) {
  RequireOpen();
  sqlite3_stmt* statement = Prepare(sql);
  int result = sqlite3_step(statement);
  if (result == SQLITE_DONE) return CppSQLite3ResultSet(connection_, statement, true, true);
  if (result == SQLITE_ROW) return CppSQLite3ResultSet(connection_, statement, false, true);
  result = sqlite3_finalize(statement);
  throw CppSQLite3Exception(result, sqlite3_errmsg(connection_));
}

sqlite3_stmt* CppSQLite3Database::Prepare(const char* sql) {
  RequireOpen();
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  int result = sqlite3_prepare_v2(connection_, sql, -1, &statement, &tail);
  // The SQLite text is deliberately left out here: the message ends after "]: ".
  if (result != SQLITE_OK) throw CppSQLite3Exception(result, nullptr, true);
  return statement;
}

std::int64_t CppSQLite3Database::LastInsertId() const { return sqlite3_last_insert_rowid(connection_); }

const char* CppSQLite3Database::ErrorMessage() const { return connection_ ? sqlite3_errmsg(connection_) : ""; }

void CppSQLite3Database::SetBusyTimeout(int milliseconds) {
  busyTimeoutMs_ = milliseconds;
  if (connection_) sqlite3_busy_timeout(connection_, milliseconds);
}

void CppSQLite3Database::ObserveStatements(std::function<void(const char*)> observer) {
  observer_ = std::move(observer);
  InstallObserver();
}

int CppSQLite3Database::ExecutePrepared(const char* sql, std::initializer_list<BoundValue> values) {
  RequireOpen();
  sqlite3_stmt*& statement = prepared_[sql];
  if (!statement) statement = Prepare(sql);
  int index = 0;
  for (const BoundValue& value : values) {
    ++index;
    if (const int* number = std::get_if<int>(&value))
      sqlite3_bind_int(statement, index, *number);
    else if (const std::int64_t* wide = std::get_if<std::int64_t>(&value))
      sqlite3_bind_int64(statement, index, *wide);
    else {
      const std::string_view text = std::get<std::string_view>(value);
      sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
  }
  const int result = sqlite3_step(statement);
  sqlite3_reset(statement);
  sqlite3_clear_bindings(statement);
  if (result != SQLITE_DONE && result != SQLITE_ROW) throw CppSQLite3Exception(result, sqlite3_errmsg(connection_));
  return sqlite3_changes(connection_);
}

void CppSQLite3Database::FinalizePrepared() {
  for (auto& [sql, statement] : prepared_) sqlite3_finalize(statement);
  prepared_.clear();
}

void CppSQLite3Database::InstallObserver() {
  if (!connection_) return;
  if (!observer_) {
    sqlite3_trace_v2(connection_, 0, nullptr, nullptr);
    return;
  }
  sqlite3_trace_v2(
      connection_, SQLITE_TRACE_STMT,
      [](unsigned, void* context, void* statement, void* text) -> int {
        // A trigger starting is reported as a comment: not a statement of ours.
        if (text && std::strncmp(static_cast<const char*>(text), "--", 2) == 0) return 0;
        auto* self = static_cast<CppSQLite3Database*>(context);
        char* sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
        if (sql) self->observer_(sql);
        sqlite3_free(sql);
        return 0;
      },
      this);
}
