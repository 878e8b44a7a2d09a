#pragma once
// The element that audio is played into, and whether it reaches a device.

#include <gst/gst.h>

#include "platform/mci/GstMediaControl.h"

namespace platform::mci {

class AudioCapture;

// A new sink for the output (floating reference), or null when none can be
// made: the system's automatic choice, a fakesink that keeps real time, or
// the capture's recorder (Capture, which needs one).
GstElement* MakeAudioSink(AudioOutput output, AudioCapture* capture);

// Whether a sink that has been brought to READY or beyond plays into a real
// device. The automatic sink tries every device it knows and, when none opens,
// quietly puts a fakesink in its place; that stand-in means "no output".
bool ReachesRealDevice(GstElement* sink, AudioOutput output);

}  // namespace platform::mci
