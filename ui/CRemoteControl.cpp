#include "ui/CRemoteControl.h"

#include <algorithm>
#include <cmath>

#include "catalogue/MediaDB.h"
#include "platform/FileSystem.h"
#include "playback/CPlaybackControl.h"
#include "playlists/CPlayListModel.h"
#include "playlists/CPlayThrough.h"
#include "playlists/FileIds.h"
#include "playlists/PlayListName.h"
#include "settings/CAppSettings.h"
#include "ui/CMainDlg.h"

namespace {

constexpr std::int64_t kUsPerMs = 1000;

}  // namespace

CRemoteControl::CRemoteControl(CMainDlg& window, CPlayListModel& playList, CPlayThrough& playThrough,
                               CPlaybackControl& playback, MediaDB& db, const platform::FileSystem& files)
    : window_(window),
      playList_(playList),
      playThrough_(playThrough),
      playback_(playback),
      db_(db),
      files_(files),
      changesToken_(db.Events().Subscribe([this](const CatalogueChanges& changes) { OnCatalogueChanged(changes); })) {}

CRemoteControl::~CRemoteControl() { db_.Events().Unsubscribe(changesToken_); }

void CRemoteControl::OnCatalogueChanged(const CatalogueChanges& changes) {
  if (details_ && (changes.Touches(CatalogueTable::Files, details_->fileId))) details_.reset();
  if (changes.Touches(CatalogueTable::PlayLists)) playLists_.reset();
}

bool CRemoteControl::CatalogueAtHand() const { return !db_.HeldByWorker(); }

const PlayerStatus& CRemoteControl::Status() const { return window_.LastStatus(); }

std::string CRemoteControl::PlaybackStatus() const {
  switch (Status().mode) {
    case CMciPlayer::Mode::Playing:
      return "Playing";
    case CMciPlayer::Mode::Paused:
      return "Paused";
    default:
      return "Stopped";
  }
}

std::optional<RemoteTrack> CRemoteControl::Track() const {
  const PlayerStatus& status = Status();
  if (status.fileId == 0 || status.mode == CMciPlayer::Mode::NotReady) return std::nullopt;
  if (!details_ || details_->fileId != status.fileId) {
    if (!CatalogueAtHand()) return std::nullopt;
    const auto file = db_.GetFile(status.fileId);
    if (!file) return std::nullopt;
    details_ = RemoteTrack{.fileId = status.fileId,
                           .title = UserOrTag(file->Title, file->id3Title),
                           .artist = UserOrTag(file->Artist, file->id3Artist),
                           .album = UserOrTag(file->Album, file->id3Album),
                           .url = {},
                           .lengthUs = 0};
    if (details_->title.empty()) details_->title = file->FileName;
  }
  RemoteTrack track = *details_;
  track.lengthUs = std::int64_t{status.lengthMs} * kUsPerMs;
  if (status.fileId == playback_.CurrentFileId()) {
    const std::string local = files_.LocalPath(playback_.CurrentPath());
    if (!local.empty()) track.url = "file://" + local;
  }
  return track;
}

std::int64_t CRemoteControl::PositionUs() const { return std::int64_t{Status().positionMs} * kUsPerMs; }

bool CRemoteControl::RowAfter(int offset) const {
  const auto row = playThrough_.PlayingRow();
  if (!row) return false;
  const int next = *row + offset;
  return next >= 0 && next < static_cast<int>(playList_.GetFileIds(false).size());
}

bool CRemoteControl::CanGoNext() const { return RowAfter(1); }

bool CRemoteControl::CanGoPrevious() const { return RowAfter(-1); }

double CRemoteControl::Volume() const { return static_cast<double>(window_.Volume()) / CAppSettings::kFullVolume; }

// A level that is no number, or lies outside 0 to 1, is ignored: a remote's
// slip must neither mute the player nor reach the settings.
void CRemoteControl::SetVolume(double volume) {
  if (!std::isfinite(volume) || volume < 0.0 || volume > 1.0) return;
  window_.ChangeVolume(static_cast<int>(std::lround(volume * CAppSettings::kFullVolume)));
}

// Resumes a pause; otherwise plays the row of the play list that played
// last, or its first row, through.
void CRemoteControl::Play() {
  if (Status().mode == CMciPlayer::Mode::Playing) return;
  if (Status().mode == CMciPlayer::Mode::Paused) {
    window_.OnPauseResume();
    return;
  }
  if (!CatalogueAtHand()) return;
  playThrough_.PlayRow(playThrough_.PlayingRow().value_or(0));
  window_.PollNow();
}

void CRemoteControl::Pause() {
  if (Status().mode == CMciPlayer::Mode::Playing) window_.OnPauseResume();
}

void CRemoteControl::PlayPause() {
  if (Status().mode == CMciPlayer::Mode::Playing)
    Pause();
  else
    Play();
}

void CRemoteControl::Stop() { window_.OnCommand(CMainDlg::kStop); }

void CRemoteControl::Next() {
  if (CatalogueAtHand() && playThrough_.Next()) window_.PollNow();
}

void CRemoteControl::Previous() {
  if (CatalogueAtHand() && playThrough_.Previous()) window_.PollNow();
}

bool CRemoteControl::CanSeek() const {
  const PlayerStatus& status = Status();
  const bool sounding = status.mode == CMciPlayer::Mode::Playing || status.mode == CMciPlayer::Mode::Paused;
  return sounding && status.fileId != 0 && status.lengthMs > 0;
}

std::optional<std::int64_t> CRemoteControl::Seek(std::int64_t offsetUs) {
  if (!CanSeek()) return std::nullopt;
  const PlayerStatus& status = Status();
  const std::int64_t target = std::max<std::int64_t>(std::int64_t{status.positionMs} + offsetUs / kUsPerMs, 0);
  if (target >= status.lengthMs) {
    GoOnFromTheEnd();
    return std::nullopt;
  }
  window_.OnSeek(static_cast<std::int32_t>(target));
  return target * kUsPerMs;
}

void CRemoteControl::GoOnFromTheEnd() {
  if (!CatalogueAtHand()) return;
  if (!playThrough_.Next()) Stop();
  window_.PollNow();
}

std::optional<std::int64_t> CRemoteControl::SetPosition(int fileId, std::int64_t us) {
  const PlayerStatus& status = Status();
  if (!CanSeek() || fileId != status.fileId || us < 0 || us > std::int64_t{status.lengthMs} * kUsPerMs)
    return std::nullopt;
  const std::int64_t ms = us / kUsPerMs;
  window_.OnSeek(static_cast<std::int32_t>(ms));
  return ms * kUsPerMs;
}

bool CRemoteControl::Shuffle() const { return playThrough_.Shuffle(); }

void CRemoteControl::SetShuffle(bool shuffle) { playThrough_.SetShuffle(shuffle); }

std::string CRemoteControl::LoopStatus() const {
  switch (playThrough_.GetRepeat()) {
    case CPlayThrough::Repeat::One:
      return "Track";
    case CPlayThrough::Repeat::All:
      return "Playlist";
    default:
      return "None";
  }
}

void CRemoteControl::SetLoopStatus(const std::string& status) {
  if (status == "None") playThrough_.SetRepeat(CPlayThrough::Repeat::Off);
  if (status == "Track") playThrough_.SetRepeat(CPlayThrough::Repeat::One);
  if (status == "Playlist") playThrough_.SetRepeat(CPlayThrough::Repeat::All);
}

std::vector<std::pair<int, std::string>> CRemoteControl::PlayLists() const {
  if (playLists_ || !CatalogueAtHand()) return playLists_.value_or(std::vector<std::pair<int, std::string>>{});
  playLists_.emplace();
  for (const CPlayList& list : db_.GetPlayLists())
    playLists_->emplace_back(list.PlayListID, ShownPlayListName(list.Name));
  return *playLists_;
}

bool CRemoteControl::ActivatePlayList(int playListId) {
  if (!CatalogueAtHand()) return false;
  const auto stored = db_.GetPlayList(playListId);
  if (!stored) return false;
  playList_.RemoveAllRows();
  playList_.AddFiles(ParseIdList(stored->FileIDs));
  if (playList_.GetFileIds(false).empty()) return false;
  playThrough_.Stop();
  const bool handed = playThrough_.PlayRow(0);
  window_.PollNow();
  return handed;
}
