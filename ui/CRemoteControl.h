#pragma once
// The player as the desktop's media keys, sound menu and widgets see it: its
// status, the playing file's details, and the commands they send. Next and
// Previous move through the play list window's rows; activating a stored
// play list puts its files into the play list window and plays them through
// from the first. Times are microseconds here, as those callers count them.
// User-interface thread only; the status is the one the main window polled last.
// The playing file's details and the stored play lists are read once and
// kept until the catalogue change event says they changed, so that asking
// for them (four times a second, or over the bus) reads nothing. While a
// worker holds the catalogue, commands that would read it do nothing.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class CatalogueChanges;
class CMainDlg;
class CPlaybackControl;
class CPlayListModel;
class CPlayThrough;
class MediaDB;
struct PlayerStatus;

namespace platform {
class FileSystem;
}

struct RemoteTrack {
  int fileId = 0;
  std::string title;
  std::string artist;
  std::string album;
  std::string url;  // file:///... of the file as it lies now; "" when unknown
  std::int64_t lengthUs = 0;
};

class CRemoteControl {
 public:
  CRemoteControl(CMainDlg& window, CPlayListModel& playList, CPlayThrough& playThrough, CPlaybackControl& playback,
                 MediaDB& db, const platform::FileSystem& files);
  ~CRemoteControl();
  CRemoteControl(const CRemoteControl&) = delete;
  CRemoteControl& operator=(const CRemoteControl&) = delete;

  // "Playing", "Paused" or "Stopped".
  std::string PlaybackStatus() const;
  std::optional<RemoteTrack> Track() const;
  std::int64_t PositionUs() const;
  bool CanGoNext() const;
  bool CanGoPrevious() const;
  // 0.0 to 1.0; SetVolume ignores anything else (NaN and infinities too).
  double Volume() const;
  void SetVolume(double volume);

  void Play();
  void Pause();
  void PlayPause();
  void Stop();
  void Next();
  void Previous();
  // Whether the position may be moved: a file plays or is paused, and its
  // length is known.
  bool CanSeek() const;
  // Moves by offset (before the start: to the start); at or past the end
  // goes on to the next row, as if it ended. Returns the new position when
  // the file's position moved, nothing when the call was ignored or went on.
  std::optional<std::int64_t> Seek(std::int64_t offsetUs);
  // Moves to us in the file, when it is still the one playing and us lies
  // within it; returns the new position, or nothing when ignored.
  std::optional<std::int64_t> SetPosition(int fileId, std::int64_t us);

  // The play-through's order: shuffled or not, and what follows the last
  // row as "None", "Track" (the same file again) or "Playlist" (from the
  // first row again). An unknown loop status is ignored.
  bool Shuffle() const;
  void SetShuffle(bool shuffle);
  std::string LoopStatus() const;
  void SetLoopStatus(const std::string& status);

  // The stored play lists: PlayListID and name as shown, in the catalogue's order.
  std::vector<std::pair<int, std::string>> PlayLists() const;
  // False when there is no such play list or it holds no file.
  bool ActivatePlayList(int playListId);

 private:
  const PlayerStatus& Status() const;
  bool RowAfter(int offset) const;
  bool CatalogueAtHand() const;
  // Seek past the end: the next row, or a stop after the last.
  void GoOnFromTheEnd();
  void OnCatalogueChanged(const CatalogueChanges& changes);

  CMainDlg& window_;
  CPlayListModel& playList_;
  CPlayThrough& playThrough_;
  CPlaybackControl& playback_;
  MediaDB& db_;
  const platform::FileSystem& files_;
  int changesToken_ = 0;
  mutable std::optional<RemoteTrack> details_;  // the texts of the file described last
  mutable std::optional<std::vector<std::pair<int, std::string>>> playLists_;
};
