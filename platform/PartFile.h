#pragma once
// A copy being written: a new file under a temporary name in the target
// folder, ".NAME.vantrelle-part" (".NAME.2.vantrelle-part" and on when that
// name is taken, say by a copy that was killed), that gets its final name
// only when it is complete. An entry that is there already is never
// replaced, followed or removed: only the file this object created is.
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
  // that, links the final name and drops the temporary one.
  Naming Publish();

 private:
  bool CreateExclusively(const std::string& name, mode_t mode);
  Naming LinkFinalName();
  void DropTemporaryName();

  int folderFd_;
  std::string finalName_;
  std::string temporaryName_;  // empty once the file no longer has it
  UniqueFd fd_;
  int error_ = 0;
};

}  // namespace platform
