#include "playlists/CPlayThrough.h"

#include <algorithm>
#include <unordered_set>

#include "playback/CPlaybackControl.h"

namespace {

std::optional<int> RowOf(const IdList& rows, int fileId) {
  const auto found = std::find(rows.begin(), rows.end(), fileId);
  if (found == rows.end()) return std::nullopt;
  return static_cast<int>(found - rows.begin());
}

}  // namespace

CPlayThrough::CPlayThrough(CPlaybackControl& playback, Rows rows) : playback_(playback), rows_(std::move(rows)) {}

IdList CPlayThrough::CurrentRows() const { return list_ ? *list_ : rows_(); }

bool CPlayThrough::PlayRow(int row) {
  list_.reset();
  shuffled_.clear();
  failures_ = 0;
  return Play(rows_(), row);
}

bool CPlayThrough::PlayList(IdList files, int row) {
  list_ = std::move(files);
  shuffled_.clear();
  failures_ = 0;
  return Play(*list_, row);
}

bool CPlayThrough::Play(const IdList& rows, int row) {
  if (row < 0 || row >= static_cast<int>(rows.size())) return false;
  const int fileId = static_cast<int>(rows[static_cast<std::size_t>(row)]);
  const int next = enabled_ ? Following(rows, fileId, 1, false) : 0;
  fileId_ = 0;  // while the prompt is up no status counts for this run
  stepping_ = true;
  const bool handed = playback_.PlayFile(fileId, next) == 0;
  stepping_ = false;
  if (!handed) return false;
  fileId_ = fileId;
  cuedFileId_ = next;
  generation_ = playback_.Generation();
  started_.Notify(fileId, row);
  return true;
}

void CPlayThrough::SetShuffle(bool shuffle) {
  shuffle_ = shuffle;
  shuffled_.clear();
}

std::optional<int> CPlayThrough::PlayingRow() const {
  if (fileId_ == 0) return std::nullopt;
  return RowOf(CurrentRows(), fileId_);
}

int CPlayThrough::Following(const IdList& rows, int fileId, int direction, bool userAsked) {
  if (rows.empty()) return 0;
  if (repeat_ == Repeat::One && !userAsked) return RowOf(rows, fileId) ? fileId : 0;
  if (shuffle_) return ShuffledFollowing(rows, fileId, direction);
  const auto row = RowOf(rows, fileId);
  if (!row) return 0;
  const int next = *row + direction;
  if (next >= 0 && next < static_cast<int>(rows.size())) return static_cast<int>(rows[static_cast<std::size_t>(next)]);
  if (repeat_ != Repeat::All) return 0;
  return static_cast<int>(direction > 0 ? rows.front() : rows.back());
}

// Files added since the order was drawn take random places after the one
// playing; files removed are passed over.
int CPlayThrough::ShuffledFollowing(const IdList& rows, int fileId, int direction) {
  if (shuffled_.empty()) Reshuffle(rows, fileId);
  const std::unordered_set<int> present(rows.begin(), rows.end());
  const std::unordered_set<int> drawn(shuffled_.begin(), shuffled_.end());
  auto at = std::find(shuffled_.begin(), shuffled_.end(), fileId);
  for (auto id : rows) {
    if (drawn.contains(static_cast<int>(id))) continue;
    const auto from = at == shuffled_.end() ? shuffled_.begin() : at + 1;
    const auto span = static_cast<int>(shuffled_.end() - from);
    const auto place = from + std::uniform_int_distribution<int>(0, span)(random_);
    const auto offset = at - shuffled_.begin();
    shuffled_.insert(place, static_cast<int>(id));
    at = shuffled_.begin() + offset;
  }
  const int count = static_cast<int>(shuffled_.size());
  const int here = static_cast<int>(at - shuffled_.begin());
  for (int i = here + direction; i >= 0 && i < count; i += direction)
    if (present.contains(shuffled_[static_cast<std::size_t>(i)])) return shuffled_[static_cast<std::size_t>(i)];
  if (repeat_ != Repeat::All) return 0;
  // A new round in a new order, not starting with the file just heard.
  Reshuffle(rows, 0);
  if (shuffled_.size() > 1 && shuffled_.front() == fileId) std::swap(shuffled_.front(), shuffled_.back());
  return shuffled_.front();
}

void CPlayThrough::Reshuffle(const IdList& rows, int first) {
  shuffled_.assign(rows.begin(), rows.end());
  std::shuffle(shuffled_.begin(), shuffled_.end(), random_);
  const auto found = std::find(shuffled_.begin(), shuffled_.end(), first);
  if (found != shuffled_.end()) std::iter_swap(shuffled_.begin(), found);
}

bool CPlayThrough::Next() {
  if (fileId_ == 0) return false;
  const IdList rows = CurrentRows();
  const auto row = RowOf(rows, Following(rows, fileId_, 1, true));
  return row && Play(rows, *row);
}

bool CPlayThrough::Previous() {
  if (fileId_ == 0) return false;
  const IdList rows = CurrentRows();
  const auto row = RowOf(rows, Following(rows, fileId_, -1, true));
  return row && Play(rows, *row);
}

void CPlayThrough::Stop() {
  fileId_ = 0;
  cuedFileId_ = 0;
}

void CPlayThrough::OnStatus(const PlayerStatus& status) {
  if (stepping_ || fileId_ == 0 || status.generation != generation_) return;
  if (status.mode == CMciPlayer::Mode::NotReady) {
    SkipFailedFile();
    return;
  }
  failures_ = 0;
  if (status.fileId != 0 && status.fileId != fileId_) FollowStartedFile(status.fileId);
  // The rows are read once the worker that holds the catalogue is done;
  // the player reports the end again meanwhile.
  if (!playback_.CatalogueAtHand()) return;
  if (status.mode != CMciPlayer::Mode::Stopped) {
    CueFollowing();
    return;
  }
  if (status.positionMs < status.lengthMs) return;
  // The cue was not taken in time: the next file opens anew.
  const IdList rows = CurrentRows();
  const auto row = enabled_ ? RowOf(rows, Following(rows, fileId_, 1, false)) : std::nullopt;
  if (!row || !Play(rows, *row)) Stop();
}

void CPlayThrough::FollowStartedFile(int fileId) {
  fileId_ = fileId;
  cuedFileId_ = kUndecided;  // the player waits to hear what follows, even when nothing does
  const auto row = RowOf(CurrentRows(), fileId);
  started_.Notify(fileId, row.value_or(-1));
}

void CPlayThrough::CueFollowing() {
  const int next = enabled_ ? Following(CurrentRows(), fileId_, 1, false) : 0;
  if (next == cuedFileId_) return;
  cuedFileId_ = next;
  playback_.CueNext(next);
}

// The box has said why; the run goes on with the file after, unless no file
// of the list opens.
void CPlayThrough::SkipFailedFile() {
  const IdList rows = CurrentRows();
  if (!enabled_ || ++failures_ >= static_cast<int>(rows.size())) {
    Stop();
    return;
  }
  const auto row = RowOf(rows, Following(rows, fileId_, 1, true));
  if (!row || !Play(rows, *row)) Stop();
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
