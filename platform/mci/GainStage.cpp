#include "platform/mci/GainStage.h"

#include <algorithm>

#include "base/ThreadHandOver.h"

namespace platform::mci {
namespace {

constexpr double kLoudest = 10.0;  // +20 dB, the most the volume element takes

std::optional<double> TagDouble(const GstTagList* list, const char* tag) {
  gdouble value = 0;
  if (!gst_tag_list_get_double(list, tag, &value)) return std::nullopt;
  return value;
}

// Demuxers that know the gain tags map them; the others leave them as
// free-form comments ("REPLAYGAIN_TRACK_GAIN=-6.02 dB", Opus's R128 gains).
void ReadComments(const GstTagList* list, ReplayGainTags& tags) {
  const guint count = gst_tag_list_get_tag_size(list, GST_TAG_EXTENDED_COMMENT);
  for (guint i = 0; i < count; ++i) {
    const gchar* comment = nullptr;
    if (gst_tag_list_peek_string_index(list, GST_TAG_EXTENDED_COMMENT, i, &comment) && comment != nullptr)
      ReadReplayGainComment(comment, tags);
  }
}

}  // namespace

GainStage::GainStage() {
  GError* error = nullptr;
  bin_ = gst_parse_bin_from_description("audioconvert ! volume name=gain ! rglimiter ! audioconvert", TRUE, &error);
  g_clear_error(&error);
  if (bin_ == nullptr) return;
  std::lock_guard lock(mutex_);  // read on streaming threads, which GStreamer may have made before
  volume_ = gst_bin_get_by_name(GST_BIN(bin_), "gain");
  GstOwned<GstPad> sink(gst_element_get_static_pad(bin_, "sink"));
  gst_pad_add_probe(sink.get(), GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM, &GainStage::OnEvent, this, nullptr);
}

GainStage::~GainStage() {
  if (volume_ != nullptr) gst_object_unref(volume_);
}

GstPadProbeReturn GainStage::OnEvent(GstPad*, GstPadProbeInfo* info, gpointer self) {
  GstEvent* event = GST_PAD_PROBE_INFO_EVENT(info);
  auto* stage = static_cast<GainStage*>(self);
  const HandedOverScope handedOver(stage);
  std::function<void()> started;
  std::function<bool()> followed;
  {
    std::lock_guard lock(stage->mutex_);
    started = stage->started_;
    followed = stage->followed_;
  }
  if (GST_EVENT_TYPE(event) == GST_EVENT_EOS && followed && followed()) return GST_PAD_PROBE_DROP;
  if (GST_EVENT_TYPE(event) == GST_EVENT_STREAM_START) {
    if (started) started();
    stage->StreamStarted();
  }
  if (GST_EVENT_TYPE(event) == GST_EVENT_TAG) {
    GstTagList* list = nullptr;
    gst_event_parse_tag(event, &list);
    if (list != nullptr) stage->TagsArrived(list);
  }
  return GST_PAD_PROBE_OK;
}

void GainStage::StreamStarted() {
  {
    std::lock_guard lock(mutex_);
    tags_ = {};
  }
  Apply();
}

void GainStage::TagsArrived(GstTagList* list) {
  {
    std::lock_guard lock(mutex_);
    ReadComments(list, tags_);
    if (auto gain = TagDouble(list, GST_TAG_TRACK_GAIN)) tags_.trackGain = gain;
    if (auto peak = TagDouble(list, GST_TAG_TRACK_PEAK)) tags_.trackPeak = peak;
    if (auto gain = TagDouble(list, GST_TAG_ALBUM_GAIN)) tags_.albumGain = gain;
    if (auto peak = TagDouble(list, GST_TAG_ALBUM_PEAK)) tags_.albumPeak = peak;
  }
  Apply();
}

void GainStage::SetMode(ReplayGainMode mode) {
  mode_ = mode;
  Apply();
}

void GainStage::Apply() {
  double factor = 1.0;
  GstElement* volume = nullptr;
  {
    std::lock_guard lock(mutex_);
    factor = ReplayGainFactor(tags_, mode_);
    volume = volume_;
  }
  if (volume == nullptr) return;
  g_object_set(volume, "volume", std::min(factor, kLoudest), nullptr);
}

}  // namespace platform::mci
