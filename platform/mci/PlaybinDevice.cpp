#include "platform/mci/PlaybinDevice.h"

#include <algorithm>

#include "platform/MediaControl.h"
#include "platform/mci/AudioSink.h"
#include "platform/mci/LengthScan.h"

namespace platform::mci {
namespace {

constexpr GstClockTime kPrerollWait = 10 * GST_SECOND;
constexpr GstClockTime kFailureMessageWait = 200 * GST_MSECOND;
constexpr GstClockTime kSettleWait = 5 * GST_SECOND;
constexpr GstClockTime kDurationPoll = 20 * GST_MSECOND;
constexpr int kDurationPolls = 5;
constexpr std::uint64_t kFullVolume = 1000;

std::uint64_t NanosecondsToMs(gint64 ns) { return ns <= 0 ? 0 : static_cast<std::uint64_t>(ns) / GST_MSECOND; }

GstMessagePtr PopMessage(GstBus* bus, GstClockTime wait, int types) {
  return GstMessagePtr(gst_bus_timed_pop_filtered(bus, wait, static_cast<GstMessageType>(types)));
}

// A playbin that plays the file's audio into sink (with a volume stage of its
// own, as not every sink has one) and ignores any video or text.
GstOwned<GstElement> MakeAudioOnlyPlaybin(const std::string& file, GstElement* sink) {
  GstOwned<GstElement> playbin = AdoptFloating(gst_element_factory_make("playbin", nullptr));
  gchar* uri = gst_filename_to_uri(file.c_str(), nullptr);
  if (!playbin || uri == nullptr) {
    g_free(uri);
    return nullptr;
  }
  g_object_set(playbin.get(), "uri", uri, "audio-sink", sink, nullptr);
  gst_util_set_object_arg(G_OBJECT(playbin.get()), "flags", "audio+soft-volume");
  g_free(uri);
  return playbin;
}

// Errors from the sink mean the output is unusable; a file that vanished is
// "not found"; anything else means the file cannot be played.
std::uint32_t ErrorNumberFor(GstMessage* error, GstElement* sink) {
  GError* details = nullptr;
  gst_message_parse_error(error, &details, nullptr);
  const bool notFound = g_error_matches(details, GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_NOT_FOUND);
  g_clear_error(&details);
  GstObject* source = GST_MESSAGE_SRC(error);
  if (source != nullptr && (source == GST_OBJECT(sink) || gst_object_has_as_ancestor(source, GST_OBJECT(sink))))
    return kMciNoAudioOutput;
  return notFound ? kMciFileNotFound : kMciCannotDecode;
}

// Brings the playbin to PAUSED with its first audio ready, or tells why not.
std::uint32_t Preroll(GstElement* playbin, GstBus* bus, GstElement* sink) {
  GstStateChangeReturn change = gst_element_set_state(playbin, GST_STATE_PAUSED);
  if (change == GST_STATE_CHANGE_SUCCESS) return kMciNoError;
  const bool failed = change == GST_STATE_CHANGE_FAILURE;
  GstMessagePtr outcome =
      PopMessage(bus, failed ? kFailureMessageWait : kPrerollWait, GST_MESSAGE_ERROR | GST_MESSAGE_ASYNC_DONE);
  if (outcome && GST_MESSAGE_TYPE(outcome.get()) == GST_MESSAGE_ERROR) return ErrorNumberFor(outcome.get(), sink);
  if (failed || !outcome) return kMciCannotDecode;
  return kMciNoError;
}

bool HasAudio(GstElement* playbin) {
  gint streams = 0;
  g_object_get(playbin, "n-audio", &streams, nullptr);
  return streams > 0;
}

// Some elements learn the duration just after preroll, so ask a few times.
// Files that never tell (MPEG audio without a header frame) are read through.
std::uint64_t QueryLengthMs(GstElement* playbin, GstBus* bus, const std::string& file) {
  for (int poll = 0; poll <= kDurationPolls; ++poll) {
    gint64 ns = 0;
    if (gst_element_query_duration(playbin, GST_FORMAT_TIME, &ns) && ns > 0)
      return (static_cast<std::uint64_t>(ns) + GST_MSECOND / 2) / GST_MSECOND;
    PopMessage(bus, kDurationPoll, GST_MESSAGE_DURATION_CHANGED);
  }
  return ScanLengthMs(file).value_or(0);
}

}  // namespace

std::unique_ptr<PlaybinDevice> PlaybinDevice::Open(const std::string& file, AudioOutput output, std::uint32_t& error) {
  GstOwned<GstElement> sink = AdoptFloating(MakeAudioSink(output));
  if (!sink) {
    error = kMciNoAudioOutput;
    return nullptr;
  }
  GstOwned<GstElement> playbin = MakeAudioOnlyPlaybin(file, sink.get());
  if (!playbin) {
    error = kMciCannotDecode;
    return nullptr;
  }
  GstOwned<GstBus> bus(gst_element_get_bus(playbin.get()));
  error = Preroll(playbin.get(), bus.get(), sink.get());
  if (error == kMciNoError && !HasAudio(playbin.get())) error = kMciCannotDecode;
  if (error == kMciNoError && !ReachesRealDevice(sink.get(), output)) error = kMciNoAudioOutput;
  if (error != kMciNoError) {
    gst_element_set_state(playbin.get(), GST_STATE_NULL);
    return nullptr;
  }
  const std::uint64_t length = QueryLengthMs(playbin.get(), bus.get(), file);
  return std::unique_ptr<PlaybinDevice>(new PlaybinDevice(std::move(playbin), length));
}

PlaybinDevice::PlaybinDevice(GstOwned<GstElement> playbin, std::uint64_t lengthMs)
    : playbin_(std::move(playbin)), bus_(gst_element_get_bus(playbin_.get())), lengthMs_(lengthMs) {}

PlaybinDevice::~PlaybinDevice() { gst_element_set_state(playbin_.get(), GST_STATE_NULL); }

std::uint64_t PlaybinDevice::PositionMs() {
  DrainBus();
  if (phase_ == Phase::Ended) return lengthMs_;
  if (phase_ == Phase::Playing) {
    if (auto position = QueryPositionMs()) heldMs_ = lengthMs_ > 0 ? std::min(*position, lengthMs_) : *position;
  }
  return heldMs_;
}

std::uint32_t PlaybinDevice::PlayFrom(std::uint64_t ms) {
  if (ms > lengthMs_) return kMciOutOfRange;
  PauseAndSettle();
  DrainBus();
  heldMs_ = ms;
  // Starting at the very end plays nothing: the stream is over at once.
  if (lengthMs_ > 0 && ms == lengthMs_) {
    phase_ = Phase::Ended;
    return kMciNoError;
  }
  if (!SeekTo(ms)) {
    phase_ = Phase::Stopped;
    return kMciCannotDecode;
  }
  gst_element_set_state(playbin_.get(), GST_STATE_PLAYING);
  phase_ = Phase::Playing;
  return kMciNoError;
}

void PlaybinDevice::Stop() { Halt(Phase::Stopped); }

void PlaybinDevice::Pause() {
  DrainBus();
  if (phase_ == Phase::Playing) Halt(Phase::Paused);
}

void PlaybinDevice::Halt(Phase phase) {
  heldMs_ = PositionMs();
  phase_ = phase;
  PauseAndSettle();
}

// The paused pipeline still holds its place, so playing on needs no seek.
void PlaybinDevice::Resume() {
  DrainBus();
  if (phase_ != Phase::Paused) return;
  gst_element_set_state(playbin_.get(), GST_STATE_PLAYING);
  phase_ = Phase::Playing;
}

std::uint32_t PlaybinDevice::Seek(std::uint64_t ms) {
  DrainBus();
  if (ms > lengthMs_) return kMciOutOfRange;
  if (phase_ == Phase::Playing) return PlayFrom(ms);
  PauseAndSettle();
  const bool moved = SeekTo(ms);
  DrainBus();
  if (phase_ == Phase::Ended) phase_ = Phase::Stopped;
  if (!moved) return kMciCannotDecode;
  heldMs_ = ms;
  return kMciNoError;
}

std::uint32_t PlaybinDevice::SetVolume(std::uint64_t level) {
  if (level > kFullVolume) return kMciOutOfRange;
  g_object_set(playbin_.get(), "volume", static_cast<double>(level) / kFullVolume, nullptr);
  return kMciNoError;
}

const char* PlaybinDevice::Mode() {
  DrainBus();
  switch (phase_) {
    case Phase::Playing:
      return "playing";
    case Phase::Paused:
      return "paused";
    default:
      return "stopped";
  }
}

// Takes note of the end of the stream. A stream that fails while playing is
// over for the listener just as one that ended, so it counts as ended too.
void PlaybinDevice::DrainBus() {
  while (GstMessagePtr message{
      gst_bus_pop_filtered(bus_.get(), static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR))}) {
    if (phase_ == Phase::Playing) phase_ = Phase::Ended;
  }
}

// Pauses and waits until the pause has taken hold, so that no late message of
// it can be mistaken for the outcome of a later seek.
void PlaybinDevice::PauseAndSettle() {
  gst_element_set_state(playbin_.get(), GST_STATE_PAUSED);
  gst_element_get_state(playbin_.get(), nullptr, nullptr, kSettleWait);
}

// A flushing, sample-accurate seek; waits until audio from there is ready.
bool PlaybinDevice::SeekTo(std::uint64_t ms) {
  const auto flags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
  if (!gst_element_seek_simple(playbin_.get(), GST_FORMAT_TIME, flags, static_cast<gint64>(ms * GST_MSECOND)))
    return false;
  GstMessagePtr outcome = PopMessage(bus_.get(), kSettleWait, GST_MESSAGE_ASYNC_DONE | GST_MESSAGE_ERROR);
  return outcome && GST_MESSAGE_TYPE(outcome.get()) == GST_MESSAGE_ASYNC_DONE;
}

std::optional<std::uint64_t> PlaybinDevice::QueryPositionMs() const {
  gint64 ns = 0;
  if (!gst_element_query_position(playbin_.get(), GST_FORMAT_TIME, &ns) || ns < 0) return std::nullopt;
  return NanosecondsToMs(ns);
}

}  // namespace platform::mci
