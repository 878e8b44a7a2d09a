#include "platform/FolderListing.h"

#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <cstring>

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

bool IsDotOrDotDot(const char* name) { return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0; }

bool LeadsToFolder(int folderFd, const dirent& entry) {
  if (entry.d_type == DT_DIR) return true;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat facts {};
  return fstatat(folderFd, entry.d_name, &facts, 0) == 0 && S_ISDIR(facts.st_mode);
}

class NameMatcher {
 public:
  explicit NameMatcher(const std::string& pattern)
      : matchAll_(pattern == "*.*" || pattern == "*"), pattern_(EscapeForFnmatch(pattern)) {}
  bool Matches(const char* name) const {
    return matchAll_ || fnmatch(pattern_.c_str(), name, FNM_CASEFOLD) == 0;
  }

 private:
  bool matchAll_;
  std::string pattern_;
};

}  // namespace

bool ForEachMatchingEntry(const std::string& folder, const std::string& pattern,
                          const std::function<bool(const DirEntry&)>& visit) {
  DIR* dir = opendir(folder.c_str());
  if (!dir) return false;
  NameMatcher matcher(pattern);
  while (const dirent* entry = readdir(dir)) {
    if (IsDotOrDotDot(entry->d_name) || std::strchr(entry->d_name, '\\')) continue;
    if (!matcher.Matches(entry->d_name)) continue;
    if (!visit(DirEntry{entry->d_name, LeadsToFolder(dirfd(dir), *entry)})) break;
  }
  closedir(dir);
  return true;
}

}  // namespace platform
