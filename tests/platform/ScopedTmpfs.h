#pragma once
// A small tmpfs mounted on a test folder for the life of the object, for tests
// that need a file system of their own. Mounting needs privileges; check
// Mounted() and skip when it failed.

#include <sys/mount.h>

#include <string>

namespace platform_tests {

class ScopedTmpfs {
 public:
  ScopedTmpfs(std::string folder, const std::string& size)
      : folder_(std::move(folder)),
        mounted_(mount("tmpfs", folder_.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0) {}
  ~ScopedTmpfs() {
    if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
  }
  ScopedTmpfs(const ScopedTmpfs&) = delete;
  ScopedTmpfs& operator=(const ScopedTmpfs&) = delete;

  bool Mounted() const { return mounted_; }

 private:
  std::string folder_;
  bool mounted_;
};

}  // namespace platform_tests
