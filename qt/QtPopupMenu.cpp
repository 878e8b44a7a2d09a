#include "qt/QtPopupMenu.h"

#include <QCursor>
#include <QMenu>

int TrackPopupAtCursor(QWidget* parent, const std::vector<std::pair<int, const char*>>& entries) {
  QMenu menu(parent);
  for (const auto& [command, text] : entries) menu.addAction(QString::fromUtf8(text))->setData(command);
  const QAction* chosen = menu.exec(QCursor::pos());
  return chosen ? chosen->data().toInt() : 0;
}

int QtPopupMenu::Track(std::span<const platform::MenuEntry> entries) {
  QMenu menu(parent_);
  for (const platform::MenuEntry& entry : entries) {
    QAction* action = menu.addAction(QString::fromUtf8(entry.text));
    action->setData(entry.command);
    action->setCheckable(entry.checkable);
    action->setChecked(entry.checked);
  }
  const QAction* chosen = menu.exec(QCursor::pos());
  return chosen ? chosen->data().toInt() : 0;
}
