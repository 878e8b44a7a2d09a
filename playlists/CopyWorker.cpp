#include "playlists/CopyWorker.h"

#include "base/CountText.h"
#include "base/MessageText.h"
#include "platform/DriveTable.h"
#include "platform/FileSystem.h"
#include "playlists/CopyJob.h"
#include "playlists/FileIds.h"
#include "volumes/CDriveServices.h"
#include "volumes/Paths.h"

namespace {

std::string SourcePath(const std::string& drive, MediaDB& db, const CMediaFile& file) {
  return MakeFullPath(drive, db.GetPathFullPath(file.PathID), file.FileName);
}

}  // namespace

CopyWorker::CopyWorker(MediaDB& db, const CDriveServices& drives, std::string cdDrive, CopyJob& job)
    : db_(db), drives_(drives), cdDrive_(std::move(cdDrive)), job_(job) {}

void CopyWorker::Run(const IdList& fileIds) {
  CopyAll(fileIds);
  job_.state.done = true;
}

void CopyWorker::CopyAll(const IdList& fileIds) {
  const MediaDB::WorkerLoan loan(db_);  // the window keeps away from the catalogue meanwhile
  job_.summary = CopySummary();
  filesDone_ = 0;
  filesTotal_ = static_cast<std::int64_t>(fileIds.size());
  job_.state.SetOverall(CountOfTotal(0, filesTotal_, "file", "files"));
  IdList volumes;
  for (std::int32_t id : fileIds) volumes.push_back(db_.GetFileVolume(id));

  std::string stopped;  // why no later volume is copied
  for (std::int32_t id : UniqueIds(volumes)) {
    const int volId = id;
    const auto volume = db_.GetVolume(volId);
    if (stopped.empty() && job_.state.cancel) stopped = kCancelled;
    if (!volume) {
      PassOverVolume(fileIds, volId, kNotCatalogued);  // rows gone since the list was filled
    } else if (!stopped.empty()) {
      PassOverVolume(fileIds, volId, stopped);
    } else if (!VolumePresent(*volume)) {
      PassOverVolume(fileIds, volId, kDiscNotInserted);
      stopped = kCancelled;
    } else {
      CopyVolumeFiles(fileIds, volId);
    }
  }
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
  for (std::int32_t id : fileIds) {
    const int fileId = id;
    if (db_.GetFileVolume(fileId) != volId) continue;
    if (job_.state.cancel) {
      PassOverFile(drive, fileId, kCancelled);
      continue;
    }
    CopyFile(drive, fileId);
    job_.state.SetOverall(CountOfTotal(++filesDone_, filesTotal_, "file", "files"));
    done += 100;
    job_.state.progress = static_cast<int>(done / count);
  }
}

void CopyWorker::CopyFile(const std::string& drive, int fileId) {
  const auto file = db_.GetFile(fileId);
  if (!file) return ReportMissingRow(fileId);
  const std::string source = SourcePath(drive, db_, *file);
  const std::string target = MakeFullPath("", job_.target, file->FileName);
  job_.state.SetStatus(source);
  job_.summary.Add(source, file->FileName, drives_.Files().CopyNoOverwrite(source, target));
}

void CopyWorker::PassOverVolume(const IdList& fileIds, int volId, const std::string& reason) {
  const std::string drive = db_.GetVolumeDrive(volId);
  for (std::int32_t id : fileIds) {
    if (db_.GetFileVolume(id) == volId) PassOverFile(drive, id, reason);
  }
}

void CopyWorker::PassOverFile(const std::string& drive, int fileId, const std::string& reason) {
  const auto file = db_.GetFile(fileId);
  if (!file) return ReportMissingRow(fileId);
  job_.summary.AddFailure(SourcePath(drive, db_, *file), file->FileName, reason);
}

void CopyWorker::ReportMissingRow(int fileId) {
  const std::string named = "FileID " + std::to_string(fileId);
  job_.summary.AddFailure(named, named, kNotCatalogued);
}
