#pragma once
// Owns a file descriptor and closes it when it goes away.

#include <unistd.h>

#include <utility>

namespace platform {

class UniqueFd {
 public:
  explicit UniqueFd(int fd = -1) noexcept : fd_(fd) {}
  ~UniqueFd() { Reset(); }
  UniqueFd(UniqueFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    if (this != &other) {
      Reset();
      fd_ = std::exchange(other.fd_, -1);
    }
    return *this;
  }
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;

  int Get() const noexcept { return fd_; }
  bool Valid() const noexcept { return fd_ >= 0; }

  // Closes now; false when close reports an error (data may not have been written).
  bool Close() noexcept { return ::close(std::exchange(fd_, -1)) == 0; }

 private:
  void Reset() noexcept {
    if (fd_ >= 0) ::close(std::exchange(fd_, -1));
  }
  int fd_;
};

}  // namespace platform
