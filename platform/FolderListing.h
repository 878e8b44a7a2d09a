#pragma once
// Walks the entries of one Linux folder in the order the file system yields
// them, as FileSystem::List sees them: "." and ".." and names holding a "\"
// left out, names matched against a wildcard pattern ("*" and "?" only)
// without regard to case, "*.*" matching every name. A link counts as a
// folder when it leads to one. Does not throw.

#include <functional>
#include <string>

#include "platform/FileSystem.h"

namespace platform {

// Calls visit for each matching entry until it returns false. Returns false
// when the folder cannot be opened.
bool ForEachMatchingEntry(const std::string& folder, const std::string& pattern,
                          const std::function<bool(const DirEntry&)>& visit);

}  // namespace platform
