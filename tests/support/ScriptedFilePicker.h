#pragma once
// A file picker whose user gives a scripted answer; it keeps what each run
// was shown.

#include <vector>

#include "platform/FilePicker.h"

namespace testing_support {

class ScriptedFilePicker : public platform::FilePicker {
 public:
  struct Shown {
    Purpose purpose;
    std::string title;
    std::string filter;
    std::string start;
  };

  int answer = kCancelled;
  std::string file;  // the Linux path chosen with kChosen
  std::vector<Shown> runs;

  int Pick(Purpose purpose, const std::string& title, const std::string& filter, const std::string& start,
           std::string& chosen) override {
    runs.push_back({purpose, title, filter, start});
    chosen = file;
    return answer;
  }
};

}  // namespace testing_support
