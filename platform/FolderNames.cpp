#include "platform/FolderNames.h"

#include <cerrno>
#include <cstring>

namespace platform {

FolderRead ForEachName(const std::string& folder, const std::function<bool(const dirent&, int folderFd)>& visit) {
  DIR* dir = opendir(folder.c_str());
  if (!dir) return {false, errno};
  FolderRead read{true, 0};
  for (;;) {
    // readdir gives null both at the end and on an error; only errno tells.
    errno = 0;
    const dirent* entry = readdir(dir);
    if (!entry) {
      read.error = errno;
      break;
    }
    if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) continue;
    if (!visit(*entry, dirfd(dir))) break;
  }
  closedir(dir);
  return read;
}

}  // namespace platform
