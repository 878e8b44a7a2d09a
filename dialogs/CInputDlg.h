#pragma once
// A one-line text input dialog. The caller sets the fields, runs DoModal and
// reads text back: OK takes over what the edit holds, Cancel leaves text as
// it was. Created on the caller's stack for one run; user-interface thread.

#include <string>

namespace platform {
class InputDialog;
}

class CInputDlg {
 public:
  explicit CInputDlg(platform::InputDialog& frontEnd);

  std::string caption;
  std::string prompt;
  std::string text;     // the initial text, and the result after OK
  std::string okLabel;  // empty keeps the button's own "OK"

  // Returns platform::InputDialog::kOk or kCancel.
  int DoModal();

 private:
  platform::InputDialog& frontEnd_;
};
