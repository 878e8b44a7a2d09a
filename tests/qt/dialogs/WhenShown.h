#pragma once
// The user of a modal run: acts on a window once the run has shown it.

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>

// The first visible top-level window of type T, or null.
template <class T>
T* VisibleWindow() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* found = qobject_cast<T*>(window); found && found->isVisible()) return found;
  return nullptr;
}

// Runs act, from the event loop, on the first visible top-level window of
// type T once there is one; the run that shows it goes on meanwhile.
template <class T>
void WhenShown(std::function<void(T&)> act) {
  auto* poll = new QTimer(qApp);
  QObject::connect(poll, &QTimer::timeout, [poll, act] {
    if (T* found = VisibleWindow<T>()) {
      poll->stop();
      poll->deleteLater();
      act(*found);
    }
  });
  poll->start(5);
}

// The push button of a window that says text, or null.
inline QPushButton* ButtonSaying(const QWidget& window, const QString& text) {
  for (QPushButton* button : window.findChildren<QPushButton*>())
    if (button->text() == text) return button;
  return nullptr;
}
