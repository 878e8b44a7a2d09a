#pragma once
// The Qt dialogs a desktop run hands the main window. They have no parent
// window at first: the main window needs them before it exists, and modal
// dialogs block every window anyway; SetParent attaches them once it does.

#include "qt/DesktopDialogs.h"
#include "qt/dialogs/QtAboutBox.h"
#include "qt/dialogs/QtFileInfoDialog.h"
#include "qt/dialogs/QtFilePicker.h"
#include "qt/dialogs/QtFolderPicker.h"
#include "qt/dialogs/QtInputDialog.h"
#include "qt/dialogs/QtOptionsDialog.h"
#include "qt/dialogs/QtVolumeInfoDialog.h"
#include "qt/dialogs/QtWorkerDialogHost.h"

struct QtDialogSet {
  // The File Info dialog shows covers through the loader, which must outlive the set.
  QtDialogSet(platform::MessageBox& messages, QtCoverLoader& coverLoader)
      : covers(coverLoader), fileInfo(nullptr, &coverLoader), workers(messages) {}

  DesktopDialogs Services() {
    return {picker, filePicker, input, fileInfo, volumeInfo, options, workers, ShowAboutBox, &covers};
  }
  void SetParent(QWidget* window) {
    picker.SetParent(window);
    filePicker.SetParent(window);
    workers.SetParent(window);
  }

  QtCoverLoader& covers;
  QtFolderPicker picker;
  QtFilePicker filePicker;
  QtInputDialog input;
  QtFileInfoDialog fileInfo;
  QtVolumeInfoDialog volumeInfo;
  QtOptionsDialog options;
  QtWorkerDialogHost workers;  // scans and copies
};
