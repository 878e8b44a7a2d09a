#pragma once
// Add CD, Add HD and the scan entry point that every caller (the tree's
// rescans included) goes through: prepare the scanner, run the "Scan Volume"
// dialog modally while the scan's worker holds the catalogue, then hand what
// the scan changed to the catalogue's listeners (the tree, the lists) and
// tell the scan's listeners what it found. User-interface thread only.

#include <functional>
#include <optional>
#include <string>

#include "base/Listeners.h"
#include "scan/CVolumeScanner.h"
#include "volumes/Paths.h"

class CAppSettings;
class CDriveServices;
class WorkerDialogHost;

namespace platform {
class FolderPicker;
}

// Runs the "Scan Volume" dialog modally for a prepared scanner; each front
// end has one.
class ScanCommands {
 public:
  static constexpr const char* kInsertCd = "Please Insert CD into drive %s:";
  static constexpr const char* kPickerTitle = "Select Folder";
  static constexpr const char* kRemovesOtherFormats =
      "The catalogue holds %s FLAC, Musepack, Opus or M4A files under %s, and every audio "
      "format is no longer catalogued. Scanning removes them from the catalogue, with the "
      "titles and ratings you gave them. Scan now?";
  static constexpr const char* kCancelled = "Scan cancelled.";

  ScanCommands(CVolumeScanner& scanner, CDriveServices& drives, CAppSettings& settings, platform::FolderPicker& picker,
               WorkerDialogHost& dialogs);

  // Called after every scan dialog has closed with what the scan found
  // (ScanReport::Found), or kCancelled; not for a root that was refused.
  // Returns a token for Unsubscribe.
  int OnScanReported(std::function<void(const std::string&)> listener) {
    return scanReported_.Subscribe(std::move(listener));
  }
  void Unsubscribe(int token) { scanReported_.Unsubscribe(token); }

  // kind 5 (CD) or 3 (disk folder); root a normalised folder with its drive,
  // scanned under its one spelling (see CDriveServices::CanonicalPath). A
  // root that is not there or holds system files is not scanned: a message
  // says why. A scan that would remove files for their format alone (the
  // setting for every audio format was turned off) asks first.
  // With an expected volume, a drive that holds another one is not scanned.
  // False when the scan was refused (the message said why) or the root went
  // away during it.
  bool ScanVolume(int kind, const std::string& root,
                  std::optional<CVolumeScanner::ExpectedVolume> expected = std::nullopt);
  // False, once the message said so, when the drive holds another volume
  // than the one expected.
  bool HoldsExpected(const std::string& drive, const CVolumeScanner::ExpectedVolume& expected);
  void AddCd();
  void AddHd();
  // Add HD with the folder already chosen (a drive path), as the console does.
  void AddFolder(const std::string& drivePath);

 private:
  std::string CanonicalFolder(const std::string& root) const;
  AudioFormats Formats() const;
  // False when the user would rather keep the files the scan would remove.
  bool MayRemoveLeftOut(const std::string& folder, AudioFormats formats);
  void ReportScan() const;

  CVolumeScanner& scanner_;
  CDriveServices& drives_;
  CAppSettings& settings_;
  platform::FolderPicker& picker_;
  WorkerDialogHost& dialogs_;
  Listeners<const std::string&> scanReported_;
};
