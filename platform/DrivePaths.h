#pragma once
// Turns the paths the logic uses into Linux paths.
//
// "X:\a\b\song.mp3" (letter in any case) is the drive's root followed by
// "/a/b/song.mp3". Each component is taken as written when it exists so, else
// as the entry of its folder whose name equals it without regard to ASCII case
// (the first in byte order when several do), else as written, so that the path
// of a file yet to be made can be built. A trailing "\" gives a trailing "/".
// A path beginning with "/" is a Linux path and is returned as is.
//
// Does not throw; any thread may call.

#include <string>

#include "platform/DriveTable.h"

namespace platform {

// Whether the text begins with a drive letter and ":" ("C:", "d:\\Music").
bool IsDrivePath(const std::string& path);

// "" when the drive has no root now, or the text is neither kind of path.
std::string ResolvePath(const DriveTable& drives, const std::string& path);

// Whether the ".." components of a drive path climb above its drive's root
// ("C:\..", "C:\a\..\..\b"); taken from the text alone.
bool ClimbsAboveRoot(const std::string& path);

// One spelling for every drive path naming the same place: the letter in upper
// case, "." and ".." taken away as text (never above the drive's root), and
// each component that exists spelled as the file system stores it (as
// ResolvePath finds it). A trailing "\" stays. "" when the text is not a drive
// path or the drive has no root now.
std::string CanonicalDrivePath(const DriveTable& drives, const std::string& path);

}  // namespace platform
