#pragma once
// A file system double that only maps paths: absolute Linux paths stay as they
// are, "C:\a\b" becomes ROOT/a/b, a bare relative name becomes ROOT/name, and
// any other drive has no root. LocalPath throws when told to, so tests can see
// exceptions pass through. Nothing else is used by the tag reader.

#include <stdexcept>
#include <utility>
#include <string>

#include "platform/FileSystem.h"

class RootedFileSystem : public platform::FileSystem {
 public:
  explicit RootedFileSystem(std::string root, bool throws = false)
      : root_(std::move(root)), throws_(throws) {}

  std::string LocalPath(const std::string& path) const override {
    if (throws_) throw std::runtime_error("LocalPath failed");
    if (path.starts_with("/")) return path;
    if (path.size() >= 2 && path[1] == ':') {
      if (!path.starts_with("C:\\")) return "";
      std::string local = root_ + path.substr(2);
      for (char& c : local) c = c == '\\' ? '/' : c;
      return local;
    }
    return root_ + "/" + path;
  }

  platform::Listing List(const std::string&, const std::string&) const override { return {}; }
  bool AnyFileMatches(const std::string&, const std::string&) const override { return false; }
  std::optional<platform::FolderIdentity> Identity(const std::string&) const override { return {}; }
  std::optional<platform::FileFacts> Stat(const std::string&) const override { return {}; }
  bool Exists(const std::string&) const override { return false; }
  bool CreateFolder(const std::string&) override { return false; }
  bool Remove(const std::string&) override { return false; }
  platform::CopyResult CopyNoOverwrite(const std::string&, const std::string&) override {
    return platform::CopyResult::Failed("not copied here");
  }

 private:
  std::string root_;
  bool throws_;
};
