#pragma once
// The real file system, except that chosen folders cannot be listed: an I/O
// error, which permission bits cannot show when tests run as root. A test
// may also act just before a folder is listed (unplug its disk, say).

#include <functional>
#include <mutex>
#include <set>
#include <string>

#include "platform/LinuxFileSystem.h"

namespace testing_support {

class FailingListings : public platform::LinuxFileSystem {
 public:
  using LinuxFileSystem::LinuxFileSystem;

  // The folder as a drive path ("C:\Music\Locked\") or its Linux path, which
  // name it alike.
  void FailFrom(const std::string& folder) {
    std::lock_guard lock(mutex_);
    failing_.insert(LocalPath(folder));
  }
  void Heal() {
    std::lock_guard lock(mutex_);
    failing_.clear();
  }

  // Called with the folder's Linux path before each listing.
  std::function<void(const std::string&)> beforeList;

  platform::Listing List(const std::string& folder, const std::string& pattern) const override {
    if (beforeList) beforeList(LocalPath(folder));
    bool fails;
    {
      std::lock_guard lock(mutex_);
      fails = failing_.count(LocalPath(folder)) > 0;
    }
    if (!fails) return LinuxFileSystem::List(folder, pattern);
    platform::Listing failed;
    failed.status = platform::ListingStatus::Unreadable;
    return failed;
  }

 private:
  mutable std::mutex mutex_;
  std::set<std::string> failing_;
};

}  // namespace testing_support
