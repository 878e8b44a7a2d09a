#pragma once
// The file system as the logic sees it.
//
// Every path is either a drive path ("C:\Music\song.mp3", resolved through the
// drive table, components matched without regard to case where the exact case
// does not exist) or an absolute Linux path ("/home/x/file"). No call throws;
// failures are reported by the result. Calls come from any thread.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace platform {

struct DirEntry {
  std::string name;
  bool isDirectory = false;
};

struct FileFacts {
  std::string name;  // the name as the file system stores it
  std::int64_t size = 0;
};

// What copying one file came to: copied; an entry of the target's name was
// there already and was left as it was; or failed, with a short reason for
// the user ("disk full", "target folder missing").
struct CopyResult {
  enum class Outcome { Copied, AlreadyThere, Failed };
  Outcome outcome = Outcome::Failed;
  std::string reason;  // empty unless failed

  static CopyResult Copied() { return {Outcome::Copied, {}}; }
  static CopyResult AlreadyThere() { return {Outcome::AlreadyThere, {}}; }
  static CopyResult Failed(std::string why) { return {Outcome::Failed, std::move(why)}; }
  bool operator==(const CopyResult&) const = default;
};

// Identifies a folder independently of the path that reached it.
struct FolderIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  bool operator==(const FolderIdentity&) const = default;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The Linux path for a path, or "" when its drive has no root.
  virtual std::string LocalPath(const std::string& path) const = 0;

  // Entries of a folder whose names match a wildcard pattern ("*.mp3", "*.*"),
  // without regard to case, in the order the file system yields them; "." and
  // ".." and names holding a "\" are left out. An unreadable folder lists nothing.
  virtual std::vector<DirEntry> List(const std::string& folder,
                                     const std::string& pattern) const = 0;

  // Whether a folder holds at least one entry that is not a folder and matches.
  virtual bool AnyFileMatches(const std::string& folder,
                              const std::string& pattern) const = 0;

  virtual std::optional<FolderIdentity> Identity(const std::string& folder) const = 0;
  virtual std::optional<FileFacts> Stat(const std::string& path) const = 0;
  virtual bool Exists(const std::string& path) const = 0;

  // Creates one folder; an existing folder counts as success.
  virtual bool CreateFolder(const std::string& path) = 0;
  virtual bool Remove(const std::string& path) = 0;

  // Copies a regular file to a target that must not exist yet. An existing
  // entry of the target's name (even a link or a dangling link) is never
  // replaced, followed or changed. A partial copy never appears under the
  // target's name. The copy the call wrote is readable and writable by its
  // owner, whatever the source's mode.
  virtual CopyResult CopyNoOverwrite(const std::string& source, const std::string& target) = 0;
};

}  // namespace platform
