#include "qt/dialogs/QtDialogParts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "qt/dialogs/QtDialogUnits.h"

QPushButton* MakeButton(QDialog& dialog, const QString& text, int widthDu, int heightDu) {
  auto* button = new QPushButton(text, &dialog);
  button->setAutoDefault(false);
  const QSize size = DialogUnits(dialog, widthDu, heightDu);
  // A label wider than the template's button still fits.
  button->setMinimumSize(std::max(size.width(), button->sizeHint().width()), size.height());
  return button;
}

QHBoxLayout* CentredRow(const QWidget& measure, std::initializer_list<QWidget*> widgets, int gapDu) {
  auto* row = new QHBoxLayout;
  row->setSpacing(DialogUnitsX(measure, gapDu));
  row->addStretch();
  for (QWidget* widget : widgets) row->addWidget(widget);
  row->addStretch();
  return row;
}

QLineEdit* MakeEdit(QDialog& dialog, int heightDu) {
  auto* edit = new QLineEdit(&dialog);
  edit->setMinimumHeight(DialogUnitsY(dialog, heightDu));
  return edit;
}

void SetMarginsDu(QLayout& layout, const QWidget& measure, int horizontal, int vertical) {
  const QSize margin = DialogUnits(measure, horizontal, vertical);
  layout.setContentsMargins(margin.width(), margin.height(), margin.width(), margin.height());
}
