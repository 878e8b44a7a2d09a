#pragma once
// A message box whose answers are scripted and which records every text shown.

#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "platform/MessageBox.h"

namespace testing_support {

struct ShownMessage {
  std::string text;
  platform::Buttons buttons;
  platform::Icon icon;
};

class ScriptedMessageBox : public platform::MessageBox {
 public:
  // Answers are taken in order; once they run out every box is answered with
  // the default: Ok for an OK box, Cancel for a question.
  void Script(std::initializer_list<platform::Answer> answers);

  // Called (on the showing thread) each time a box is shown, before it answers;
  // lets a test change the world between prompts, such as swapping a disc.
  void OnShow(std::function<void(const ShownMessage&)> hook);

  platform::Answer Show(const std::string& text, platform::Buttons buttons,
                        platform::Icon icon) override;

  std::vector<ShownMessage> Shown() const;
  std::vector<std::string> Texts() const;

 private:
  mutable std::mutex mutex_;
  std::deque<platform::Answer> answers_;
  std::vector<ShownMessage> shown_;
  std::function<void(const ShownMessage&)> hook_;
};

}  // namespace testing_support
