#pragma once
// Small helpers on absolute Linux paths, as the drive table compares them.
// Paths handed in are canonical: absolute, no "." or "..", no trailing "/"
// except "/" itself. Nothing here throws.

#include <string>
#include <vector>

namespace platform {

// The absolute path with links, "." and ".." resolved (as far as the path
// exists), without a trailing "/"; "" when it cannot be worked out.
std::string CanonicalFolder(const std::string& path);

// Whether path is base itself or lies below it ("/a/bc" is not below "/a/b").
bool IsSameOrBelow(const std::string& path, const std::string& base);

// The components of path below base ({"Music", "Rock"}); empty when equal.
// Only meaningful when IsSameOrBelow(path, base).
std::vector<std::string> ComponentsBelow(const std::string& path, const std::string& base);

// The folders that hold the system's own files rather than anyone's:
// "/proc", "/sys" and "/dev".
std::vector<std::string> SystemFolders();

// Whether a canonical path is one of the system folders or lies below one.
bool IsSystemFolder(const std::string& path);

// Whether a folder exists and can be opened for listing.
bool CanListFolder(const std::string& folder);

// An absolute path and each folder above it, nearest first: "/a/b/" gives
// "/a/b", "/a" and "/". Taken from the text alone.
std::vector<std::string> FolderAndItsParents(const std::string& path);

// The last component of a path ("" for "/").
std::string LastComponent(const std::string& path);

}  // namespace platform
