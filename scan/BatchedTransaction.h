#pragma once
// One transaction for the new rows of many folders: committing every folder
// on its own costs a scan of many small folders much of its time. A batch is
// committed once it holds enough rows or has been open long enough that
// another program waiting for the catalogue should get its turn; a kill
// loses the last batch's rows only, which the next scan adds again.

#include <chrono>
#include <cstddef>

class MediaDB;

class BatchedTransaction {
 public:
  static constexpr std::size_t kRowsPerBatch = 5000;
  static constexpr std::chrono::milliseconds kLongestBatch{250};

  // Begins a transaction unless this batch has one open.
  void Open(MediaDB& db);
  // Counts rows added in the open transaction; commits when the batch is full.
  void Added(MediaDB& db, std::size_t rows);
  // Commits the open transaction, if any.
  void Close(MediaDB& db);

 private:
  bool open_ = false;
  std::size_t rows_ = 0;
  std::chrono::steady_clock::time_point openedAt_;
};
