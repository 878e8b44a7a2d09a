#include "platform/CatalogueLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace platform {
namespace {

int OpenForLocking(const std::string& path) {
  int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  // A read-only catalogue (or folder) still takes the lock: flock needs no write access.
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

}  // namespace

int FlockHolderOf(int fd) {
  struct stat facts {};
  if (fstat(fd, &facts) != 0) return 0;
  const std::string key = LockFileKey(facts);
  std::ifstream locks("/proc/locks");
  std::string line;
  // "1: FLOCK  ADVISORY  WRITE 1234 08:01:5678 0 EOF"; blocked waiters start with "->".
  while (std::getline(locks, line)) {
    std::istringstream fields(line);
    std::string number, kind, mode, access, file;
    int pid = 0;
    if (!(fields >> number >> kind) || kind != "FLOCK") continue;
    if (fields >> mode >> access >> pid >> file && file == key) return pid;
  }
  return 0;
}

CatalogueLock::CatalogueLock(const std::string& path) : fd_(OpenForLocking(path)) {
  if (!fd_.Valid()) return;
  int result;
  do {
    result = flock(fd_.Get(), LOCK_EX | LOCK_NB);
  } while (result != 0 && errno == EINTR);
  if (result == 0) {
    state_ = State::Held;
  } else if (errno == EWOULDBLOCK) {
    state_ = State::InUse;
    holderPid_ = FlockHolderOf(fd_.Get());
  }
}

}  // namespace platform
