#pragma once
// The folder picker as the logic sees it: folders are drive paths
// ("C:\Music"). The platform's picker works on Linux folders, so the initial
// folder is handed to it as the Linux folder of its drive path, and the
// chosen Linux folder is put back on a drive letter. Created on the caller's
// stack for one run; user-interface thread.

#include <string>

class CDriveServices;

namespace platform {
class FolderPicker;
}

class CFolderDialog {
 public:
  enum Result : int {
    kChosen = 1,             // ChosenPath() holds the folder
    kNoFileSystemPath = -1,  // the choice has no drive path (no drive holds it)
    kCancelled = 2,
  };

  // initialFolder: a drive path, or "" to start nowhere in particular.
  CFolderDialog(platform::FolderPicker& picker, const CDriveServices& drives, std::string title,
                std::string initialFolder = "");

  int DoModal();
  const std::string& ChosenPath() const { return chosenPath_; }

 private:
  platform::FolderPicker& picker_;
  const CDriveServices& drives_;
  std::string title_;
  std::string initialFolder_;
  std::string chosenPath_;
};
