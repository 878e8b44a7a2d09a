// vantrelle: the desktop program.
#include <QApplication>
#include <QIcon>

#include "qt/DesktopSession.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vantrelle"));
  // Lets the desktop match the windows to the installed launcher and icon.
  QGuiApplication::setDesktopFileName(QStringLiteral("org.vantrelle.Vantrelle"));
  QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.vantrelle.Vantrelle")));
  QApplication::setQuitOnLastWindowClosed(false);  // the main window's close ends the run
  return RunDesktop();
}
