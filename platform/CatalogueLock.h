#pragma once
// Keeps one program at a time on a catalogue file, whatever path reaches it.
//
// On a local file system the lock is flock(LOCK_EX) on a descriptor of its
// own, held until the object goes away: every path to the file (a bind mount
// included) meets the same lock, and unlike POSIX record locks it is not
// released when some other part of the process opens and closes the file (a
// file dialog showing the program folder, say).
//
// Network file systems and user-space (FUSE) ones need more: their locks may
// not reach other paths to the same file, and SQLite's write-ahead index lives
// in shared memory that cannot be shared there. On a network file system the
// lock is a POSIX record lock on one byte of the catalogue file (NFS and SMB
// send it to the server), taken away from the bytes SQLite locks; on FUSE it
// is flock and that record lock, and at least one of them must have gone to
// the file system below rather than stayed in this machine's kernel.
// Where no such lock can be had the catalogue is refused, as is a file with
// more than one hard link (its journal is named after the path, so two names
// are two catalogues over one set of rows). Does not throw.

#include <string>

#include "platform/UniqueFd.h"

namespace platform {

class CatalogueLock {
 public:
  enum class State {
    Held,         // this program may open the catalogue
    InUse,        // another program holds it: HolderPid() says which, when known
    Unavailable,  // the file could not be opened for locking (the open that follows will say why)
    Refused,      // the file must not be used as it lies: Refusal() says why
  };

  // The byte of the catalogue file that the record lock covers: past the
  // bytes SQLite locks (from 0x40000000 on, 512 of them).
  static constexpr long long kLockedByte = 0x40001000;

  // Creates the file when it is missing (an empty file is a new catalogue).
  explicit CatalogueLock(const std::string& path);

  State GetState() const { return state_; }
  // The Vantrelle program that holds the lock, or 0 when it cannot be told.
  int HolderPid() const { return holderPid_; }
  // One line naming the file and what is wrong with it; "" unless Refused.
  const std::string& Refusal() const { return refusal_; }
  // Whether the file lies on a network or FUSE file system: SQLite's
  // write-ahead log must not be used there.
  bool SharedFileSystem() const { return !fileSystemName_.empty(); }
  // "nfs", "fuse", "cifs", ... for such a file system; "" for a local one.
  const std::string& FileSystemName() const { return fileSystemName_; }

 private:
  void TakeLocalLock();
  void TakeSharedLock(bool userSpace);
  bool TakeFlock();
  bool TakeRecordLock();

  std::string path_;
  UniqueFd fd_;
  bool writable_ = false;  // fd_ was opened for writing
  State state_ = State::Unavailable;
  int holderPid_ = 0;
  std::string refusal_;
  std::string fileSystemName_;
};

// The process holding a flock on the file open as fd, read from /proc/locks;
// 0 when none is listed.
int FlockHolderOf(int fd);

// The name of a network or user-space file system type as statfs reports it
// in f_type ("nfs", "fuse", ...); "" for any other type.
std::string SharedFileSystemName(long long fileSystemType);

// Whether /proc/locks lists a lock of this process on the file open as fd
// ("POSIX" or "FLOCK"): a lock the kernel keeps itself rather than passing
// it to the file system.
bool LockKeptByKernel(int fd, const std::string& kind);

}  // namespace platform
