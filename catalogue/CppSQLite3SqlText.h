#pragma once
// One SQL text made by SQLite's formatter, which knows %q (quotes doubled),
// %Q (quoted, quotes doubled, NULL for a null text) besides printf's %d and %%.

#include <cstdarg>

class CppSQLite3SqlText {
 public:
  CppSQLite3SqlText() = default;
  CppSQLite3SqlText(const CppSQLite3SqlText&) = delete;
  CppSQLite3SqlText& operator=(const CppSQLite3SqlText&) = delete;
  ~CppSQLite3SqlText() { Clear(); }

  // Replaces the text; returns it (null only when SQLite is out of memory).
  const char* Format(const char* format, ...);
  const char* FormatV(const char* format, va_list arguments);
  void Clear();

  const char* Text() const { return text_; }
  operator const char*() const { return text_; }

 private:
  char* text_ = nullptr;
};
