#include "scan/CVolumeScanner.h"

#include <thread>

#include "base/MessageText.h"
#include "catalogue/MediaDB.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "volumes/CDriveServices.h"
#include "volumes/OffLimitsFolders.h"
#include "volumes/Paths.h"

namespace {

// One reader per core: TagLib's parsing is what a fresh scan waits for.
unsigned ReaderThreads() {
  const unsigned cores = std::thread::hardware_concurrency();
  return cores == 0 ? 1 : cores;
}

}  // namespace

CVolumeScanner::CVolumeScanner(MediaDB& db, CDriveServices& drives, TagReader& reader, platform::MessageBox& messages)
    : db_(db),
      drives_(drives),
      messages_(messages),
      discovery_(db, drives, progress_, report_),
      tags_(db, reader, messages, progress_, report_, ReaderThreads()) {}

void CVolumeScanner::Prepare(int kind, const std::string& root, AudioFormats formats,
                             std::optional<ExpectedVolume> expected) {
  progress_.progress = 0;
  progress_.done = false;
  progress_.cancel = false;
  progress_.SetStatus("");
  progress_.SetOverall("");
  report_.Clear(formats);
  requestedKind_ = kind;
  scanRoot_ = root;
  formats_ = formats;
  expected_ = std::move(expected);
  leftOutQuestion_ = nullptr;
}

int CVolumeScanner::FilesLeftOut(const std::string& root, AudioFormats formats) {
  if (formats == AudioFormats::Every) return 0;
  const auto volume = drives_.ReadVolumeInfo(root.substr(0, 1));
  if (!volume) return 0;
  const int volId = db_.FindVolumeBySerial(volume->SerialNo);
  const int rootId = volId == -1 ? -1 : db_.FindPath(GetFolderPart(root), volId);
  if (rootId == -1) return 0;
  return db_.CountFilesOfTypeAbove(db_.GetSubtreePathIds(rootId), kWma);
}

int CVolumeScanner::Run() {
  completed_ = false;
  {
    const MediaDB::WorkerLoan loan(db_);  // the window keeps away from the catalogue meanwhile
    Scan();
  }
  completed_ = !progress_.cancel;
  progress_.done = true;
  return 0;
}

std::string CVolumeScanner::RootRefusal(const std::string& root) const {
  if (!drives_.IsDriveReady(root.substr(0, 1)) || !drives_.Files().Identity(root))
    return FillMessage(ScanReport::kNotThere, {root});
  if (OffLimitsFolders(drives_).HoldsOrContains(drives_.Files().LocalPath(root)))
    return FillMessage(ScanReport::kSystemFolder, {root});
  return "";
}

std::string CVolumeScanner::VolumeRefusal(const std::string& drive, const ExpectedVolume& expected) const {
  const auto volume = drives_.ReadVolumeInfo(drive);
  if (!volume || volume->SerialNo == expected.serialNo) return "";
  return FillMessage(ScanReport::kOtherVolume, {drive, expected.name, expected.serialNo});
}

bool CVolumeScanner::StillThere(const std::optional<platform::FolderIdentity>& root,
                                const std::string& serialNo) const {
  if (drives_.Files().Identity(scanRoot_) != root) return false;
  const auto volume = drives_.ReadVolumeInfo(scanRoot_.substr(0, 1));
  return volume && volume->SerialNo == serialNo;
}

void CVolumeScanner::Scan() {
  if (leftOutQuestion_) {
    progress_.SetStatus(kCheckingDisc);
    const int leftOut = FilesLeftOut(scanRoot_, formats_);
    if (leftOut > 0 && messages_.Show(leftOutQuestion_(leftOut), platform::Buttons::OkCancel,
                                      platform::Icon::Warning) != platform::Answer::Ok) {
      progress_.cancel = true;
      return;
    }
  }
  // Nothing is recorded or removed for a root that is not there, nor for a
  // drive that holds another volume than the one to rescan.
  std::string refusal = RootRefusal(scanRoot_);
  if (refusal.empty() && expected_) refusal = VolumeRefusal(scanRoot_.substr(0, 1), *expected_);
  if (!refusal.empty()) {
    report_.Refuse(std::move(refusal));
    return;
  }
  const auto rootIdentity = drives_.Files().Identity(scanRoot_);
  const int volId = discovery_.FindOrAddVolume(scanRoot_);
  if (volId == -1) {
    report_.Refuse(FillMessage(ScanReport::kNotThere, {scanRoot_}));
    return;
  }
  const std::string serialNo = db_.GetVolumeSerial(volId);

  progress_.SetStatus(kSearching);
  progress_.progress = WorkerProgress::kBusy;  // how much there is to walk is not known
  discovery_.BeginWalk(scanRoot_, formats_);
  discovery_.MarkSubtreeDirty(scanRoot_, volId);
  discovery_.RecordMediaFolders(scanRoot_, volId);
  // The root went away since it was looked at, or the disk was unplugged or
  // swapped during the walk, so that what it missed says nothing of what the
  // volume holds: nothing is removed. The dirty bits, set in memory only, are
  // dropped with the sweep that does not run.
  if (report_.Refusal().empty() && !StillThere(rootIdentity, serialNo))
    report_.Refuse(FillMessage(ScanReport::kNotThere, {scanRoot_}));
  if (!report_.Refusal().empty()) return;
  discovery_.SweepSubtree(scanRoot_, volId);

  const auto tagPhaseStart = std::chrono::steady_clock::now();
  db_.Begin();
  const std::string localRoot = drives_.Files().LocalPath(scanRoot_);
  tags_.Run(scanRoot_, localRoot.starts_with('/') ? localRoot : "", volId, discovery_.Index(), formats_);
  db_.Commit();
  tagPhaseTime_ = std::chrono::steady_clock::now() - tagPhaseStart;
  // Files the reader could not reach are read again by the next scan.
  if (!StillThere(rootIdentity, serialNo)) report_.Refuse(FillMessage(ScanReport::kNotThere, {scanRoot_}));
}
