#include "scan/BatchedTransaction.h"

#include "catalogue/MediaDB.h"

void BatchedTransaction::Open(MediaDB& db) {
  if (open_) return;
  db.Begin();
  open_ = true;
  rows_ = 0;
  openedAt_ = std::chrono::steady_clock::now();
}

void BatchedTransaction::Added(MediaDB& db, std::size_t rows) {
  rows_ += rows + 1;
  if (rows_ >= kRowsPerBatch || std::chrono::steady_clock::now() - openedAt_ >= kLongestBatch) Close(db);
}

void BatchedTransaction::Close(MediaDB& db) {
  if (!open_) return;
  db.Commit();
  open_ = false;
}
