#pragma once
// "Options": the cache folder and the CD drive, read from the settings when
// the dialog opens and written to them (in memory only) by OK. The drop-down
// offers the CD drives of the drive table as "D:\". Created on the caller's
// stack for one run; user-interface thread.

#include <functional>
#include <string>
#include <vector>

#include "dialogs/DialogResult.h"

class CAppSettings;
class CDriveServices;

namespace platform {
class FolderPicker;
}

struct OptionsForm {
  std::string cachePath;
  std::vector<std::string> drives;   // the drop-down's entries, in drive-list order
  int selectedDrive = -1;            // an index into drives, or -1 for none
  bool allFormats = false;           // "Catalogue every audio format"
  std::string replayGain = "track";  // "off", "track" or "album"
  bool operator==(const OptionsForm&) const = default;
};

// The dialog's controls.
class OptionsView {
 public:
  virtual ~OptionsView() = default;
  // Shows the form until the user presses "OK" or "Cancel". "..." calls
  // browse, after which the edit shows form.cachePath. On OK the form holds
  // the edit's text and the selected entry.
  virtual int RunModal(OptionsForm& form, const std::function<void()>& browse) = 0;
};

class COptionsDlg {
 public:
  static constexpr const char* kCaption = "Options";
  static constexpr const char* kPickerTitle = "Select Folder";
  static constexpr const char* kOutsideDrive =
      "The cache folder %s lies above the root of its drive; the cache folder stays %s.";
  static constexpr const char* kAllFormats = "Catalogue every audio format";
  static constexpr const char* kReplayGain = "ReplayGain:";
  static constexpr const char* kAllFormatsTip =
      "Scans also record FLAC, Musepack, Opus and M4A files, besides MP3, Ogg Vorbis and WMA. "
      "Turned off, those files stay in the catalogue until the next scan of their volume, "
      "which asks first and then removes them.";

  // All must outlive the dialog.
  COptionsDlg(CAppSettings& settings, const CDriveServices& drives, platform::FolderPicker& picker, OptionsView& view);

  // kDialogOk: the cache folder takes the edit's text (a drive path in its
  // one spelling, ".." resolved; one whose ".." climb above the drive's root
  // is refused with a message and the folder stays), the CD drive the first
  // letter of the selected entry ("" for none) and the every-format setting
  // the check box. On a catalogue that cannot be written, an OK that changed
  // anything says so and takes nothing (kDialogCancel).
  int DoModal();

 private:
  OptionsForm OpeningForm() const;
  void Browse(OptionsForm& form);

  CAppSettings& settings_;
  const CDriveServices& drives_;
  platform::FolderPicker& picker_;
  OptionsView& view_;
};
