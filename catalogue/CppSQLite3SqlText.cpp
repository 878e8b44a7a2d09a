#include "catalogue/CppSQLite3SqlText.h"

#include <sqlite3.h>

const char* CppSQLite3SqlText::Format(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const char* text = FormatV(format, arguments);
  va_end(arguments);
  return text;
}

const char* CppSQLite3SqlText::FormatV(const char* format, va_list arguments) {
  Clear();
  text_ = sqlite3_vmprintf(format, arguments);
  return text_;
}

void CppSQLite3SqlText::Clear() {
  sqlite3_free(text_);
  text_ = nullptr;
}
