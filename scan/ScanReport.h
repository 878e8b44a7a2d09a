#pragma once
// What a finished scan tells the user besides "Scan Complete.": the folders
// it could not read (whose entries it kept), and the files and folders it
// skipped because a drive path cannot name them or their paths are too long.
// Or, in place of all that, why the root was not scanned at all. And what it
// found: the folders recorded, the files added and removed, and the files
// whose tags and audio properties could not be read.
//
// Written by the scan worker, read by the dialog once the worker is done.

#include <set>
#include <string>
#include <utility>

#include "volumes/Paths.h"

namespace platform {
struct DirEntry;
}

class ScanReport {
 public:
  static constexpr const char* kNotThere = "The folder %s is not there. Its entries were kept.";
  static constexpr const char* kSystemFolder = "The folder %s holds system files and is not scanned.";
  static constexpr const char* kOtherVolume =
      "Drive %s: holds another volume, not \"%s\" (serial %s). Nothing was scanned.";

  // Forgets the last scan; skipped files count when they are of the formats.
  void Clear(AudioFormats formats = AudioFormats::Classic);

  // The root was not scanned; the message says why.
  void Refuse(std::string message) { refusal_ = std::move(message); }
  const std::string& Refusal() const { return refusal_; }

  void FolderNotRead(const std::string& folder) { notRead_.insert(folder); }
  void SkippedForName(const platform::DirEntry& entry);
  void SkippedForLength(const platform::DirEntry& entry);

  // One line per kind of note; "" when there is nothing to tell.
  std::string Notes() const;

  void FolderRecorded() { ++found_.folders; }
  void FileAdded() { ++found_.added; }
  void FilesRemoved(int count) { found_.removed += count; }
  void FileUnreadable() { ++found_.unreadable; }
  void WmaLeftUnread(int count) { found_.wmaLeftUnread = count; }
  // "Found 12 folders: 340 files added, 3 files removed, 2 files could not be
  // read." and, when some were, "4 WMA files named in lower case were not read."
  std::string Found() const;

 private:
  struct Count {
    int files = 0;
    int folders = 0;
    void Add(const platform::DirEntry& entry, AudioFormats formats);
  };

  AudioFormats formats_ = AudioFormats::Classic;

  struct FoundCounts {
    int folders = 0;
    int added = 0;
    int removed = 0;
    int unreadable = 0;
    int wmaLeftUnread = 0;
  };

  std::string refusal_;
  FoundCounts found_;
  std::set<std::string> notRead_;
  Count forName_;
  Count forLength_;
};
