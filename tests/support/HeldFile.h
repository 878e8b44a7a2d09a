#pragma once
// A regular file that nobody can open while this object lives: a child
// process holds a write lease on it, so the kernel makes every open() of it
// wait for the lease to be given back, as a dead network share would. stat()
// still answers. Leases are broken by force after the system's lease-break
// time (45 s by default), far longer than a test waits.

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

namespace testing_support {

class HeldFile {
 public:
  // The file must exist and be open nowhere.
  explicit HeldFile(const std::string& path) {
    int ready[2];
    if (::pipe(ready) != 0) return;
    child_ = ::fork();
    if (child_ == 0) {
      // Only calls that are safe after fork in a threaded process.
      ::close(ready[0]);
      ::signal(SIGIO, SIG_IGN);  // the lease-break notice
      const int fd = ::open(path.c_str(), O_RDONLY);
      char ok = fd >= 0 && ::fcntl(fd, F_SETLEASE, F_WRLCK) == 0 ? 1 : 0;
      (void)!::write(ready[1], &ok, 1);
      for (;;) ::pause();
    }
    ::close(ready[1]);
    char ok = 0;
    held_ = child_ > 0 && ::read(ready[0], &ok, 1) == 1 && ok == 1;
    ::close(ready[0]);
  }
  // Ends the holder: waiting opens go on.
  ~HeldFile() { Release(); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  bool Held() const { return held_; }
  // Whether an open of the file waits now: the kernel then lists the lease
  // as being broken.
  bool Awaited() const {
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
      std::istringstream fields(line);
      std::string number, kind, state, type;
      pid_t pid = 0;
      if (fields >> number >> kind >> state >> type >> pid && kind == "LEASE" && state == "BREAKING" && pid == child_)
        return true;
    }
    return false;
  }
  void Release() {
    if (child_ <= 0) return;
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
    child_ = -1;
  }

 private:
  pid_t child_ = -1;
  bool held_ = false;
};

}  // namespace testing_support
