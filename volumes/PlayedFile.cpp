#include "volumes/PlayedFile.h"

#include "platform/DriveTable.h"
#include "volumes/Paths.h"

std::optional<PlayedFile> LocatePlayedFile(MediaDB& db, int fileId, const std::string& cdDrive) {
  PlayedFile played;
  played.file = db.GetFile(fileId);
  if (!played.file) return std::nullopt;
  const auto folder = db.GetPath(played.file->PathID);
  played.volume = db.GetVolume(played.file->VolID);
  if (!folder || !played.volume) return std::nullopt;
  played.drive = played.volume->VolType == platform::kDriveCdRom ? cdDrive : played.volume->DrvLtr;
  played.fullPath = MakeFullPath(played.drive, folder->FullPath, played.file->FileName);
  return played;
}
