#pragma once
// The windows the screenshot tool renders: each shot names its PNG file and
// builds its window, filled with sample data, on the user-interface thread.

#include <QString>
#include <functional>
#include <memory>
#include <vector>

class QWidget;

struct Shot {
  QString file;  // "options.png"
  std::function<std::unique_ptr<QWidget>()> make;
  // The window to render, when it is not the one made (a window it owns).
  std::function<QWidget*(QWidget& made)> pick = nullptr;
};

using ShotList = std::vector<Shot>;

// The dialogs, message boxes, pickers and the About box.
void AddDialogShots(ShotList& shots);

// The main window and the play list window.
void AddWindowShots(ShotList& shots);
