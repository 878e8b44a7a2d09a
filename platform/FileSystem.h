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

// What an entry is once links are followed. Only regular files and folders
// are ever opened: a pipe, a socket or a device could block a reader for ever,
// and a broken link leads nowhere.
enum class EntryKind { File, Folder, Other };

struct DirEntry {
  std::string name;
  EntryKind kind = EntryKind::Other;
  bool IsFile() const { return kind == EntryKind::File; }
  bool IsFolder() const { return kind == EntryKind::Folder; }
};

// Missing: the folder is not there (or is not a folder). Unreadable: it is
// there but could not be listed, or not to the end; nothing can be said of
// what it holds.
enum class ListingStatus { Listed, Missing, Unreadable };

struct Listing {
  ListingStatus status = ListingStatus::Missing;
  std::vector<DirEntry> entries;
  // Matching entries left out: names holding a "\" (no drive path can name
  // them), and entries whose Linux path would be too long to open.
  std::vector<DirEntry> unnameable;
  std::vector<DirEntry> tooLong;
  bool Listed() const { return status == ListingStatus::Listed; }
};

struct FileFacts {
  std::string name;  // the name as the file system stores it
  std::int64_t size = 0;
  std::int64_t modifiedNs = 0;  // last modification, nanoseconds since 1970
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
  // without regard to case, in name order without regard to the case of A to
  // Z (byte order between names that differ only in case); "." and ".." are
  // left out. A folder that cannot be listed says so by its status:
  // it is never taken for an empty one.
  virtual Listing List(const std::string& folder, const std::string& pattern) const = 0;

  virtual std::optional<FolderIdentity> Identity(const std::string& folder) const = 0;
  virtual std::optional<FileFacts> Stat(const std::string& path) const = 0;
  // Stat of each name in the folder (a path ending in its separator), in
  // order; a file system that can looks the folder up once for all of them.
  virtual std::vector<std::optional<FileFacts>> StatEach(const std::string& folder,
                                                         const std::vector<std::string>& names) const {
    std::vector<std::optional<FileFacts>> facts;
    facts.reserve(names.size());
    for (const std::string& name : names) facts.push_back(Stat(folder + name));
    return facts;
  }
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
