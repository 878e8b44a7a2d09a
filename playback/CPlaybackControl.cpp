#include "playback/CPlaybackControl.h"

#include <algorithm>

#include "catalogue/MediaDB.h"
#include "platform/DriveTable.h"
#include "platform/MediaControl.h"
#include "platform/MessageBox.h"
#include "playback/CMciPlayer.h"
#include "playback/PlayerRunner.h"
#include "settings/CAppSettings.h"
#include "volumes/CDriveServices.h"
#include "volumes/PlayedFile.h"

CPlaybackControl::CPlaybackControl(MediaDB& db, const CDriveServices& drives, const CAppSettings& settings,
                                   CMciPlayer& player)
    : db_(db),
      drives_(drives),
      settings_(settings),
      player_(player),
      inline_(std::make_unique<InlinePlayerRunner>(player)) {}

CPlaybackControl::~CPlaybackControl() = default;

bool CPlaybackControl::CatalogueAtHand() const { return !db_.HeldByWorker(); }

int CPlaybackControl::OnStarted(StartedListener listener) {
  started_.emplace_back(++lastListener_, std::move(listener));
  return lastListener_;
}

int CPlaybackControl::OnOpening(OpeningListener listener) {
  opening_.emplace_back(++lastListener_, std::move(listener));
  return lastListener_;
}

void CPlaybackControl::RemoveListener(int listener) {
  std::erase_if(started_, [listener](const auto& entry) { return entry.first == listener; });
  std::erase_if(opening_, [listener](const auto& entry) { return entry.first == listener; });
}

void CPlaybackControl::OpeningChanged() {
  const auto listeners = opening_;  // a listener may add or remove one
  for (const auto& [id, listener] : listeners) listener();
}

void CPlaybackControl::AbandonOpen() {
  if (lastOpen_ != 0) player_.AbandonOpensThrough(lastOpen_);
}

void CPlaybackControl::UseRunner(PlayerRunner* runner) { runner_ = runner; }

PlayerRunner& CPlaybackControl::Runner() { return runner_ != nullptr ? *runner_ : *inline_; }

int CPlaybackControl::PlayFile(int fileId) { return PlayFile(fileId, 0); }

int CPlaybackControl::PlayFile(int fileId, int nextFileId) {
  const auto played = LocatePlayedFile(db_, fileId, settings_.cdDrive);
  if (!played) return kNotPlayed;
  if (played->volume->VolType == platform::kDriveCdRom && !WaitForDisc(played->drive, *played->volume))
    return kNotPlayed;
  OpenAndPlay(fileId, played->fullPath, played->file->FileName,
              nextFileId != 0 ? LocateLater(nextFileId, false) : nullptr, nextFileId);
  return 0;
}

void CPlaybackControl::CueNext(int fileId) {
  auto locate = fileId != 0 ? LocateLater(fileId, false) : nullptr;
  struct Outcome {
    std::int64_t number = 0;
    std::string path;
  };
  auto outcome = std::make_shared<Outcome>();
  Runner().Run(
      [locate = std::move(locate), outcome](CMciPlayer& player) {
        outcome->path = locate ? locate() : "";
        if (!outcome->path.empty() && player.Cue(outcome->path) == 0) {
          outcome->number = player.LastCue();
          return;
        }
        player.Uncue();
      },
      [this, fileId, outcome, generation = generation_] {
        if (generation == generation_ && outcome->number != 0) RecordCue(fileId, outcome->number, outcome->path);
      });
}

void CPlaybackControl::RecordCue(int fileId, std::int64_t number, const std::string& path) {
  cued_[number] = CuedFile{fileId, path};
}

void CPlaybackControl::NotifyStarted(int fileId) {
  const auto listeners = started_;  // a listener may add or remove one
  for (const auto& [id, listener] : listeners) listener(fileId);
}

std::function<std::string()> CPlaybackControl::LocateLater(int fileId, bool checkDisk) const {
  const auto played = LocatePlayedFile(db_, fileId, settings_.cdDrive);
  if (!played) return nullptr;
  // A disc is looked for in the CD drive of the settings; a disk on its own
  // letter, which may hold another disk now (or none: unplugged, unmounted).
  const bool onDisc = played->volume->VolType == platform::kDriveCdRom;
  if (!onDisc && !checkDisk) return [path = played->fullPath] { return path; };
  return [&drives = drives_, drive = played->drive, serial = played->volume->SerialNo,
          path = played->fullPath]() -> std::string {
    if (!drives.IsDriveReady(drive)) return "";
    const auto inDrive = drives.ReadVolumeInfo(drive);
    return inDrive && inDrive->SerialNo == serial ? path : "";
  };
}

bool CPlaybackControl::WaitForDisc(const std::string& drive, const CMediaVolume& volume) const {
  const std::string prompt = "Please Insert CD: " + volume.DisplayName;
  return drives_.WaitForVolume(drive, volume.SerialNo, prompt) == 0;
}

// The outcome travels from the runner's thread to this one with the work.
// Each open bears a number, so that a later command can give it up while it
// waits (a file that never opens must not hold up Stop, the next Play or Quit).
void CPlaybackControl::OpenAndPlay(int fileId, const std::string& fullPath, const std::string& name,
                                   std::function<std::string()> next, int nextFileId) {
  AbandonOpen();
  currentFileId_ = fileId;
  currentPath_ = fullPath;
  ++generation_;
  cued_.clear();
  track_ = 0;
  const std::uint64_t number = ++lastOpen_;
  openingFileId_ = fileId;
  openingName_ = name;
  OpeningChanged();
  struct Outcome {
    int code = 0;
    std::string reason;
    std::int64_t cue = 0;
    std::string cuedPath;
  };
  auto outcome = std::make_shared<Outcome>();
  // The next file is cued before playing starts: a short file may be read
  // to its end at once, and the player then asks what follows.
  Runner().Run(
      [fullPath, number, outcome, next = std::move(next)](CMciPlayer& player) {
        outcome->code = player.Open(fullPath, number);
        if (outcome->code != 0) {
          outcome->reason = player.GetErrorText();
          return;
        }
        outcome->cuedPath = next ? next() : "";
        if (!outcome->cuedPath.empty() && player.Cue(outcome->cuedPath) == 0) outcome->cue = player.LastCue();
        player.Play(0);
      },
      [this, fileId, fullPath, number, outcome, nextFileId, generation = generation_] {
        if (number == lastOpen_) {
          openingFileId_ = 0;
          OpeningChanged();
        }
        if (outcome->code != 0) {
          if (generation == generation_) currentFileId_ = 0;
          // Given up for a later command: the user moved on, nothing to say.
          if (outcome->code == static_cast<int>(platform::kMciOpenAbandoned)) return;
          const std::string reason =
              outcome->reason.empty() ? "error " + std::to_string(outcome->code) : outcome->reason;
          drives_.Messages().Show(std::string(kCannotPlay) + "\n" + fullPath + ": " + reason, platform::Buttons::Ok,
                                  platform::Icon::None);
          return;
        }
        if (generation == generation_ && outcome->cue != 0) RecordCue(nextFileId, outcome->cue, outcome->cuedPath);
        NotifyStarted(fileId);
      });
}

int CPlaybackControl::StopPlayback() {
  AbandonOpen();
  Runner().Run([](CMciPlayer& player) { player.Stop(); }, nullptr);
  return 0;
}

int CPlaybackControl::SkipForward() {
  Runner().Run([](CMciPlayer& player) { player.Skip(); }, nullptr);
  return 0;
}

void CPlaybackControl::Pause() {
  Runner().Run([](CMciPlayer& player) { player.Pause(); }, nullptr);
}

void CPlaybackControl::Resume() {
  Runner().Run([](CMciPlayer& player) { player.Resume(); }, nullptr);
}

void CPlaybackControl::SeekTo(std::int32_t ms) {
  Runner().Run([ms](CMciPlayer& player) { player.SeekTo(ms); }, nullptr);
}

void CPlaybackControl::SetVolume(int level) {
  Runner().Run([level](CMciPlayer& player) { player.SetVolume(level); }, nullptr);
}

void CPlaybackControl::SetReplayGain(const std::string& mode) {
  Runner().Run([mode](CMciPlayer& player) { player.SetReplayGain(mode); }, nullptr);
}

void CPlaybackControl::Poll(std::function<void(const PlayerStatus&)> answer) {
  auto status = std::make_shared<PlayerStatus>();
  status->fileId = currentFileId_;
  status->generation = generation_;
  Runner().Run(
      [status](CMciPlayer& player) {
        if (!player.IsOpen()) return;
        status->track = player.Track();
        status->mode = player.GetMode();
        status->positionMs = std::max(player.Position(), 0);
        status->lengthMs = player.LengthMs();
      },
      [this, status, answer = std::move(answer)] {
        if (status->mode == CMciPlayer::Mode::NotReady) status->fileId = 0;
        if (status->fileId != 0 && status->generation == generation_) {
          FollowTrack(status->track);
          status->fileId = currentFileId_;
        }
        answer(*status);
      });
}

void CPlaybackControl::FollowTrack(std::int64_t track) {
  if (track == track_) return;
  track_ = track;
  const auto cued = cued_.find(track);
  if (cued == cued_.end()) return;
  currentFileId_ = cued->second.fileId;
  currentPath_ = cued->second.path;
  cued_.erase(cued_.begin(), std::next(cued));
  NotifyStarted(currentFileId_);
}
