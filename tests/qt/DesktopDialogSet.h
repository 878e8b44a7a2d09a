#pragma once
// The main window's dialogs as the program builds them, but for the folder
// and file pickers, which a person answers: a script answers them here.

#include "qt/DesktopDialogs.h"
#include "qt/dialogs/QtAboutBox.h"
#include "qt/dialogs/QtFileInfoDialog.h"
#include "qt/dialogs/QtInputDialog.h"
#include "qt/dialogs/QtOptionsDialog.h"
#include "qt/dialogs/QtVolumeInfoDialog.h"
#include "qt/dialogs/QtWorkerDialogHost.h"
#include "tests/support/ScriptedFilePicker.h"
#include "tests/support/ScriptedFolderPicker.h"

struct DesktopDialogSet {
  explicit DesktopDialogSet(platform::MessageBox& messages) : workers{messages} {}
  DesktopDialogs For(QtCoverLoader* covers = nullptr) {
    return {picker, filePicker, input, fileInfo, volumeInfo, options, workers, ShowAboutBox, covers};
  }

  testing_support::ScriptedFolderPicker picker;
  testing_support::ScriptedFilePicker filePicker;
  QtInputDialog input;
  QtFileInfoDialog fileInfo;
  QtVolumeInfoDialog volumeInfo;
  QtOptionsDialog options;
  QtWorkerDialogHost workers;
};
