#pragma once
// Dialog units: the dialog templates' measure, a quarter of the font's average
// character width across and an eighth of its height down. Widgets sized in
// them keep the templates' proportions with whatever font the desktop uses.
// User-interface thread.

#include <QSize>

class QWidget;

QSize DialogUnits(const QWidget& widget, int width, int height);
int DialogUnitsX(const QWidget& widget, int width);
int DialogUnitsY(const QWidget& widget, int height);
