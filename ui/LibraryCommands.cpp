#include "ui/LibraryCommands.h"

#include <string>
#include <vector>

#include "base/MessageText.h"
#include "catalogue/MediaDB.h"
#include "dialogs/CVolumeInfoDlg.h"
#include "platform/DriveTable.h"
#include "platform/FilePicker.h"
#include "platform/MessageBox.h"
#include "playlists/CPlayListDlg.h"
#include "playlists/FileIds.h"
#include "playlists/PlayListFiles.h"
#include "scan/ScanCommands.h"
#include "settings/CAppSettings.h"
#include "volumes/CDriveServices.h"
#include "volumes/Paths.h"

LibraryCommands::LibraryCommands(MediaDB& db, const CAppSettings& settings, const CDriveServices& drives)
    : db_(db), settings_(settings), drives_(drives) {}

bool LibraryCommands::Confirm(const char* question) const {
  return drives_.Messages().Show(question, platform::Buttons::OkCancel, platform::Icon::Information) ==
         platform::Answer::Ok;
}

template <class Remove>
bool LibraryCommands::RemoveInTransaction(const char* question, Remove remove) {
  if (!Confirm(question)) return false;
  db_.Begin();
  remove();
  db_.Commit();
  return true;
}

bool LibraryCommands::RemoveVolume(int volId) {
  return RemoveInTransaction(kRemoveVolume, [&] { db_.DeleteVolume(volId); });
}

bool LibraryCommands::RemoveFolder(int pathId) {
  return RemoveInTransaction(kRemovePath, [&] { db_.DeletePathTree(pathId); });
}

bool LibraryCommands::RemovePlayList(int playListId) {
  if (!Confirm(kRemovePlayList)) return false;
  db_.DeletePlayList(playListId);  // a single statement, outside any transaction
  return true;
}

namespace {

CVolumeScanner::ExpectedVolume Expected(const CMediaVolume& volume) {
  return {volume.SerialNo, volume.DisplayName.empty() ? volume.Name : volume.DisplayName};
}

}  // namespace

bool LibraryCommands::RescanVolume(int volId, ScanCommands& scans) {
  const auto volume = db_.GetVolume(volId);
  if (!volume) return true;
  if (volume->VolType == platform::kDriveCdRom) {
    const std::string& drive = settings_.cdDrive;
    if (drives_.WaitForVolume(drive, volume->SerialNo, kInsertCorrectCd) == -1) return true;
    return scans.ScanVolume(platform::kDriveCdRom, MakeFullPath(drive, "\\", ""), Expected(*volume));
  }
  if (volume->VolType != platform::kDriveFixed) return true;
  // The roots are read before the first scan changes the catalogue.
  const std::string& drive = volume->DrvLtr;
  std::vector<std::string> roots;
  for (std::int32_t pathId : db_.GetVolumeRootPathIds(volId))
    roots.push_back(MakeFullPath(drive, db_.GetPathFullPath(static_cast<int>(pathId)), ""));
  // Another disk in the drive holds none of the roots: said once.
  if (!scans.HoldsExpected(drive.substr(0, 1), Expected(*volume))) return false;
  bool scanned = true;
  for (const std::string& root : roots)
    scanned = scans.ScanVolume(platform::kDriveFixed, root, Expected(*volume)) && scanned;
  return scanned;
}

bool LibraryCommands::RescanFolder(int pathId, ScanCommands& scans) {
  const auto volume = db_.GetVolume(db_.GetPathVolume(pathId));
  if (!volume) return true;
  const bool cd = volume->VolType == platform::kDriveCdRom;
  if (cd && drives_.WaitForVolume(settings_.cdDrive, volume->SerialNo,
                                  FillMessage(kInsertNamedCd, {volume->DisplayName})) == -1)
    return true;
  const std::string& drive = cd ? settings_.cdDrive : volume->DrvLtr;
  return scans.ScanVolume(volume->VolType, MakeFullPath(drive, db_.GetPathFullPath(pathId), ""), Expected(*volume));
}

bool LibraryCommands::EditVolume(int volId, VolumeInfoView& view) {
  const auto volume = db_.GetVolume(volId);
  if (!volume) return false;
  CVolumeInfoDlg dialog(view);
  dialog.fields = {volume->DisplayName, volume->Name, volume->Description};
  if (dialog.DoModal() != kDialogOk) return false;
  volume->DisplayName = dialog.fields.displayName;
  volume->Description = dialog.fields.description;
  db_.UpdateVolumeInfo(*volume);
  return true;
}

bool LibraryCommands::ExportPlayList(int playListId, platform::FilePicker& picker) {
  const auto playList = db_.GetPlayList(playListId);
  if (!playList) return false;
  std::string path;
  if (picker.Pick(platform::FilePicker::Purpose::Save, CPlayListDlg::kExportTitle, CPlayListDlg::kWrittenFilter,
                  playList->Name + ".m3u8", path) != platform::FilePicker::kChosen)
    return false;
  path = WithPlayListExtension(path);
  const PlayListFileExport exported =
      ExportPlayListFile(db_, drives_, settings_.cdDrive, ParseIdList(playList->FileIDs), path);
  const bool written = exported.error.empty();
  drives_.Messages().Show(ExportOutcome(exported, path), platform::Buttons::Ok,
                          written ? platform::Icon::Information : platform::Icon::Warning);
  return written;
}
