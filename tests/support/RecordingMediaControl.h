#pragma once
// A media control that records every command string in order and answers
// from a script; commands no rule matches are answered 0 with an empty reply.
// It may be driven from the player's own thread while the test reads it.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "platform/MediaControl.h"

namespace testing_support {

class RecordingMediaControl : public platform::MediaControl {
 public:
  // Answers every later command that begins with the prefix; the rule added
  // last wins where several match.
  void Answer(const std::string& prefix, std::uint32_t code, const std::string& reply = "") {
    std::lock_guard lock(mutex_);
    rules_.push_back({prefix, code, reply});
  }
  // Called with each command before it is recorded, on the sending thread;
  // it may block, as a slow device does.
  void BeforeEachCommand(std::function<void(const std::string&)> hook) {
    std::lock_guard lock(mutex_);
    hook_ = std::move(hook);
  }

  std::uint32_t mciSendString(const char* command, char* reply, unsigned size) override {
    std::function<void(const std::string&)> hook;
    {
      std::lock_guard lock(mutex_);
      hook = hook_;
    }
    if (hook) hook(command);
    std::lock_guard lock(mutex_);
    commands_.emplace_back(command);
    const auto rule = std::find_if(rules_.rbegin(), rules_.rend(),
                                   [&](const Rule& r) { return commands_.back().starts_with(r.prefix); });
    Write(rule == rules_.rend() ? "" : rule->reply, reply, size);
    return rule == rules_.rend() ? 0 : rule->code;
  }
  // Gives "error N" for every code.
  bool mciGetErrorString(std::uint32_t code, char* text, unsigned size) override {
    Write("error " + std::to_string(code), text, size);
    return true;
  }

  std::vector<std::string> Commands() const {
    std::lock_guard lock(mutex_);
    return commands_;
  }
  bool Received(const std::string& command) const {
    const auto all = Commands();
    return std::find(all.begin(), all.end(), command) != all.end();
  }
  void Forget() {
    std::lock_guard lock(mutex_);
    commands_.clear();
  }

 private:
  struct Rule {
    std::string prefix;
    std::uint32_t code;
    std::string reply;
  };
  static void Write(const std::string& text, char* out, unsigned size) {
    if (out == nullptr || size == 0) return;
    const std::size_t count = std::min<std::size_t>(text.size(), size - 1);
    std::memcpy(out, text.data(), count);
    out[count] = '\0';
  }

  mutable std::mutex mutex_;
  std::vector<Rule> rules_;
  std::vector<std::string> commands_;
  std::function<void(const std::string&)> hook_;
};

}  // namespace testing_support
