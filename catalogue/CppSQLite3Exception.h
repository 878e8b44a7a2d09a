#pragma once
// The one exception type of the SQL access layer: an SQLite result code (or
// 1000 for the layer's own errors) and a message "NAME[code]: text".

class CppSQLite3Exception {
 public:
  static constexpr int kLayerError = 1000;

  // Formats the message at once. When takeOwnership is true, text was made by
  // SQLite's allocator and is freed here after formatting.
  CppSQLite3Exception(int code, char* text, bool takeOwnership);
  CppSQLite3Exception(int code, const char* text);
  CppSQLite3Exception(const CppSQLite3Exception& other);
  CppSQLite3Exception& operator=(const CppSQLite3Exception&) = delete;
  virtual ~CppSQLite3Exception();

  int Code() const { return code_; }
  const char* Message() const { return message_ ? message_ : ""; }

  // The symbolic name of a result code; "UNKNOWN_ERROR" for any code not known.
  static const char* CodeName(int code);

 private:
  int code_;
  char* message_;
};
