#include "platform/MountTable.h"

#include <sys/sysmacros.h>

#include <fstream>
#include <sstream>

#include "platform/LinuxPaths.h"

namespace platform {
namespace {

bool IsOctalDigit(char c) { return c >= '0' && c <= '7'; }

// The kernel writes blanks, tabs, line breaks and "\" in paths as "\ooo".
std::string UnescapeField(std::string_view field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] == '\\' && i + 3 < field.size() && IsOctalDigit(field[i + 1]) &&
        IsOctalDigit(field[i + 2]) && IsOctalDigit(field[i + 3])) {
      text += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0'));
      i += 3;
    } else {
      text += field[i];
    }
  }
  return text;
}

std::vector<std::string> SplitFields(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; stream >> field;) fields.push_back(field);
  return fields;
}

bool ParseDeviceNumber(const std::string& field, std::uint64_t& device) {
  unsigned major = 0, minor = 0;
  char colon = 0;
  std::istringstream stream(field);
  if (!(stream >> major >> colon >> minor) || colon != ':') return false;
  device = makedev(major, minor);
  return true;
}

// Fields: id parent major:minor root mountpoint options [optional...] - type source superoptions
bool ParseMountLine(const std::string& line, Mount& mount) {
  std::vector<std::string> fields = SplitFields(line);
  std::size_t separator = 6;
  while (separator < fields.size() && fields[separator] != "-") ++separator;
  if (separator + 2 >= fields.size() || !ParseDeviceNumber(fields[2], mount.device)) return false;
  mount.root = UnescapeField(fields[3]);
  mount.mountPoint = UnescapeField(fields[4]);
  mount.type = UnescapeField(fields[separator + 1]);
  mount.source = UnescapeField(fields[separator + 2]);
  return true;
}

}  // namespace

std::vector<Mount> ParseMountInfo(std::string_view text) {
  std::vector<Mount> mounts;
  std::istringstream stream{std::string(text)};
  for (std::string line; std::getline(stream, line);) {
    Mount mount;
    if (ParseMountLine(line, mount)) mounts.push_back(std::move(mount));
  }
  return mounts;
}

std::vector<Mount> ReadMountTable() {
  std::ifstream file("/proc/self/mountinfo");
  std::stringstream text;
  text << file.rdbuf();
  return ParseMountInfo(text.str());
}

const Mount* MountHolding(const std::vector<Mount>& mounts, const std::string& path) {
  const Mount* holder = nullptr;
  for (const Mount& mount : mounts) {
    if (!IsSameOrBelow(path, mount.mountPoint)) continue;
    if (!holder || mount.mountPoint.size() >= holder->mountPoint.size()) holder = &mount;
  }
  return holder;
}

const Mount* MountOfDevice(const std::vector<Mount>& mounts, std::uint64_t device) {
  const Mount* found = nullptr;
  for (const Mount& mount : mounts) {
    if (mount.device != device) continue;
    if (mount.root == "/") return &mount;
    if (!found) found = &mount;
  }
  return found;
}

}  // namespace platform
