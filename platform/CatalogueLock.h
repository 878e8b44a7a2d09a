#pragma once
// Keeps one program at a time on a catalogue file.
//
// The lock is flock(LOCK_EX) on a descriptor of its own, held until the object
// goes away. Unlike the POSIX record locks SQLite takes, it is not released
// when some other part of the process opens and closes the same file (a file
// dialog showing the program folder, say). Does not throw.

#include <string>

#include "platform/UniqueFd.h"

namespace platform {

class CatalogueLock {
 public:
  enum class State {
    Held,         // this program may open the catalogue
    InUse,        // another program holds it: HolderPid() says which, when known
    Unavailable,  // the file could not be opened for locking (the open that follows will say why)
  };

  // Creates the file when it is missing (an empty file is a new catalogue).
  explicit CatalogueLock(const std::string& path);

  State GetState() const { return state_; }
  // The process that holds the lock, or 0 when it cannot be told.
  int HolderPid() const { return holderPid_; }

 private:
  UniqueFd fd_;
  State state_ = State::Unavailable;
  int holderPid_ = 0;
};

// The process holding a flock on the file open as fd, read from /proc/locks;
// 0 when none is listed.
int FlockHolderOf(int fd);

}  // namespace platform
