#include "platform/FolderListing.h"

#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "platform/FolderNames.h"

namespace platform {
namespace {

// fnmatch knows "[" classes and "\" escapes; drive-letter wildcards do not.
std::string EscapeForFnmatch(const std::string& pattern) {
  std::string escaped;
  for (char c : pattern) {
    if (c == '[' || c == ']' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

EntryKind KindOfMode(mode_t mode) {
  if (S_ISREG(mode)) return EntryKind::File;
  if (S_ISDIR(mode)) return EntryKind::Folder;
  return EntryKind::Other;
}

// The entry's type says enough unless it is a link or unknown; then one stat
// follows the link. A broken link is Other.
EntryKind KindOf(int folderFd, const dirent& entry) {
  switch (entry.d_type) {
    case DT_REG:
      return EntryKind::File;
    case DT_DIR:
      return EntryKind::Folder;
    case DT_LNK:
    case DT_UNKNOWN:
      break;
    default:
      return EntryKind::Other;
  }
  struct stat facts {};
  if (fstatat(folderFd, entry.d_name, &facts, 0) != 0) return EntryKind::Other;
  return KindOfMode(facts.st_mode);
}

std::size_t LengthWithoutTrailingSlashes(const std::string& folder) {
  std::size_t length = folder.size();
  while (length > 1 && folder[length - 1] == '/') --length;
  return length;
}

EntryFit FitOf(std::size_t folderLength, const char* name) {
  if (std::strchr(name, '\\')) return EntryFit::NameHoldsBackslash;
  // The path "folder/name" and its terminating zero must fit in PATH_MAX.
  if (folderLength + 1 + std::strlen(name) >= PATH_MAX) return EntryFit::PathTooLong;
  return EntryFit::Fits;
}

ListingStatus StatusOfFailedOpen(int error) {
  return error == ENOENT || error == ENOTDIR ? ListingStatus::Missing : ListingStatus::Unreadable;
}

class NameMatcher {
 public:
  explicit NameMatcher(const std::string& pattern)
      : matchAll_(pattern == "*.*" || pattern == "*"), pattern_(EscapeForFnmatch(pattern)) {}
  bool Matches(const char* name) const { return matchAll_ || fnmatch(pattern_.c_str(), name, FNM_CASEFOLD) == 0; }

 private:
  bool matchAll_;
  std::string pattern_;
};

}  // namespace

ListingStatus ForEachMatchingEntry(const std::string& folder, const std::string& pattern,
                                   const std::function<bool(const DirEntry&, EntryFit)>& visit) {
  if (folder.empty()) return ListingStatus::Missing;
  const NameMatcher matcher(pattern);
  const std::size_t folderLength = LengthWithoutTrailingSlashes(folder);
  const FolderRead read = ForEachName(folder, [&](const dirent& entry, int folderFd) {
    if (!matcher.Matches(entry.d_name)) return true;
    return visit(DirEntry{entry.d_name, KindOf(folderFd, entry)}, FitOf(folderLength, entry.d_name));
  });
  if (!read.opened) return StatusOfFailedOpen(read.error);
  return read.error == 0 ? ListingStatus::Listed : ListingStatus::Unreadable;
}

}  // namespace platform
