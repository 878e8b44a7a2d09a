#include "platform/SmallFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "platform/CopyFailure.h"
#include "platform/PartFile.h"
#include "platform/UniqueFd.h"

namespace platform {
namespace {

// 0 when every byte was written, else the errno.
int WriteAll(int fd, const std::string& bytes) {
  for (std::size_t written = 0; written < bytes.size();) {
    const ssize_t count = write(fd, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    written += static_cast<std::size_t>(count);
  }
  return 0;
}

}  // namespace

std::optional<std::string> ReadSmallFile(const std::string& path, std::size_t limit) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const auto size = std::filesystem::file_size(path, error);
  if (error || size > limit) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!in || !in.read(bytes.data(), static_cast<std::streamsize>(size))) return std::nullopt;
  return bytes;
}

std::string WriteWholeFile(const std::string& path, const std::string& bytes) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos || slash + 1 == path.size()) return "no file name";
  const std::string folderPath = slash == 0 ? "/" : path.substr(0, slash);
  UniqueFd folder(open(folderPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder.Valid()) return CopyFailureReason(CopyStep::OpenTarget, errno);
  PartFile part(folder.Get(), path.substr(slash + 1), 0666);
  if (!part.Valid()) return CopyFailureReason(CopyStep::OpenTarget, part.Error());
  if (const int error = WriteAll(part.Fd(), bytes)) return CopyFailureReason(CopyStep::WriteTarget, error);
  if (fsync(part.Fd()) != 0) return CopyFailureReason(CopyStep::WriteTarget, errno);
  if (!part.Close()) return CopyFailureReason(CopyStep::WriteTarget, part.Error());
  if (!part.Replace()) return CopyFailureReason(CopyStep::NameTarget, part.Error());
  return "";
}

}  // namespace platform
