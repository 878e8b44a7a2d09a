#pragma once
// A copy being written: a new file under a temporary name in the target
// folder, ".NAME.vantrelle-part" (".NAME.2.vantrelle-part" and on when that
// name is taken, say by a copy that was killed), that gets its final name
// only when it is complete. An entry that is there already is never
// replaced or followed. Once the copy is done, the part files that killed
// copies of the same name left are removed: regular files under those names
// that no writer holds (the writer keeps a flock on its part file).
// One thread at a time.

#include <sys/types.h>

#include <string>

#include "platform/UniqueFd.h"

namespace platform {

class PartFile {
 public:
  static constexpr const char* kSuffix = ".vantrelle-part";

  enum class Naming { Named, NameTaken, Failed };

  // Creates the file for writing in the folder open as folderFd (which must
  // stay open while this object lives); see Valid() and Error().
  PartFile(int folderFd, std::string finalName, mode_t mode);
  // Removes the file unless it was given its final name.
  ~PartFile();
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  bool Valid() const { return fd_.Valid(); }
  int Fd() const { return fd_.Get(); }
  // The errno of the last call that failed.
  int Error() const { return error_; }
  const std::string& TemporaryName() const { return temporaryName_; }

  // Closes the file; false when the close reports an error.
  bool Close();
  // Gives the closed file its final name unless an entry of that name exists
  // (NameTaken). Renames without replacing; where the file system refuses
  // that, links the final name and drops the temporary one. Unless it
  // failed, removes the leftovers of earlier copies of the name.
  Naming Publish();
  // Gives the closed file its final name, replacing whatever entry has it
  // (a file written anew as a whole); then removes the leftovers as Publish
  // does. False when the rename failed (see Error()).
  bool Replace();

 private:
  bool CreateExclusively(const std::string& name, mode_t mode);
  Naming Name();
  void RemoveLeftovers();
  Naming LinkFinalName();
  void DropTemporaryName();

  int folderFd_;
  std::string finalName_;
  std::string temporaryName_;  // empty once the file no longer has it
  int attempt_ = 0;            // which of the temporary names it has
  UniqueFd fd_;
  int error_ = 0;
};

}  // namespace platform
