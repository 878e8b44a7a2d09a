#pragma once
// Walks the entries of one Linux folder in the order the file system yields
// them: "." and ".." left out, names matched against a wildcard pattern ("*"
// and "?" only) without regard to case, "*.*" matching every name. Each entry
// is classified with at most one stat that follows links. Does not throw.

#include <functional>
#include <string>

#include "platform/FileSystem.h"

namespace platform {

// Why an entry can or cannot be used through drive paths.
enum class EntryFit { Fits, NameHoldsBackslash, PathTooLong };

// Calls visit for each matching entry until it returns false. Missing when the
// folder is not there; Unreadable when it cannot be opened or read to the end.
ListingStatus ForEachMatchingEntry(const std::string& folder, const std::string& pattern,
                                   const std::function<bool(const DirEntry&, EntryFit)>& visit);

}  // namespace platform
