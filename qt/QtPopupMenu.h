#pragma once
// Popup menus tracked at the mouse, returning the chosen entry's command at
// once (0 when dismissed). User-interface thread only.

#include <span>
#include <utility>
#include <vector>

#include "platform/PopupMenu.h"

class QWidget;

// Shows the entries (command, text) in a modal popup at the mouse.
int TrackPopupAtCursor(QWidget* parent, const std::vector<std::pair<int, const char*>>& entries);

class QtPopupMenu final : public platform::PopupMenu {
 public:
  // parent: the window the menu belongs to; it must outlive this object.
  explicit QtPopupMenu(QWidget* parent) : parent_(parent) {}
  int Track(std::span<const platform::MenuEntry> entries) override;

 private:
  QWidget* parent_;
};
