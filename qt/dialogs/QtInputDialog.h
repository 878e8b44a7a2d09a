#pragma once
// The one-line text input dialog: a prompt, an edit, "OK" (its label
// replaceable) as the default button, and "Cancel". The OK label returns to
// "OK" after each run, as a dialog made afresh for every run would.
// User-interface thread only.

#include <QDialog>

#include "platform/InputDialog.h"

class QLabel;
class QLineEdit;
class QPushButton;

class QtInputDialog : public QDialog, public platform::InputDialog {
  Q_OBJECT

 public:
  static constexpr const char* kTemplateCaption = "Input Dialog";

  explicit QtInputDialog(QWidget* parent = nullptr);

  void SetCaption(const std::string& caption) override;
  void SetPrompt(const std::string& prompt) override;
  void SetEditText(const std::string& text) override;
  void SetOkLabel(const std::string& label) override;
  int RunModal() override;
  std::string EditText() const override;

 private:
  QLabel* prompt_;
  QLineEdit* edit_;
  QPushButton* ok_;
  std::string shownText_;  // what SetEditText put in the edit
};
