#pragma once
// What the player was doing when last asked: the file, where it is and how
// long it is, and its mode.

#include <cstdint>

#include "playback/CMciPlayer.h"

struct PlayerStatus {
  int fileId = 0;  // the catalogue file opened last, 0 when none is open
  CMciPlayer::Mode mode = CMciPlayer::Mode::NotReady;
  std::int32_t positionMs = 0;
  std::int32_t lengthMs = 0;
  // Which PlayFile the answer belongs to; an answer given before the latest
  // PlayFile was handed over says nothing about the file now playing.
  std::uint64_t generation = 0;
  // The cue playing within that PlayFile (0: the file it opened).
  std::int64_t track = 0;
};
