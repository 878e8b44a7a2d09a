#include "platform/DriveLinks.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace platform {
namespace {

constexpr char kLastCdLetter = 'Y';  // Z is the file-system root

std::string LinkName(char letter, bool cd) {
  std::string name(1, static_cast<char>(std::tolower(static_cast<unsigned char>(letter))));
  return name + (cd ? "::" : ":");
}

std::optional<DriveLink> ReadLink(const std::string& drivesFolder, char letter, bool cd) {
  fs::path link = fs::path(drivesFolder) / LinkName(letter, cd);
  std::error_code error;
  fs::path target = fs::read_symlink(link, error);
  if (error) return std::nullopt;
  if (target.is_relative()) target = fs::path(drivesFolder) / target;
  return DriveLink{static_cast<char>(std::toupper(static_cast<unsigned char>(letter))), cd,
                   target.lexically_normal().string()};
}

// "sr12" -> 12; -1 for names of other devices.
int OpticalDriveNumber(const std::string& name) {
  if (name.size() < 3 || name.size() > 8 || !name.starts_with("sr")) return -1;
  if (!std::all_of(name.begin() + 2, name.end(), [](char c) { return std::isdigit(static_cast<unsigned char>(c)); }))
    return -1;
  return std::stoi(name.substr(2));
}

std::vector<int> OpticalDriveNumbers(const std::string& sysBlockFolder) {
  std::vector<int> numbers;
  std::error_code error;
  for (fs::directory_iterator it(sysBlockFolder, error), end; !error && it != end; it.increment(error)) {
    int number = OpticalDriveNumber(it->path().filename().string());
    if (number >= 0) numbers.push_back(number);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace

std::optional<DriveLink> ReadDriveLink(const std::string& drivesFolder, char letter) {
  if (!std::isalpha(static_cast<unsigned char>(letter))) return std::nullopt;
  if (auto fixed = ReadLink(drivesFolder, letter, false)) return fixed;
  return ReadLink(drivesFolder, letter, true);
}

std::vector<DriveLink> ReadDriveLinks(const std::string& drivesFolder) {
  std::vector<DriveLink> links;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (auto link = ReadDriveLink(drivesFolder, letter)) links.push_back(*link);
  }
  return links;
}

bool WriteDriveLink(const std::string& drivesFolder, const DriveLink& link) {
  if (ReadDriveLink(drivesFolder, link.letter)) return false;
  std::string path = (fs::path(drivesFolder) / LinkName(link.letter, link.cd)).string();
  return symlink(link.target.c_str(), path.c_str()) == 0;
}

std::vector<DriveLink> DefaultDriveLinks(const std::string& home, const std::string& sysBlockFolder) {
  std::vector<DriveLink> links;
  if (!home.empty()) links.push_back({'C', false, home});
  char letter = 'D';
  for (int number : OpticalDriveNumbers(sysBlockFolder)) {
    if (letter > kLastCdLetter) break;
    links.push_back({letter++, true, "/dev/sr" + std::to_string(number)});
  }
  links.push_back({'Z', false, "/"});
  return links;
}

}  // namespace platform
