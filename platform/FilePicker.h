#pragma once
// The file picker: the user chooses a file to open or a file to save, or
// cancels. Used from the user-interface thread only.

#include <string>

namespace platform {

class FilePicker {
 public:
  enum Result : int { kChosen = 1, kCancelled = 2 };
  enum class Purpose { Open, Save };

  virtual ~FilePicker() = default;

  // Shows the picker with a title and a filter ("Play lists (*.m3u *.pls)"),
  // starting at a Linux path: a folder, or a file whose name it suggests (""
  // for none). On kChosen, chosenFile holds the absolute Linux path: of an
  // existing file to open, or of a file to save (the user agreed to replace
  // one that is there).
  virtual int Pick(Purpose purpose, const std::string& title, const std::string& filter, const std::string& start,
                   std::string& chosenFile) = 0;
};

}  // namespace platform
