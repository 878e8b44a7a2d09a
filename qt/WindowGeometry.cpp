#include "qt/WindowGeometry.h"

#include <QWidget>

void MoveTopLevel(QWidget& window, int left, int top, int width, int height) {
  window.move(left, top);
  window.resize(width, height);
}

Rect TopLevelRect(const QWidget& window) {
  const QPoint at = window.pos();
  return {at.x(), at.y(), at.x() + window.width(), at.y() + window.height()};
}
