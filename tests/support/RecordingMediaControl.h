#pragma once
// A media control that records every command string in order and answers
// from a script; commands no rule matches are answered 0 with an empty reply.

#include <cstdint>
#include <string>
#include <vector>

#include "platform/MediaControl.h"

namespace testing_support {

struct SentCommand {
  std::string text;
  unsigned replySize;  // 0 when no reply buffer was given
};

class RecordingMediaControl : public platform::MediaControl {
 public:
  // Answers every later command that begins with the prefix; the rule added
  // last wins where several match.
  void Answer(const std::string& prefix, std::uint32_t code, const std::string& reply = "");

  std::uint32_t mciSendString(const char* command, char* reply, unsigned size) override;
  // Gives "error N" for every code.
  bool mciGetErrorString(std::uint32_t code, char* text, unsigned size) override;

  std::vector<std::string> Commands() const;
  const std::vector<SentCommand>& Sent() const { return sent_; }
  // The codes whose text was asked for, in order.
  const std::vector<std::uint32_t>& ErrorTextsAsked() const { return errorTextsAsked_; }
  void Forget();

 private:
  struct Rule {
    std::string prefix;
    std::uint32_t code;
    std::string reply;
  };
  static void Write(const std::string& text, char* out, unsigned size);

  std::vector<Rule> rules_;
  std::vector<SentCommand> sent_;
  std::vector<std::uint32_t> errorTextsAsked_;
};

}  // namespace testing_support
