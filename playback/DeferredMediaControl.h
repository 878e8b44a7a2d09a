#pragma once
// A media control that builds the real one on the first command that needs
// it, so that a run which plays nothing never starts the audio system.
// "close all" before that has nothing to close and is answered 0 at once.
//
// When the factory throws std::exception, every later command is answered
// with kMciNoAudioOutput and its error text gives the reason.
//
// Not thread-safe, like the media control it wraps, but for
// AbandonOpensThrough.

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/MediaControl.h"

class DeferredMediaControl final : public platform::MediaControl {
 public:
  using Factory = std::function<std::unique_ptr<platform::MediaControl>()>;

  explicit DeferredMediaControl(Factory factory);

  std::uint32_t mciSendString(const char* command, char* reply, unsigned size) override;
  bool mciGetErrorString(std::uint32_t code, char* text, unsigned size) override;
  void NumberNextOpen(std::uint64_t number) override;
  // Any thread; kept and handed on when the real one is built later.
  void AbandonOpensThrough(std::uint64_t number) override;

  // Whether the real media control has been built.
  bool Started() const { return control_ != nullptr; }

 private:
  // The real media control, built when missing; null when it cannot be.
  platform::MediaControl* Control();

  Factory factory_;
  std::unique_ptr<platform::MediaControl> control_;
  std::optional<std::string> startFailure_;
  // For AbandonOpensThrough from other threads: the control once built, and
  // the highest number given up. Each side writes its own and then reads the
  // other's, so at least one of them hands the number on.
  std::atomic<platform::MediaControl*> built_{nullptr};
  std::atomic<std::uint64_t> abandonedThrough_{0};
};
