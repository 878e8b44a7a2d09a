#include "qt/SessionBus.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>

namespace {

const char* Address() {
  const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  return address != nullptr && *address != '\0' ? address : nullptr;
}

}  // namespace

void SettleSessionBusAddress() {
  if (Address() != nullptr) return;
  std::string address = kNoBus;
  if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime != nullptr && *runtime == '/') {
    const std::string socket = std::string(runtime) + "/bus";
    struct stat facts {};
    if (::stat(socket.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode)) address = "unix:path=" + socket;
  }
  ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
}

bool HasSessionBusAddress() {
  const char* address = Address();
  return address != nullptr && std::strcmp(address, kNoBus) != 0;
}
