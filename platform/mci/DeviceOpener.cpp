#include "platform/mci/DeviceOpener.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <system_error>
#include <thread>

#include "platform/MediaControl.h"
#include "platform/mci/PlaybinDevice.h"

namespace platform::mci {

// What the opening thread and the waiting one share. The opening thread owns
// only this (and copies of its arguments), never the DeviceOpener, so it may
// outlive everything else.
struct PendingOpen {
  std::mutex mutex;
  std::condition_variable changed;
  bool done = false;
  bool abandoned = false;
  std::unique_ptr<PlaybinDevice> device;
  std::uint32_t error = kMciNoError;
};

// Whether the file is a regular one that opens: stat rather than lstat, so
// a link to a regular file plays; folders, pipes, sockets and devices are
// refused before anything opens them. Where an open hangs (a dead share, a
// file another program holds), it hangs here, before any GStreamer work.
bool ReachRegularFile(const std::string& file, std::uint32_t& error) {
  struct stat facts {};
  if (::stat(file.c_str(), &facts) != 0) {
    error = kMciFileNotFound;
    return false;
  }
  if (!S_ISREG(facts.st_mode)) {
    error = kMciNotRegularFile;
    return false;
  }
  const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    error = errno == ENOENT ? kMciFileNotFound : kMciCannotDecode;
    return false;
  }
  ::close(fd);
  return true;
}

namespace {

bool GivenUp(PendingOpen& pending) {
  std::lock_guard lock(pending.mutex);
  return pending.abandoned;
}

}  // namespace

DeviceOpener::DeviceOpener(std::chrono::milliseconds limit) : limit_(limit) {}

DeviceOpener::~DeviceOpener() = default;

std::unique_ptr<PlaybinDevice> DeviceOpener::Open(const std::string& file, AudioOutput output, std::uint64_t number,
                                                  std::uint32_t& error, std::shared_ptr<AudioCapture> capture) {
  auto pending = std::make_shared<PendingOpen>();
  {
    std::lock_guard lock(mutex_);
    if (number != 0 && number <= abandonedThrough_) {
      error = kMciOpenAbandoned;
      return nullptr;
    }
    waiting_ = pending;
    waitingNumber_ = number;
  }
  // The thread is detached on purpose: a thread blocked in open() or stat()
  // on a pipe or a dead share cannot be woken, so it could never be joined,
  // and quitting must not wait for it. It touches only the shared state, and
  // an exiting process simply ends it; a device it opens after it was given
  // up is released with that state.
  try {
    std::thread([file, output, pending, capture = std::move(capture)] {
      std::uint32_t code = kMciNoError;
      std::unique_ptr<PlaybinDevice> device;
      // An open given up while it hung goes no further: no pipeline is built
      // for nobody, perhaps while the program is ending.
      if (ReachRegularFile(file, code)) {
        if (GivenUp(*pending))
          code = kMciOpenAbandoned;
        else
          device = PlaybinDevice::Open(file, output, code, capture.get());
      }
      std::lock_guard lock(pending->mutex);
      pending->device = std::move(device);
      pending->error = code;
      pending->done = true;
      pending->changed.notify_all();
    }).detach();
  } catch (const std::system_error&) {
    pending->done = true;
    pending->error = kMciCannotDecode;
  }

  std::unique_lock lock(pending->mutex);
  pending->changed.wait_for(lock, limit_, [&] { return pending->done || pending->abandoned; });
  if (pending->abandoned) {
    error = kMciOpenAbandoned;
  } else if (!pending->done) {
    pending->abandoned = true;
    error = kMciOpenTimedOut;
  } else {
    error = pending->error;
  }
  std::unique_ptr<PlaybinDevice> device = error == kMciNoError ? std::move(pending->device) : nullptr;
  lock.unlock();
  std::lock_guard forget(mutex_);
  if (waiting_ == pending) waiting_.reset();
  return device;
}

void DeviceOpener::AbandonThrough(std::uint64_t number) {
  std::shared_ptr<PendingOpen> waiting;
  {
    std::lock_guard lock(mutex_);
    abandonedThrough_ = std::max(abandonedThrough_, number);
    if (waitingNumber_ != 0 && waitingNumber_ <= number) waiting = waiting_;
  }
  if (!waiting) return;
  std::lock_guard lock(waiting->mutex);
  waiting->abandoned = true;
  waiting->changed.notify_all();
}

}  // namespace platform::mci
