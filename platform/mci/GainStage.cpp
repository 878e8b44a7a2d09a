#include "platform/mci/GainStage.h"

#include <algorithm>

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
  if (GST_EVENT_TYPE(event) == GST_EVENT_EOS && stage->followed_ && stage->followed_()) return GST_PAD_PROBE_DROP;
  if (GST_EVENT_TYPE(event) == GST_EVENT_STREAM_START) {
    if (stage->started_) stage->started_();
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
  if (volume_ == nullptr) return;
  double factor = 1.0;
  {
    std::lock_guard lock(mutex_);
    factor = ReplayGainFactor(tags_, mode_);
  }
  g_object_set(volume_, "volume", std::min(factor, kLoudest), nullptr);
}

}  // namespace platform::mci
