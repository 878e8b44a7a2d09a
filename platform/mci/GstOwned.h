#pragma once
// Ownership of GStreamer objects and messages with std::unique_ptr.

#include <gst/gst.h>

#include <memory>

namespace platform::mci {

struct GstObjectUnref {
  void operator()(gpointer object) const { gst_object_unref(object); }
};

template <typename T>
using GstOwned = std::unique_ptr<T, GstObjectUnref>;

// Takes ownership of a new object as a factory hands it out (floating).
// Objects from getters carry a full reference: wrap those in GstOwned directly.
template <typename T>
GstOwned<T> AdoptFloating(T* object) {
  if (object != nullptr) gst_object_ref_sink(object);
  return GstOwned<T>(object);
}

struct GstMessageUnref {
  void operator()(GstMessage* message) const { gst_message_unref(message); }
};

using GstMessagePtr = std::unique_ptr<GstMessage, GstMessageUnref>;

}  // namespace platform::mci
