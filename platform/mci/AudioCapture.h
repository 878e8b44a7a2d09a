#pragma once
// An output that records what would be heard instead of playing it: 16-bit
// stereo samples at 44.1 kHz, little-endian, raw, appended to one file for
// the life of the media control. Samples are taken at real-time pace, and
// time in which nothing was played (between two files, while paused)
// becomes silence in the file, measured on the clock that schedules them and
// as a sound card would play it (the end of a stream is told only once its
// buffer has drained; small jumps in time are played through); so the file
// tells whether one file followed another without a gap. For tests
// and diagnostics where no sound card is at hand.

#include <gst/gst.h>

#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>

namespace platform::mci {

class AudioCapture {
 public:
  static constexpr int kRate = 44100;
  static constexpr int kChannels = 2;

  // Creates (truncates) the file; Good() tells whether that worked.
  explicit AudioCapture(const std::string& file);
  ~AudioCapture();
  AudioCapture(const AudioCapture&) = delete;
  AudioCapture& operator=(const AudioCapture&) = delete;

  bool Good();
  // A new sink (floating reference) that records into this capture; it must
  // not outlive this object.
  GstElement* MakeSink();

 private:
  static GstFlowReturn OnSample(GstElement* sink, gpointer self);
  void Record(GstElement* sink, GstSample* sample);
  void WriteSilence(std::uint64_t frames);

  std::mutex mutex_;  // samples come on streaming threads
  std::FILE* file_ = nullptr;
  bool started_ = false;
  GstClockTime endsAt_ = 0;  // clock time at which the last sample recorded ends
};

}  // namespace platform::mci
