#pragma once
// Where a catalogued file is played from: a file on a CD from the CD drive
// of the settings, whichever drive its disc was catalogued from; a file on a
// disk from its volume's letter (which may hold another disk now, or none).
// User-interface thread only (it reads the catalogue).

#include <memory>
#include <optional>
#include <string>

#include "catalogue/MediaDB.h"

struct PlayedFile {
  std::unique_ptr<CMediaFile> file;
  std::unique_ptr<CMediaVolume> volume;
  std::string drive;     // the drive's letter
  std::string fullPath;  // the drive path ("E:\Album\01.mp3")
};

// None when the file, its folder or its volume has no row.
std::optional<PlayedFile> LocatePlayedFile(MediaDB& db, int fileId, const std::string& cdDrive);
