#include "qt/dialogs/QtDialogUnits.h"

#include <QFontMetrics>
#include <QWidget>

namespace {

// The average width of the 52 Latin letters, as the templates' measure takes it.
int AverageCharWidth(const QFontMetrics& metrics) {
  static constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  constexpr int kCount = sizeof kLetters - 1;
  return (metrics.horizontalAdvance(QLatin1String(kLetters)) + kCount / 2) / kCount;
}

}  // namespace

int DialogUnitsX(const QWidget& widget, int width) { return (width * AverageCharWidth(widget.fontMetrics()) + 2) / 4; }

int DialogUnitsY(const QWidget& widget, int height) { return (height * widget.fontMetrics().height() + 4) / 8; }

QSize DialogUnits(const QWidget& widget, int width, int height) {
  return {DialogUnitsX(widget, width), DialogUnitsY(widget, height)};
}
