#pragma once
// Playing a list through: when a file started from the list reaches its end,
// the next row plays, until the last one. The rows are read afresh at each
// step, so rows removed or added meanwhile count. A disc prompt that is
// cancelled, or a file that does not open, ends the run; so do Stop and a
// file played from elsewhere (the caller says so with Stop). Driven by the
// player's status as the caller polls it. User-interface thread only.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/Listeners.h"
#include "catalogue/MediaDB.h"
#include "playback/PlayerStatus.h"

class CPlaybackControl;

class CPlayThrough {
 public:
  // The list's FileIDs, top to bottom, as they are now.
  using Rows = std::function<IdList()>;
  // Told of each file that was handed to the player, with its row.
  using StartedListener = std::function<void(int fileId, int row)>;

  CPlayThrough(CPlaybackControl& playback, Rows rows);

  // Plays the row (PlayFile) and, when enabled, plays on from there. False
  // when nothing was handed to the player (no such row, prompt cancelled).
  bool PlayRow(int row);
  // The next or previous row of the one playing; false when there is none.
  bool Next();
  bool Previous();
  // Ends the run; the player is not touched.
  void Stop();
  // Takes the player's status: a file of this run that played to its end
  // is followed by the next row.
  void OnStatus(const PlayerStatus& status);

  // What follows the last row: nothing, the first row again, or (One) the
  // same file again and again.
  enum class Repeat { Off, All, One };

  // The order rows follow each other in; kept until changed.
  void SetShuffle(bool shuffle) { shuffle_ = shuffle; }
  bool Shuffle() const { return shuffle_; }
  void SetRepeat(Repeat repeat) { repeat_ = repeat; }
  Repeat GetRepeat() const { return repeat_; }

  // Whether a file ending plays the next row (the "Play through" button).
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  bool Enabled() const { return enabled_; }
  // The row of the file of this run, while it runs.
  std::optional<int> PlayingRow() const;
  bool Running() const { return fileId_ != 0; }
  // Returns a token for RemoveListener.
  int OnStarted(StartedListener listener) { return started_.Subscribe(std::move(listener)); }
  void RemoveListener(int token) { started_.Unsubscribe(token); }

 private:
  bool Step(int offset);

  CPlaybackControl& playback_;
  Rows rows_;
  Listeners<int, int> started_;
  bool enabled_ = true;
  bool shuffle_ = false;
  Repeat repeat_ = Repeat::Off;
  int fileId_ = 0;  // the file of this run handed over last; 0 when none
  std::uint64_t generation_ = 0;
  bool stepping_ = false;  // a disc prompt may run the event loop meanwhile
};

// "off", "all" and "one", as the settings and the console write them;
// anything else reads as Off.
CPlayThrough::Repeat RepeatFromText(const std::string& text);
const char* RepeatText(CPlayThrough::Repeat repeat);
