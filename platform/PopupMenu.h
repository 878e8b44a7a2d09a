#pragma once
// A popup menu shown where the context-menu request was made, tracked until
// the user picks an entry or dismisses it. User-interface thread only.

#include <span>

namespace platform {

struct MenuEntry {
  int command;
  const char* text;
  bool checkable = false;  // shows a check mark while checked
  bool checked = false;
};

class PopupMenu {
 public:
  virtual ~PopupMenu() = default;
  // Returns the chosen entry's command, or 0 when none was chosen.
  virtual int Track(std::span<const MenuEntry> entries) = 0;
};

}  // namespace platform
