#include "benchmarks/PeakMemory.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace bench {

long PeakResidentKb() {
  std::FILE* status = std::fopen("/proc/self/status", "r");
  if (!status) return -1;
  long kb = -1;
  char line[256];
  while (std::fgets(line, sizeof line, status)) {
    if (std::strncmp(line, "VmHWM:", 6) == 0) {
      std::sscanf(line + 6, "%ld", &kb);
      break;
    }
  }
  std::fclose(status);
  return kb;
}

bool ResetPeakResident() {
  const int fd = ::open("/proc/self/clear_refs", O_WRONLY);
  if (fd < 0) return false;
  const bool written = ::write(fd, "5", 1) == 1;
  ::close(fd);
  return written;
}

}  // namespace bench
