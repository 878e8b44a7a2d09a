#include "qt/WindowStacking.h"

#include <QEvent>
#include <QWidget>

void WindowStacking::Watch(QWidget& window) {
  window.installEventFilter(this);
  places_[&window] = next_++;
}

void WindowStacking::Raised(const QWidget& window) { places_[&window] = next_++; }

bool WindowStacking::Covers(const QWidget& upper, const QWidget& lower) const {
  if (!upper.isVisible() || !lower.isVisible() || upper.isMinimized()) return false;
  return Place(upper) > Place(lower) && upper.frameGeometry().intersects(lower.frameGeometry());
}

int WindowStacking::Place(const QObject& window) const {
  const auto found = places_.find(&window);
  return found == places_.end() ? 0 : found->second;
}

bool WindowStacking::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowActivate) places_[watched] = next_++;
  return false;
}
