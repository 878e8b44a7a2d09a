#pragma once
// What a finished scan tells the user besides "Scan Complete.": the folders
// it could not read (whose entries it kept), and the files and folders it
// skipped because a drive path cannot name them or their paths are too long.
//
// Written by the scan worker, read by the dialog once the worker is done.

#include <set>
#include <string>

namespace platform {
struct DirEntry;
}

class ScanReport {
 public:
  void Clear();

  void FolderNotRead(const std::string& folder) { notRead_.insert(folder); }
  void SkippedForName(const platform::DirEntry& entry);
  void SkippedForLength(const platform::DirEntry& entry);

  // One line per kind of note; "" when there is nothing to tell.
  std::string Notes() const;

 private:
  struct Count {
    int files = 0;
    int folders = 0;
    void Add(const platform::DirEntry& entry);
  };

  std::set<std::string> notRead_;
  Count forName_;
  Count forLength_;
};
