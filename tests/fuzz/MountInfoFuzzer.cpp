// The mount table is read from text the kernel writes: any text gives mounts
// with a device, a root and a mount point, and a mount written back as a
// mountinfo line, with the kernel's escapes, reads back as the same mount.

#include <sys/sysmacros.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "platform/MountTable.h"
#include "tests/fuzz/FuzzCheck.h"

namespace {

using platform::Mount;

// The kernel writes blanks, tabs, line breaks and "\" as "\ooo".
std::string Escaped(const std::string& field) {
  std::string text;
  for (char c : field) {
    if (c == ' ' || c == '\t' || c == '\n' || c == '\\') {
      char octal[5];
      std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned char>(c));
      text += octal;
    } else {
      text += c;
    }
  }
  return text;
}

std::string LineOf(const Mount& m) {
  return "1 2 " + std::to_string(major(m.device)) + ':' + std::to_string(minor(m.device)) + ' ' + Escaped(m.root) +
         ' ' + Escaped(m.mountPoint) + " rw - " + Escaped(m.type) + ' ' + Escaped(m.source) + " rw\n";
}

bool Same(const Mount& a, const Mount& b) {
  return a.device == b.device && a.root == b.root && a.mountPoint == b.mountPoint && a.type == b.type &&
         a.source == b.source;
}

bool Writable(const Mount& m) {
  for (const std::string* field : {&m.root, &m.mountPoint, &m.type, &m.source})
    if (field->empty() || field->find('\r') != std::string::npos) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::vector<Mount> mounts = platform::ParseMountInfo(text);
  for (const Mount& mount : mounts) {
    FUZZ_CHECK(!mount.root.empty() && !mount.mountPoint.empty());
    if (!Writable(mount)) continue;
    const std::vector<Mount> again = platform::ParseMountInfo(LineOf(mount));
    FUZZ_CHECK(again.size() == 1 && Same(again[0], mount));
    FUZZ_CHECK(platform::MountOfDevice(mounts, mount.device) != nullptr);
  }
  return 0;
}
