#pragma once
// What one copy of play list files came to: how many files were copied, and
// every file that was not, in the order the copy came to it, with the reason
// (an entry of its name already in the target folder, or why it failed).

#include <string>
#include <vector>

#include "platform/FileSystem.h"

struct NotCopiedFile {
  std::string source;    // the file's full drive path, or "FileID n" without a row
  std::string fileName;  // its name, as it would have been in the target folder
  bool alreadyThere = false;
  std::string reason;  // why it failed; empty when alreadyThere
};

class CopySummary {
 public:
  static constexpr int kNamedFailures = 3;  // in the status line, before "and N more"

  void Add(const std::string& source, const std::string& fileName, const platform::CopyResult& result);
  void AddFailure(const std::string& source, const std::string& fileName, const std::string& reason);

  int Copied() const { return copied_; }
  int AlreadyThere() const;
  int Failed() const;
  const std::vector<NotCopiedFile>& NotCopied() const { return notCopied_; }

  // One line for the play list window: "12 files copied." or "10 files
  // copied, 1 already there, 1 failed: Song.mp3 (disk full)."
  std::string StatusLine() const;

 private:
  std::string FailuresNamed() const;

  int copied_ = 0;
  std::vector<NotCopiedFile> notCopied_;
};
