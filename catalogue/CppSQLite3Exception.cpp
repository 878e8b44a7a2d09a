#include "catalogue/CppSQLite3Exception.h"

#include <sqlite3.h>

#include <iterator>

namespace {

char* FormatMessage(int code, const char* text) {
  return sqlite3_mprintf("%s[%d]: %s", CppSQLite3Exception::CodeName(code), code, text ? text : "");
}

}  // namespace

CppSQLite3Exception::CppSQLite3Exception(int code, char* text, bool takeOwnership)
    : code_(code), message_(FormatMessage(code, text)) {
  if (takeOwnership && text) sqlite3_free(text);
}

CppSQLite3Exception::CppSQLite3Exception(int code, const char* text)
    : code_(code), message_(FormatMessage(code, text)) {}

CppSQLite3Exception::CppSQLite3Exception(const CppSQLite3Exception& other)
    : code_(other.code_), message_(other.message_ ? sqlite3_mprintf("%s", other.message_) : nullptr) {}

CppSQLite3Exception::~CppSQLite3Exception() { sqlite3_free(message_); }

const char* CppSQLite3Exception::CodeName(int code) {
  static constexpr const char* kNames[] = {
      "SQLITE_OK",       "SQLITE_ERROR",      "SQLITE_INTERNAL", "SQLITE_PERM",      "SQLITE_ABORT", "SQLITE_BUSY",
      "SQLITE_LOCKED",   "SQLITE_NOMEM",      "SQLITE_READONLY", "SQLITE_INTERRUPT", "SQLITE_IOERR", "SQLITE_CORRUPT",
      "SQLITE_NOTFOUND", "SQLITE_FULL",       "SQLITE_CANTOPEN", "SQLITE_PROTOCOL",  "SQLITE_EMPTY", "SQLITE_SCHEMA",
      "SQLITE_TOOBIG",   "SQLITE_CONSTRAINT", "SQLITE_MISMATCH", "SQLITE_MISUSE",    "SQLITE_NOLFS", "SQLITE_AUTH",
      "SQLITE_FORMAT",   "SQLITE_RANGE"};
  if (code >= 0 && code < static_cast<int>(std::size(kNames))) return kNames[code];
  switch (code) {
    case 100:
      return "SQLITE_ROW";
    case 101:
      return "SQLITE_DONE";
    case kLayerError:
      return "CPPSQLITE_ERROR";
    default:
      return "UNKNOWN_ERROR";
  }
}
