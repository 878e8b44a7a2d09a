#include "qt/dialogs/QtRatingButtons.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QStyle>

QtRatingButtons::QtRatingButtons(QWidget* parent)
    : QWidget(parent), numbers_(new QLabel(QString::fromLatin1(kNumbers), this)), group_(new QButtonGroup(this)) {
  for (int i = 0; i < kButtons; ++i) {
    auto* button = new QRadioButton(this);
    button->setAccessibleName(QString::number(i + 1));
    group_->addButton(button, i + 1);
    buttons_[static_cast<std::size_t>(i)] = button;
  }
  PlaceButtons();
}

// Each button's indicator is centred under its digit of the numbers' text,
// whatever the font, as the template lines them up.
void QtRatingButtons::PlaceButtons() {
  const QString text = numbers_->text();
  const QFontMetrics metrics = numbers_->fontMetrics();
  const int indicator = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, buttons_[0]);
  std::array<int, kButtons> lefts{};
  qsizetype digit = -1;
  for (int i = 0; i < kButtons; ++i) {
    digit = text.indexOf(QChar(u'1' + i), digit + 1);
    const int centre = metrics.horizontalAdvance(text.left(digit)) + metrics.horizontalAdvance(text.at(digit)) / 2;
    lefts[static_cast<std::size_t>(i)] = centre - indicator / 2;
  }
  // An indicator wider than the space before "1" would stick out on the left.
  const int shift = std::max(0, -lefts[0]);
  numbers_->setGeometry(shift, 0, metrics.horizontalAdvance(text) + 2, metrics.height());
  const int top = metrics.height() + 1;
  QRect all = numbers_->geometry();
  for (int i = 0; i < kButtons; ++i) {
    QRadioButton* button = buttons_[static_cast<std::size_t>(i)];
    button->setGeometry(QRect(QPoint(shift + lefts[static_cast<std::size_t>(i)], top), button->sizeHint()));
    all |= button->geometry();
  }
  setFixedSize(all.right() + 1, all.bottom() + 1);
}

void QtRatingButtons::SetRating(int rating) {
  // An exclusive group never lets its last checked button go.
  group_->setExclusive(false);
  for (QRadioButton* button : buttons_) button->setChecked(group_->id(button) == rating);
  group_->setExclusive(true);
}

int QtRatingButtons::Rating() const { return std::max(group_->checkedId(), 0); }
