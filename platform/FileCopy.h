#pragma once
// Copying a file without ever replacing, following or changing what is in the
// target folder.

#include <string>

#include "platform/FileSystem.h"

namespace platform {

// Copies source (a Linux path; links in it are followed) to target (a Linux
// path whose folder must exist). An entry of the target's name, even a
// dangling link, makes the result AlreadyThere and stays as it was. The
// source must be a regular file; opening it never waits on a pipe or device.
// The bytes go into a temporary file beside the target (PartFile.h), which
// takes the target's name, without replacing anything, only once complete;
// on any failure it is removed. The kernel copies the bytes (copy_file_range;
// sendfile or read and write only where the kernel refuses). The copy gets
// the source's permission bits plus owner read and write, and its
// modification time. Does not throw; any thread may call.
CopyResult CopyFileNoOverwrite(const std::string& source, const std::string& target);

}  // namespace platform
