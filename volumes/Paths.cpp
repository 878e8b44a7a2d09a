#include "volumes/Paths.h"

#include <algorithm>
#include <cctype>

namespace {

bool HasDrive(const std::string& path) { return path.size() >= 2 && path[1] == ':'; }

}  // namespace

std::string NormalizeFolder(const std::string& path) {
  if (path.empty() || path == "\\") return "\\";
  std::string folder = path;
  if (folder.back() != '\\') folder += '\\';
  if (!HasDrive(path) && folder.front() != '\\') folder.insert(folder.begin(), '\\');
  return folder;
}

std::string MakeFullPath(const std::string& drive, const std::string& folder, const std::string& fileName) {
  if (drive.empty()) return NormalizeFolder(folder) + fileName;
  return std::string(1, drive.front()) + ":" + NormalizeFolder(folder) + fileName;
}

std::string GetFileNamePart(const std::string& path) {
  const auto slash = path.rfind('\\');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string GetFolderPart(const std::string& path) {
  std::string folder = path.substr(0, path.size() - GetFileNamePart(path).size());
  return folder.size() > 2 ? folder.substr(2) : std::string();
}

std::string GetFolderName(const std::string& folder) {
  const std::string normal = NormalizeFolder(folder);
  if (normal == "\\" || (normal.size() == 3 && normal[1] == ':')) return "\\";
  const std::string trimmed = normal.substr(0, normal.size() - 1);
  return trimmed.substr(trimmed.rfind('\\') + 1);
}

bool Catalogues(AudioFormats formats, int type) {
  if (type >= kMp3 && type <= kWma) return true;
  return formats == AudioFormats::Every && type >= kFlac && type <= kM4a;
}

int GetFileType(const std::string& fileName, AudioFormats formats) {
  const MediaType type = MediaTypeOfName(fileName);
  return Catalogues(formats, type) ? type : kNotMedia;
}
