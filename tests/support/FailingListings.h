#pragma once
// The real file system, except that chosen folders cannot be listed from a
// chosen listing of theirs on: what an I/O error, a permission change or a
// folder made unreadable between two listings looks like to the scanner,
// which permission bits alone cannot show when the tests run as root.

#include <map>
#include <mutex>
#include <string>

#include "platform/FileSystem.h"

namespace testing_support {

class FailingListings : public platform::FileSystem {
 public:
  explicit FailingListings(platform::FileSystem& real) : real_(real) {}

  // The folder, spelled as the caller lists it ("C:\Music\Locked\"), fails
  // from its nth listing on (1: every listing).
  void FailFrom(const std::string& folder, int nth = 1) {
    std::lock_guard lock(mutex_);
    failures_[folder] = {nth, 0};
  }
  void Heal() {
    std::lock_guard lock(mutex_);
    failures_.clear();
  }

  platform::Listing List(const std::string& folder, const std::string& pattern) const override {
    if (Fails(folder)) return {platform::ListingStatus::Unreadable, {}, {}, {}};
    return real_.List(folder, pattern);
  }

  std::string LocalPath(const std::string& path) const override { return real_.LocalPath(path); }
  bool AnyFileMatches(const std::string& folder, const std::string& pattern) const override {
    return real_.AnyFileMatches(folder, pattern);
  }
  std::optional<platform::FolderIdentity> Identity(const std::string& folder) const override {
    return real_.Identity(folder);
  }
  std::optional<platform::FileFacts> Stat(const std::string& path) const override { return real_.Stat(path); }
  bool Exists(const std::string& path) const override { return real_.Exists(path); }
  bool CreateFolder(const std::string& path) override { return real_.CreateFolder(path); }
  bool Remove(const std::string& path) override { return real_.Remove(path); }
  bool CopyNoOverwrite(const std::string& source, const std::string& target) override {
    return real_.CopyNoOverwrite(source, target);
  }
  bool MakeWritable(const std::string& path) override { return real_.MakeWritable(path); }

 private:
  struct Failure {
    int from = 1;
    int listings = 0;
  };

  bool Fails(const std::string& folder) const {
    std::lock_guard lock(mutex_);
    const auto found = failures_.find(folder);
    return found != failures_.end() && ++found->second.listings >= found->second.from;
  }

  platform::FileSystem& real_;
  mutable std::mutex mutex_;
  mutable std::map<std::string, Failure> failures_;
};

}  // namespace testing_support
