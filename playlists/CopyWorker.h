#pragma once
// Copies play list files out of the library into one folder, on the copy
// worker's thread. Files are taken volume by volume, the volumes in the order
// of their first file in the list, and within a volume in list order; before
// a CD's files the user is asked for the disc. Every file lands directly in
// the target folder and never replaces an entry there. What became of each
// file goes into the job's summary: copied, already there, or failed with a
// reason. When the user cancels a disc prompt, that disc's files are "disc
// not inserted" and the files of every later volume "copy cancelled", as are
// the files left when the dialog's Cancel stops the copy.
//
// The catalogue is read from the worker thread; the modal copy dialog keeps
// the user-interface thread away from it meanwhile. The disc prompt is shown
// from the worker through the drive services' message boxes.

#include <cstdint>
#include <string>

#include "catalogue/MediaDB.h"

class CDriveServices;
class CMediaVolume;
struct CopyJob;

class CopyWorker {
 public:
  static constexpr const char* kInsertDisc = "Please insert '%s' into drive %s:";
  static constexpr const char* kDiscNotInserted = "disc not inserted";
  static constexpr const char* kCancelled = "copy cancelled";
  static constexpr const char* kNotCatalogued = "not in the catalogue";

  // cdDrive: the application's CD drive, named in the disc prompt and waited on.
  CopyWorker(MediaDB& db, const CDriveServices& drives, std::string cdDrive, CopyJob& job);

  // The whole copy, summary emptied first; sets the job's done at the end,
  // even after Cancel.
  void Run(const IdList& fileIds);

  // Copies the listed files of one volume, through the volume's stored drive;
  // once the job is cancelled its remaining files are passed over. Progress
  // counts 100 per file copied here, divided by the number of all listed files.
  void CopyVolumeFiles(const IdList& fileIds, int volId);

  CopyJob& Job() { return job_; }

 private:
  void CopyAll(const IdList& fileIds);
  // False when the user gave up waiting for a CD.
  bool VolumePresent(const CMediaVolume& volume) const;
  void CopyFile(const std::string& drive, int fileId);
  // Reports the listed files of the volume, or one file, as not copied.
  void PassOverVolume(const IdList& fileIds, int volId, const std::string& reason);
  void PassOverFile(const std::string& drive, int fileId, const std::string& reason);
  void ReportMissingRow(int fileId);

  MediaDB& db_;
  const CDriveServices& drives_;
  std::string cdDrive_;
  CopyJob& job_;
  std::int64_t filesDone_ = 0;  // copied so far by this run, for the progress line
  std::int64_t filesTotal_ = 0;
};
