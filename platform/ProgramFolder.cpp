#include "platform/ProgramFolder.h"

#include <filesystem>

namespace platform {

std::string ProgramFolder() {
  std::error_code error;
  std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return "./";
  std::string folder = program.parent_path().string();
  return folder.ends_with('/') ? folder : folder + "/";
}

}  // namespace platform
