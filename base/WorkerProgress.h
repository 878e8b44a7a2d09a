#pragma once
// What a worker thread and the modal dialog polling it share: the worker
// writes the status text, the line that tells how far the whole job is, the
// progress value and done; the dialog writes cancel. The texts are replaced
// whole under a lock; the rest are atomics.

#include <atomic>
#include <mutex>
#include <string>

class WorkerProgress {
 public:
  void SetStatus(std::string text) {
    std::lock_guard lock(mutex_);
    status_ = std::move(text);
  }
  std::string Status() const {
    std::lock_guard lock(mutex_);
    return status_;
  }
  void SetOverall(std::string text) {
    std::lock_guard lock(mutex_);
    overall_ = std::move(text);
  }
  std::string Overall() const {
    std::lock_guard lock(mutex_);
    return overall_;
  }

  // 0 to 100; kBusy while the share of the work done is not known yet.
  static constexpr int kBusy = -1;
  std::atomic<int> progress{0};
  std::atomic<bool> cancel{false};
  std::atomic<bool> done{false};

 private:
  mutable std::mutex mutex_;
  std::string status_;
  std::string overall_;
};
