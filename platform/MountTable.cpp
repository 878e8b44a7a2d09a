#include "platform/MountTable.h"

#include <libmount.h>
#include <sys/sysmacros.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>

#include "platform/LinuxPaths.h"

namespace platform {
namespace {

struct TableDeleter {
  void operator()(libmnt_table* table) const { mnt_unref_table(table); }
};
using Table = std::unique_ptr<libmnt_table, TableDeleter>;

struct StreamCloser {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};

std::string TextOrEmpty(const char* text) { return text ? text : ""; }

// libmount unescapes the kernel's "\ooo" in every field.
Mount MountOf(libmnt_fs* fs) {
  Mount mount;
  mount.device = mnt_fs_get_devno(fs);
  mount.root = TextOrEmpty(mnt_fs_get_root(fs));
  mount.mountPoint = TextOrEmpty(mnt_fs_get_target(fs));
  mount.type = TextOrEmpty(mnt_fs_get_fstype(fs));
  mount.source = TextOrEmpty(mnt_fs_get_source(fs));
  return mount;
}

// Only what came from a mountinfo line: a table libmount took for another
// format holds entries without a root.
std::vector<Mount> MountsOf(libmnt_table* table) {
  std::vector<Mount> mounts;
  libmnt_iter* iter = mnt_new_iter(MNT_ITER_FORWARD);
  libmnt_fs* fs = nullptr;
  while (iter && mnt_table_next_fs(table, iter, &fs) == 0)
    if (mnt_fs_is_kernel(fs) && mnt_fs_get_root(fs)) mounts.push_back(MountOf(fs));
  mnt_free_iter(iter);
  return mounts;
}

// libmount settles the format of a text by its first line; lines before the
// first that starts with a mount id and a parent id would make it read the
// rest as fstab.
std::string_view FromFirstMountLine(std::string_view text) {
  while (!text.empty()) {
    unsigned id = 0, parent = 0;
    const std::size_t end = text.find('\n');
    const std::string line(text.substr(0, end));
    if (std::sscanf(line.c_str(), "%u %u", &id, &parent) == 2) return text;
    if (end == std::string_view::npos) return {};
    text.remove_prefix(end + 1);
  }
  return text;
}

}  // namespace

std::vector<Mount> ParseMountInfo(std::string_view text) {
  text = FromFirstMountLine(text);
  if (text.empty()) return {};
  std::string buffer(text);
  std::unique_ptr<std::FILE, StreamCloser> stream(fmemopen(buffer.data(), buffer.size(), "r"));
  Table table(mnt_new_table());
  if (!stream || !table || mnt_table_parse_stream(table.get(), stream.get(), "mountinfo") != 0) return {};
  return MountsOf(table.get());
}

// Read as text first, so that the table and the tests share one parse.
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
