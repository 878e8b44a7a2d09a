#include "scan/CVolumeScanner.h"

#include <thread>

#include "catalogue/MediaDB.h"

namespace {

// One reader per core: TagLib's parsing is what a fresh scan waits for.
unsigned ReaderThreads() {
  const unsigned cores = std::thread::hardware_concurrency();
  return cores == 0 ? 1 : cores;
}

}  // namespace

CVolumeScanner::CVolumeScanner(MediaDB& db, CDriveServices& drives, TagReader& reader,
                               platform::MessageBox& messages)
    : db_(db),
      discovery_(db, drives, progress_, report_),
      tags_(db, reader, messages, progress_, ReaderThreads()) {}

void CVolumeScanner::Prepare(int kind, const std::string& root) {
  progress_.progress = 0;
  progress_.done = false;
  progress_.cancel = false;
  progress_.SetStatus("");
  report_.Clear();
  requestedKind_ = kind;
  scanRoot_ = root;
}

int CVolumeScanner::Run() {
  const int volId = discovery_.FindOrAddVolume(scanRoot_);
  progress_.SetStatus(kSearching);
  discovery_.ClearMediaFolders();
  discovery_.MarkMediaFolders(scanRoot_);
  discovery_.MarkSubtreeDirty(scanRoot_, volId);
  discovery_.ScanFolder(scanRoot_, -1, volId);
  discovery_.SweepSubtree(scanRoot_, volId);

  const auto tagPhaseStart = std::chrono::steady_clock::now();
  db_.Begin();
  tags_.Run(scanRoot_, volId, discovery_.Index());
  db_.Commit();
  tagPhaseTime_ = std::chrono::steady_clock::now() - tagPhaseStart;

  progress_.done = true;
  return 0;
}
