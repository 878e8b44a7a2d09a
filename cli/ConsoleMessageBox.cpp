#include "cli/ConsoleMessageBox.h"

#include <cctype>
#include <string>

#include "base/AsciiCase.h"
#include "cli/ConsoleCommand.h"

namespace {

platform::Answer Positive(platform::Buttons buttons) {
  return buttons == platform::Buttons::RetryCancel ? platform::Answer::Retry : platform::Answer::Ok;
}

std::string FirstWordLower(const char* line) {
  std::string word;
  for (const char* c = line; *c && !std::isspace(static_cast<unsigned char>(*c)); ++c) word += AsciiLower(*c);
  return word;
}

}  // namespace

ConsoleMessageBox::ConsoleMessageBox(AnswerPolicy policy, std::FILE* in, std::FILE* out, bool interactive)
    : policy_(policy), in_(in), out_(out), interactive_(interactive) {}

platform::Answer ConsoleMessageBox::Show(const std::string& text, platform::Buttons buttons, platform::Icon) {
  std::lock_guard lock(mutex_);
  std::fprintf(out_, "%s\n", TerminalText(text).c_str());
  std::fflush(out_);
  if (buttons == platform::Buttons::Ok) return platform::Answer::Ok;
  switch (policy_) {
    case AnswerPolicy::Yes:
      return AnswerYes(text, buttons);
    case AnswerPolicy::No:
      return platform::Answer::Cancel;
    case AnswerPolicy::Ask:
      break;
  }
  return interactive_ ? AskOnTerminal(buttons) : platform::Answer::Cancel;
}

platform::Answer ConsoleMessageBox::AnswerYes(const std::string& text, platform::Buttons buttons) {
  constexpr int kMostRepeats = 3;
  timesAnsweredYes_ = text == lastYes_ ? timesAnsweredYes_ + 1 : 1;
  lastYes_ = text;
  if (timesAnsweredYes_ <= kMostRepeats) return Positive(buttons);
  std::fprintf(stderr, "vantrelle-cli: the same question came back %d times; answering Cancel\n", kMostRepeats + 1);
  lastYes_.clear();
  return platform::Answer::Cancel;
}

platform::Answer ConsoleMessageBox::AskOnTerminal(platform::Buttons buttons) {
  const bool retry = buttons == platform::Buttons::RetryCancel;
  for (;;) {
    std::fprintf(out_, retry ? "[Retry/Cancel] " : "[OK/Cancel] ");
    std::fflush(out_);
    char line[256];
    if (!std::fgets(line, sizeof line, in_)) return platform::Answer::Cancel;
    const std::string word = FirstWordLower(line);
    if (word == "c" || word == "cancel" || word == "n" || word == "no") return platform::Answer::Cancel;
    if ((retry && (word == "r" || word == "retry")) || (!retry && (word == "o" || word == "ok")) || word == "y" ||
        word == "yes")
      return Positive(buttons);
  }
}
