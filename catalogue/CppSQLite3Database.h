#pragma once
// One SQLite connection. Every failure is thrown as CppSQLite3Exception;
// there are no transactions of its own. The few statements a scan runs once
// a file are prepared once and kept (ExecutePrepared).
//
// Used by the user-interface thread and, while a modal scan runs, by the scan
// worker alone; SQLite's busy timeout is the only waiting.

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string_view>
#include <unordered_map>
#include <variant>

#include "catalogue/CppSQLite3ResultSet.h"

struct sqlite3;
struct sqlite3_stmt;

class CppSQLite3Database {
 public:
  static constexpr int kDefaultBusyTimeoutMs = 60000;

  CppSQLite3Database() = default;
  CppSQLite3Database(const CppSQLite3Database&) = delete;
  CppSQLite3Database& operator=(const CppSQLite3Database&) = delete;
  virtual ~CppSQLite3Database();

  // Opens (and creates when missing) the database file; throws on failure.
  void Open(const char* path);
  // Opens an existing file that nothing will change while it is open, reading
  // it without locks or a write-ahead index (for a catalogue on read-only
  // storage, whose write-ahead index cannot be made); throws on failure.
  void OpenImmutable(const char* path);
  // Opens an existing file for reading only, with SQLite's usual locking.
  void OpenReadOnly(const char* path);
  bool IsReadOnly() const;
  // Whether a transaction begun with BEGIN is open.
  bool InTransaction() const;
  // Returns SQLite's close result, or 0 when nothing was open.
  int Close();
  bool IsOpen() const { return connection_ != nullptr; }
  // The SQLite connection, for registering functions on it; nullptr when closed.
  sqlite3* Handle() const { return connection_; }

  // Runs a statement that returns no rows; returns the number of rows changed.
  int ExecuteStatement(const char* sql);
  // Prepares a query and steps it once; the result set owns the statement.
  CppSQLite3ResultSet ExecuteQuery(const char* sql);
  // Runs a statement that returns no rows with the values bound to its "?"
  // in order; returns the number of rows changed. The statement is prepared
  // on its first run and kept until Close: sql is its key, so it must be a
  // text that lives as long as the program (a literal).
  using BoundValue = std::variant<int, std::int64_t, std::string_view>;
  int ExecutePrepared(const char* sql, std::initializer_list<BoundValue> values);
  std::int64_t LastInsertId() const;
  // SQLite's message for the connection's latest failure; "" when closed.
  const char* ErrorMessage() const;
  void SetBusyTimeout(int milliseconds);

  // Calls observer with the text of every statement as it starts to run
  // (for diagnostics and tests); an empty function stops observing.
  void ObserveStatements(std::function<void(const char*)> observer);

 private:
  // Takes the result of an open call: throws and forgets the connection on failure.
  void Connect(int openResult);
  void RequireOpen() const;
  sqlite3_stmt* Prepare(const char* sql);
  void InstallObserver();
  void FinalizePrepared();

  sqlite3* connection_ = nullptr;
  int busyTimeoutMs_ = kDefaultBusyTimeoutMs;
  std::function<void(const char*)> observer_;
  std::unordered_map<const char*, sqlite3_stmt*> prepared_;
};
