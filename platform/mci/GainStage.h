#pragma once
// The ReplayGain stage of a player: a bin for playbin's audio filter that
// plays each stream at the level its gain tags ask for, with a limiter after
// the gain. The level is set as each stream's tags pass, in the streaming
// thread, so in a gapless run every file gets its own level from its first
// sample, and a file without tags plays at 0 dB, not at the one before's.

#include <gst/gst.h>

#include <atomic>
#include <functional>
#include <mutex>

#include "platform/mci/GstOwned.h"
#include "platform/mci/ReplayGain.h"

namespace platform::mci {

class GainStage {
 public:
  // Null Bin() when the elements are missing (the stage is then left out).
  GainStage();
  ~GainStage();
  GainStage(const GainStage&) = delete;
  GainStage& operator=(const GainStage&) = delete;

  // The bin for playbin's "audio-filter" (a reference the caller sinks).
  GstElement* Bin() const { return bin_; }
  // Takes effect at once for the stream playing.
  void SetMode(ReplayGainMode mode);
  // Told on a streaming thread as each stream enters the stage (started),
  // and asked at the end of each (followed): when another file follows in
  // the same pipeline, the end goes no further, so that the sink never
  // drains (a sound card would fall silent meanwhile). Set before the
  // pipeline runs.
  void WatchStreams(std::function<void()> started, std::function<bool()> followed) {
    std::lock_guard lock(mutex_);
    started_ = std::move(started);
    followed_ = std::move(followed);
  }

 private:
  static GstPadProbeReturn OnEvent(GstPad* pad, GstPadProbeInfo* info, gpointer self);
  void StreamStarted();
  void TagsArrived(GstTagList* list);
  void Apply();

  GstElement* bin_ = nullptr;     // floating until playbin takes it
  GstElement* volume_ = nullptr;  // inside bin_
  std::atomic<ReplayGainMode> mode_{ReplayGainMode::Track};
  std::function<void()> started_;
  std::function<bool()> followed_;
  // Guards what the streaming threads read: tags_ (written there too),
  // volume_ and the watchers, set here on another thread.
  std::mutex mutex_;
  ReplayGainTags tags_;  // of the stream passing now
};

}  // namespace platform::mci
