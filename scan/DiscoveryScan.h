#pragma once
// The first phase of a scan: records every folder below the scan root that
// holds audio files (directly or further down) and their audio files, and
// removes the rows of what is no longer there. Mark, visit, sweep: rows seen
// again keep their ids, so play lists and the user's edits survive a rescan.
//
// Only regular files are recorded. A folder that cannot be listed is never
// taken for an empty one: its rows and those of everything stored below it
// are kept as they are, unless its parent, listed again, no longer holds it.
// A file seen again whose modification time or size differs from when its
// tags were read is set to be read again. The walk stays below the root: it never enters the
// folders above it nor those that are off limits, and enters every folder
// once, however many links lead to it.
//
// One walk lists every folder once: a folder is recorded when audio turns up
// in it or below it, after the folders above it that were not recorded yet,
// so folders and files get their ids in the order of a walk that knew ahead
// which folders hold audio.
//
// Runs on the scan worker. Reads the cancel flag and writes the status text,
// the progress line (folders searched) and the report.

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "scan/BatchedTransaction.h"
#include "scan/VolumeIndex.h"
#include "volumes/OffLimitsFolders.h"
#include "volumes/Paths.h"

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

  void MarkSubtreeDirty(const std::string& root, int volId);

  // Walks the root's folders, recording each folder with audio files in it or
  // below it, and its audio files (new rows go in batched transactions);
  // returns the number of audio files recorded. A folder reached twice
  // (through links) is entered once. Stops descending once cancelled.
  int RecordMediaFolders(const std::string& root, int volId);

  int FindOrAddPath(const std::string& folder, int parentId, int volId);

  // Removes the folders under the root not seen by this scan, with their
  // files, and the unseen files of the folders that were seen.
  void SweepSubtree(const std::string& root, int volId);

  VolumeIndex& Index() { return index_; }

 private:
  using FolderSet = std::set<std::pair<std::uint64_t, std::uint64_t>>;

  // The folder's Linux path, or the drive path when its drive has no root.
  std::string LocalOrDrivePath(const std::string& folder) const;
  static std::string SubfolderPath(const std::string& folderPath, const std::string& name);
  // A folder on the way down from the root; pathId stays -1 until audio
  // turns up in it or below it.
  struct Visited {
    std::string folder;
    std::string listed;
    int pathId = -1;
  };
  // An audio file of the folder being visited, as a look at it found it.
  struct Sighting {
    std::string path;                          // to look at it by: its Linux path when known
    int fileId = -1;                           // -1: not recorded yet
    std::optional<platform::FileFacts> facts;  // none: it went away meanwhile
    bool stampChanged = false;                 // a new stamp is to be kept
    bool readAgain = false;                    // changed since its tags were read
  };

  // folder is the normalised drive path, listed the path to list it by.
  int Visit(const std::string& folder, const std::string& listed);
  int RecordFiles(const std::string& listed, const std::vector<std::string>& names);
  std::vector<Sighting> LookAt(const std::string& listed, const std::vector<std::string>& names) const;
  void Record(const Sighting& file, int pathId);
  // Whether a folder that could not be listed is gone: its parent, listed
  // again, no longer holds it.
  bool GoneFromParent(const std::string& folder) const;
  // Records the folders of the way down that are not recorded yet, top down;
  // the PathID of the last one (-1 when the way is empty).
  int RecordWayDown();
  bool WayDownAddsFolders() const;
  IdList SubtreeOf(const std::string& root, int volId);
  // The files the index holds for the folders.
  IdList FilesOf(const IdList& paths) const;
  void SetDirtyBits(const IdList& paths, const IdList& files, int bit);
  // False when the folder is off limits or already in the set.
  bool EnterOnce(const std::string& folder, FolderSet& entered) const;
  void NoteSkipped(const platform::Listing& listing);
  void KeepUnlisted(const std::string& folder, platform::ListingStatus status);
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
  int volId_ = -1;
  BatchedTransaction adding_;
  std::vector<Visited> wayDown_;  // from the root to the folder being visited
  FolderSet enteredFolders_;
  int foldersSearched_ = 0;  // for the progress line
};
