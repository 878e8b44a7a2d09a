#pragma once
// What a person does with the real widgets: right clicks, and answering the
// next popup menu once it is up (dialogs are answered with WhenShown). A
// choice is scheduled and returns; it runs inside the modal loop that the
// next user action opens. User-interface thread.

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <functional>

namespace user {

// Runs act once ready() holds, polling the event loop; gives up after thirty
// seconds (the test then fails on what did not happen).
inline void WhenReady(std::function<bool()> ready, std::function<void()> act) {
  auto* timer = new QTimer(qApp);
  auto deadline = std::make_shared<int>(3000);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, ready, act, deadline] {
    if (!ready() && --*deadline > 0) return;
    timer->stop();
    timer->deleteLater();
    if (*deadline > 0) act();
  });
  timer->start(10);
}

// Picks the entry of the next popup menu with the keyboard (a click right
// where the menu opened would not count as a choice).
inline void ChooseFromMenu(const QString& entry) {
  WhenReady([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; },
            [entry] {
              auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
              for (QAction* action : menu->actions())
                if (action->text() == entry) {
                  menu->setActiveAction(action);
                  QTest::keyClick(menu, Qt::Key_Return);
                  return;
                }
              ADD_FAILURE() << "no menu entry " << entry.toStdString();
              menu->close();
            });
}

// A right click: the button's press and release, then the context-menu
// request that the window system makes of it.
inline void RightClick(QWidget* widget, QPoint at) {
  QTest::mouseClick(widget, Qt::RightButton, {}, at);
  QContextMenuEvent request(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
  QApplication::sendEvent(widget, &request);
}

}  // namespace user
