#include "platform/mci/PlaybinDevice.h"

#include <algorithm>
#include <utility>

#include "base/ThreadHandOver.h"
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

bool SetUri(GstElement* playbin, const std::string& file) {
  gchar* uri = gst_filename_to_uri(file.c_str(), nullptr);
  if (uri == nullptr) return false;
  g_object_set(playbin, "uri", uri, nullptr);
  g_free(uri);
  return true;
}

// A playbin that plays the file's audio through filter (when there is one)
// into sink, with a volume stage of its own (as not every sink has one), and
// ignores any video or text.
GstOwned<GstElement> MakeAudioOnlyPlaybin(const std::string& file, GstElement* sink, GstElement* filter) {
  GstOwned<GstElement> playbin = AdoptFloating(gst_element_factory_make("playbin", nullptr));
  if (!playbin || !SetUri(playbin.get(), file)) return nullptr;
  g_object_set(playbin.get(), "audio-sink", sink, nullptr);
  if (filter != nullptr) g_object_set(playbin.get(), "audio-filter", filter, nullptr);
  gst_util_set_object_arg(G_OBJECT(playbin.get()), "flags", "audio+soft-volume");
  return playbin;
}

guint GroupOf(GstMessage* streamStart) {
  guint group = 0;
  gst_message_parse_group_id(streamStart, &group);
  return group;
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
// Notes the group of the file's stream on the way.
std::uint32_t Preroll(GstElement* playbin, GstBus* bus, GstElement* sink, guint& group) {
  GstStateChangeReturn change = gst_element_set_state(playbin, GST_STATE_PAUSED);
  if (change == GST_STATE_CHANGE_SUCCESS) return kMciNoError;
  const bool failed = change == GST_STATE_CHANGE_FAILURE;
  const int types = GST_MESSAGE_ERROR | GST_MESSAGE_ASYNC_DONE | GST_MESSAGE_STREAM_START;
  GstMessagePtr outcome;
  for (outcome = PopMessage(bus, failed ? kFailureMessageWait : kPrerollWait, types);
       outcome && GST_MESSAGE_TYPE(outcome.get()) == GST_MESSAGE_STREAM_START;
       outcome = PopMessage(bus, failed ? kFailureMessageWait : kPrerollWait, types))
    group = GroupOf(outcome.get());
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

std::unique_ptr<PlaybinDevice> PlaybinDevice::Open(const std::string& file, AudioOutput output, std::uint32_t& error,
                                                   AudioCapture* capture) {
  GstOwned<GstElement> sink = AdoptFloating(MakeAudioSink(output, capture));
  if (!sink) {
    error = kMciNoAudioOutput;
    return nullptr;
  }
  std::unique_ptr<PlaybinDevice> device(new PlaybinDevice());
  device->gain_.WatchStreams([next = &device->next_] { next->StreamEntered(); },
                             [next = &device->next_] { return next->Follows(); });
  device->playbin_ = MakeAudioOnlyPlaybin(file, sink.get(), device->gain_.Bin());
  if (!device->playbin_) {
    error = kMciCannotDecode;
    return nullptr;
  }
  GstElement* playbin = device->playbin_.get();
  device->bus_.reset(gst_element_get_bus(playbin));
  device->file_ = file;
  g_signal_connect(playbin, "about-to-finish", G_CALLBACK(&PlaybinDevice::OnAboutToFinish), device.get());
  device->HandToStreams();
  error = Preroll(playbin, device->bus_.get(), sink.get(), device->group_);
  if (error == kMciNoError && !HasAudio(playbin)) error = kMciCannotDecode;
  if (error == kMciNoError && !ReachesRealDevice(sink.get(), output)) error = kMciNoAudioOutput;
  if (error != kMciNoError) return nullptr;  // the destructor stops the pipeline
  device->lengthMs_ = QueryLengthMs(playbin, device->bus_.get(), file);
  return device;
}

PlaybinDevice::PlaybinDevice() = default;

PlaybinDevice::~PlaybinDevice() {
  next_.Release();  // a streaming thread waiting for a cue must not hold up the stop
  if (playbin_) gst_element_set_state(playbin_.get(), GST_STATE_NULL);
  TakeOver(&gain_);  // the streaming threads are done with it
  TakeOver(this);
}

// What the streaming threads' callbacks use was made on this thread.
void PlaybinDevice::HandToStreams() {
  HandOver(&gain_);
  HandOver(this);
}

// On a streaming thread, when the file playing has been read to its end.
void PlaybinDevice::OnAboutToFinish(GstElement* playbin, gpointer self) {
  auto* device = static_cast<PlaybinDevice*>(self);
  const HandedOverScope handedOver(device);
  if (const auto cue = device->next_.TakeAtFinish()) SetUri(playbin, cue->file);
}

std::uint64_t PlaybinDevice::Track() {
  DrainBus();
  return next_.Playing();
}

std::uint64_t PlaybinDevice::PositionMs() {
  DrainBus();
  if (phase_ == Phase::Ended) return lengthMs_;
  if (phase_ == Phase::Playing) {
    if (auto position = QueryPositionMs()) heldMs_ = lengthMs_ > 0 ? std::min(*position, lengthMs_) : *position;
  }
  return heldMs_;
}

std::uint32_t PlaybinDevice::PlayFrom(std::uint64_t ms) {
  DrainBus();
  if (ms > lengthMs_) return kMciOutOfRange;
  next_.Release();
  PauseAndSettle();
  DrainBus();
  heldMs_ = ms;
  // Starting at the very end plays nothing: the stream is over at once.
  if (lengthMs_ > 0 && ms == lengthMs_) {
    phase_ = Phase::Ended;
    return kMciNoError;
  }
  // A device still where its open left it needs no seek to start; nor must
  // it have one, as a cue taken meanwhile would be lost to the flush.
  const bool fresh = std::exchange(untouched_, false) && ms == 0;
  if (!fresh && !SeekTo(ms)) {
    phase_ = Phase::Stopped;
    return kMciCannotDecode;
  }
  next_.Decided();
  gst_element_set_state(playbin_.get(), GST_STATE_PLAYING);
  phase_ = Phase::Playing;
  return kMciNoError;
}

void PlaybinDevice::Stop() {
  DrainBus();
  Halt(Phase::Stopped);
}

void PlaybinDevice::Pause() {
  DrainBus();
  if (phase_ == Phase::Playing) Halt(Phase::Paused);
}

void PlaybinDevice::Halt(Phase phase) {
  heldMs_ = PositionMs();
  phase_ = phase;
  next_.Release();
  PauseAndSettle();
}

// The paused pipeline still holds its place, so playing on needs no seek.
void PlaybinDevice::Resume() {
  DrainBus();
  if (phase_ != Phase::Paused) return;
  next_.Decided();
  gst_element_set_state(playbin_.get(), GST_STATE_PLAYING);
  phase_ = Phase::Playing;
}

std::uint32_t PlaybinDevice::Seek(std::uint64_t ms) {
  DrainBus();
  if (ms > lengthMs_) return kMciOutOfRange;
  if (phase_ == Phase::Playing) return PlayFrom(ms);
  next_.Release();
  PauseAndSettle();
  untouched_ = false;
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

// Takes note of the end of the stream, of the next file starting and of a
// length learnt late. A stream that fails while playing is over for the
// listener just as one that ended, so it counts as ended too.
void PlaybinDevice::DrainBus() {
  const auto types = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR | GST_MESSAGE_STREAM_START |
                                                 GST_MESSAGE_DURATION_CHANGED);
  while (GstMessagePtr message{gst_bus_pop_filtered(bus_.get(), types)}) {
    switch (GST_MESSAGE_TYPE(message.get())) {
      case GST_MESSAGE_STREAM_START:
        StreamStarted(message.get());
        break;
      case GST_MESSAGE_DURATION_CHANGED:
        RefreshLength();
        break;
      default:
        if (phase_ == Phase::Playing) phase_ = Phase::Ended;
    }
  }
  NoteStalledEnd();
}

// The end of a stream held back for a file that then never came would leave
// playing at the end for good: a stream that stands still at (or past) its
// length that long has ended. One that still moves (a length told short) plays on.
void PlaybinDevice::NoteStalledEnd() {
  if (phase_ != Phase::Playing || lengthMs_ == 0) return;
  const auto position = QueryPositionMs();
  if (!position || *position < lengthMs_ || *position != stalledAt_) {
    stalledAt_ = position.value_or(0);
    atEndSince_.reset();
    return;
  }
  const auto now = std::chrono::steady_clock::now();
  if (!atEndSince_) atEndSince_ = now;
  if (now - *atEndSince_ >= kStalledEnd) phase_ = Phase::Ended;
}

// A stream of a new group is the next file, now heard.
void PlaybinDevice::StreamStarted(GstMessage* message) {
  const guint group = GroupOf(message);
  if (group == group_) return;
  group_ = group;
  const auto started = next_.StreamStarted();
  if (!started) return;
  file_ = started->file;
  lengthMs_ = 0;
  heldMs_ = 0;
  RefreshLength();
  if (lengthMs_ == 0) lengthMs_ = ScanLengthMs(file_).value_or(0);
}

void PlaybinDevice::RefreshLength() {
  gint64 ns = 0;
  if (gst_element_query_duration(playbin_.get(), GST_FORMAT_TIME, &ns) && ns > 0)
    lengthMs_ = (static_cast<std::uint64_t>(ns) + GST_MSECOND / 2) / GST_MSECOND;
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
