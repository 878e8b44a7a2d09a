#include "playlists/CPlayThrough.h"

#include <algorithm>

#include "playback/CPlaybackControl.h"

CPlayThrough::CPlayThrough(CPlaybackControl& playback, Rows rows) : playback_(playback), rows_(std::move(rows)) {}

bool CPlayThrough::PlayRow(int row) {
  const IdList ids = rows_();
  if (row < 0 || row >= static_cast<int>(ids.size())) return false;
  const int fileId = static_cast<int>(ids[static_cast<std::size_t>(row)]);
  fileId_ = 0;  // while the prompt is up no status counts for this run
  stepping_ = true;
  const bool handed = playback_.PlayFile(fileId) == 0;
  stepping_ = false;
  if (!handed) return false;
  fileId_ = fileId;
  generation_ = playback_.Generation();
  started_.Notify(fileId, row);
  return true;
}

std::optional<int> CPlayThrough::PlayingRow() const {
  if (fileId_ == 0) return std::nullopt;
  const IdList ids = rows_();
  const auto found = std::find(ids.begin(), ids.end(), fileId_);
  if (found == ids.end()) return std::nullopt;
  return static_cast<int>(found - ids.begin());
}

bool CPlayThrough::Step(int offset) {
  const auto row = PlayingRow();
  if (!row) return false;
  const int next = *row + offset;
  if (next < 0 || next >= static_cast<int>(rows_().size())) return false;
  return PlayRow(next);
}

bool CPlayThrough::Next() { return Step(1); }

bool CPlayThrough::Previous() { return Step(-1); }

void CPlayThrough::Stop() { fileId_ = 0; }

void CPlayThrough::OnStatus(const PlayerStatus& status) {
  if (stepping_ || fileId_ == 0 || status.generation != generation_) return;
  if (status.mode == CMciPlayer::Mode::NotReady) {
    Stop();  // the file did not open: no box after box
    return;
  }
  if (status.mode != CMciPlayer::Mode::Stopped || status.positionMs < status.lengthMs) return;
  // The next row is read once the worker that holds the catalogue is done;
  // the player reports the end again meanwhile.
  if (!playback_.CatalogueAtHand()) return;
  if (!enabled_ || !Next()) Stop();
}

CPlayThrough::Repeat RepeatFromText(const std::string& text) {
  if (text == "all") return CPlayThrough::Repeat::All;
  if (text == "one") return CPlayThrough::Repeat::One;
  return CPlayThrough::Repeat::Off;
}

const char* RepeatText(CPlayThrough::Repeat repeat) {
  switch (repeat) {
    case CPlayThrough::Repeat::All:
      return "all";
    case CPlayThrough::Repeat::One:
      return "one";
    default:
      return "off";
  }
}
