#include "tests/support/ScriptedMessageBox.h"

namespace testing_support {

void ScriptedMessageBox::Script(std::initializer_list<platform::Answer> answers) {
  std::lock_guard lock(mutex_);
  answers_.insert(answers_.end(), answers.begin(), answers.end());
}

void ScriptedMessageBox::OnShow(std::function<void(const ShownMessage&)> hook) {
  std::lock_guard lock(mutex_);
  hook_ = std::move(hook);
}

platform::Answer ScriptedMessageBox::Show(const std::string& text, platform::Buttons buttons,
                                          platform::Icon icon) {
  ShownMessage message{text, buttons, icon};
  std::function<void(const ShownMessage&)> hook;
  platform::Answer answer = buttons == platform::Buttons::Ok ? platform::Answer::Ok
                                                             : platform::Answer::Cancel;
  {
    std::lock_guard lock(mutex_);
    shown_.push_back(message);
    hook = hook_;
    if (!answers_.empty()) {
      answer = answers_.front();
      answers_.pop_front();
    }
  }
  if (hook) hook(message);
  return answer;
}

std::vector<ShownMessage> ScriptedMessageBox::Shown() const {
  std::lock_guard lock(mutex_);
  return shown_;
}

std::vector<std::string> ScriptedMessageBox::Texts() const {
  std::lock_guard lock(mutex_);
  std::vector<std::string> texts;
  for (const auto& m : shown_) texts.push_back(m.text);
  return texts;
}

}  // namespace testing_support
