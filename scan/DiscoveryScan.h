#pragma once
// The first phase of a scan: records every folder below the scan root that
// holds audio files (directly or further down) and their audio files, and
// removes the rows of what is no longer there. Mark, visit, sweep: rows seen
// again keep their ids, so play lists and the user's edits survive a rescan.
//
// Only regular files are recorded. A folder that cannot be listed is never
// taken for an empty one: its rows and those of everything stored below it
// are kept as they are. The walk stays below the root: it never enters the
// folders above it nor those that are off limits, and enters every folder
// once, however many links lead to it.
//
// Runs on the scan worker. Reads the cancel flag and writes the status text,
// the progress line (folders found, then folders recorded) and the report.

#include <cstdint>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>

#include "platform/FileSystem.h"
#include "scan/OffLimitsFolders.h"
#include "scan/Paths.h"
#include "scan/VolumeIndex.h"

class CDriveServices;
class MediaDB;
class ScanReport;
class WorkerProgress;

class DiscoveryScan {
 public:
  DiscoveryScan(MediaDB& db, CDriveServices& drives, WorkerProgress& progress, ScanReport& report);

  // The volume row of the disc or disk holding the root, inserted when new;
  // loads the volume's rows for the phases that follow. -1 when the drive is
  // not ready: it holds no volume to add.
  int FindOrAddVolume(const std::string& root);

  // Forgets the last walk and sets up the next one from a normalised root;
  // the walk records the audio files of the formats.
  void BeginWalk(const std::string& root, AudioFormats formats = AudioFormats::Classic);

  // Counts the folders below (and including) folder that hold audio files
  // themselves, and remembers every folder with audio somewhere below it.
  // A folder reached twice (through links) is entered once.
  int MarkMediaFolders(const std::string& folder);

  void MarkSubtreeDirty(const std::string& root, int volId);

  // Records a remembered folder with its audio files (one transaction) and
  // descends; returns the number of audio files recorded below.
  int ScanFolder(const std::string& folder, int parentId, int volId);

  int FindOrAddPath(const std::string& folder, int parentId, int volId);
  // -1 when the file vanished before it could be recorded. localPath, when
  // given, is the same file as a Linux path, which spares resolving fullPath.
  int FindOrAddFile(const std::string& fullPath, int pathId, int volId,
                    const std::string& localPath = "");

  // Removes the folders under the root not seen by this scan, with their
  // files, and the unseen files of the folders that were seen.
  void SweepSubtree(const std::string& root, int volId);

  VolumeIndex& Index() { return index_; }

 private:
  using FolderSet = std::set<std::pair<std::uint64_t, std::uint64_t>>;

  // The folder's Linux path, or the drive path when its drive has no root.
  std::string LocalOrDrivePath(const std::string& folder) const;
  static std::string SubfolderPath(const std::string& folderPath, const std::string& name);
  // As the public ones, with the folder's path as LocalOrDrivePath gives it.
  int MarkMediaFolders(const std::string& normal, const std::string& local);
  int ScanFolder(const std::string& folder, const std::string& listed, int parentId, int volId);
  bool HoldsAudioFiles(const std::vector<platform::DirEntry>& entries) const;
  IdList SubtreeOf(const std::string& root, int volId);
  // The files the index holds for the folders.
  IdList FilesOf(const IdList& paths) const;
  void SetDirtyBits(const IdList& paths, const IdList& files, int bit);
  // False when the folder is off limits or already in the set.
  bool EnterOnce(const std::string& folder, FolderSet& entered) const;
  void NoteSkipped(const platform::Listing& listing);
  int MarkUnlisted(const std::string& folder, platform::ListingStatus status);
  bool KeepsUnlisted(const std::string& folder, platform::ListingStatus status);
  void KeepStoredSubtree(const std::string& folder);

  MediaDB& db_;
  CDriveServices& drives_;
  WorkerProgress& progress_;
  ScanReport& report_;
  VolumeIndex index_;
  std::string root_;
  AudioFormats formats_ = AudioFormats::Classic;
  OffLimitsFolders offLimits_;
  std::unordered_set<std::string> mediaFolders_;
  // Folders whose listing failed while marking: kept whole when recording.
  std::unordered_set<std::string> notListed_;
  FolderSet enteredFolders_;
  FolderSet recordedFolders_;
  int foldersFound_ = 0;  // entered by this walk's marking, for the progress line
};
