#include "playlists/CataloguedFiles.h"

#include "base/AsciiCase.h"
#include "platform/DriveTable.h"
#include "playlists/FileIds.h"
#include "volumes/CDriveServices.h"
#include "volumes/Paths.h"

namespace {

// The file's id on one of the disk volumes of the drive, or -1.
int FindOnDrive(MediaDB& db, const std::vector<CMediaVolume>& disks, const std::string& drive,
                const std::string& folder, const std::string& name) {
  for (const CMediaVolume& volume : disks) {
    if (!EqualIgnoringAsciiCase(volume.DrvLtr, drive)) continue;
    const int pathId = db.FindPath(folder, volume.VolID);
    const int fileId = pathId == -1 ? -1 : db.FindFile(name, pathId);
    if (fileId != -1) return fileId;
  }
  return -1;
}

}  // namespace

CataloguedFiles FindCataloguedFiles(MediaDB& db, const CDriveServices& drives,
                                    const std::vector<std::string>& localPaths) {
  CataloguedFiles found;
  const std::vector<CMediaVolume> disks = db.GetVolumesOfType(platform::kDriveFixed);
  for (const std::string& path : localPaths) {
    const auto slash = path.find_last_of('/');
    // Only absolute paths: a relative one would be taken from the working folder.
    const std::string drivePath =
        !path.starts_with('/') ? "" : drives.ToDrivePath(path.substr(0, slash == 0 ? 1 : slash));
    const int fileId = drivePath.empty() ? -1
                                         : FindOnDrive(db, disks, drivePath.substr(0, 1),
                                                       GetFolderPart(NormalizeFolder(drives.CanonicalPath(drivePath))),
                                                       path.substr(slash + 1));
    if (fileId == -1)
      found.notCatalogued.push_back(path);
    else
      found.fileIds.push_back(fileId);
  }
  found.fileIds = UniqueIds(found.fileIds);
  return found;
}
