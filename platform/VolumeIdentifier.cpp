#include "platform/VolumeIdentifier.h"

#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

#include <cstring>
#include <fstream>
#include <optional>
#include <utility>

#include "platform/LinuxPaths.h"
#include "platform/MountTable.h"
#include "platform/SerialArithmetic.h"
#include "platform/SmallFile.h"
#include "platform/VolumeProbe.h"

namespace platform {
namespace {

constexpr const char* kSerialFile = "/.windows-serial";
constexpr const char* kLabelFile = "/.windows-label";
constexpr std::size_t kMaxSerialFileSize = 64;

std::optional<std::string> ReadLabelFile(const std::string& root) {
  std::ifstream file(root + kLabelFile);
  std::string line;
  if (!file || !std::getline(file, line)) return std::nullopt;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::optional<std::uint32_t> ReadSerialFile(const std::string& root) {
  auto text = ReadSmallFile(root + kSerialFile, kMaxSerialFileSize);
  return text ? ParseSerialText(*text) : std::nullopt;
}

std::optional<std::uint32_t> SerialOfDisc(const std::string& cdDevice) {
  if (cdDevice.empty()) return std::nullopt;
  auto set = ReadDescriptorSet(cdDevice);
  return set ? DiscSerial(*set) : std::nullopt;
}

// A file system that reports no id at all is told apart by its device number.
std::uint32_t SerialFromStatfs(const std::string& root) {
  struct statfs facts {};
  if (statfs(root.c_str(), &facts) != 0) return 0;
  std::uint32_t words[2];
  static_assert(sizeof words == sizeof facts.f_fsid);
  std::memcpy(words, &facts.f_fsid, sizeof words);
  struct stat folder {};
  if (words[0] == 0 && words[1] == 0 && stat(root.c_str(), &folder) == 0) {
    words[0] = major(folder.st_dev);
    words[1] = minor(folder.st_dev);
  }
  return SerialFromFsid(words[0], words[1]);
}

// The root's folder inside its file system: the mount's own root joined with
// the path below the mount point ("/" when the root is the whole file system).
std::string PathInFileSystem(const std::string& root, const Mount& mount) {
  std::string path = mount.root == "/" ? "" : mount.root;
  for (const std::string& component : ComponentsBelow(root, mount.mountPoint)) path += "/" + component;
  return path.empty() ? "/" : path;
}

// What the mount holding the root says about its file system, read on demand.
class FileSystemFacts {
 public:
  explicit FileSystemFacts(std::string root) : root_(std::move(root)) {}
  FileSystemFacts(const FileSystemFacts&) = delete;
  FileSystemFacts& operator=(const FileSystemFacts&) = delete;

  const FileSystemTags& Tags() {
    if (!tags_) tags_ = mount_ ? ProbeFileSystem(*mount_) : FileSystemTags{};
    return *tags_;
  }

  std::uint32_t Serial() {
    std::uint32_t serial = Tags().uuid.empty() ? SerialFromStatfs(root_) : SerialFromUuid(Tags().type, Tags().uuid);
    if (!mount_) return serial;
    std::string inside = PathInFileSystem(root_, *mount_);
    return inside == "/" ? serial : MixPathIntoSerial(serial, inside);
  }

 private:
  std::string root_;
  std::vector<Mount> mounts_ = ReadMountTable();
  const Mount* mount_ = MountHolding(mounts_, root_);
  std::optional<FileSystemTags> tags_;
};

}  // namespace

VolumeIdentity IdentifyVolume(const std::string& root, const std::string& cdDevice) {
  if (root.empty() || !CanListFolder(root)) return {};
  FileSystemFacts fileSystem(root);
  VolumeIdentity identity;
  identity.ok = true;
  if (auto serial = ReadSerialFile(root))
    identity.serial = *serial;
  else if (auto discSerial = SerialOfDisc(cdDevice))
    identity.serial = *discSerial;
  else
    identity.serial = fileSystem.Serial();

  if (auto label = ReadLabelFile(root))
    identity.label = *label;
  else if (!fileSystem.Tags().label.empty())
    identity.label = fileSystem.Tags().label;
  else
    identity.label = LastComponent(root);
  return identity;
}

}  // namespace platform
