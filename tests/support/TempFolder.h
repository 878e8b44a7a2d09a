#pragma once
// Temporary folders for tests, and a drive table laid out in one of them.

#include <string>

namespace testing_support {

// A fresh folder under the system's temporary folder, removed with everything
// in it when the object goes away.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder, without a trailing "/".
  const std::string& Path() const { return path_; }

  // Creates a folder (and its parents) below this one; returns its path.
  std::string MakeFolder(const std::string& relative) const;

  // Writes a file below this one (parents created); returns its path.
  std::string WriteFile(const std::string& relative, const std::string& content) const;

 private:
  std::string path_;
};

// The "drives" folder of a program folder, built link by link as a test needs:
// fixed disks and CD drives whose "disc" is a folder that can be swapped.
class TestDrives {
 public:
  explicit TestDrives(std::string programFolder);

  void AddFixed(char letter, const std::string& folder) const;
  // A CD drive holding the disc folder; an empty folder name leaves it empty.
  void AddCd(char letter, const std::string& discFolder = "") const;
  void InsertDisc(char letter, const std::string& discFolder) const;
  void Eject(char letter) const;

 private:
  std::string LinkPath(char letter, bool cd) const;
  std::string folder_;
};

// Writes the files that give a disc folder its label and serial number.
void LabelDisc(const std::string& discFolder, const std::string& label, unsigned serial);

}  // namespace testing_support
