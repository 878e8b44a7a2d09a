#pragma once
// Copying a file without ever replacing the target.

#include <string>

namespace platform {

// Copies source to target, which is created exclusively (an existing target,
// even a dangling link, makes the copy fail and stays as it was). The kernel
// copies the bytes (copy_file_range; sendfile or read and write only where the
// kernel refuses). The target gets the source's permission bits and
// modification time. On any failure the target this call created is removed
// and false returned. Does not throw; any thread may call.
bool CopyFileNoOverwrite(const std::string& source, const std::string& target);

}  // namespace platform
