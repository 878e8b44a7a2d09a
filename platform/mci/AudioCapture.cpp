#include "platform/mci/AudioCapture.h"

#include <gst/app/gstappsink.h>

#include <algorithm>
#include <vector>

#include "base/ThreadHandOver.h"

namespace platform::mci {
namespace {

constexpr int kFrameBytes = 2 * AudioCapture::kChannels;
// As an audio sink does, samples that arrive this close to where the last
// ones ended are played on from there: only a larger jump is heard as silence.
constexpr GstClockTime kAlignment = 40 * GST_MSECOND;
// A sound card's buffer: the end of a stream is told only when its last
// samples have left it, this long after they were written.
constexpr gulong kDeviceLatencyUs = 200000;

GstPadProbeReturn DrainAtEnd(GstPad*, GstPadProbeInfo* info, gpointer) {
  if (GST_EVENT_TYPE(GST_PAD_PROBE_INFO_EVENT(info)) == GST_EVENT_EOS) g_usleep(kDeviceLatencyUs);
  return GST_PAD_PROBE_OK;
}

std::uint64_t FramesIn(GstClockTime time) { return gst_util_uint64_scale(time, AudioCapture::kRate, GST_SECOND); }

}  // namespace

// Under the lock: the streaming threads that record may have been made
// before this object, with nothing else ordering them after it.
AudioCapture::AudioCapture(const std::string& file) {
  std::lock_guard lock(mutex_);
  file_ = std::fopen(file.c_str(), "wb");
}

AudioCapture::~AudioCapture() {
  TakeOver(this);
  std::lock_guard lock(mutex_);
  if (file_ != nullptr) std::fclose(file_);
}

bool AudioCapture::Good() {
  std::lock_guard lock(mutex_);
  return file_ != nullptr;
}

GstElement* AudioCapture::MakeSink() {
  GError* error = nullptr;
  GstElement* bin = gst_parse_bin_from_description(
      "audioconvert ! audioresample ! audio/x-raw,format=S16LE,rate=44100,channels=2 ! appsink name=capture sync=true",
      TRUE, &error);
  g_clear_error(&error);
  if (bin == nullptr) return nullptr;
  GstElement* sink = gst_bin_get_by_name(GST_BIN(bin), "capture");
  g_object_set(sink, "emit-signals", TRUE, nullptr);
  g_signal_connect(sink, "new-sample", G_CALLBACK(&AudioCapture::OnSample), this);
  GstPad* pad = gst_element_get_static_pad(sink, "sink");
  gst_pad_add_probe(pad, GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM, &DrainAtEnd, nullptr, nullptr);
  gst_object_unref(pad);
  gst_object_unref(sink);
  HandOver(this);
  return bin;
}

GstFlowReturn AudioCapture::OnSample(GstElement* sink, gpointer self) {
  const HandedOverScope handedOver(self);
  GstSample* sample = gst_app_sink_pull_sample(GST_APP_SINK(sink));
  if (sample == nullptr) return GST_FLOW_EOS;
  static_cast<AudioCapture*>(self)->Record(sink, sample);
  gst_sample_unref(sample);
  return GST_FLOW_OK;
}

// A sample is heard at the sink's base time plus its running time; whatever
// lies between the end of the last one and that is silence.
void AudioCapture::Record(GstElement* sink, GstSample* sample) {
  GstBuffer* buffer = gst_sample_get_buffer(sample);
  const GstSegment* segment = gst_sample_get_segment(sample);
  if (buffer == nullptr || segment == nullptr || !GST_BUFFER_PTS_IS_VALID(buffer)) return;
  const GstClockTime running = gst_segment_to_running_time(segment, GST_FORMAT_TIME, GST_BUFFER_PTS(buffer));
  if (!GST_CLOCK_TIME_IS_VALID(running)) return;
  const GstClockTime startsAt = gst_element_get_base_time(sink) + running;
  GstMapInfo map;
  if (!gst_buffer_map(buffer, &map, GST_MAP_READ)) return;
  std::lock_guard lock(mutex_);
  if (file_ != nullptr) {
    const bool jump = !started_ || startsAt > endsAt_ + kAlignment || startsAt + kAlignment < endsAt_;
    if (started_ && startsAt > endsAt_ + kAlignment) WriteSilence(FramesIn(startsAt - endsAt_));
    std::fwrite(map.data, 1, map.size, file_);
    std::fflush(file_);
    started_ = true;
    endsAt_ = (jump ? startsAt : endsAt_) + gst_util_uint64_scale(map.size / kFrameBytes, GST_SECOND, kRate);
  }
  gst_buffer_unmap(buffer, &map);
}

void AudioCapture::WriteSilence(std::uint64_t frames) {
  const std::vector<char> second(static_cast<std::size_t>(kRate) * kFrameBytes, 0);
  for (std::uint64_t left = frames; left > 0;) {
    const std::uint64_t now = std::min<std::uint64_t>(left, kRate);
    std::fwrite(second.data(), kFrameBytes, static_cast<std::size_t>(now), file_);
    left -= now;
  }
}

}  // namespace platform::mci
