#include "playback/CMciPlayer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "platform/MediaControl.h"

CMciPlayer::CMciPlayer(platform::MediaControl& mci, int deviceId)
    : mci_(mci), deviceId_(deviceId), alias_("QL_MCI_DEV_" + std::to_string(deviceId)) {}

CMciPlayer::~CMciPlayer() { CloseAll(); }

std::uint32_t CMciPlayer::Send(const char* command, char* reply) {
  if (reply != nullptr) reply[0] = '\0';
  lastError_ = mci_.mciSendString(command, reply, reply != nullptr ? kBufferSize : 0);
  if (lastError_ != 0) {
    char ignored[kBufferSize];
    mci_.mciGetErrorString(lastError_, ignored, kBufferSize);
  }
  return lastError_;
}

std::uint32_t CMciPlayer::SendToDevice(const char* verb, const std::string& rest, char* reply) {
  char command[kBufferSize];
  std::snprintf(command, sizeof command, "%s %s%s", verb, alias_.c_str(), rest.c_str());
  return Send(command, reply);
}

std::int32_t CMciPlayer::StatusNumber(const char* item) {
  char reply[kBufferSize];
  SendToDevice("status", std::string(" ") + item, reply);
  return static_cast<std::int32_t>(std::atoi(reply));
}

int CMciPlayer::Open(const std::string& path, std::uint64_t openNumber) {
  if (isOpen_) Close();
  // Built as a growable string: a long path must reach the device whole.
  const std::string command = "open \"" + path + "\" type mpegvideo alias " + alias_;
  if (openNumber != 0) mci_.NumberNextOpen(openNumber);
  if (Send(command.c_str()) != 0) return static_cast<int>(lastError_);
  isOpen_ = true;
  SendToDevice("set", " time format ms");
  lengthMs_ = StatusNumber("length");
  const std::uint32_t lengthError = lastError_;
  if (volume_ != kFullVolume) SendVolume();
  // Every file opens at track gain.
  if (!replayGain_.empty() && replayGain_ != "track") SendToDevice("setaudio", " replaygain to " + replayGain_);
  track_ = 0;
  lastCue_ = 0;
  lastError_ = lengthError;
  return static_cast<int>(lastError_);
}

void CMciPlayer::AbandonOpensThrough(std::uint64_t openNumber) { mci_.AbandonOpensThrough(openNumber); }

int CMciPlayer::Play(std::int32_t fromMs) {
  if (!isOpen_) return kNotOpen;
  return static_cast<int>(SendToDevice("play", " from " + std::to_string(fromMs)));
}

int CMciPlayer::Stop() {
  if (!isOpen_) return kNotOpen;
  return static_cast<int>(SendToDevice("stop"));
}

int CMciPlayer::Skip() {
  if (!isOpen_) return kNotOpen;
  const std::int64_t target = std::int64_t{StatusNumber("position")} + kSkipMs;
  return Play(static_cast<std::int32_t>(std::min<std::int64_t>(target, lengthMs_)));
}

int CMciPlayer::Pause() {
  if (!isOpen_) return kNotOpen;
  return static_cast<int>(SendToDevice("pause"));
}

int CMciPlayer::Resume() {
  if (!isOpen_) return kNotOpen;
  return static_cast<int>(SendToDevice("resume"));
}

int CMciPlayer::SeekTo(std::int32_t ms) {
  if (!isOpen_) return kNotOpen;
  return static_cast<int>(SendToDevice("seek", " to " + std::to_string(std::max(ms, 0))));
}

int CMciPlayer::SetVolume(int level) {
  volume_ = std::clamp(level, 0, kFullVolume);
  if (!isOpen_) return 0;
  return static_cast<int>(SendVolume());
}

int CMciPlayer::Cue(const std::string& path) {
  if (!isOpen_) return kNotOpen;
  // Built as a growable string, like the open: a long path must arrive whole.
  const std::string command = "cue " + alias_ + " \"" + path + "\"";
  char reply[kBufferSize];
  if (Send(command.c_str(), reply) == 0) lastCue_ = std::atoll(reply);
  return static_cast<int>(lastError_);
}

int CMciPlayer::Uncue() {
  if (!isOpen_) return kNotOpen;
  return static_cast<int>(SendToDevice("cue", " off"));
}

std::int64_t CMciPlayer::Track() {
  if (!isOpen_) return 0;
  char reply[kBufferSize];
  if (SendToDevice("status", " track", reply) != 0) return track_;
  const std::int64_t track = std::atoll(reply);
  if (track != track_) {
    track_ = track;
    lengthMs_ = StatusNumber("length");
  }
  return track_;
}

int CMciPlayer::SetReplayGain(const std::string& mode) {
  replayGain_ = mode;
  if (!isOpen_) return 0;
  return static_cast<int>(SendToDevice("setaudio", " replaygain to " + mode));
}

std::uint32_t CMciPlayer::SendVolume() { return SendToDevice("setaudio", " volume to " + std::to_string(volume_)); }

CMciPlayer::Mode CMciPlayer::GetMode() {
  if (!isOpen_) return Mode::NotReady;
  char reply[kBufferSize];
  if (SendToDevice("status", " mode", reply) != 0) return Mode::NotReady;
  const std::string mode = reply;
  if (mode == "playing") return Mode::Playing;
  if (mode == "paused") return Mode::Paused;
  if (mode == "stopped") return Mode::Stopped;
  return Mode::NotReady;
}

int CMciPlayer::Close() {
  SendToDevice("close");
  isOpen_ = false;
  return static_cast<int>(lastError_);
}

int CMciPlayer::CloseAll() {
  char command[kBufferSize];
  std::snprintf(command, sizeof command, "close all");
  return static_cast<int>(Send(command));
}

std::int32_t CMciPlayer::Position() {
  if (!isOpen_) return -1;
  const std::int32_t position = StatusNumber("position");
  return lastError_ == 0 ? position : -1;
}

std::string CMciPlayer::GetErrorText() {
  char text[kBufferSize] = "";
  mci_.mciGetErrorString(lastError_, text, kBufferSize);
  return text;
}
