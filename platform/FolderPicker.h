#pragma once
// The folder picker: the user chooses a folder, or cancels.
// Used from the user-interface thread only.

#include <string>

namespace platform {

class FolderPicker {
 public:
  enum Result : int { kChosen = 1, kNotAFolder = -1, kCancelled = 2 };

  virtual ~FolderPicker() = default;

  // Shows the picker with a title, starting at a Linux folder ("" for none).
  // On kChosen, chosenFolder holds the absolute Linux folder.
  virtual int Browse(const std::string& title, const std::string& initialFolder, std::string& chosenFolder) = 0;
};

}  // namespace platform
