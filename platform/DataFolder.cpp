#include "platform/DataFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "platform/ProgramFolder.h"

namespace platform {
namespace {

constexpr const char* kCatalogue = "Quillora.db";
constexpr const char* kPortableMark = "vantrelle.portable";
constexpr const char* kRemedy = " Set VANTRELLE_DATA to a folder you can write, or check the folder's permissions.";

std::string WithSlash(std::string folder) {
  if (!folder.ends_with('/')) folder += '/';
  return folder;
}

bool Exists(const std::string& path) {
  struct stat facts {};
  return stat(path.c_str(), &facts) == 0;
}

DataFolder Refused(const std::string& folder, const std::string& why) {
  return {"", "Cannot keep the catalogue in " + folder + ": " + why + "." + kRemedy};
}

// Makes the folder and the ones above it; only the last gets mode 0700 for
// sure, as the ones above may be shared (~/.local/share).
DataFolder Made(const std::string& folder) {
  std::error_code error;
  const std::filesystem::path path(folder);
  if (!std::filesystem::is_directory(path, error)) {
    std::filesystem::create_directories(path.parent_path(), error);
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) return Refused(folder, std::strerror(errno));
  }
  if (!std::filesystem::is_directory(path, error)) return Refused(folder, "it is not a folder");
  const std::string withSlash = WithSlash(folder);
  // A catalogue the user may only read is served for reading.
  if (!Exists(withSlash + kCatalogue) && access(folder.c_str(), W_OK | X_OK) != 0)
    return Refused(folder, std::strerror(errno));
  return {withSlash, ""};
}

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

DataFolder ChooseDataFolder(const DataFolderInputs& inputs) {
  if (!inputs.vantrelleData.empty()) {
    if (!inputs.vantrelleData.starts_with('/'))
      return {"", "VANTRELLE_DATA must name a folder by its absolute path, not \"" + inputs.vantrelleData + "\"."};
    return Made(inputs.vantrelleData);
  }
  if (Exists(inputs.programFolder + kCatalogue) || Exists(inputs.programFolder + kPortableMark))
    return {inputs.programFolder, ""};
  if (inputs.xdgDataHome.starts_with('/')) return Made(WithSlash(inputs.xdgDataHome) + "vantrelle");
  if (!inputs.home.starts_with('/'))
    return {"", std::string("There is no home folder to keep the catalogue in.") + kRemedy};
  return Made(WithSlash(inputs.home) + ".local/share/vantrelle");
}

DataFolder FindDataFolder() {
  return ChooseDataFolder(
      {Environment("VANTRELLE_DATA"), Environment("XDG_DATA_HOME"), Environment("HOME"), ProgramFolder()});
}

}  // namespace platform
