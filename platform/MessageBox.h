#pragma once
// Message boxes: a text, a set of buttons and an icon; returns the button pressed.
//
// May be called from a worker thread: implementations show the box on the
// user-interface thread and the caller waits for the answer.

#include <string>

namespace platform {

enum class Buttons { Ok, OkCancel, RetryCancel };
enum class Icon { None, Information, Warning, Error };
enum class Answer { Ok, Cancel, Retry };

class MessageBox {
 public:
  virtual ~MessageBox() = default;
  virtual Answer Show(const std::string& text, Buttons buttons, Icon icon) = 0;
};

}  // namespace platform
