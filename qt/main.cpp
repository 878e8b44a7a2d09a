// vantrelle: the desktop program.
#include <QApplication>
#include <QIcon>

#include "qt/DesktopSession.h"
#include "qt/SessionBus.h"

int main(int argc, char** argv) {
  SettleSessionBusAddress();  // before anything could start a bus of its own
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vantrelle"));
  // Lets the desktop match the windows to the installed launcher and icon.
  QGuiApplication::setDesktopFileName(QStringLiteral("org.vantrelle.Vantrelle"));
  QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.vantrelle.Vantrelle")));
  QApplication::setQuitOnLastWindowClosed(false);  // the main window's close ends the run
  return RunDesktop();
}
