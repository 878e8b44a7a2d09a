#include "platform/DrivePaths.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <vector>

#include "base/AsciiCase.h"
#include "platform/FolderNames.h"

namespace platform {

bool IsDrivePath(const std::string& path) {
  return path.size() >= 2 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':';
}

namespace {

std::vector<std::string> SplitAtBackslashes(const std::string& text) {
  std::vector<std::string> components;
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t end = text.find('\\', start);
    if (end == std::string::npos) end = text.size();
    if (end > start) components.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return components;
}

bool EntryExists(const std::string& path) {
  struct stat facts {};
  return lstat(path.c_str(), &facts) == 0;
}

std::optional<std::string> NameIgnoringCase(const std::string& folder, const std::string& name) {
  std::optional<std::string> found;
  ForEachName(folder, [&](const dirent& entry, int) {
    if (EqualIgnoringAsciiCase(name, entry.d_name) && (!found || *found > entry.d_name)) found = entry.d_name;
    return true;
  });
  return found;
}

// The name under which the component exists in the folder, if it does.
std::optional<std::string> ExistingName(const std::string& folder, const std::string& name) {
  if (EntryExists(folder + "/" + name)) return name;
  return NameIgnoringCase(folder.empty() ? "/" : folder, name);
}

char UpperLetter(const std::string& path) {
  return static_cast<char>(std::toupper(static_cast<unsigned char>(path[0])));
}

// The components with "." dropped and each ".." taking away the one before it.
std::vector<std::string> WithoutDots(const std::vector<std::string>& components) {
  std::vector<std::string> kept;
  for (const std::string& component : components) {
    if (component == ".") continue;
    if (component != "..")
      kept.push_back(component);
    else if (!kept.empty())
      kept.pop_back();
  }
  return kept;
}

std::string JoinAsDrivePath(char letter, const std::vector<std::string>& components, bool trailingBackslash) {
  std::string path{letter, ':'};
  for (const std::string& component : components) path += "\\" + component;
  if (components.empty() || trailingBackslash) path += "\\";
  return path;
}

}  // namespace

bool ClimbsAboveRoot(const std::string& path) {
  if (!IsDrivePath(path)) return false;
  int depth = 0;
  for (const std::string& component : SplitAtBackslashes(path.substr(2))) {
    if (component == ".") continue;
    depth += component == ".." ? -1 : 1;
    if (depth < 0) return true;
  }
  return false;
}

std::string CanonicalDrivePath(const DriveTable& drives, const std::string& path) {
  if (!IsDrivePath(path)) return "";
  const char letter = UpperLetter(path);
  const std::string root = drives.RootFolder(letter);
  if (root.empty()) return "";
  const std::vector<std::string> components = WithoutDots(SplitAtBackslashes(path.substr(2)));
  const bool trailingBackslash = path.ends_with('\\');
  // ResolvePath spells each existing component as stored; what lies below the
  // root is the canonical path. Components are single names, so the resolved
  // path holds one Linux component for each.
  std::string local = ResolvePath(drives, JoinAsDrivePath(letter, components, false));
  while (local.size() > 1 && local.back() == '/') local.pop_back();
  const std::size_t rootLength = root == "/" ? 0 : root.size();
  std::vector<std::string> spelled;
  for (std::size_t at = rootLength; at < local.size();) {
    const std::size_t end = std::min(local.find('/', at + 1), local.size());
    spelled.push_back(local.substr(at + 1, end - at - 1));
    at = end;
  }
  if (spelled.size() != components.size()) return JoinAsDrivePath(letter, components, trailingBackslash);
  return JoinAsDrivePath(letter, spelled, trailingBackslash);
}

std::string ResolvePath(const DriveTable& drives, const std::string& path) {
  if (path.starts_with('/')) return path;
  if (!IsDrivePath(path)) return "";
  std::string root = drives.RootFolder(static_cast<char>(std::toupper(static_cast<unsigned char>(path[0]))));
  if (root.empty()) return "";

  std::vector<std::string> components = SplitAtBackslashes(path.substr(2));
  std::string local = root == "/" ? "" : root;
  // Most paths exist exactly as written: one look settles them.
  std::string exact = local;
  // Appended piece by piece: GCC 12 at -O3 warns falsely (-Wrestrict) about "/" + text.
  for (const std::string& component : components) exact.append("/").append(component);
  if (!components.empty() && EntryExists(exact)) {
    if (path.ends_with('\\')) exact += "/";
    return exact;
  }

  bool stillExists = true;  // below a missing component nothing can be looked up
  for (const std::string& component : components) {
    std::optional<std::string> existing = stillExists ? ExistingName(local, component) : std::nullopt;
    stillExists = existing.has_value();
    local.append("/").append(existing.value_or(component));
  }
  if (local.empty()) return "/";
  if (path.ends_with('\\') && !local.ends_with('/')) local += "/";
  return local;
}

}  // namespace platform
