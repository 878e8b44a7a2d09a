#include "tests/support/PermissionsHold.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <thread>

namespace testing_support {
namespace {

// The raw calls change the calling thread only; libc's wrappers are not needed.
bool DropAccessOverride() {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3] = {};
  if (syscall(SYS_capget, &header, data) != 0) return false;
  for (int capability : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH})
    data[CAP_TO_INDEX(capability)].effective &= ~CAP_TO_MASK(capability);
  return syscall(SYS_capset, &header, data) == 0;
}

}  // namespace

bool RunWherePermissionsHold(const std::function<void()>& run) {
  bool dropped = false;
  std::thread thread([&] {
    dropped = DropAccessOverride();
    if (dropped) run();
  });
  thread.join();
  return dropped;
}

}  // namespace testing_support
