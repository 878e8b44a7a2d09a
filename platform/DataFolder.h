#pragma once
// Where the catalogue and the drive table live; both programs follow one rule:
//   1. the folder named by VANTRELLE_DATA, when it is set (an absolute path);
//   2. the program's own folder, when it holds the catalogue or a file named
//      "vantrelle.portable" (a portable copy, and catalogues made before);
//   3. $XDG_DATA_HOME/vantrelle, when XDG_DATA_HOME is an absolute path;
//   4. ~/.local/share/vantrelle.
// A folder of the rule that is missing is made (mode 0700).

#include <string>

namespace platform {

// What the rule reads from the environment and the disk.
struct DataFolderInputs {
  std::string vantrelleData;  // VANTRELLE_DATA, "" when unset
  std::string xdgDataHome;    // XDG_DATA_HOME, "" when unset
  std::string home;           // HOME
  std::string programFolder;  // ending in "/"
};

struct DataFolder {
  std::string path;   // ending in "/"; "" when there is none to use
  std::string error;  // why not, and what to do; "" when path is usable
};

// The folder the rule names, made when missing; an error when it cannot be
// made, or holds no catalogue and cannot be written.
DataFolder ChooseDataFolder(const DataFolderInputs& inputs);

// The same for this process: its environment and its program folder.
DataFolder FindDataFolder();

}  // namespace platform
