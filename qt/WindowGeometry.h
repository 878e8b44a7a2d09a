#pragma once
// A top-level window's rectangle as the settings keep it: the position of
// its frame and the size of its client area. The window manager draws (and
// sizes) the frame, so the round trip through the settings is exact only
// this way; on platforms that do not report positions the values are kept
// as they are. User-interface thread only.

#include "ui/MainWindowView.h"

class QWidget;

void MoveTopLevel(QWidget& window, int left, int top, int width, int height);
Rect TopLevelRect(const QWidget& window);
