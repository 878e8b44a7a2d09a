#pragma once
// The main window's menus and editing dialogs with a scripted user: each
// keeps what it was shown, makes the scripted edits and presses the
// scripted button.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/CFileInfoDlg.h"
#include "dialogs/COptionsDlg.h"
#include "dialogs/CVolumeInfoDlg.h"
#include "platform/PopupMenu.h"

namespace testing_support {

class ScriptedPopupMenu : public platform::PopupMenu {
 public:
  int choice = 0;  // 0: dismissed
  // The entries' texts, menu by menu; a checkable entry's after "[x] " or "[ ] ".
  std::vector<std::vector<std::string>> shown;

  int Track(std::span<const platform::MenuEntry> entries) override {
    std::vector<std::string>& texts = shown.emplace_back();
    for (const platform::MenuEntry& entry : entries)
      texts.push_back(std::string(!entry.checkable ? "" : entry.checked ? "[x] " : "[ ] ") + entry.text);
    return choice;
  }
};

template <class Form, class View>
class ScriptedForm : public View {
 public:
  int press = kDialogOk;
  std::function<void(Form&)> edit;  // what the user changes before pressing
  std::optional<Form> opened;       // the form as the dialog opened

  int RunModal(Form& form) override {
    opened = form;
    if (edit) edit(form);
    return press;
  }
};

using ScriptedFileInfo = ScriptedForm<FileInfoForm, FileInfoView>;
using ScriptedVolumeInfo = ScriptedForm<VolumeInfoForm, VolumeInfoView>;

class ScriptedOptions : public OptionsView {
 public:
  int press = kDialogOk;
  bool browse = false;                     // presses "..." before the button
  std::function<void(OptionsForm&)> edit;  // what the user changes, if anything
  std::optional<OptionsForm> opened;

  int RunModal(OptionsForm& form, const std::function<void()>& onBrowse) override {
    opened = form;
    if (browse) onBrowse();
    if (edit) edit(form);
    return press;
  }
};

}  // namespace testing_support
