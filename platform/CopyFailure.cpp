#include "platform/CopyFailure.h"

#include <cctype>
#include <cerrno>
#include <cstring>

namespace platform {
namespace {

bool IsSourceStep(CopyStep step) { return step == CopyStep::OpenSource || step == CopyStep::ReadSource; }

const char* ReasonAnyStep(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
      return "disk full";
    case EROFS:
      return "target is read-only";
    case EFBIG:
      return "file too large for the target";
    case ENAMETOOLONG:
      return "name too long";
    case EMFILE:
    case ENFILE:
      return "too many open files";
    case ENOMEM:
      return "out of memory";
    default:
      return nullptr;
  }
}

const char* ReasonOfStep(CopyStep step, int error) {
  const bool missing = error == ENOENT || error == ENOTDIR;
  const bool denied = error == EACCES || error == EPERM;
  switch (step) {
    case CopyStep::OpenSource:
      if (missing) return "source missing";
      if (denied) return "source not readable";
      if (error == ELOOP) return "source is a link loop";
      if (error == ENXIO || error == ENODEV) return kNotARegularFile;
      return error == EIO ? "read error" : nullptr;
    case CopyStep::ReadSource:
      return "read error";
    case CopyStep::OpenTarget:
      if (missing) return "target folder missing";
      if (denied) return "target folder not writable";
      return nullptr;
    case CopyStep::WriteTarget:
      return "write error";
    case CopyStep::CopyBytes:
      return error == EIO ? "read or write error" : nullptr;
    case CopyStep::NameTarget:
      // Neither renaming without replacing nor hard links work there.
      if (denied || error == EOPNOTSUPP || error == EINVAL) return "target cannot rename safely";
      return nullptr;
  }
  return nullptr;
}

// strerror's text, begun in lower case like the others.
std::string SystemText(int error) {
  char buffer[256];
  std::string text = strerror_r(error, buffer, sizeof buffer);
  if (!text.empty()) text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
  return text;
}

}  // namespace

std::string CopyFailureReason(CopyStep step, int error) {
  if (const char* reason = ReasonAnyStep(error)) return reason;
  if (const char* reason = ReasonOfStep(step, error)) return reason;
  const std::string text = SystemText(error);
  return IsSourceStep(step) ? "source: " + text : text;
}

}  // namespace platform
