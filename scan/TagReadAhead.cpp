#include "scan/TagReadAhead.h"

#include "tags/TagReader.h"

TagReadAhead::TagReadAhead(TagReader& reader, std::vector<std::string> fullPaths,
                           unsigned threads, std::size_t window)
    : reader_(reader), fullPaths_(std::move(fullPaths)), slots_(window == 0 ? 1 : window) {
  if (fullPaths_.empty()) return;
  for (unsigned i = 0; i < (threads == 0 ? 1 : threads); ++i)
    threads_.emplace_back([this] { ReadFiles(); });
}

TagReadAhead::~TagReadAhead() {
  Stop();
  for (std::thread& thread : threads_) thread.join();
}

void TagReadAhead::Stop() {
  std::lock_guard lock(mutex_);
  stopping_ = true;
  roomFree_.notify_all();
}

void TagReadAhead::ReadFiles() {
  for (;;) {
    std::size_t job;
    {
      std::unique_lock lock(mutex_);
      // Wait for room: a result may run at most one window ahead of the worker.
      ++readersWaiting_;
      roomFree_.wait(lock, [&] {
        return stopping_ || nextToRead_ >= fullPaths_.size() || nextToRead_ < taken_ + slots_.size();
      });
      --readersWaiting_;
      if (stopping_ || nextToRead_ >= fullPaths_.size()) return;
      job = nextToRead_++;
    }
    CMediaFile record;
    std::exception_ptr error;
    try {
      reader_.GetTag(fullPaths_[job], record);
    } catch (...) {
      error = std::current_exception();
    }
    std::lock_guard lock(mutex_);
    Slot& slot = slots_[job % slots_.size()];
    slot.record = std::move(record);
    slot.error = error;
    slot.job = job + 1;
    resultReady_.notify_one();
  }
}

bool TagReadAhead::WaitFor(std::size_t index, const std::atomic<bool>& cancel) {
  std::unique_lock lock(mutex_);
  const Slot& slot = slots_[index % slots_.size()];
  while (slot.job != index + 1) {
    if (cancel) return false;
    resultReady_.wait_for(lock, kCancelCheck);
  }
  return true;
}

CMediaFile TagReadAhead::Take(std::size_t index) {
  std::unique_lock lock(mutex_);
  Slot& slot = slots_[index % slots_.size()];
  resultReady_.wait(lock, [&] { return slot.job == index + 1; });
  CMediaFile record = std::move(slot.record);
  const std::exception_ptr error = slot.error;
  slot.job = 0;
  taken_ = index + 1;
  const bool wakeReaders = readersWaiting_ > 0;
  lock.unlock();
  if (wakeReaders) roomFree_.notify_all();
  if (error) std::rethrow_exception(error);
  return record;
}
