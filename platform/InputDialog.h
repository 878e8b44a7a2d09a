#pragma once
// The controls of a one-line text input dialog: a caption, a prompt, an edit
// and the buttons OK (label replaceable) and Cancel. The logic fills them,
// runs the dialog modally and reads the edit back. User-interface thread only.

#include <string>

namespace platform {

class InputDialog {
 public:
  enum Result : int { kOk = 1, kCancel = 2 };

  virtual ~InputDialog() = default;

  virtual void SetCaption(const std::string& caption) = 0;
  virtual void SetPrompt(const std::string& prompt) = 0;
  virtual void SetEditText(const std::string& text) = 0;
  virtual void SetOkLabel(const std::string& label) = 0;

  // Shows the dialog until the user presses OK or Cancel; returns which.
  virtual int RunModal() = 0;
  virtual std::string EditText() const = 0;
};

}  // namespace platform
