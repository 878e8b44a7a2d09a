#include "platform/mci/AudioSink.h"

#include "platform/mci/AudioCapture.h"

namespace platform::mci {
namespace {

bool IsFakeSink(GstElement* element) {
  GstElementFactory* factory = gst_element_get_factory(element);
  return factory == nullptr || g_strcmp0(gst_plugin_feature_get_name(GST_PLUGIN_FEATURE(factory)), "fakesink") == 0;
}

// The automatic sink is a bin holding the sink it picked.
bool AnyChildIsReal(GstBin* bin) {
  bool real = false;
  bool fake = false;
  GST_OBJECT_LOCK(bin);
  for (GList* child = GST_BIN_CHILDREN(bin); child != nullptr; child = child->next) {
    if (IsFakeSink(GST_ELEMENT(child->data)))
      fake = true;
    else
      real = true;
  }
  GST_OBJECT_UNLOCK(bin);
  return real && !fake;
}

}  // namespace

GstElement* MakeAudioSink(AudioOutput output, AudioCapture* capture) {
  if (output == AudioOutput::System) return gst_element_factory_make("autoaudiosink", nullptr);
  if (output == AudioOutput::Capture) return capture != nullptr ? capture->MakeSink() : nullptr;
  GstElement* sink = gst_element_factory_make("fakesink", nullptr);
  if (sink != nullptr) g_object_set(sink, "sync", TRUE, nullptr);
  return sink;
}

bool ReachesRealDevice(GstElement* sink, AudioOutput output) {
  if (output != AudioOutput::System) return true;
  if (GST_IS_BIN(sink)) return AnyChildIsReal(GST_BIN(sink));
  return !IsFakeSink(sink);
}

}  // namespace platform::mci
