#pragma once
// The media-control string interface played through GStreamer: each open
// device is one audio-only player, addressed by its alias.
//
// Commands understood: open "PATH" type mpegvideo alias A, set A time format ms,
// status A length|position|mode|track, play A from N, stop A, pause A, resume A,
// seek A to N|start|end, setaudio A volume to N (0 to 1000),
// setaudio A replaygain to off|track|album, cue A "PATH", cue A off,
// close A, close all.
//
// "cue" names the file to go on with, without a gap, when the one playing
// ends (it answers the cue's number, from 1); "status A track" answers the
// number of the cue playing (0 for the file opened), and length and position
// then speak of that file. ReplayGain, "track" unless set, holds for the
// device's life.
// Times are milliseconds. `play` returns at once; playback goes on in
// GStreamer's own threads, and reaching the end is noticed at the next command.
//
// Not thread-safe: use one object from one thread (the user-interface thread, or
// the player's own thread); AbandonOpensThrough alone may come from any thread.
// An open (stat included) runs on a thread of its own and is waited for at most
// the open limit; a folder, pipe, socket or device is refused unopened.

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/MediaControl.h"

namespace platform::mci {

class DeviceOpener;
class DeviceTable;
class PlaybinDevice;

enum class AudioOutput {
  System,   // the system's default audio output; open fails with 262 without one
  Silent,   // plays into nothing, in real time, for tests
  Capture,  // records what would be heard into a file (CaptureInto)
};

class AudioCapture;

class GstMediaControl final : public MediaControl {
 public:
  // Maps a path as the player writes it ("C:\Music\a.mp3") to a Linux file,
  // or to "" when it has none. Paths starting with "/" are used as they are.
  using PathMapper = std::function<std::string(const std::string&)>;

  // How long an open may take before it is given up as wedged.
  static constexpr std::chrono::milliseconds kOpenLimit{10000};

  // Starts GStreamer if it is not running yet; throws std::runtime_error when
  // it cannot be started.
  GstMediaControl(AudioOutput output, PathMapper toLocalPath, std::chrono::milliseconds openLimit = kOpenLimit);
  // Maps paths with files.LocalPath; files must outlive this object.
  GstMediaControl(AudioOutput output, const FileSystem& files, std::chrono::milliseconds openLimit = kOpenLimit);
  // Closes every open device.
  ~GstMediaControl() override;

  // The program's player: the system's output, or, when the environment
  // names a file in VANTRELLE_AUDIO_CAPTURE, a recording of what would be
  // heard in that file (see AudioCapture.h). Throws like the constructor, and
  // when the capture file cannot be written.
  static std::unique_ptr<GstMediaControl> ForProgram(const FileSystem& files);

  GstMediaControl(const GstMediaControl&) = delete;
  GstMediaControl& operator=(const GstMediaControl&) = delete;

  std::uint32_t mciSendString(const char* command, char* reply, unsigned size) override;
  // The text of kMciOpenTimedOut names the time limit.
  bool mciGetErrorString(std::uint32_t code, char* text, unsigned size) override;
  void NumberNextOpen(std::uint64_t number) override { nextOpen_ = number; }
  void AbandonOpensThrough(std::uint64_t number) override;

  // Records what the Capture output plays into file (truncated now); false
  // when it cannot be written.
  bool CaptureInto(const std::string& file);

 private:
  std::uint32_t Run(std::string_view text, std::string& reply);
  std::uint32_t Open(const std::string& path, const std::string& alias);
  std::uint32_t Cue(PlaybinDevice& device, const std::string& path, std::string& reply) const;
  std::string LocalFile(const std::string& path) const;

  AudioOutput output_;
  PathMapper toLocalPath_;
  // Before the devices, whose sinks record into it: it goes after them.
  // Shared with opens that may outlive this object.
  std::shared_ptr<AudioCapture> capture_;
  std::unique_ptr<DeviceTable> devices_;
  std::unique_ptr<DeviceOpener> opener_;
  std::uint64_t nextOpen_ = 0;
};

}  // namespace platform::mci
