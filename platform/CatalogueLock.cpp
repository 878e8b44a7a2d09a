#include "platform/CatalogueLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>

namespace platform {
namespace {

int OpenForLocking(const std::string& path, bool& writable) {
  int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  writable = fd >= 0;
  // A read-only catalogue (or folder) still takes the lock: flock needs no
  // write access, and a read lock serves where a record lock is taken.
  if (fd < 0) fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  return fd;
}

// "MAJ:MIN:INODE" as /proc/locks writes it (major and minor in hexadecimal).
std::string LockFileKey(const struct stat& facts) {
  char key[64];
  std::snprintf(key, sizeof key, "%02x:%02x:%llu", major(facts.st_dev), minor(facts.st_dev),
                static_cast<unsigned long long>(facts.st_ino));
  return key;
}

// Calls found(pid) for each lock of the kind that /proc/locks lists on the
// file open as fd, until it returns true.
template <class Found>
void ForEachListedLock(int fd, const std::string& wantedKind, Found found) {
  struct stat facts {};
  if (fstat(fd, &facts) != 0) return;
  const std::string key = LockFileKey(facts);
  std::ifstream locks("/proc/locks");
  std::string line;
  // "1: FLOCK  ADVISORY  WRITE 1234 08:01:5678 0 EOF"; blocked waiters start with "->".
  while (std::getline(locks, line)) {
    std::istringstream fields(line);
    std::string number, kind, mode, access, file;
    int pid = 0;
    if (!(fields >> number >> kind) || kind != wantedKind) continue;
    if (fields >> mode >> access >> pid >> file && file == key && found(pid)) return;
  }
}

// Only a Vantrelle program is named as the holder: on a FUSE file system
// that passes locks on, the lock below is held by the file system's daemon.
int VantrelleProgramOrZero(int pid) {
  if (pid <= 0) return 0;
  std::ifstream comm("/proc/" + std::to_string(pid) + "/comm");
  std::string name;
  return std::getline(comm, name) && name.rfind("vantrelle", 0) == 0 ? pid : 0;
}

std::string FileSystemOf(int fd) {
  struct statfs facts {};
  if (fstatfs(fd, &facts) != 0) return "";
  return SharedFileSystemName(static_cast<long long>(facts.f_type));
}

std::string HardLinkRefusal(const std::string& path, nlink_t links) {
  return "The catalogue " + path + " has " + std::to_string(links) +
         " hard links. Vantrelle uses a catalogue under one name only: keep one name, and copy "
         "the file where another program folder needs it.";
}

}  // namespace

std::string SharedFileSystemName(long long type) {
  struct Known {
    long long type;
    const char* name;
  };
  static constexpr Known kKnown[] = {
      {0x6969, "nfs"},       {0x517B, "smb"},        {0xFF534D42, "cifs"},     {0xFE534D42, "smb2"},
      {0x65735546, "fuse"},  {0x01021997, "9p"},     {0x5346414F, "afs"},      {0x6B414653, "afs"},
      {0x73757245, "coda"},  {0x564C, "ncp"},        {0x00C36400, "ceph"},     {0x01161970, "gfs2"},
      {0x7461636F, "ocfs2"}, {0x0BD00BD0, "lustre"}, {0x20030528, "orangefs"},
  };
  for (const Known& known : kKnown)
    if (known.type == (type & 0xFFFFFFFF)) return known.name;
  return "";
}

bool LockKeptByKernel(int fd, const std::string& kind) {
  bool kept = false;
  const int self = getpid();
  ForEachListedLock(fd, kind, [&](int pid) { return kept = pid == self; });
  return kept;
}

int FlockHolderOf(int fd) {
  int holder = 0;
  ForEachListedLock(fd, "FLOCK", [&](int pid) {
    holder = pid;
    return true;
  });
  return holder;
}

CatalogueLock::CatalogueLock(const std::string& path) : path_(path), fd_(OpenForLocking(path, writable_)) {
  if (!fd_.Valid()) return;
  struct stat facts {};
  if (fstat(fd_.Get(), &facts) == 0 && facts.st_nlink > 1) {
    state_ = State::Refused;
    refusal_ = HardLinkRefusal(path_, facts.st_nlink);
    return;
  }
  fileSystemName_ = FileSystemOf(fd_.Get());
  if (fileSystemName_.empty())
    TakeLocalLock();
  else
    TakeSharedLock(fileSystemName_ == "fuse");
}

void CatalogueLock::TakeLocalLock() {
  if (!TakeFlock()) return;
  state_ = State::Held;
}

// flock on a network file system may become a record lock over the whole
// file (NFS does so), which would stand in the way of SQLite's own record
// locks: there the lock is the one byte alone.
void CatalogueLock::TakeSharedLock(bool userSpace) {
  if (userSpace && !TakeFlock()) return;
  if (!TakeRecordLock()) return;
  // A FUSE file system that does not pass locks on leaves both in this
  // kernel, where a program reaching the file by its own path never sees them.
  if (userSpace && LockKeptByKernel(fd_.Get(), "FLOCK") && LockKeptByKernel(fd_.Get(), "POSIX")) {
    state_ = State::Refused;
    refusal_ = "The catalogue " + path_ +
               " lies on a fuse file system that keeps its locks to itself, so a program reaching "
               "the file by another path could change it at the same time. Open the catalogue "
               "where it is stored, or let the file system pass locks on.";
    return;
  }
  state_ = State::Held;
}

bool CatalogueLock::TakeFlock() {
  int result;
  do {
    result = flock(fd_.Get(), LOCK_EX | LOCK_NB);
  } while (result != 0 && errno == EINTR);
  if (result == 0) return true;
  if (errno == EWOULDBLOCK) {
    state_ = State::InUse;
    holderPid_ = VantrelleProgramOrZero(FlockHolderOf(fd_.Get()));
  }
  return false;
}

bool CatalogueLock::TakeRecordLock() {
  struct flock range {};
  range.l_type = writable_ ? F_WRLCK : F_RDLCK;
  range.l_whence = SEEK_SET;
  range.l_start = kLockedByte;
  range.l_len = 1;
  int result;
  do {
    result = fcntl(fd_.Get(), F_SETLK, &range);
  } while (result != 0 && errno == EINTR);
  if (result == 0) return true;
  const int error = errno;
  if (error == EAGAIN || error == EACCES) {
    state_ = State::InUse;
    struct flock holder = range;
    holder.l_type = F_WRLCK;
    if (fcntl(fd_.Get(), F_GETLK, &holder) == 0 && holder.l_type != F_UNLCK)
      holderPid_ = VantrelleProgramOrZero(holder.l_pid);
    return false;
  }
  state_ = State::Refused;
  refusal_ = "The catalogue " + path_ + " lies on a " + fileSystemName_ + " file system that gives no lock on it (" +
             std::strerror(error) + "), so two programs could change it at the same time.";
  return false;
}

}  // namespace platform
