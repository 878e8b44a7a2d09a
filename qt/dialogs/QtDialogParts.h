#pragma once
// Pieces the dialogs share: buttons and rows measured in dialog units.
// User-interface thread.

#include <initializer_list>

class QDialog;
class QHBoxLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QString;
class QWidget;

// A push button of the template's size; it never becomes the default by focus.
QPushButton* MakeButton(QDialog& dialog, const QString& text, int widthDu, int heightDu);

// Widgets side by side, centred, gapDu dialog units apart.
QHBoxLayout* CentredRow(const QWidget& measure, std::initializer_list<QWidget*> widgets, int gapDu);

// A one-line edit of the template's height.
QLineEdit* MakeEdit(QDialog& dialog, int heightDu);

// Margins of the given dialog units around a layout.
void SetMarginsDu(QLayout& layout, const QWidget& measure, int horizontal, int vertical);
