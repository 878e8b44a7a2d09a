#pragma once
// An input dialog whose user types a scripted text over the edit and presses
// a scripted button; it keeps what it was shown.

#include "platform/InputDialog.h"

namespace testing_support {

class ScriptedInputDialog : public platform::InputDialog {
 public:
  std::string typed;
  int press = kOk;
  std::string caption, prompt, edit, okLabel = "OK";

  void SetCaption(const std::string& text) override { caption = text; }
  void SetPrompt(const std::string& text) override { prompt = text; }
  void SetEditText(const std::string& text) override { edit = text; }
  void SetOkLabel(const std::string& text) override { okLabel = text; }
  int RunModal() override {
    edit = typed;
    return press;
  }
  std::string EditText() const override { return edit; }
};

}  // namespace testing_support
