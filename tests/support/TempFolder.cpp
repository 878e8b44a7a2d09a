#include "tests/support/TempFolder.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace testing_support {

TempFolder::TempFolder() {
  std::string pattern = (fs::temp_directory_path() / "vantrelle-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot create a temporary folder");
  path_ = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  // Tests may leave read-only folders behind; open them up before removing.
  for (auto it = fs::recursive_directory_iterator(path_, fs::directory_options::skip_permission_denied, ignored);
       it != fs::recursive_directory_iterator(); it.increment(ignored)) {
    if (it->is_directory(ignored) && !it->is_symlink(ignored))
      fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
  }
  fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ignored);
  fs::remove_all(path_, ignored);
}

std::string TempFolder::MakeFolder(const std::string& relative) const {
  fs::path p = fs::path(path_) / relative;
  fs::create_directories(p);
  return p.string();
}

std::string TempFolder::WriteFile(const std::string& relative, const std::string& content) const {
  fs::path p = fs::path(path_) / relative;
  fs::create_directories(p.parent_path());
  std::ofstream(p, std::ios::binary) << content;
  return p.string();
}

TestDrives::TestDrives(std::string programFolder) : folder_((fs::path(programFolder) / "drives").string()) {
  fs::create_directories(folder_);
}

std::string TestDrives::LinkPath(char letter, bool cd) const {
  std::string name(1, static_cast<char>(std::tolower(static_cast<unsigned char>(letter))));
  name += cd ? "::" : ":";
  return (fs::path(folder_) / name).string();
}

void TestDrives::AddFixed(char letter, const std::string& folder) const {
  fs::create_directory_symlink(folder, LinkPath(letter, false));
}

void TestDrives::AddCd(char letter, const std::string& discFolder) const { InsertDisc(letter, discFolder); }

void TestDrives::InsertDisc(char letter, const std::string& discFolder) const {
  std::string link = LinkPath(letter, true);
  std::error_code ignored;
  fs::remove(link, ignored);
  // A link whose target is missing stands for an empty drive.
  std::string target = discFolder.empty() ? folder_ + "/.no-disc" : discFolder;
  fs::create_symlink(target, link);
}

void TestDrives::Eject(char letter) const { InsertDisc(letter, ""); }

void LabelDisc(const std::string& discFolder, const std::string& label, unsigned serial) {
  fs::create_directories(discFolder);
  std::ofstream(fs::path(discFolder) / ".windows-label") << label << "\n";
  char hex[16];
  std::snprintf(hex, sizeof hex, "%08X", serial);
  std::ofstream(fs::path(discFolder) / ".windows-serial") << hex << "\n";
}

}  // namespace testing_support
