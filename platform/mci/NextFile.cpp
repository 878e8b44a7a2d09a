#include "platform/mci/NextFile.h"

namespace platform::mci {

std::uint64_t NextFile::Offer(std::string file) {
  std::lock_guard lock(mutex_);
  offered_ = Cue{++lastNumber_, std::move(file)};
  decided_ = true;
  changed_.notify_all();
  return lastNumber_;
}

void NextFile::Decline() {
  std::lock_guard lock(mutex_);
  offered_.reset();
  decided_ = true;
  changed_.notify_all();
}

void NextFile::Decided() {
  std::lock_guard lock(mutex_);
  // Once a file was taken, the next ask is that file's, which waits for
  // what follows it.
  if (taken_.empty() && entered_.empty()) decided_ = true;
  released_ = false;
  changed_.notify_all();
}

void NextFile::Release() {
  std::lock_guard lock(mutex_);
  released_ = true;
  changed_.notify_all();
}

std::optional<NextFile::Cue> NextFile::TakeAtFinish() {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, kDecisionWait, [this] { return decided_ || released_; });
  std::optional<Cue> taken = std::move(offered_);
  offered_.reset();
  if (taken) {
    taken_.push_back(*taken);
    // The file taken will ask in its turn: wait for what follows it.
    decided_ = false;
  }
  return taken;
}

void NextFile::StreamEntered() {
  std::lock_guard lock(mutex_);
  if (taken_.empty()) return;
  entered_.push_back(std::move(taken_.front()));
  taken_.pop_front();
}

std::optional<NextFile::Cue> NextFile::StreamStarted() {
  std::lock_guard lock(mutex_);
  if (entered_.empty()) return std::nullopt;
  Cue started = std::move(entered_.front());
  entered_.pop_front();
  playing_ = started.number;
  return started;
}

bool NextFile::Follows() {
  std::lock_guard lock(mutex_);
  return !taken_.empty();
}

std::uint64_t NextFile::Playing() {
  std::lock_guard lock(mutex_);
  return playing_;
}

}  // namespace platform::mci
