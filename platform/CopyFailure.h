#pragma once
// The short texts a failed file copy is reported with, from the step that
// failed and its errno: "source missing", "target is read-only", "disk full".

#include <string>

namespace platform {

inline constexpr const char* kNotARegularFile = "not a regular file";

enum class CopyStep {
  OpenSource,   // opening and checking the file to copy
  ReadSource,   // reading it
  OpenTarget,   // reaching the target folder and creating the copy in it
  WriteTarget,  // writing the copy, closing it
  CopyBytes,    // the kernel's copy calls, which do not say which side failed
  NameTarget,   // giving the finished copy its name
};

// A short text, lower case, no full stop. Errors that mean the same whatever
// the step (a full disk, a read-only file system) read the same.
std::string CopyFailureReason(CopyStep step, int error);

}  // namespace platform
