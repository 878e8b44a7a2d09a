#pragma once
// The one scanner of the application: a whole scan of a CD or a disk folder,
// discovery then tags, run on a worker thread while a modal dialog polls its
// progress. Prepare on the user-interface thread, then Run on the worker.

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "base/WorkerProgress.h"
#include "platform/FileSystem.h"
#include "scan/DiscoveryScan.h"
#include "scan/ScanReport.h"
#include "scan/TagScan.h"

class CDriveServices;
class MediaDB;
class TagReader;

namespace platform {
class MessageBox;
}

class CVolumeScanner {
 public:
  static constexpr const char* kSearching = "Searching for Media files...";
  static constexpr const char* kCheckingDisc = "Checking the disc\u2026";
  // The question asked before files are removed for their format alone,
  // given how many there are; see AskBeforeRemovingLeftOut.
  using LeftOutQuestion = std::function<std::string(int leftOut)>;

  // The volume a rescan expects to find in the root's drive.
  struct ExpectedVolume {
    std::string serialNo;
    std::string name;
  };

  CVolumeScanner(MediaDB& db, CDriveServices& drives, TagReader& reader, platform::MessageBox& messages);

  // kind: 5 for a CD, 3 for a disk folder (recorded only: the volume's type
  // comes from its drive). root: a normalised folder with its drive. Files
  // of other formats under the root are removed as if they had vanished.
  // With an expected volume, a drive that holds another one is not scanned.
  void Prepare(int kind, const std::string& root, AudioFormats formats = AudioFormats::Classic,
               std::optional<ExpectedVolume> expected = std::nullopt);

  // How many files the catalogue holds under a normalised root that a scan
  // with these formats would remove for their format alone. Reads the drive's
  // volume and the catalogue: before Prepare, or on the worker.
  int FilesLeftOut(const std::string& root, AudioFormats formats);

  // After Prepare: the scan itself first counts the files it would remove
  // for their format (which reads the drive's volume, on the worker rather
  // than the window's thread, saying "Checking the disc…") and, when there
  // are any, asks this question with OK and Cancel; Cancel cancels the scan.
  void AskBeforeRemovingLeftOut(LeftOutQuestion question) { leftOutQuestion_ = std::move(question); }

  // The scan itself; on the worker thread. Returns 0.
  int Run();

  // Why a normalised root cannot be scanned now, "" when it can: its drive or
  // its folder is not there, or it holds system files. Any thread.
  std::string RootRefusal(const std::string& root) const;
  // Why a drive cannot be rescanned for the expected volume, "" when it
  // holds that volume (or none: the root is then not there). Any thread.
  std::string VolumeRefusal(const std::string& drive, const ExpectedVolume& expected) const;

  WorkerProgress& Progress() { return progress_; }
  MediaDB& Catalogue() { return db_; }
  // What the last scan has to tell once it is done.
  const ScanReport& Report() const { return report_; }
  const std::string& ScanRoot() const { return scanRoot_; }
  // Whether the last scan ran to its end, not cancelled.
  bool Completed() const { return completed_; }
  int RequestedKind() const { return requestedKind_; }
  // How long the last tag phase took.
  std::chrono::steady_clock::duration TagPhaseTime() const { return tagPhaseTime_; }

 private:
  void Scan();
  // Whether the root is still the folder the scan began on, on the same volume.
  bool StillThere(const std::optional<platform::FolderIdentity>& root, const std::string& serialNo) const;

  MediaDB& db_;
  CDriveServices& drives_;
  platform::MessageBox& messages_;
  LeftOutQuestion leftOutQuestion_;
  WorkerProgress progress_;
  ScanReport report_;
  DiscoveryScan discovery_;
  TagScan tags_;
  std::string scanRoot_;
  AudioFormats formats_ = AudioFormats::Classic;
  std::optional<ExpectedVolume> expected_;
  int requestedKind_ = 0;
  bool completed_ = false;  // written by the worker before done
  std::chrono::steady_clock::duration tagPhaseTime_{};
};
