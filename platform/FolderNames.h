#pragma once
// The one loop over a Linux folder's entries: their names in the order the
// file system yields them, "." and ".." left out. Does not throw.

#include <dirent.h>

#include <functional>
#include <string>

namespace platform {

struct FolderRead {
  bool opened = false;
  int error = 0;  // errno of the failed open, or of a read that failed midway
};

// Calls visit with each entry and the open folder's descriptor (for *at
// calls) until it returns false.
FolderRead ForEachName(const std::string& folder, const std::function<bool(const dirent&, int folderFd)>& visit);

}  // namespace platform
