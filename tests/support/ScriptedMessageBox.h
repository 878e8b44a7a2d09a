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
  void Script(std::initializer_list<platform::Answer> answers) {
    std::lock_guard lock(mutex_);
    answers_.insert(answers_.end(), answers.begin(), answers.end());
  }

  // Called (on the showing thread) each time a box is shown, before it answers;
  // lets a test change the world between prompts, such as swapping a disc.
  void OnShow(std::function<void(const ShownMessage&)> hook) {
    std::lock_guard lock(mutex_);
    hook_ = std::move(hook);
  }

  platform::Answer Show(const std::string& text, platform::Buttons buttons, platform::Icon icon) override {
    const ShownMessage message{text, buttons, icon};
    std::unique_lock lock(mutex_);
    shown_.push_back(message);
    platform::Answer answer = buttons == platform::Buttons::Ok ? platform::Answer::Ok : platform::Answer::Cancel;
    if (!answers_.empty()) {
      answer = answers_.front();
      answers_.pop_front();
    }
    const auto hook = hook_;
    lock.unlock();
    if (hook) hook(message);
    return answer;
  }

  std::vector<ShownMessage> Shown() const {
    std::lock_guard lock(mutex_);
    return shown_;
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& m : Shown()) texts.push_back(m.text);
    return texts;
  }

 private:
  mutable std::mutex mutex_;
  std::deque<platform::Answer> answers_;
  std::vector<ShownMessage> shown_;
  std::function<void(const ShownMessage&)> hook_;
};

}  // namespace testing_support
