#pragma once
// A top-level window's rectangle as the settings keep it: the position and
// size of its client area, stored and restored alike, so that a round trip
// through the settings leaves the window where it was whatever frame the
// window manager draws. A maximised window gives the rectangle it comes back
// to. A restored rectangle is fitted into the screen it lies on (the primary
// screen when it lies on none). User-interface thread only.

#include "ui/MainWindowView.h"

class QWidget;

void MoveTopLevel(QWidget& window, int left, int top, int width, int height);
Rect TopLevelRect(const QWidget& window);
// The available part of the screen the window is on.
Rect AvailableScreenOf(const QWidget& window);
