#include "platform/LinuxFileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "base/AsciiCase.h"
#include "platform/CopyFailure.h"
#include "platform/DrivePaths.h"
#include "platform/FileCopy.h"
#include "platform/FolderListing.h"
#include "platform/LinuxPaths.h"
#include "platform/UniqueFd.h"

namespace platform {
namespace {

std::optional<struct stat> StatFollowingLinks(const std::string& local) {
  struct stat facts {};
  if (local.empty() || stat(local.c_str(), &facts) != 0) return std::nullopt;
  return facts;
}

FileFacts FactsOf(const std::string& name, const struct stat& facts) {
  const std::int64_t size = S_ISREG(facts.st_mode) ? static_cast<std::int64_t>(facts.st_size) : 0;
  const std::int64_t modified = static_cast<std::int64_t>(facts.st_mtim.tv_sec) * 1'000'000'000 + facts.st_mtim.tv_nsec;
  return FileFacts{name, size, modified};
}

// Name order without regard to the case of A to Z, then byte order between
// names that differ only in case: the order disk and CD file systems keep
// their names in, whatever the locale.
bool ComesBefore(const DirEntry& a, const DirEntry& b) {
  const std::size_t n = std::min(a.name.size(), b.name.size());
  for (std::size_t i = 0; i < n; ++i) {
    const auto x = static_cast<unsigned char>(AsciiLower(a.name[i]));
    const auto y = static_cast<unsigned char>(AsciiLower(b.name[i]));
    if (x != y) return x < y;
  }
  if (a.name.size() != b.name.size()) return a.name.size() < b.name.size();
  return a.name < b.name;
}

void SortByName(std::vector<DirEntry>& entries) { std::sort(entries.begin(), entries.end(), ComesBefore); }

std::string WithoutTrailingSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

}  // namespace

LinuxFileSystem::LinuxFileSystem(const DriveTable& drives) : drives_(drives) {}

std::string LinuxFileSystem::LocalPath(const std::string& path) const { return ResolvePath(drives_, path); }

Listing LinuxFileSystem::List(const std::string& folder, const std::string& pattern) const {
  Listing listing;
  listing.status = ForEachMatchingEntry(LocalPath(folder), pattern, [&](const DirEntry& entry, EntryFit fit) {
    switch (fit) {
      case EntryFit::Fits:
        listing.entries.push_back(entry);
        break;
      case EntryFit::NameHoldsBackslash:
        listing.unnameable.push_back(entry);
        break;
      case EntryFit::PathTooLong:
        listing.tooLong.push_back(entry);
        break;
    }
    return true;
  });
  SortByName(listing.entries);
  SortByName(listing.unnameable);
  SortByName(listing.tooLong);
  return listing;
}

std::optional<FolderIdentity> LinuxFileSystem::Identity(const std::string& folder) const {
  auto facts = StatFollowingLinks(LocalPath(folder));
  if (!facts) return std::nullopt;
  return FolderIdentity{static_cast<std::uint64_t>(facts->st_dev), static_cast<std::uint64_t>(facts->st_ino)};
}

std::optional<FileFacts> LinuxFileSystem::Stat(const std::string& path) const {
  std::string local = WithoutTrailingSlashes(LocalPath(path));
  auto facts = StatFollowingLinks(local);
  if (!facts) return std::nullopt;
  return FactsOf(LastComponent(local), *facts);
}

std::vector<std::optional<FileFacts>> LinuxFileSystem::StatEach(const std::string& folder,
                                                                const std::vector<std::string>& names) const {
  const UniqueFd at(folder.starts_with('/') ? open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC) : -1);
  if (at.Get() < 0) return FileSystem::StatEach(folder, names);
  std::vector<std::optional<FileFacts>> all;
  all.reserve(names.size());
  for (const std::string& name : names) {
    struct stat facts {};
    if (name.empty() || name.find('/') != std::string::npos || fstatat(at.Get(), name.c_str(), &facts, 0) != 0) {
      all.emplace_back();
      continue;
    }
    all.push_back(FactsOf(name, facts));
  }
  return all;
}

bool LinuxFileSystem::Exists(const std::string& path) const { return StatFollowingLinks(LocalPath(path)).has_value(); }

bool LinuxFileSystem::CreateFolder(const std::string& path) {
  std::string local = LocalPath(path);
  if (local.empty()) return false;
  if (mkdir(local.c_str(), 0777) == 0) return true;
  auto facts = errno == EEXIST ? StatFollowingLinks(local) : std::nullopt;
  return facts && S_ISDIR(facts->st_mode);
}

bool LinuxFileSystem::Remove(const std::string& path) {
  std::string local = LocalPath(path);
  return !local.empty() && std::remove(local.c_str()) == 0;
}

CopyResult LinuxFileSystem::CopyNoOverwrite(const std::string& source, const std::string& target) {
  std::string from = LocalPath(source);
  if (from.empty()) return CopyResult::Failed(CopyFailureReason(CopyStep::OpenSource, ENOENT));
  // The target's folder is found as any path is, but its name is taken as
  // written: a file whose name differs only in letter case is another file.
  const std::size_t cut = target.find_last_of(target.starts_with('/') ? "/" : "\\");
  if (cut == std::string::npos || cut + 1 == target.size())
    return CopyResult::Failed(CopyFailureReason(CopyStep::OpenTarget, ENOENT));
  std::string folder = LocalPath(target.substr(0, cut + 1));
  if (folder.empty()) return CopyResult::Failed(CopyFailureReason(CopyStep::OpenTarget, ENOENT));
  if (!folder.ends_with('/')) folder += '/';
  return CopyFileNoOverwrite(from, folder + target.substr(cut + 1));
}

}  // namespace platform
