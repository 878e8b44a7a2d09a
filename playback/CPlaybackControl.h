#pragma once
// Play, Stop and Skip as the user asks for them: finds a catalogued file on
// its drive (asking for the disc when it lies on a CD) and hands it to the
// player. The referenced objects must outlive this one. Used from the
// user-interface thread only; the disc prompt and the failure box are shown
// through the drive services' message boxes.

#include <string>

class CAppSettings;
class CDriveServices;
class CMciPlayer;
class CMediaVolume;
class MediaDB;

class CPlaybackControl {
 public:
  static constexpr int kNotPlayed = -1;
  static constexpr const char* kCannotPlay = "Sorry, unable to play media file.";

  // settings.cdDrive is read at each PlayFile, so a changed drive counts at once.
  CPlaybackControl(MediaDB& db, const CDriveServices& drives, const CAppSettings& settings,
                   CMciPlayer& player);

  // Opens the file and plays it from the start; a file that does not open is
  // reported with kCannotPlay and not played. Returns 0 once the file was
  // handed to the player, whether it played or not. Returns kNotPlayed, with
  // nothing sent to the player, when the disc prompt is cancelled or when the
  // file, its folder or its volume has no row (the catalogue changed under the
  // caller; there is nothing to play and nothing the user could fix).
  int PlayFile(int fileId);
  // The file's full path when its volume is at hand (a disc: in the CD drive
  // of the settings), "" otherwise or when it has no row. Never asks.
  std::string PresentPath(int fileId) const;
  // Both return 0 whatever the player answered.
  int StopPlayback();
  int SkipForward();

 private:
  // Asks for the volume's disc until the drive holds it; false on Cancel.
  bool WaitForDisc(const std::string& drive, const CMediaVolume& volume) const;
  void OpenAndPlay(const std::string& fullPath);

  MediaDB& db_;
  const CDriveServices& drives_;
  const CAppSettings& settings_;
  CMciPlayer& player_;
};
