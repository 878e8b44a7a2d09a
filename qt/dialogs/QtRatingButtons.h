#pragma once
// File Info's rating: five radio buttons in a row, 1 to 5 left to right, under
// the text " 1    2    3    4    5", each button under its number. None is
// checked until the user or SetRating checks one. User-interface thread.

#include <QWidget>
#include <array>

class QButtonGroup;
class QLabel;
class QRadioButton;

class QtRatingButtons : public QWidget {
  Q_OBJECT

 public:
  static constexpr const char* kNumbers = " 1    2    3    4    5";
  static constexpr int kButtons = 5;

  explicit QtRatingButtons(QWidget* parent = nullptr);

  // Checks button `rating` (1 to 5); any other value checks none.
  void SetRating(int rating);
  // The checked button's number, or 0 when none is checked.
  int Rating() const;

 private:
  void PlaceButtons();

  QLabel* numbers_;
  QButtonGroup* group_;
  std::array<QRadioButton*, kButtons> buttons_{};
};
