#include "platform/VolumeProbe.h"

#include <blkid/blkid.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <type_traits>

#include "platform/SerialArithmetic.h"
#include "platform/UniqueFd.h"

namespace fs = std::filesystem;

namespace platform {
namespace {

// A disc's descriptor set is a handful of sectors; stop reading at this many.
constexpr std::size_t kMaxDescriptorSectors = 64;

struct ProbeDeleter {
  void operator()(blkid_probe probe) const { blkid_free_probe(probe); }
};
using Probe = std::unique_ptr<std::remove_pointer_t<blkid_probe>, ProbeDeleter>;

std::string LookUpValue(blkid_probe probe, const char* name) {
  const char* data = nullptr;
  std::size_t length = 0;
  if (blkid_probe_lookup_value(probe, name, &data, &length) != 0 || !data) return "";
  return std::string(data);
}

std::optional<FileSystemTags> ProbeDevice(const std::string& device) {
  Probe probe(blkid_new_probe_from_filename(device.c_str()));
  if (!probe) return std::nullopt;
  blkid_probe_enable_superblocks(probe.get(), 1);
  blkid_probe_set_superblocks_flags(probe.get(), BLKID_SUBLKS_LABEL | BLKID_SUBLKS_UUID | BLKID_SUBLKS_TYPE);
  if (blkid_do_safeprobe(probe.get()) != 0) return std::nullopt;
  return FileSystemTags{LookUpValue(probe.get(), "TYPE"), LookUpValue(probe.get(), "UUID"),
                        LookUpValue(probe.get(), "LABEL")};
}

// The device number of a block device node; nullopt for anything else.
std::optional<std::uint64_t> BlockDeviceNumber(const std::string& path) {
  struct stat facts {};
  if (stat(path.c_str(), &facts) != 0 || !S_ISBLK(facts.st_mode)) return std::nullopt;
  return facts.st_rdev;
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// udev writes unsafe characters of a label in link names as "\xHH".
std::string DecodeLinkName(const std::string& name) {
  std::string text;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (name.compare(i, 2, "\\x") == 0 && i + 3 < name.size() && HexValue(name[i + 2]) >= 0 &&
        HexValue(name[i + 3]) >= 0) {
      text += static_cast<char>(HexValue(name[i + 2]) * 16 + HexValue(name[i + 3]));
      i += 3;
    } else {
      text += name[i];
    }
  }
  return text;
}

// Whether a /dev/disk link leads to the mount's device. Some file systems
// (btrfs) show another number in the mount table than their device has.
bool LeadsToMountedDevice(const fs::path& link, const Mount& mount) {
  auto device = BlockDeviceNumber(link.string());
  return device && (*device == mount.device || device == BlockDeviceNumber(mount.source));
}

// The name of the link in a /dev/disk folder that leads to the mount's device.
std::string LinkNameFor(const char* folder, const Mount& mount) {
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    if (LeadsToMountedDevice(it->path(), mount)) return DecodeLinkName(it->path().filename().string());
  }
  return "";
}

FileSystemTags TagsFromDiskLinks(const Mount& mount) {
  return FileSystemTags{mount.type, LinkNameFor("/dev/disk/by-uuid", mount), LinkNameFor("/dev/disk/by-label", mount)};
}

bool ReadSector(int fd, std::size_t sector, std::uint8_t* into) {
  const off_t offset = static_cast<off_t>(sector * kCdSectorSize);
  std::size_t done = 0;
  while (done < kCdSectorSize) {
    ssize_t n = pread(fd, into + done, kCdSectorSize - done, offset + static_cast<off_t>(done));
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

FileSystemTags ProbeFileSystem(const Mount& mount) {
  if (BlockDeviceNumber(mount.source)) {
    if (auto tags = ProbeDevice(mount.source)) {
      if (tags->type.empty()) tags->type = mount.type;
      return *tags;
    }
  }
  return TagsFromDiskLinks(mount);
}

std::optional<std::vector<std::uint8_t>> ReadDescriptorSet(const std::string& device) {
  UniqueFd fd(open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!fd.Valid()) return std::nullopt;
  std::vector<std::uint8_t> set;
  for (std::size_t i = 0; i < kMaxDescriptorSectors; ++i) {
    std::size_t at = set.size();
    set.resize(at + kCdSectorSize);
    if (!ReadSector(fd.Get(), kFirstDescriptorSector + i, set.data() + at)) {
      set.resize(at);
      break;
    }
    if (set[at] == 255) break;
  }
  if (set.empty()) return std::nullopt;
  return set;
}

}  // namespace platform
