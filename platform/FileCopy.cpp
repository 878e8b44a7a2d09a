#include "platform/FileCopy.h"

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "platform/UniqueFd.h"

namespace platform {
namespace {

enum class CopyResult { Done, Refused, Failed };

constexpr std::size_t kChunk = std::size_t{1} << 30;
constexpr std::size_t kBufferSize = 1 << 16;

// Errors by which the kernel says it will not copy this way, rather than that
// the copy went wrong.
bool IsRefusal(int error) {
  return error == ENOSYS || error == EXDEV || error == EINVAL || error == EOPNOTSUPP;
}

// Runs one kind of copy call until end of file. Only a refusal before the
// first byte lets another kind try.
template <typename CopyCall>
CopyResult CopyWith(CopyCall copyCall) {
  bool copiedAny = false;
  for (;;) {
    ssize_t n = copyCall();
    if (n == 0) return CopyResult::Done;
    if (n > 0) {
      copiedAny = true;
      continue;
    }
    if (errno == EINTR) continue;
    return !copiedAny && IsRefusal(errno) ? CopyResult::Refused : CopyResult::Failed;
  }
}

CopyResult CopyByKernelRange(int in, int out) {
  return CopyWith([&] { return copy_file_range(in, nullptr, out, nullptr, kChunk, 0); });
}

CopyResult CopyBySendfile(int in, int out) {
  return CopyWith([&] { return sendfile(out, in, nullptr, kChunk); });
}

bool WriteAll(int out, const char* data, std::size_t size) {
  while (size > 0) {
    ssize_t n = write(out, data, size);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

bool CopyByReadWrite(int in, int out) {
  char buffer[kBufferSize];
  for (;;) {
    ssize_t n = read(in, buffer, sizeof buffer);
    if (n == 0) return true;
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 || !WriteAll(out, buffer, static_cast<std::size_t>(n))) return false;
  }
}

// Some file systems (proc, sys) report files as empty and the kernel's copy
// calls then copy nothing; read them instead.
bool KernelCopyMissedData(int out, const struct stat& source) {
  struct stat copied {};
  return fstat(out, &copied) == 0 && copied.st_size == 0 && source.st_size > 0;
}

bool CopyBytes(int in, int out, const struct stat& source) {
  CopyResult result = CopyByKernelRange(in, out);
  if (result == CopyResult::Refused) result = CopyBySendfile(in, out);
  if (result == CopyResult::Done && !KernelCopyMissedData(out, source)) return true;
  if (result == CopyResult::Failed) return false;
  return lseek(in, 0, SEEK_SET) == 0 && CopyByReadWrite(in, out);
}

void KeepModificationTime(int out, const struct stat& source) {
  const timespec times[2] = {source.st_atim, source.st_mtim};
  futimens(out, times);
}

}  // namespace

bool CopyFileNoOverwrite(const std::string& source, const std::string& target) {
  UniqueFd in(open(source.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat facts {};
  if (!in.Valid() || fstat(in.Get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return false;

  UniqueFd out(open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, facts.st_mode & 0777));
  if (!out.Valid()) return false;
  bool copied = CopyBytes(in.Get(), out.Get(), facts);
  if (copied) KeepModificationTime(out.Get(), facts);
  if (out.Close() && copied) return true;
  unlink(target.c_str());
  return false;
}

}  // namespace platform
