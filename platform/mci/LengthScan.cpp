#include "platform/mci/LengthScan.h"

#include <gst/gst.h>

#include "platform/mci/GstOwned.h"

namespace platform::mci {
namespace {

constexpr GstClockTime kScanWait = 10 * GST_SECOND;

// Each stream the parser finds runs into a sink of its own, as fast as it can.
void SinkNewStream(GstElement* /*parser*/, GstPad* pad, gpointer pipeline) {
  GstElement* sink = gst_element_factory_make("fakesink", nullptr);
  if (sink == nullptr) return;
  g_object_set(sink, "sync", FALSE, nullptr);
  gst_bin_add(GST_BIN(pipeline), sink);
  gst_element_sync_state_with_parent(sink);
  GstOwned<GstPad> sinkPad(gst_element_get_static_pad(sink, "sink"));
  gst_pad_link(pad, sinkPad.get());
}

// filesrc ! parsebin ! fakesink per stream.
GstOwned<GstElement> MakeScanPipeline(const std::string& file) {
  GstOwned<GstElement> pipeline = AdoptFloating(gst_pipeline_new(nullptr));
  GstOwned<GstElement> source = AdoptFloating(gst_element_factory_make("filesrc", nullptr));
  GstOwned<GstElement> parser = AdoptFloating(gst_element_factory_make("parsebin", nullptr));
  if (!pipeline || !source || !parser) return nullptr;
  g_object_set(source.get(), "location", file.c_str(), nullptr);
  // The pipeline takes references of its own.
  gst_bin_add_many(GST_BIN(pipeline.get()), source.get(), parser.get(), nullptr);
  if (!gst_element_link(source.get(), parser.get())) return nullptr;
  g_signal_connect(parser.get(), "pad-added", G_CALLBACK(SinkNewStream), pipeline.get());
  return pipeline;
}

}  // namespace

std::optional<std::uint64_t> ScanLengthMs(const std::string& file) {
  GstOwned<GstElement> pipeline = MakeScanPipeline(file);
  if (!pipeline) return std::nullopt;
  GstOwned<GstBus> bus(gst_element_get_bus(pipeline.get()));
  gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
  GstMessagePtr outcome(gst_bus_timed_pop_filtered(bus.get(), kScanWait,
                                                   static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
  // Once the parser has seen the whole file, it knows the length exactly.
  gint64 ns = 0;
  const bool known = outcome && GST_MESSAGE_TYPE(outcome.get()) == GST_MESSAGE_EOS &&
                     gst_element_query_duration(pipeline.get(), GST_FORMAT_TIME, &ns) && ns > 0;
  gst_element_set_state(pipeline.get(), GST_STATE_NULL);
  if (!known) return std::nullopt;
  return (static_cast<std::uint64_t>(ns) + GST_MSECOND / 2) / GST_MSECOND;
}

}  // namespace platform::mci
