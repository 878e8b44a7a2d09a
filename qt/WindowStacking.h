#pragma once
// Which of the program's top-level windows lies above which, as far as the
// program can tell: the one activated or raised last is on top. Window
// managers do not tell a program how its windows are stacked, but they
// raise a window when it is activated. User-interface thread only.

#include <QObject>
#include <map>

class QWidget;

class WindowStacking final : public QObject {
 public:
  using QObject::QObject;

  // Follows the window's activations from now on.
  void Watch(QWidget& window);
  // The window was raised by the program.
  void Raised(const QWidget& window);
  // Whether upper lies above lower and covers part of it (both shown).
  bool Covers(const QWidget& upper, const QWidget& lower) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int Place(const QObject& window) const;

  std::map<const QObject*, int> places_;  // higher is nearer the top
  int next_ = 1;
};
