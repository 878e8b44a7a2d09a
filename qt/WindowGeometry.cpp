#include "qt/WindowGeometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace {

QScreen* ScreenAt(const QRect& rect) {
  QScreen* screen = QGuiApplication::screenAt(rect.center());
  return screen ? screen : QGuiApplication::primaryScreen();
}

// No larger than the screen's free area, and wholly inside it.
QRect FitInto(const QRect& wanted, const QRect& area) {
  if (area.isEmpty()) return wanted;
  const int width = std::min(wanted.width(), area.width());
  const int height = std::min(wanted.height(), area.height());
  const int left = std::clamp(wanted.left(), area.left(), area.right() + 1 - width);
  const int top = std::clamp(wanted.top(), area.top(), area.bottom() + 1 - height);
  return {left, top, width, height};
}

}  // namespace

void MoveTopLevel(QWidget& window, int left, int top, int width, int height) {
  const QRect wanted(left, top, std::max(width, 1), std::max(height, 1));
  const QScreen* screen = ScreenAt(wanted);
  window.setGeometry(screen ? FitInto(wanted, screen->availableGeometry()) : wanted);
}

Rect TopLevelRect(const QWidget& window) {
  const QRect at = window.isMaximized() || window.isFullScreen() ? window.normalGeometry() : window.geometry();
  return {at.left(), at.top(), at.left() + at.width(), at.top() + at.height()};
}

Rect AvailableScreenOf(const QWidget& window) {
  const QScreen* screen = window.screen() ? window.screen() : QGuiApplication::primaryScreen();
  if (!screen) return {};
  const QRect area = screen->availableGeometry();
  return {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}
