#pragma once
// A media control that records every command string in order and answers
// from a script; commands no rule matches are answered 0 with an empty reply.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "platform/MediaControl.h"

namespace testing_support {

class RecordingMediaControl : public platform::MediaControl {
 public:
  // Answers every later command that begins with the prefix; the rule added
  // last wins where several match.
  void Answer(const std::string& prefix, std::uint32_t code, const std::string& reply = "") {
    rules_.push_back({prefix, code, reply});
  }

  std::uint32_t mciSendString(const char* command, char* reply, unsigned size) override {
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

  const std::vector<std::string>& Commands() const { return commands_; }
  void Forget() { commands_.clear(); }

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

  std::vector<Rule> rules_;
  std::vector<std::string> commands_;
};

}  // namespace testing_support
