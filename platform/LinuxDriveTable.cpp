#include "platform/LinuxDriveTable.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/DriveLinks.h"
#include "platform/LinuxPaths.h"
#include "platform/MountTable.h"
#include "platform/VolumeIdentifier.h"

namespace platform {
namespace {

constexpr char kFirstAddedLetter = 'F';

std::string DrivesFolderOf(const std::string& programFolder) {
  return (std::filesystem::path(programFolder) / "drives").string();
}

bool IsBlockDevice(const std::string& path, dev_t& device) {
  struct stat facts {};
  if (stat(path.c_str(), &facts) != 0 || !S_ISBLK(facts.st_mode)) return false;
  device = facts.st_rdev;
  return true;
}

bool IsFolder(const std::string& path) {
  struct stat facts {};
  return stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

std::string MountPointOf(dev_t device) {
  std::vector<Mount> mounts = ReadMountTable();
  const Mount* mount = MountOfDevice(mounts, device);
  return mount ? mount->mountPoint : "";
}

bool IsCdDevice(const DriveLink& link, dev_t& device) { return link.cd && IsBlockDevice(link.target, device); }

std::string RootOfLink(const DriveLink& link) {
  dev_t device = 0;
  if (IsCdDevice(link, device)) return MountPointOf(device);
  return IsFolder(link.target) ? CanonicalFolder(link.target) : "";
}

// "C:\Music\Rock", or "" when a component cannot be written in a drive path.
std::string FormatDrivePath(char letter, const std::vector<std::string>& components) {
  std::string path{letter, ':', '\\'};
  for (std::size_t i = 0; i < components.size(); ++i) {
    if (components[i].find('\\') != std::string::npos) return "";
    path += (i ? "\\" : "") + components[i];
  }
  return path;
}

// The mount point of the file system holding the folder, when that is another
// file system mounted below the drive's root.
std::string SeparateMountBelowRoot(const std::string& folder, const std::string& root) {
  std::vector<Mount> mounts = ReadMountTable();
  const Mount* mount = MountHolding(mounts, folder);
  if (!mount || mount->mountPoint == root || !IsSameOrBelow(mount->mountPoint, root)) return "";
  return mount->mountPoint;
}

}  // namespace

LinuxDriveTable::LinuxDriveTable(const std::string& programFolder) : drivesFolder_(DrivesFolderOf(programFolder)) {}

bool LinuxDriveTable::CreateDefaultIfMissing(const std::string& programFolder) {
  std::string folder = DrivesFolderOf(programFolder);
  if (mkdir(folder.c_str(), 0777) != 0) return errno == EEXIST;
  const char* home = std::getenv("HOME");
  for (const DriveLink& link : DefaultDriveLinks(home ? home : "", "/sys/block")) WriteDriveLink(folder, link);
  return true;
}

std::vector<char> LinuxDriveTable::Letters() const {
  std::vector<char> letters;
  for (const DriveLink& link : ReadDriveLinks(drivesFolder_)) letters.push_back(link.letter);
  return letters;
}

int LinuxDriveTable::Type(char letter) const {
  auto link = ReadDriveLink(drivesFolder_, letter);
  if (!link) return kDriveNoRootDir;
  return link->cd ? kDriveCdRom : kDriveFixed;
}

std::string LinuxDriveTable::RootFolder(char letter) const {
  auto link = ReadDriveLink(drivesFolder_, letter);
  if (!link) return "";
  dev_t device = 0;
  if (IsCdDevice(*link, device)) return MountPointOf(device);
  return IsFolder(link->target) ? CanonicalRoot(link->target) : "";
}

std::string LinuxDriveTable::CanonicalRoot(const std::string& target) const {
  std::lock_guard lock(canonicalMutex_);
  auto known = canonicalTargets_.find(target);
  if (known != canonicalTargets_.end()) return known->second;
  std::string canonical = CanonicalFolder(target);
  if (!canonical.empty()) canonicalTargets_.emplace(target, canonical);
  return canonical;
}

bool LinuxDriveTable::IsReady(char letter) const {
  std::string root = RootFolder(letter);
  return !root.empty() && CanListFolder(root);
}

std::string LinuxDriveTable::CdDevice(char letter) const {
  auto link = ReadDriveLink(drivesFolder_, letter);
  dev_t device = 0;
  return link && link->cd && IsBlockDevice(link->target, device) ? link->target : "";
}

VolumeIdentity LinuxDriveTable::Identify(char letter) const {
  return IdentifyVolume(RootFolder(letter), CdDevice(letter));
}

char LinuxDriveTable::LetterHolding(const std::string& folder) const {
  char best = 0;
  std::size_t bestLength = 0;
  for (const DriveLink& link : ReadDriveLinks(drivesFolder_)) {
    std::string root = RootOfLink(link);
    if (root.empty() || !IsSameOrBelow(folder, root)) continue;
    if (!best || root.size() > bestLength) {
      best = link.letter;
      bestLength = root.size();
    }
  }
  return best;
}

char LinuxDriveTable::LinkFixedDrive(const std::string& mountPoint) {
  for (char letter = kFirstAddedLetter; letter <= 'Z'; ++letter) {
    if (WriteDriveLink(drivesFolder_, DriveLink{letter, false, mountPoint})) return letter;
  }
  return 0;
}

std::string LinuxDriveTable::ToDrivePath(const std::string& linuxFolder) {
  std::string folder = CanonicalFolder(linuxFolder);
  if (folder.empty() || folder.front() != '/') return "";
  char letter = LetterHolding(folder);
  if (!letter) return "";
  std::string root = RootFolder(letter);
  std::string mountPoint = SeparateMountBelowRoot(folder, root);
  // The system's own file systems get no letter: nothing there is catalogued.
  if (!mountPoint.empty() && !IsSystemFolder(mountPoint)) {
    if (char added = LinkFixedDrive(mountPoint)) {
      letter = added;
      root = mountPoint;
    }
  }
  return FormatDrivePath(letter, ComponentsBelow(folder, root));
}

}  // namespace platform
