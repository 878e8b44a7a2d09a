#include "playlists/CopyWorker.h"

#include "platform/DriveTable.h"
#include "platform/FileSystem.h"
#include "playlists/CopyJob.h"
#include "playlists/FileIds.h"
#include "scan/CDriveServices.h"
#include "scan/MessageText.h"
#include "scan/Paths.h"

CopyWorker::CopyWorker(MediaDB& db, const CDriveServices& drives, std::string cdDrive,
                       CopyJob& job)
    : db_(db), drives_(drives), cdDrive_(std::move(cdDrive)), job_(job) {}

void CopyWorker::Run(const IdList& fileIds) {
  IdList volumes;
  for (std::uint32_t id : fileIds)
    volumes.push_back(static_cast<std::uint32_t>(db_.GetFileVolume(static_cast<int>(id))));

  for (std::uint32_t volId : UniqueIds(volumes)) {
    const auto volume = db_.GetVolume(static_cast<int>(volId));
    if (!volume) continue;  // a file without a row, or one whose volume is gone
    if (!VolumePresent(*volume)) break;
    CopyVolumeFiles(fileIds, static_cast<int>(volId));
  }
  job_.state.done = true;
}

bool CopyWorker::VolumePresent(const CMediaVolume& volume) const {
  if (volume.VolType != platform::kDriveCdRom) return true;
  const std::string prompt = FillMessage(kInsertDisc, {volume.DisplayName, cdDrive_});
  return drives_.WaitForVolume(cdDrive_, volume.SerialNo, prompt) == 0;
}

void CopyWorker::CopyVolumeFiles(const IdList& fileIds, int volId) {
  const std::string drive = db_.GetVolumeDrive(volId);
  const auto count = static_cast<std::int64_t>(fileIds.size());
  std::int64_t done = 0;
  for (std::uint32_t id : fileIds) {
    if (job_.state.cancel) return;
    const int fileId = static_cast<int>(id);
    if (db_.GetFileVolume(fileId) != volId) continue;
    CopyFile(drive, fileId);
    done += 100;
    job_.state.progress = static_cast<int>(done / count);
  }
}

void CopyWorker::CopyFile(const std::string& drive, int fileId) {
  const auto file = db_.GetFile(fileId);
  if (!file) return;
  const std::string source =
      MakeFullPath(drive, db_.GetPathFullPath(file->PathID), file->FileName);
  const std::string target = MakeFullPath("", job_.target, file->FileName);
  job_.state.SetStatus(source);
  drives_.Files().CopyNoOverwrite(source, target);
}
