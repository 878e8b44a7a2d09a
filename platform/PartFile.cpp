#include "platform/PartFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "base/Utf8.h"

namespace platform {
namespace {

constexpr int kMostAttempts = 100;

// The temporary name of the attempt, short enough for the file system even
// when the final name takes all of NAME_MAX.
std::string TemporaryNameFor(const std::string& finalName, int attempt) {
  const std::string suffix = (attempt > 1 ? "." + std::to_string(attempt) : "") + PartFile::kSuffix;
  return "." + finalName.substr(0, Utf8CutAt(finalName, NAME_MAX - 1 - suffix.size())) + suffix;
}

}  // namespace

PartFile::PartFile(int folderFd, std::string finalName, mode_t mode)
    : folderFd_(folderFd), finalName_(std::move(finalName)) {
  for (attempt_ = 1; attempt_ <= kMostAttempts; ++attempt_) {
    if (CreateExclusively(TemporaryNameFor(finalName_, attempt_), mode) || error_ != EEXIST) return;
  }
}

PartFile::~PartFile() {
  fd_ = UniqueFd();
  DropTemporaryName();
}

bool PartFile::CreateExclusively(const std::string& name, mode_t mode) {
  fd_ = UniqueFd(openat(folderFd_, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
  if (!fd_.Valid()) {
    error_ = errno;
    return false;
  }
  temporaryName_ = name;
  // Held while the file is written: a part file nobody holds is a leftover.
  flock(fd_.Get(), LOCK_EX | LOCK_NB);
  return true;
}

bool PartFile::Close() {
  if (fd_.Close()) return true;
  error_ = errno;
  return false;
}

PartFile::Naming PartFile::Publish() {
  const Naming naming = Name();
  if (naming != Naming::Failed) RemoveLeftovers();
  return naming;
}

bool PartFile::Replace() {
  if (renameat(folderFd_, temporaryName_.c_str(), folderFd_, finalName_.c_str()) != 0) {
    error_ = errno;
    return false;
  }
  temporaryName_.clear();
  RemoveLeftovers();
  return true;
}

PartFile::Naming PartFile::Name() {
  if (renameat2(folderFd_, temporaryName_.c_str(), folderFd_, finalName_.c_str(), RENAME_NOREPLACE) == 0) {
    temporaryName_.clear();
    return Naming::Named;
  }
  error_ = errno;
  if (error_ == EEXIST) return Naming::NameTaken;
  if (error_ != EINVAL && error_ != ENOSYS) return Naming::Failed;
  return LinkFinalName();
}

// The names this copy passed over were taken; past its own, the first free
// name ends the search. A part file still being written is held (flock) by
// its writer and stays, as does anything but a regular file.
void PartFile::RemoveLeftovers() {
  for (int attempt = 1; attempt <= kMostAttempts; ++attempt) {
    if (attempt == attempt_) continue;
    const std::string name = TemporaryNameFor(finalName_, attempt);
    UniqueFd leftover(openat(folderFd_, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!leftover.Valid()) {
      if (errno == ENOENT && attempt > attempt_) return;
      continue;
    }
    struct stat opened {
    }, named{};
    if (fstat(leftover.Get(), &opened) != 0 || !S_ISREG(opened.st_mode)) continue;
    if (flock(leftover.Get(), LOCK_EX | LOCK_NB) != 0) continue;
    // Still the same file under that name once held.
    if (fstatat(folderFd_, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) != 0 || named.st_ino != opened.st_ino ||
        named.st_dev != opened.st_dev)
      continue;
    unlinkat(folderFd_, name.c_str(), 0);
  }
}

// A hard link never replaces an entry either.
PartFile::Naming PartFile::LinkFinalName() {
  if (linkat(folderFd_, temporaryName_.c_str(), folderFd_, finalName_.c_str(), 0) == 0) {
    DropTemporaryName();
    return Naming::Named;
  }
  error_ = errno;
  return error_ == EEXIST ? Naming::NameTaken : Naming::Failed;
}

void PartFile::DropTemporaryName() {
  if (temporaryName_.empty()) return;
  unlinkat(folderFd_, temporaryName_.c_str(), 0);
  temporaryName_.clear();
}

}  // namespace platform
