#include "platform/FileCopy.h"

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/CopyFailure.h"
#include "platform/PartFile.h"
#include "platform/UniqueFd.h"

namespace platform {
namespace {

enum class KernelCopy { Done, Refused, Failed };

// Where a copy went wrong; no error is no failure.
struct Failure {
  CopyStep step = CopyStep::CopyBytes;
  int error = 0;
  explicit operator bool() const { return error != 0; }
};

constexpr std::size_t kChunk = std::size_t{1} << 30;
constexpr std::size_t kBufferSize = 1 << 16;

CopyResult Failed(CopyStep step, int error) { return CopyResult::Failed(CopyFailureReason(step, error)); }

// Errors by which the kernel says it will not copy this way, rather than that
// the copy went wrong.
bool IsRefusal(int error) { return error == ENOSYS || error == EXDEV || error == EINVAL || error == EOPNOTSUPP; }

// Runs one kind of copy call until end of file. Only a refusal before the
// first byte lets another kind try.
template <typename CopyCall>
KernelCopy CopyWith(CopyCall copyCall, int& error) {
  bool copiedAny = false;
  for (;;) {
    ssize_t n = copyCall();
    if (n == 0) return KernelCopy::Done;
    if (n > 0) {
      copiedAny = true;
      continue;
    }
    if (errno == EINTR) continue;
    error = errno;
    return !copiedAny && IsRefusal(error) ? KernelCopy::Refused : KernelCopy::Failed;
  }
}

KernelCopy CopyByKernelRange(int in, int out, int& error) {
  return CopyWith([&] { return copy_file_range(in, nullptr, out, nullptr, kChunk, 0); }, error);
}

KernelCopy CopyBySendfile(int in, int out, int& error) {
  return CopyWith([&] { return sendfile(out, in, nullptr, kChunk); }, error);
}

// 0, or the errno of the failed write (a write of nothing counts as a full disk).
int WriteAll(int out, const char* data, std::size_t size) {
  while (size > 0) {
    ssize_t n = write(out, data, size);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return errno;
    if (n == 0) return ENOSPC;
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return 0;
}

Failure CopyByReadWrite(int in, int out) {
  char buffer[kBufferSize];
  for (;;) {
    ssize_t n = read(in, buffer, sizeof buffer);
    if (n == 0) return {};
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return {CopyStep::ReadSource, errno};
    if (int error = WriteAll(out, buffer, static_cast<std::size_t>(n))) return {CopyStep::WriteTarget, error};
  }
}

// Some file systems (proc, sys) report files as empty and the kernel's copy
// calls then copy nothing; read them instead.
bool KernelCopyMissedData(int out, const struct stat& source) {
  struct stat copied {};
  return fstat(out, &copied) == 0 && copied.st_size == 0 && source.st_size > 0;
}

Failure CopyBytes(int in, int out, const struct stat& source) {
  int error = 0;
  KernelCopy result = CopyByKernelRange(in, out, error);
  if (result == KernelCopy::Refused) result = CopyBySendfile(in, out, error);
  if (result == KernelCopy::Done && !KernelCopyMissedData(out, source)) return {};
  if (result == KernelCopy::Failed) return {CopyStep::CopyBytes, error};
  if (lseek(in, 0, SEEK_SET) != 0) return {CopyStep::ReadSource, errno};
  return CopyByReadWrite(in, out);
}

void KeepModificationTime(int out, const struct stat& source) {
  const timespec times[2] = {source.st_atim, source.st_mtim};
  futimens(out, times);
}

// The umask may have taken the owner's bits off the new file; copies from a
// CD come read-only and must not stay so.
int LetOwnerReadAndWrite(int out) {
  struct stat facts {};
  if (fstat(out, &facts) != 0) return errno;
  const mode_t wanted = (facts.st_mode & 07777) | S_IRUSR | S_IWUSR;
  if (wanted == (facts.st_mode & 07777)) return 0;
  return fchmod(out, wanted) == 0 ? 0 : errno;
}

// 0 when an entry of the name exists (a link is not followed), else the errno.
int LookUpEntry(int folder, const std::string& name) {
  struct stat facts {};
  return fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
}

// Opens the source for reading without waiting on a pipe or a device; either
// then fails as not a regular file.
UniqueFd OpenSource(const std::string& source, struct stat& facts, CopyResult& failure) {
  UniqueFd in(open(source.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!in.Valid() || fstat(in.Get(), &facts) != 0) {
    failure = Failed(CopyStep::OpenSource, errno);
    return UniqueFd();
  }
  if (!S_ISREG(facts.st_mode)) {
    failure = CopyResult::Failed(kNotARegularFile);
    return UniqueFd();
  }
  const int flags = fcntl(in.Get(), F_GETFL);
  if (flags == -1 || fcntl(in.Get(), F_SETFL, flags & ~O_NONBLOCK) != 0) {
    failure = Failed(CopyStep::OpenSource, errno);
    return UniqueFd();
  }
  return in;
}

CopyResult WriteCopy(int in, const struct stat& facts, int folder, const std::string& name) {
  PartFile part(folder, name, (facts.st_mode & 0777) | S_IRUSR | S_IWUSR);
  if (!part.Valid()) return Failed(CopyStep::OpenTarget, part.Error());
  if (Failure failure = CopyBytes(in, part.Fd(), facts)) return Failed(failure.step, failure.error);
  KeepModificationTime(part.Fd(), facts);
  if (int error = LetOwnerReadAndWrite(part.Fd())) return Failed(CopyStep::WriteTarget, error);
  if (!part.Close()) return Failed(CopyStep::WriteTarget, part.Error());
  switch (part.Publish()) {
    case PartFile::Naming::Named:
      return CopyResult::Copied();
    case PartFile::Naming::NameTaken:
      return CopyResult::AlreadyThere();
    case PartFile::Naming::Failed:
      break;
  }
  return Failed(CopyStep::NameTarget, part.Error());
}

}  // namespace

CopyResult CopyFileNoOverwrite(const std::string& source, const std::string& target) {
  const std::size_t slash = target.rfind('/');
  if (slash == std::string::npos || slash + 1 == target.size()) return CopyResult::Failed("no file name");
  const std::string folderPath = slash == 0 ? "/" : target.substr(0, slash);
  const std::string name = target.substr(slash + 1);
  UniqueFd folder(open(folderPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder.Valid()) return Failed(CopyStep::OpenTarget, errno);
  const int lookUp = LookUpEntry(folder.Get(), name);
  if (lookUp == 0) return CopyResult::AlreadyThere();
  if (lookUp != ENOENT) return Failed(CopyStep::OpenTarget, lookUp);

  struct stat facts {};
  CopyResult failure;
  UniqueFd in = OpenSource(source, facts, failure);
  if (!in.Valid()) return failure;
  return WriteCopy(in.Get(), facts, folder.Get(), name);
}

}  // namespace platform
