#include "dialogs/CInputDlg.h"

#include "platform/InputDialog.h"

CInputDlg::CInputDlg(platform::InputDialog& frontEnd) : frontEnd_(frontEnd) {}

int CInputDlg::DoModal() {
  frontEnd_.SetCaption(caption);
  frontEnd_.SetPrompt(prompt);
  frontEnd_.SetEditText(text);
  if (!okLabel.empty()) frontEnd_.SetOkLabel(okLabel);
  const int result = frontEnd_.RunModal();
  if (result == platform::InputDialog::kOk) text = frontEnd_.EditText();
  return result;
}
