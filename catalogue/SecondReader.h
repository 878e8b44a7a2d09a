#pragma once
// A second connection to the catalogue file that reads part of a large query
// on a thread of its own while the first connection reads the rest, so that
// a search through a large library takes two cores. It only reads, and sees
// what was committed when its query starts.
//
// Owned and called by the thread that owns the first connection; each query
// is waited for before the next one starts.

#include <future>
#include <string>
#include <vector>

#include "catalogue/CppSQLite3Database.h"
#include "catalogue/Records.h"

class SecondReader {
 public:
  // Opens the file when this reader has no connection yet; false when it
  // cannot be opened (the caller then reads alone).
  bool Open(const std::string& path);
  void Close();

  // The rows of the query, read on another thread; get() rethrows a failure.
  std::future<std::vector<MediaListRow>> ListRows(std::string sql);

 private:
  CppSQLite3Database connection_;
};
