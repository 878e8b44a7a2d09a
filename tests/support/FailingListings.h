#pragma once
// The real file system, except that chosen folders cannot be listed from
// their nth listing on: an I/O error, or a folder made unreadable between
// two listings, which permission bits cannot show when tests run as root.

#include <map>
#include <mutex>
#include <string>

#include "platform/LinuxFileSystem.h"

namespace testing_support {

class FailingListings : public platform::LinuxFileSystem {
 public:
  using LinuxFileSystem::LinuxFileSystem;

  // The folder as a drive path ("C:\Music\Locked\") or its Linux path, which
  // name it alike; nth 1 fails every listing.
  void FailFrom(const std::string& folder, int nth = 1) {
    std::lock_guard lock(mutex_);
    listingsLeft_[LocalPath(folder)] = nth - 1;
  }
  void Heal() {
    std::lock_guard lock(mutex_);
    listingsLeft_.clear();
  }

  platform::Listing List(const std::string& folder, const std::string& pattern) const override {
    std::unique_lock lock(mutex_);
    const auto found = listingsLeft_.find(LocalPath(folder));
    if (found == listingsLeft_.end() || found->second-- > 0) {
      lock.unlock();
      return LinuxFileSystem::List(folder, pattern);
    }
    platform::Listing failed;
    failed.status = platform::ListingStatus::Unreadable;
    return failed;
  }

 private:
  mutable std::mutex mutex_;
  mutable std::map<std::string, int> listingsLeft_;  // listings that still succeed
};

}  // namespace testing_support
