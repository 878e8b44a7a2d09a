#include "volumes/CDriveServices.h"

#include <cctype>

#include "platform/DrivePaths.h"
#include "platform/DriveTable.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "volumes/Paths.h"

namespace {

char Letter(const std::string& drive) {
  return drive.empty() ? '\0' : static_cast<char>(std::toupper(static_cast<unsigned char>(drive[0])));
}

}  // namespace

CDriveServices::CDriveServices(platform::DriveTable& drives, platform::FileSystem& files,
                               platform::MessageBox& messages)
    : drives_(drives), files_(files), messages_(messages) {}

std::vector<std::string> CDriveServices::GetDriveList(int driveType) const {
  std::vector<std::string> list;
  for (char letter : drives_.Letters()) {
    if (driveType == -1 || drives_.Type(letter) == driveType) list.emplace_back(1, letter);
  }
  return list;
}

std::unique_ptr<CMediaVolume> CDriveServices::ReadVolumeInfo(const std::string& drive) const {
  const platform::VolumeIdentity identity = drives_.Identify(Letter(drive));
  if (!identity.ok) return nullptr;
  auto volume = std::make_unique<CMediaVolume>();
  volume->VolID = 0;
  volume->Name = identity.label;
  volume->DisplayName = identity.label;
  volume->VolType = drives_.Type(Letter(drive));
  volume->SerialNo = std::to_string(identity.serial);
  volume->DrvLtr = drive;
  return volume;
}

bool CDriveServices::IsDriveReady(const std::string& drive) const { return drives_.IsReady(Letter(drive)); }

int CDriveServices::WaitForVolume(const std::string& drive, const std::string& serialNo,
                                  const std::string& prompt) const {
  for (;;) {
    const auto volume = IsDriveReady(drive) ? ReadVolumeInfo(drive) : nullptr;
    if (volume && volume->SerialNo == serialNo) return 0;
    if (messages_.Show(prompt, platform::Buttons::OkCancel, platform::Icon::Information) == platform::Answer::Cancel)
      return -1;
  }
}

std::vector<std::string> CDriveServices::ListFiles(const std::string& folder) const {
  std::vector<std::string> names;
  for (const auto& entry : files_.List(folder, "*.*").entries)
    if (entry.IsFile()) names.push_back(entry.name);
  return names;
}

std::unique_ptr<CMediaFile> CDriveServices::FileRecordOf(const platform::FileFacts& facts) {
  auto file = std::make_unique<CMediaFile>();
  file->FileName = facts.name;
  file->Size = facts.size;
  file->Type = GetFileType(facts.name, AudioFormats::Every);
  return file;
}

void CDriveServices::DeleteFilesInFolder(const std::string& folder) const {
  for (const auto& name : ListFiles(folder)) files_.Remove(folder + name);
}

bool CDriveServices::FileExists(const std::string& path) const { return files_.Exists(path); }

std::string CDriveServices::ToDrivePath(const std::string& linuxFolder) const {
  return drives_.ToDrivePath(linuxFolder);
}

std::string CDriveServices::CanonicalPath(const std::string& drivePath) const {
  const std::string canonical = platform::CanonicalDrivePath(drives_, drivePath);
  return canonical.empty() ? drivePath : canonical;
}

std::string CDriveServices::FolderWithinDrive(const std::string& folder) const {
  if (platform::ClimbsAboveRoot(folder)) return "";
  return CanonicalPath(folder);
}

std::string CDriveServices::TableFolder() const { return drives_.TableFolder(); }
