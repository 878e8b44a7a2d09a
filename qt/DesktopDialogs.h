#pragma once
// The dialogs and pickers that the windows open, handed in by the program
// (the Qt dialogs) or by a test (scripted where a person would answer).
// All must outlive the windows that use them.

#include <functional>

class FileInfoView;
class OptionsView;
class QtCoverLoader;
class QWidget;
class VolumeInfoView;
class WorkerDialogHost;

namespace platform {
class FilePicker;
class FolderPicker;
class InputDialog;
}  // namespace platform

struct DesktopDialogs {
  platform::FolderPicker& picker;
  platform::FilePicker& filePicker;  // play list files
  platform::InputDialog& input;
  FileInfoView& fileInfo;
  VolumeInfoView& volumeInfo;
  OptionsView& options;
  WorkerDialogHost& workers;  // scans and copies
  // Shows the About box modally over the window.
  std::function<void(QWidget* over)> about;
  // Reads the now-playing file's cover; none is shown without it.
  QtCoverLoader* covers = nullptr;
};
