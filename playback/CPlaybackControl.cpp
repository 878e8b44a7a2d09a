#include "playback/CPlaybackControl.h"

#include "catalogue/MediaDB.h"
#include "platform/DriveTable.h"
#include "platform/MessageBox.h"
#include "playback/CMciPlayer.h"
#include "scan/CDriveServices.h"
#include "scan/Paths.h"
#include "settings/CAppSettings.h"

CPlaybackControl::CPlaybackControl(MediaDB& db, const CDriveServices& drives,
                                   const CAppSettings& settings, CMciPlayer& player)
    : db_(db), drives_(drives), settings_(settings), player_(player) {}

int CPlaybackControl::PlayFile(int fileId) {
  const auto file = db_.GetFile(fileId);
  if (!file) return kNotPlayed;
  const auto folder = db_.GetPath(file->PathID);
  const auto volume = db_.GetVolume(file->VolID);
  if (!folder || !volume) return kNotPlayed;

  std::string drive = volume->DrvLtr;
  if (volume->VolType == platform::kDriveCdRom) {
    // A disc is played from the CD drive of the settings, whichever drive it
    // was catalogued from.
    drive = settings_.cdDrive;
    if (!WaitForDisc(drive, *volume)) return kNotPlayed;
  }
  OpenAndPlay(MakeFullPath(drive, folder->FullPath, file->FileName));
  return 0;
}

std::string CPlaybackControl::PresentPath(int fileId) const {
  const auto file = db_.GetFile(fileId);
  if (!file) return "";
  const auto folder = db_.GetPath(file->PathID);
  const auto volume = db_.GetVolume(file->VolID);
  if (!folder || !volume) return "";
  std::string drive = volume->DrvLtr;
  if (volume->VolType == platform::kDriveCdRom) {
    drive = settings_.cdDrive;
    if (!drives_.IsDriveReady(drive)) return "";
    const auto inDrive = drives_.ReadVolumeInfo(drive);
    if (!inDrive || inDrive->SerialNo != volume->SerialNo) return "";
  }
  return MakeFullPath(drive, folder->FullPath, file->FileName);
}

bool CPlaybackControl::WaitForDisc(const std::string& drive, const CMediaVolume& volume) const {
  const std::string prompt = "Please Insert CD: " + volume.DisplayName;
  return drives_.WaitForVolume(drive, volume.SerialNo, prompt) == 0;
}

void CPlaybackControl::OpenAndPlay(const std::string& fullPath) {
  if (player_.Open(fullPath) == 0) {
    player_.Play(0);
    return;
  }
  drives_.Messages().Show(kCannotPlay, platform::Buttons::Ok, platform::Icon::None);
}

int CPlaybackControl::StopPlayback() {
  player_.Stop();
  return 0;
}

int CPlaybackControl::SkipForward() {
  player_.Skip();
  return 0;
}
