#pragma once
// Playing a list through: the row after the one playing is cued, so that it
// follows without a gap; when a cue could not be taken (a disc to ask for, a
// file cued too late) the next row is played when the file ends. The rows
// are read afresh at each step, so rows removed or added meanwhile count.
// The order may be shuffled, and the run may repeat the whole list or one
// file. A file that does not open is skipped; a disc prompt that is
// cancelled ends the run; so do Stop and a file played from elsewhere (the
// caller says so with Stop).
//
// The rows are the play list's (PlayRow), or a list handed over with the
// first row to play (PlayList: the files of a folder, of search results or
// of a stored play list, as the main list shows them). Driven by the
// player's status as the caller polls it. User-interface thread only.

#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "base/Listeners.h"
#include "catalogue/MediaDB.h"
#include "playback/PlayerStatus.h"

class CPlaybackControl;

class CPlayThrough {
 public:
  // The list's FileIDs, top to bottom, as they are now.
  using Rows = std::function<IdList()>;
  // Told of each file that was handed to the player or began without a gap,
  // with its row.
  using StartedListener = std::function<void(int fileId, int row)>;
  // What follows the last row: nothing, the first row again, or (One) the
  // same file again and again.
  enum class Repeat { Off, All, One };

  CPlayThrough(CPlaybackControl& playback, Rows rows);

  // Plays the play list's row and, when enabled, plays on from there. False
  // when nothing was handed to the player (no such row, prompt cancelled).
  bool PlayRow(int row);
  // The same over the files given, which stay the run's rows.
  bool PlayList(IdList files, int row);
  // Whether the run's rows are the play list's.
  bool OnPlayList() const { return !list_; }
  // The next or previous row of the one playing, in the run's order; false
  // when there is none.
  bool Next();
  bool Previous();
  // Ends the run; the player is not touched.
  void Stop();
  // Takes the player's status: follows a cued file that began, cues the
  // next one, plays on after a file that ended, skips one that failed.
  void OnStatus(const PlayerStatus& status);

  // Whether a file ending plays the next row (the "Play through" button).
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  bool Enabled() const { return enabled_; }
  // The order rows follow each other in; kept until changed.
  void SetShuffle(bool shuffle);
  bool Shuffle() const { return shuffle_; }
  void SetRepeat(Repeat repeat) { repeat_ = repeat; }
  Repeat GetRepeat() const { return repeat_; }

  // The row of the file of this run, while it runs.
  std::optional<int> PlayingRow() const;
  bool Running() const { return fileId_ != 0; }
  // Returns a token for RemoveListener.
  int OnStarted(StartedListener listener) { return started_.Subscribe(std::move(listener)); }
  void RemoveListener(int token) { started_.Unsubscribe(token); }

 private:
  IdList CurrentRows() const;
  bool Play(const IdList& rows, int row);
  // The file after (or before) fileId in the run's order; 0 when none.
  int Following(const IdList& rows, int fileId, int direction, bool userAsked);
  int ShuffledFollowing(const IdList& rows, int fileId, int direction);
  void Reshuffle(const IdList& rows, int first);
  void FollowStartedFile(int fileId);
  void CueFollowing();
  void SkipFailedFile();

  CPlaybackControl& playback_;
  Rows rows_;
  std::optional<IdList> list_;  // the run's own rows; none: the play list's
  Listeners<int, int> started_;
  bool enabled_ = true;
  bool shuffle_ = false;
  Repeat repeat_ = Repeat::Off;
  std::vector<int> shuffled_;  // the files in shuffled order
  std::mt19937 random_{std::random_device{}()};
  int fileId_ = 0;  // the file of this run playing (or handed over last); 0 when none
  static constexpr int kUndecided = -1;
  int cuedFileId_ = 0;  // the file cued to follow, 0 for none, or kUndecided
  int failures_ = 0;    // files in a row that did not open
  std::uint64_t generation_ = 0;
  bool stepping_ = false;  // a disc prompt may run the event loop meanwhile
};

// "off", "all" and "one", as the settings and the console write them;
// anything else reads as Off.
CPlayThrough::Repeat RepeatFromText(const std::string& text);
const char* RepeatText(CPlayThrough::Repeat repeat);
