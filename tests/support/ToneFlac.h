#pragma once
// A WAV file encoded to FLAC with GStreamer's own encoder, optionally with a
// ReplayGain track gain in its comments.

#include <gst/gst.h>

#include <optional>
#include <string>

namespace testing_support {

// False when the encoding failed.
inline bool EncodeFlac(const std::string& wav, const std::string& flac, std::optional<double> trackGainDb) {
  gst_init(nullptr, nullptr);
  const std::string description = "filesrc location=\"" + wav + "\" ! wavparse ! audioconvert ! flacenc name=encoder " +
                                  "! filesink location=\"" + flac + "\"";
  GstElement* pipeline = gst_parse_launch(description.c_str(), nullptr);
  if (pipeline == nullptr) return false;
  if (trackGainDb) {
    GstElement* encoder = gst_bin_get_by_name(GST_BIN(pipeline), "encoder");
    gst_tag_setter_add_tags(GST_TAG_SETTER(encoder), GST_TAG_MERGE_REPLACE, GST_TAG_TRACK_GAIN, *trackGainDb, nullptr);
    gst_object_unref(encoder);
  }
  gst_element_set_state(pipeline, GST_STATE_PLAYING);
  GstBus* bus = gst_element_get_bus(pipeline);
  GstMessage* end = gst_bus_timed_pop_filtered(bus, GST_CLOCK_TIME_NONE,
                                               static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
  const bool encoded = end != nullptr && GST_MESSAGE_TYPE(end) == GST_MESSAGE_EOS;
  if (end != nullptr) gst_message_unref(end);
  gst_object_unref(bus);
  gst_element_set_state(pipeline, GST_STATE_NULL);
  gst_object_unref(pipeline);
  return encoded;
}

}  // namespace testing_support
