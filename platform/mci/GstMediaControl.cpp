#include "platform/mci/GstMediaControl.h"

#include <gst/gst.h>

#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "platform/mci/AudioCapture.h"
#include "platform/mci/DeviceOpener.h"
#include "platform/mci/DeviceTable.h"
#include "platform/mci/MciCommand.h"
#include "platform/mci/MciText.h"
#include "platform/mci/PlaybinDevice.h"

namespace platform::mci {
namespace {

// gst_init_check may be called any number of times; only the first one works.
void StartGStreamer() {
  GError* error = nullptr;
  if (gst_init_check(nullptr, nullptr, &error)) return;
  std::string why = error != nullptr ? error->message : "unknown reason";
  g_clear_error(&error);
  throw std::runtime_error("GStreamer cannot start: " + why);
}

std::uint32_t RunOnDevice(const MciCommand& command, PlaybinDevice& device, std::string& reply) {
  switch (command.verb) {
    case MciVerb::SetTimeFormatMs:
      return kMciNoError;  // milliseconds are the only time format we speak
    case MciVerb::StatusLength:
      reply = std::to_string(device.LengthMs());
      return kMciNoError;
    case MciVerb::StatusPosition:
      reply = std::to_string(device.PositionMs());
      return kMciNoError;
    case MciVerb::StatusMode:
      reply = device.Mode();
      return kMciNoError;
    case MciVerb::PlayFrom:
      return device.PlayFrom(command.fromMs);
    case MciVerb::Stop:
      device.Stop();
      return kMciNoError;
    case MciVerb::Pause:
      device.Pause();
      return kMciNoError;
    case MciVerb::Resume:
      device.Resume();
      return kMciNoError;
    case MciVerb::SeekTo:
      return device.Seek(command.toEnd ? device.LengthMs() : command.fromMs);
    case MciVerb::SetVolume:
      return device.SetVolume(command.volume);
    case MciVerb::SetReplayGain:
      device.SetReplayGain(command.replayGain);
      return kMciNoError;
    case MciVerb::StatusTrack:
      reply = std::to_string(device.Track());
      return kMciNoError;
    case MciVerb::Uncue:
      device.Uncue();
      return kMciNoError;
    default:
      return kMciUnrecognizedCommand;
  }
}

}  // namespace

GstMediaControl::GstMediaControl(AudioOutput output, PathMapper toLocalPath, std::chrono::milliseconds openLimit)
    : output_(output),
      toLocalPath_(std::move(toLocalPath)),
      devices_(std::make_unique<DeviceTable>()),
      opener_(std::make_unique<DeviceOpener>(openLimit)) {
  StartGStreamer();
}

GstMediaControl::GstMediaControl(AudioOutput output, const FileSystem& files, std::chrono::milliseconds openLimit)
    : GstMediaControl(
          output, [&files](const std::string& path) { return files.LocalPath(path); }, openLimit) {}

GstMediaControl::~GstMediaControl() = default;

std::unique_ptr<GstMediaControl> GstMediaControl::ForProgram(const FileSystem& files) {
  const char* capture = std::getenv("VANTRELLE_AUDIO_CAPTURE");
  if (capture == nullptr || *capture == '\0') return std::make_unique<GstMediaControl>(AudioOutput::System, files);
  auto control = std::make_unique<GstMediaControl>(AudioOutput::Capture, files);
  if (!control->CaptureInto(capture)) throw std::runtime_error(std::string("cannot write the capture file ") + capture);
  return control;
}

std::uint32_t GstMediaControl::mciSendString(const char* command, char* reply, unsigned size) {
  std::string answer;
  const std::uint32_t result = command != nullptr ? Run(command, answer) : kMciUnrecognizedCommand;
  CopyTruncated(answer, reply, size);
  return result;
}

bool GstMediaControl::mciGetErrorString(std::uint32_t code, char* text, unsigned size) {
  if (code == kMciOpenTimedOut) {
    CopyTruncated(OpenTimedOutText(opener_->Limit()), text, size);
    return true;
  }
  const auto wording = MciErrorText(code);
  CopyTruncated(wording.value_or(""), text, size);
  return wording.has_value();
}

std::uint32_t GstMediaControl::Run(std::string_view text, std::string& reply) {
  const auto command = ParseMciCommand(text);
  if (!command) return kMciUnrecognizedCommand;
  switch (command->verb) {
    case MciVerb::Open:
      return Open(command->path, command->alias);
    case MciVerb::Close:
      return devices_->Remove(command->alias) ? kMciNoError : kMciUnknownAlias;
    case MciVerb::CloseAll:
      devices_->Clear();
      return kMciNoError;
    default:
      break;
  }
  PlaybinDevice* device = devices_->Find(command->alias);
  if (device == nullptr) return kMciUnknownAlias;
  if (command->verb == MciVerb::Cue) return Cue(*device, command->path, reply);
  return RunOnDevice(*command, *device, reply);
}

void GstMediaControl::AbandonOpensThrough(std::uint64_t number) { opener_->AbandonThrough(number); }

std::uint32_t GstMediaControl::Open(const std::string& path, const std::string& alias) {
  const std::uint64_t number = std::exchange(nextOpen_, 0);
  if (devices_->Contains(alias)) return kMciAliasInUse;
  const std::string file = LocalFile(path);
  if (file.empty()) return kMciFileNotFound;
  std::uint32_t error = kMciNoError;
  auto device = opener_->Open(file, output_, number, error, capture_);
  if (!device) return error;
  devices_->Add(alias, std::move(device));
  return kMciNoError;
}

// The file is checked now, on this thread, so that a pipe or a folder never
// reaches the pipeline's threads, where it could hang them; and it is opened
// once into nothing, as a file that fails to decode once taken would stop the
// pipeline with the file before it still sounding.
std::uint32_t GstMediaControl::Cue(PlaybinDevice& device, const std::string& path, std::string& reply) const {
  const std::string file = LocalFile(path);
  if (file.empty()) return kMciFileNotFound;
  std::uint32_t error = kMciNoError;
  if (!ReachRegularFile(file, error)) return error;
  if (!PlaybinDevice::Open(file, AudioOutput::Silent, error)) return error;
  reply = std::to_string(device.Cue(file));
  return kMciNoError;
}

bool GstMediaControl::CaptureInto(const std::string& file) {
  auto capture = std::make_shared<AudioCapture>(file);
  if (!capture->Good()) return false;
  capture_ = std::move(capture);
  return true;
}

std::string GstMediaControl::LocalFile(const std::string& path) const {
  if (path.starts_with('/')) return path;
  return toLocalPath_ ? toLocalPath_(path) : std::string();
}

}  // namespace platform::mci
