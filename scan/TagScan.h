#pragma once
// The second phase of a scan: reads the tags and audio properties of every
// file under the root whose tags were not read yet, and stores them. The
// caller brackets the whole phase in one transaction. A reader that throws
// ends the program after a message, with that transaction never committed.
//
// Runs on the scan worker. Reads the cancel flag, writes the status text,
// the progress value (0 to 99 within each folder), the progress line ("12 of
// 340 files") and, in the report, the files it could not read. The files' tags are read
// ahead on reader threads; only the worker writes to the catalogue.

#include <functional>
#include <string>

#include "volumes/Paths.h"

class CMediaFile;
struct FileRow;
class MediaDB;
class ScanReport;
class TagReader;
class VolumeIndex;
class WorkerProgress;

namespace platform {
class MessageBox;
}

class TagScan {
 public:
  static constexpr const char* kReaderFailure = "**** GetTag() EXCEPTION ****";

  // readerThreads: how many threads read tags ahead of the worker.
  TagScan(MediaDB& db, TagReader& reader, platform::MessageBox& messages, WorkerProgress& progress, ScanReport& report,
          unsigned readerThreads);

  // localRoot: the root's Linux path, or "" when its drive has none.
  // WMA files named in lower case ("song.wma") are read only with every
  // format; otherwise they are left unread and counted in the report.
  void Run(const std::string& root, const std::string& localRoot, int volId, VolumeIndex& index,
           AudioFormats formats = AudioFormats::Classic);

  // Reads one file's tags into the record (through read, which may throw) and
  // stores them, marking the row as being read first.
  void ScanFileTags(CMediaFile& record, const std::function<void(CMediaFile&)>& read);

 private:
  [[noreturn]] void EndAfterReaderFailure();
  bool ToRead(const VolumeIndex& index, int fileId) const;

  MediaDB& db_;
  TagReader& reader_;
  platform::MessageBox& messages_;
  WorkerProgress& progress_;
  ScanReport& report_;
  unsigned readerThreads_;
  bool readLowerCaseWma_ = false;
};
