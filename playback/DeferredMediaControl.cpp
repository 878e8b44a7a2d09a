#include "playback/DeferredMediaControl.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <exception>

DeferredMediaControl::DeferredMediaControl(Factory factory) : factory_(std::move(factory)) {}

platform::MediaControl* DeferredMediaControl::Control() {
  if (control_ == nullptr && !startFailure_) {
    try {
      control_ = factory_();
      built_.store(control_.get());
      if (const std::uint64_t through = abandonedThrough_.load(); through != 0) control_->AbandonOpensThrough(through);
    } catch (const std::exception& failure) {
      startFailure_ = failure.what();
    }
  }
  return control_.get();
}

std::uint32_t DeferredMediaControl::mciSendString(const char* command, char* reply, unsigned size) {
  if (!Started() && command != nullptr && strcasecmp(command, "close all") == 0) {
    platform::CopyTruncated("", reply, size);
    return platform::kMciNoError;
  }
  platform::MediaControl* control = Control();
  if (control == nullptr) {
    platform::CopyTruncated("", reply, size);
    return platform::kMciNoAudioOutput;
  }
  return control->mciSendString(command, reply, size);
}

bool DeferredMediaControl::mciGetErrorString(std::uint32_t code, char* text, unsigned size) {
  if (Started()) return control_->mciGetErrorString(code, text, size);
  const bool known = startFailure_ && code == platform::kMciNoAudioOutput;
  platform::CopyTruncated(known ? *startFailure_ : "", text, size);
  return known;
}

void DeferredMediaControl::NumberNextOpen(std::uint64_t number) {
  if (platform::MediaControl* control = Control()) control->NumberNextOpen(number);
}

void DeferredMediaControl::AbandonOpensThrough(std::uint64_t number) {
  std::uint64_t through = abandonedThrough_.load();
  while (through < number && !abandonedThrough_.compare_exchange_weak(through, number)) {
  }
  if (platform::MediaControl* control = built_.load()) control->AbandonOpensThrough(number);
}
