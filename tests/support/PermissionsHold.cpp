#include "tests/support/PermissionsHold.h"

#include <dirent.h>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <thread>

namespace testing_support {
namespace {

// The raw calls change the calling thread only.
void DropAccessOverride() {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3] = {};
  if (syscall(SYS_capget, &header, data) != 0) return;
  for (int capability : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH})
    data[CAP_TO_INDEX(capability)].effective &= ~CAP_TO_MASK(capability);
  syscall(SYS_capset, &header, data);
}

bool Opens(const std::string& folder) {
  DIR* dir = opendir(folder.c_str());
  if (dir) closedir(dir);
  return dir != nullptr;
}

}  // namespace

bool RunWherePermissionsHold(const std::string& lockedFolder, const std::function<void()>& run) {
  bool held = false;
  std::thread thread([&] {
    DropAccessOverride();
    held = !Opens(lockedFolder);
    if (held) run();
  });
  thread.join();
  return held;
}

}  // namespace testing_support
