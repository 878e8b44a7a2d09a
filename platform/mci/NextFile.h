#pragma once
// The file a player goes on with, without a gap, when the one playing has
// been read to its end. The player's streaming thread asks for it (TakeAt-
// Finish) once per file, often seconds before the end is heard, and for a
// short file even before playing began; so until the commands' thread has
// decided (Offer, Decline, or the device starting to play), the ask waits,
// at most kDecisionWait. Every file handed over bears the number of its cue.

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

namespace platform::mci {

class NextFile {
 public:
  static constexpr std::chrono::milliseconds kDecisionWait{3000};

  struct Cue {
    std::uint64_t number = 0;
    std::string file;  // a local path
  };

  // The commands' thread. Offer returns the cue's number (from 1).
  std::uint64_t Offer(std::string file);
  // No file follows (until another Offer).
  void Decline();
  // Playing began: the file playing, read to its end before any decision,
  // goes on with nothing unless a cue was offered already. (A file already
  // taken to follow it still waits to hear what follows it.)
  void Decided();
  // Wakes a waiting ask for good: the pipeline is being stopped or moved.
  void Release();

  // The streaming thread: the cue to go on with, or nothing.
  std::optional<Cue> TakeAtFinish();
  // The streaming side: a stream entered the pipeline's output; when a file
  // was taken, it is that file's.
  void StreamEntered();
  // The bus side: the next file taken started playing; returns its cue
  // (nothing when none was taken).
  std::optional<Cue> StreamStarted();
  // The cue number of the file playing; 0 for the file opened.
  std::uint64_t Playing();
  // Whether a file was taken whose stream has not entered the output yet:
  // the end of the stream playing is not the end of playing. Any thread.
  bool Follows();

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Cue> offered_;
  bool decided_ = false;   // a cue was offered or declined, or playing began
  bool released_ = false;  // asks do not wait until playing begins again
  std::uint64_t lastNumber_ = 0;
  std::deque<Cue> taken_;    // cues handed to the player, not yet streaming
  std::deque<Cue> entered_;  // streaming, not yet heard
  std::uint64_t playing_ = 0;
};

}  // namespace platform::mci
