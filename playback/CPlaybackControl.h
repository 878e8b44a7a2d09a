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
#include <map>
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
  // Told when an open was handed to the player and when it ended, either way.
  using OpeningListener = std::function<void()>;

  static constexpr int kNotPlayed = -1;
  static constexpr const char* kCannotPlay = "Sorry, unable to play media file.";

  // settings.cdDrive is read at each PlayFile, so a changed drive counts at once.
  CPlaybackControl(MediaDB& db, const CDriveServices& drives, const CAppSettings& settings, CMciPlayer& player);
  ~CPlaybackControl();
  CPlaybackControl(const CPlaybackControl&) = delete;
  CPlaybackControl& operator=(const CPlaybackControl&) = delete;

  // Opens the file and plays it from the start; a file that does not open is
  // reported with kCannotPlay and a line naming the file and the reason, and
  // not played. An open still waiting is given up first (no report for it). Returns 0 once the file was
  // handed to the player, whether it played or not. Returns kNotPlayed, with
  // nothing sent to the player, when the disc prompt is cancelled or when the
  // file, its folder or its volume has no row (the catalogue changed under the
  // caller; there is nothing to play and nothing the user could fix).
  int PlayFile(int fileId);
  // The same, with nextFileId (0: none) cued to follow without a gap.
  int PlayFile(int fileId, int nextFileId);
  // The file to go on with, without a gap, when the one playing ends (0:
  // none). Only a file whose volume is at hand is cued; a disc that is not
  // in the drive is asked for when its turn comes, by PlayFile. When the
  // cued file starts, the started listeners hear of it and CurrentFileId
  // follows.
  void CueNext(int fileId);
  // The file's full path when its volume is at hand (a disc in the CD drive
  // of the settings, a disk on its letter), "" otherwise; never asks. In two
  // steps, so that the disc need not be read on this thread: the rows are
  // read now, and the function returned tells the path when called on any
  // thread (for a disc it reads the drive's volume then, which may take as
  // long as the drive does). Null when the file has no row. It uses the
  // drive services, which must outlive it. With checkDisk false a file on a
  // disk is taken where its letter points, as PlayFile takes it, unread.
  std::function<std::string()> LocateLater(int fileId, bool checkDisk = true) const;
  // Both return 0 whatever the player answered. Stop gives up an open that
  // still waits, so that it acts at once.
  int StopPlayback();
  int SkipForward();

  void Pause();
  void Resume();
  void SeekTo(std::int32_t ms);
  // 0 to 1000; kept for the files opened later too.
  void SetVolume(int level);
  // "off", "track" or "album"; kept for the files opened later too.
  void SetReplayGain(const std::string& mode);
  // Asks the player where it is; answered through the callback, on this
  // thread, after every command handed over before.
  void Poll(std::function<void(const PlayerStatus&)> answer);

  // Gives up the open handed over last if it still waits; the commands after
  // it then run at once. Call before the player's runner goes.
  void AbandonOpen();
  // The file whose open was handed over and has not ended yet (0: none), and
  // its name.
  int OpeningFileId() const { return openingFileId_; }
  // False while a worker holds the catalogue: PlayFile must wait.
  bool CatalogueAtHand() const;
  const std::string& OpeningName() const { return openingName_; }

  // The file handed over last (0 before any); its open may still run.
  int CurrentFileId() const { return currentFileId_; }
  // Its full drive path ("C:\Music\a.mp3"); "" when none.
  const std::string& CurrentPath() const { return currentPath_; }
  std::uint64_t Generation() const { return generation_; }
  // Return a number for RemoveListener.
  int OnStarted(StartedListener listener);
  int OnOpening(OpeningListener listener);
  void RemoveListener(int listener);
  // The runner the player's commands go through from now on; null for the
  // one that runs them at once. It must outlive its use.
  void UseRunner(PlayerRunner* runner);

 private:
  // Asks for the volume's disc until the drive holds it; false on Cancel.
  bool WaitForDisc(const std::string& drive, const CMediaVolume& volume) const;
  void OpenAndPlay(int fileId, const std::string& fullPath, const std::string& name, std::function<std::string()> next,
                   int nextFileId);
  void RecordCue(int fileId, std::int64_t number, const std::string& path);
  // A cued file began: it is the current one from now on.
  void FollowTrack(std::int64_t track);
  void NotifyStarted(int fileId);
  void OpeningChanged();
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
  std::vector<std::pair<int, OpeningListener>> opening_;
  std::uint64_t lastOpen_ = 0;  // the number of the open handed over last
  int openingFileId_ = 0;
  std::string openingName_;
  int lastListener_ = 0;
  struct CuedFile {
    int fileId = 0;
    std::string path;
  };
  std::map<std::int64_t, CuedFile> cued_;  // of the current open, by cue number
  std::int64_t track_ = 0;                 // the cue playing, as last polled
};
