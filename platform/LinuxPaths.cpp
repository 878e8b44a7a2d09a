#include "platform/LinuxPaths.h"

#include <dirent.h>

#include <filesystem>

namespace platform {

std::string CanonicalFolder(const std::string& path) {
  if (path.empty()) return "";
  std::error_code error;
  std::string canonical = std::filesystem::weakly_canonical(path, error).string();
  if (error) return "";
  while (canonical.size() > 1 && canonical.back() == '/') canonical.pop_back();
  return canonical;
}

bool IsSameOrBelow(const std::string& path, const std::string& base) {
  if (base == "/") return !path.empty() && path.front() == '/';
  return path.starts_with(base) && (path.size() == base.size() || path[base.size()] == '/');
}

std::vector<std::string> ComponentsBelow(const std::string& path, const std::string& base) {
  std::vector<std::string> components;
  std::size_t at = base == "/" ? 0 : base.size();
  while (at < path.size()) {
    std::size_t start = at + 1;
    std::size_t end = path.find('/', start);
    if (end == std::string::npos) end = path.size();
    if (end > start) components.push_back(path.substr(start, end - start));
    at = end;
  }
  return components;
}

std::vector<std::string> SystemFolders() { return {"/proc", "/sys", "/dev"}; }

bool IsSystemFolder(const std::string& path) {
  for (const std::string& folder : SystemFolders())
    if (IsSameOrBelow(path, folder)) return true;
  return false;
}

bool CanListFolder(const std::string& folder) {
  DIR* dir = opendir(folder.c_str());
  if (!dir) return false;
  closedir(dir);
  return true;
}

std::vector<std::string> FolderAndItsParents(const std::string& path) {
  std::string folder = path;
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  std::vector<std::string> folders;
  if (folder.empty() || folder.front() != '/') return folders;
  for (;;) {
    folders.push_back(folder);
    if (folder == "/") break;
    const std::size_t slash = folder.find_last_of('/');
    folder = slash == 0 ? "/" : folder.substr(0, slash);
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  }
  return folders;
}

std::string LastComponent(const std::string& path) {
  std::size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace platform
