#include "scan/ScanCommands.h"

#include "base/MessageText.h"
#include "base/WorkerDialogHost.h"
#include "catalogue/MediaDB.h"
#include "platform/DriveTable.h"
#include "platform/FileSystem.h"
#include "platform/FolderPicker.h"
#include "platform/MessageBox.h"
#include "scan/CScanDlg.h"
#include "scan/CVolumeScanner.h"
#include "settings/CAppSettings.h"
#include "volumes/CDriveServices.h"
#include "volumes/Paths.h"

ScanCommands::ScanCommands(CVolumeScanner& scanner, CDriveServices& drives, CAppSettings& settings,
                           platform::FolderPicker& picker, WorkerDialogHost& dialogs)
    : scanner_(scanner), drives_(drives), settings_(settings), picker_(picker), dialogs_(dialogs) {}

bool ScanCommands::ScanVolume(int kind, const std::string& root,
                              std::optional<CVolumeScanner::ExpectedVolume> expected) {
  const std::string folder = CanonicalFolder(root);
  // A root that cannot be scanned is said so at once, and nothing changes.
  if (const std::string refusal = scanner_.RootRefusal(folder); !refusal.empty()) {
    drives_.Messages().Show(refusal, platform::Buttons::Ok, platform::Icon::Information);
    return false;
  }
  // A disc was checked by its prompt, and is checked again by the worker.
  if (expected && kind != platform::kDriveCdRom && !HoldsExpected(folder.substr(0, 1), *expected)) return false;
  const AudioFormats formats = Formats();
  // A disc's serial is read by the scan's worker, never on the window's
  // thread: a bad disc may take long to answer.
  const bool disc = kind == platform::kDriveCdRom;
  if (!disc && !MayRemoveLeftOut(folder, formats)) return true;
  scanner_.Prepare(kind, folder, formats, std::move(expected));
  if (disc && formats != AudioFormats::Every)
    scanner_.AskBeforeRemovingLeftOut([folder](int leftOut) {
      return FillMessage(kRemovesOtherFormats, {std::to_string(leftOut), folder});
    });
  dialogs_.RunWorkerDialog(CScanDlg::kCaption, [this](WorkerDialogView& view, platform::MessageBox& messages) {
    return std::make_unique<CScanDlg>(scanner_, messages, view);
  });
  scanner_.Catalogue().Events().DeliverPending();
  ReportScan();
  return scanner_.Report().Refusal().empty();
}

void ScanCommands::ReportScan() const {
  if (!scanner_.Report().Refusal().empty()) return;
  scanReported_.Notify(scanner_.Completed() ? scanner_.Report().Found() : kCancelled);
}

AudioFormats ScanCommands::Formats() const {
  return settings_.allFormats ? AudioFormats::Every : AudioFormats::Classic;
}

bool ScanCommands::MayRemoveLeftOut(const std::string& folder, AudioFormats formats) {
  const int leftOut = scanner_.FilesLeftOut(folder, formats);
  if (leftOut == 0) return true;
  const std::string question = FillMessage(kRemovesOtherFormats, {std::to_string(leftOut), folder});
  return drives_.Messages().Show(question, platform::Buttons::OkCancel, platform::Icon::Warning) ==
         platform::Answer::Ok;
}

std::string ScanCommands::CanonicalFolder(const std::string& root) const {
  return NormalizeFolder(drives_.CanonicalPath(root));
}

bool ScanCommands::HoldsExpected(const std::string& drive, const CVolumeScanner::ExpectedVolume& expected) {
  const std::string refusal = scanner_.VolumeRefusal(drive, expected);
  if (refusal.empty()) return true;
  drives_.Messages().Show(refusal, platform::Buttons::Ok, platform::Icon::Information);
  return false;
}

void ScanCommands::AddCd() {
  const std::string drive = settings_.cdDrive;
  while (!drives_.IsDriveReady(drive)) {
    if (drives_.Messages().Show(FillMessage(kInsertCd, {drive}), platform::Buttons::RetryCancel,
                                platform::Icon::Information) == platform::Answer::Cancel)
      return;
  }
  ScanVolume(platform::kDriveCdRom, drive + ":\\");
}

void ScanCommands::AddHd() {
  const std::string start =
      settings_.lastAddedFolder.empty() ? "" : drives_.Files().LocalPath(settings_.lastAddedFolder);
  std::string chosen;
  if (picker_.Browse(kPickerTitle, start, chosen) != platform::FolderPicker::kChosen) return;
  // A folder that no drive holds has no drive path to be catalogued under.
  const std::string drivePath = drives_.ToDrivePath(chosen);
  if (!drivePath.empty()) AddFolder(drivePath);
}

void ScanCommands::AddFolder(const std::string& drivePath) {
  const std::string folder = CanonicalFolder(drivePath);
  ScanVolume(platform::kDriveFixed, folder);
  settings_.lastAddedFolder = folder;
}
