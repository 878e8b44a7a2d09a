#include "scan/TagReadAhead.h"

#include "tags/TagReader.h"

TagReadAhead::TagReadAhead(TagReader& reader, std::vector<std::string> fullPaths, unsigned threads, std::size_t window)
    : TagReadAhead(reader, std::make_shared<const std::vector<std::string>>(std::move(fullPaths)), threads, window) {}

TagReadAhead::TagReadAhead(TagReader& reader, const std::shared_ptr<const std::vector<std::string>>& paths,
                           unsigned threads, std::size_t window)
    : TagReadAhead(
          reader, paths->size(), [paths](std::size_t i) { return (*paths)[i]; }, threads, window) {}

TagReadAhead::TagReadAhead(TagReader& reader, std::size_t count, PathOf pathOf, unsigned threads, std::size_t window)
    : reader_(reader), count_(count), pathOf_(std::move(pathOf)), slots_(window == 0 ? 1 : window) {
  if (count_ == 0) return;
  for (unsigned i = 0; i < (threads == 0 ? 1 : threads); ++i) threads_.emplace_back([this] { ReadFiles(); });
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
      roomFree_.wait(lock, [&] { return stopping_ || nextToRead_ >= count_ || nextToRead_ < taken_ + slots_.size(); });
      --readersWaiting_;
      if (stopping_ || nextToRead_ >= count_) return;
      job = nextToRead_++;
    }
    CMediaFile record;
    std::exception_ptr error;
    try {
      reader_.GetTag(pathOf_(job), record);
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
