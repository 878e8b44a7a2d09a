#pragma once
// Message boxes on a terminal: the text on a line of its own on standard
// output; a question is answered by --yes or --no, asked on the terminal when
// standard input is one, and otherwise answered Cancel so that a script never
// hangs and never destroys anything by default. With --yes, a question that
// comes back unchanged after being answered OK three times running (a disc that
// is not there) is answered Cancel, since nothing will change by itself.
// Safe to call from a worker.

#include <cstdio>
#include <mutex>

#include "platform/MessageBox.h"

enum class AnswerPolicy { Ask, Yes, No };

class ConsoleMessageBox : public platform::MessageBox {
 public:
  // interactive: whether `in` is a terminal a person answers at.
  ConsoleMessageBox(AnswerPolicy policy, std::FILE* in, std::FILE* out, bool interactive);

  platform::Answer Show(const std::string& text, platform::Buttons buttons, platform::Icon icon) override;

 private:
  platform::Answer AskOnTerminal(platform::Buttons buttons);
  platform::Answer AnswerYes(const std::string& text, platform::Buttons buttons);

  AnswerPolicy policy_;
  std::FILE* in_;
  std::FILE* out_;
  bool interactive_;
  std::mutex mutex_;
  std::string lastYes_;
  int timesAnsweredYes_ = 0;
};
