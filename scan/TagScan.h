#pragma once
// The second phase of a scan: reads the tags and audio properties of every
// file under the root whose tags were not read yet, and stores them. The
// caller brackets the whole phase in one transaction. A reader that throws
// ends the program after a message, with that transaction never committed.
//
// Runs on the scan worker. Reads the cancel flag, writes the status text and
// the progress value (0 to 99 within each folder).

#include <string>

class CMediaFile;
class MediaDB;
class TagReader;
class VolumeIndex;
class WorkerProgress;

namespace platform {
class MessageBox;
}

class TagScan {
 public:
  static constexpr const char* kReaderFailure = "**** GetTag() EXCEPTION ****";

  TagScan(MediaDB& db, TagReader& reader, platform::MessageBox& messages,
          WorkerProgress& progress);

  void Run(const std::string& root, int volId, VolumeIndex& index);

  // Reads one file's tags into the record and stores them.
  void ScanFileTags(CMediaFile& record, const std::string& drive, const std::string& folder);

 private:
  [[noreturn]] void EndAfterReaderFailure();

  MediaDB& db_;
  TagReader& reader_;
  platform::MessageBox& messages_;
  WorkerProgress& progress_;
};
