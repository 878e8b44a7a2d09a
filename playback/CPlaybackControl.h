#pragma once
// Play, Stop and Skip as the user asks for them: finds a catalogued file on
// its drive (asking for the disc when it lies on a CD) and hands it to the
// player. Also pause, resume, seek, volume and the player's status. The
// referenced objects must outlive this one. Used from the user-interface
// thread only; the disc prompt and the failure box are shown through the
// drive services' message boxes.
//
// The player's commands go through a runner: at once by default, or on a
// thread of their own (UseRunner), so that opening a file never holds the
// window up. Either way the commands keep their order, and the failure box
// comes after the open, as the open's outcome.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "playback/PlayerStatus.h"

class CAppSettings;
class CDriveServices;
class CMciPlayer;
class CMediaVolume;
class MediaDB;

class PlayerRunner;

class CPlaybackControl {
 public:
  // Told of each file that opened and started playing, by FileID.
  using StartedListener = std::function<void(int fileId)>;

  static constexpr int kNotPlayed = -1;
  static constexpr const char* kCannotPlay = "Sorry, unable to play media file.";

  // settings.cdDrive is read at each PlayFile, so a changed drive counts at once.
  CPlaybackControl(MediaDB& db, const CDriveServices& drives, const CAppSettings& settings,
                   CMciPlayer& player);
  ~CPlaybackControl();
  CPlaybackControl(const CPlaybackControl&) = delete;
  CPlaybackControl& operator=(const CPlaybackControl&) = delete;

  // Opens the file and plays it from the start; a file that does not open is
  // reported with kCannotPlay and not played. Returns 0 once the file was
  // handed to the player, whether it played or not. Returns kNotPlayed, with
  // nothing sent to the player, when the disc prompt is cancelled or when the
  // file, its folder or its volume has no row (the catalogue changed under the
  // caller; there is nothing to play and nothing the user could fix).
  int PlayFile(int fileId);
  // The file's full path when its volume is at hand (a disc in the CD drive
  // of the settings, a disk on its letter), "" otherwise or when it has no
  // row. Never asks.
  std::string PresentPath(int fileId) const;
  // Both return 0 whatever the player answered.
  int StopPlayback();
  int SkipForward();

  void Pause();
  void Resume();
  void SeekTo(std::int32_t ms);
  // 0 to 1000; kept for the files opened later too.
  void SetVolume(int level);
  // Asks the player where it is; answered through the callback, on this
  // thread, after every command handed over before.
  void Poll(std::function<void(const PlayerStatus&)> answer);

  // The file handed over last (0 before any); its open may still run.
  int CurrentFileId() const { return currentFileId_; }
  // Its full drive path ("C:\Music\a.mp3"); "" when none.
  const std::string& CurrentPath() const { return currentPath_; }
  std::uint64_t Generation() const { return generation_; }
  // Returns a number for RemoveListener.
  int OnStarted(StartedListener listener);
  void RemoveListener(int listener);
  // The runner the player's commands go through from now on; null for the
  // one that runs them at once. It must outlive its use.
  void UseRunner(PlayerRunner* runner);

 private:
  // Asks for the volume's disc until the drive holds it; false on Cancel.
  bool WaitForDisc(const std::string& drive, const CMediaVolume& volume) const;
  void OpenAndPlay(int fileId, const std::string& fullPath);
  PlayerRunner& Runner();

  MediaDB& db_;
  const CDriveServices& drives_;
  const CAppSettings& settings_;
  CMciPlayer& player_;
  std::unique_ptr<PlayerRunner> inline_;
  PlayerRunner* runner_ = nullptr;
  int currentFileId_ = 0;
  std::string currentPath_;
  std::uint64_t generation_ = 0;
  std::vector<std::pair<int, StartedListener>> started_;
  int lastListener_ = 0;
};
