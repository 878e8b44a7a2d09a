#include "tests/support/RecordingMediaControl.h"

#include <algorithm>
#include <cstring>

namespace testing_support {

void RecordingMediaControl::Answer(const std::string& prefix, std::uint32_t code,
                                   const std::string& reply) {
  rules_.push_back({prefix, code, reply});
}

std::uint32_t RecordingMediaControl::mciSendString(const char* command, char* reply,
                                                   unsigned size) {
  const std::string text = command;
  sent_.push_back({text, reply != nullptr ? size : 0});
  const auto rule = std::find_if(rules_.rbegin(), rules_.rend(), [&](const Rule& r) {
    return text.compare(0, r.prefix.size(), r.prefix) == 0;
  });
  if (rule == rules_.rend()) {
    Write("", reply, size);
    return 0;
  }
  Write(rule->reply, reply, size);
  return rule->code;
}

bool RecordingMediaControl::mciGetErrorString(std::uint32_t code, char* text, unsigned size) {
  errorTextsAsked_.push_back(code);
  Write("error " + std::to_string(code), text, size);
  return true;
}

std::vector<std::string> RecordingMediaControl::Commands() const {
  std::vector<std::string> texts;
  for (const auto& command : sent_) texts.push_back(command.text);
  return texts;
}

void RecordingMediaControl::Forget() {
  sent_.clear();
  errorTextsAsked_.clear();
}

void RecordingMediaControl::Write(const std::string& text, char* out, unsigned size) {
  if (out == nullptr || size == 0) return;
  const std::size_t count = std::min<std::size_t>(text.size(), size - 1);
  std::memcpy(out, text.data(), count);
  out[count] = '\0';
}

}  // namespace testing_support
