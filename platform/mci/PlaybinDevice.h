#pragma once
// One open media file: an audio-only playbin, prerolled on open, with a
// ReplayGain stage. A next file may be cued: it then follows the one playing
// without a gap, in the same pipeline, and the length, the position and the
// track number follow the sound as it changes over.
//
// Used from one thread. Every call returns within a bounded wait; playback runs
// in GStreamer's threads, and its end is picked up from the bus at the next call.
// Times are milliseconds; no call throws.

#include <gst/gst.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/mci/GainStage.h"
#include "platform/mci/GstMediaControl.h"
#include "platform/mci/GstOwned.h"
#include "platform/mci/NextFile.h"

namespace platform::mci {
class AudioCapture;
}

namespace platform::mci {

class PlaybinDevice {
 public:
  // Opens an existing file and prerolls it. On failure returns null and sets
  // error: 296 when it cannot be decoded, 262 when the output has no device,
  // 275 when the file went away meanwhile.
  static std::unique_ptr<PlaybinDevice> Open(const std::string& file, AudioOutput output, std::uint32_t& error,
                                             AudioCapture* capture = nullptr);
  // Stops playback and releases the pipeline.
  ~PlaybinDevice();

  PlaybinDevice(const PlaybinDevice&) = delete;
  PlaybinDevice& operator=(const PlaybinDevice&) = delete;

  // 0 when GStreamer could not tell the length.
  std::uint64_t LengthMs() const { return lengthMs_; }
  // Where playback is; the length once the end was reached.
  std::uint64_t PositionMs();
  // Starts playing at ms and returns; 282 past the length, 296 when the seek fails.
  std::uint32_t PlayFrom(std::uint64_t ms);
  // Halts playback, keeping the position; the mode reads "stopped".
  void Stop();
  // Halts playing audio where it is; the mode reads "paused". Nothing
  // changes when it is not playing.
  void Pause();
  // Plays on from a pause; nothing changes when it is not paused.
  void Resume();
  // Moves to ms keeping the mode: playing plays on from there, a halted
  // device stays halted there. 282 past the length, 296 when the seek fails.
  std::uint32_t Seek(std::uint64_t ms);
  // 0 (silence) to 1000 (the file's own level); larger values are refused.
  std::uint32_t SetVolume(std::uint64_t level);
  // "playing", "paused" or "stopped" (the end reached counts as stopped).
  const char* Mode();
  // The local file to go on with when the one playing ends; returns the
  // cue's number (from 1). A later cue replaces one not taken yet.
  std::uint64_t Cue(const std::string& file) { return next_.Offer(file); }
  // Nothing follows the file playing.
  void Uncue() { next_.Decline(); }
  // The number of the cue playing now; 0 while the opened file plays.
  std::uint64_t Track();
  void SetReplayGain(ReplayGainMode mode) { gain_.SetMode(mode); }

 private:
  enum class Phase { Stopped, Paused, Playing, Ended };

  PlaybinDevice();

  static void OnAboutToFinish(GstElement* playbin, gpointer self);
  void HandToStreams();
  void StreamStarted(GstMessage* message);
  void RefreshLength();
  void NoteStalledEnd();

  void DrainBus();
  void PauseAndSettle();
  bool SeekTo(std::uint64_t ms);
  void Halt(Phase phase);
  std::optional<std::uint64_t> QueryPositionMs() const;

  // The pipeline's threads use the stage and the cue: declared first, they
  // are destroyed after the pipeline has stopped.
  GainStage gain_;
  NextFile next_;
  GstOwned<GstElement> playbin_;
  GstOwned<GstBus> bus_;
  std::string file_;  // the file playing
  std::uint64_t lengthMs_ = 0;
  guint group_ = 0;           // of the stream playing; a new one means the next file began
  std::uint64_t heldMs_ = 0;  // the position while paused, and the last one seen
  Phase phase_ = Phase::Stopped;
  bool untouched_ = true;  // prerolled at the start, never played or moved
  static constexpr std::chrono::seconds kStalledEnd{3};
  std::optional<std::chrono::steady_clock::time_point> atEndSince_;
  std::uint64_t stalledAt_ = 0;  // the position last seen at the end
};

}  // namespace platform::mci
