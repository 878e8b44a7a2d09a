#pragma once
// One media-control device that plays one file at a time, driven with
// command strings under the alias "QL_MCI_DEV_<deviceId>". Times are in
// milliseconds.
//
// Every call sends its commands at once and returns the code of the last one
// (0 or a media-control error number), or kNotOpen when it needed an open
// file and had none, in which case nothing is sent. Error texts are fetched
// and dropped: the player shows nothing itself.
//
// The media control must outlive the player. Used from one thread at a time:
// the user-interface thread, or the player's own (PlayerThread); only
// AbandonOpensThrough may come from another.

#include <cstdint>
#include <string>

namespace platform {
class MediaControl;
}

class CMciPlayer {
 public:
  static constexpr int kNotOpen = -1;
  static constexpr int kSkipMs = 10000;
  static constexpr int kFullVolume = 1000;

  enum class Mode { NotReady, Stopped, Playing, Paused };

  // Sends nothing.
  CMciPlayer(platform::MediaControl& mci, int deviceId);
  // Sends "close all".
  ~CMciPlayer();
  CMciPlayer(const CMciPlayer&) = delete;
  CMciPlayer& operator=(const CMciPlayer&) = delete;

  // Closes the open file first. On success the device stays open, in
  // milliseconds, and lengthMs holds the file's length; the code returned is
  // that of the length query (a failed query leaves the device open with
  // length 0). When the open itself fails the device stays closed and
  // lengthMs keeps its old value.
  //
  // openNumber (from 1, rising) lets another thread give this open up with
  // AbandonOpensThrough; it then fails with kMciOpenAbandoned.
  int Open(const std::string& path, std::uint64_t openNumber = 0);
  // Gives up the opens numbered up to openNumber, waiting now or sent later.
  // The one call that may come from any thread.
  void AbandonOpensThrough(std::uint64_t openNumber);
  int Play(std::int32_t fromMs);
  int Stop();
  // Plays from ten seconds past the current position, or from the end.
  int Skip();
  // "pause" and "resume": halts where it is, and plays on from there.
  int Pause();
  int Resume();
  // "seek ... to ms": moves without changing the mode.
  int SeekTo(std::int32_t ms);
  // "setaudio ... volume to level" (0 to 1000). The level is kept and sent
  // again after each later open, unless it is the full level every file
  // opens with; so it is taken even while nothing is open (then 0).
  int SetVolume(int level);
  // "cue ... \"path\"": the file to go on with, without a gap, when the one
  // playing ends; a later cue replaces one not yet taken. On success
  // LastCue() holds its number (from 1, counted per open).
  int Cue(const std::string& path);
  // "cue ... off": nothing follows the file playing.
  int Uncue();
  // "status ... track": the number of the cue playing, 0 for the file opened
  // (and when not open). When it changed, the length is read again.
  std::int64_t Track();
  // "setaudio ... replaygain to off|track|album"; kept and sent again after
  // each later open unless it is "track", which every file opens with.
  int SetReplayGain(const std::string& mode);

  // "status ... mode"; NotReady when not open, when the query fails or when
  // the reply is none of "playing", "paused" and "stopped".
  Mode GetMode();
  // Marks the player closed whatever the answer.
  int Close();
  // Closes every device of the media control, the player's among them, but
  // leaves isOpen as it was.
  int CloseAll();

  // The current position, or -1 when not open or when the query fails.
  std::int32_t Position();

  // The text of lastError as the media control words it ("" when unknown).
  std::string GetErrorText();

  int DeviceId() const { return deviceId_; }
  const std::string& Alias() const { return alias_; }
  bool IsOpen() const { return isOpen_; }
  std::uint32_t LastError() const { return lastError_; }
  std::int32_t LengthMs() const { return lengthMs_; }
  int Volume() const { return volume_; }
  std::int64_t LastCue() const { return lastCue_; }

 private:
  static constexpr unsigned kBufferSize = 100;

  // Sends a command, keeps its code in lastError and returns it; the reply,
  // when wanted, goes to a buffer of kBufferSize bytes.
  std::uint32_t Send(const char* command, char* reply = nullptr);
  // Sends "<verb> ALIAS<rest>" formatted into a buffer of kBufferSize bytes.
  std::uint32_t SendToDevice(const char* verb, const std::string& rest = "", char* reply = nullptr);
  // "setaudio ALIAS volume to <volume>".
  std::uint32_t SendVolume();
  // "status ALIAS <item>" read as a number; 0 when the reply is not one.
  std::int32_t StatusNumber(const char* item);

  platform::MediaControl& mci_;
  int deviceId_;
  std::string alias_;
  bool isOpen_ = false;
  std::uint32_t lastError_ = 0;
  std::int32_t lengthMs_ = 0;
  int volume_ = kFullVolume;
  std::string replayGain_;  // "" until set: the device's own default
  std::int64_t lastCue_ = 0;
  std::int64_t track_ = 0;
};
