// vantrelle-screenshots FOLDER: renders every window and dialog of the
// desktop program, filled with sample data, to PNG files in FOLDER. Runs on
// Qt's offscreen platform unless QT_QPA_PLATFORM says otherwise.

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <cstdio>

#include "tools/screenshots/Shots.h"

namespace {

// Lets the window lay itself out and fill what it loads in the background.
void Settle(int ms) {
  QEventLoop loop;
  QTimer::singleShot(ms, &loop, &QEventLoop::quit);
  loop.exec();
}

// The window's surface under a plain title bar, so that its caption shows:
// the offscreen platform draws no frames.
QPixmap Framed(QWidget& window) {
  const QPixmap surface = window.grab();
  const int bar = window.fontMetrics().height() + 10;
  QPixmap framed(surface.width() + 2, surface.height() + bar + 1);
  framed.fill(QColor(70, 70, 70));
  QPainter painter(&framed);
  painter.setFont(window.font());
  painter.setPen(Qt::white);
  painter.drawText(QRect(8, 0, framed.width() - 16, bar), Qt::AlignVCenter | Qt::AlignLeft, window.windowTitle());
  painter.drawPixmap(1, bar, surface);
  return framed;
}

bool Render(const Shot& shot, const QDir& folder) {
  const std::unique_ptr<QWidget> made = shot.make();
  QWidget& window = shot.pick ? *shot.pick(*made) : *made;
  window.show();
  Settle(300);
  const QString path = folder.filePath(shot.file);
  const bool saved = Framed(window).save(path, "PNG");
  std::fprintf(saved ? stdout : stderr, "%s %s\n", saved ? "wrote" : "could not write", qPrintable(path));
  return saved;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "usage: vantrelle-screenshots FOLDER\n");
    return 2;
  }
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  if (!folder.mkpath(QStringLiteral("."))) {
    std::fprintf(stderr, "vantrelle-screenshots: cannot create %s\n", argv[1]);
    return 1;
  }
  ShotList shots;
  AddWindowShots(shots);
  AddDialogShots(shots);
  bool allSaved = true;
  for (const Shot& shot : shots) allSaved = Render(shot, folder) && allSaved;
  return allSaved ? 0 : 1;
}
