#pragma once
// A folder picker whose user gives a scripted answer; it keeps the title and
// the Linux folder it started in at each run.

#include <vector>

#include "platform/FolderPicker.h"

namespace testing_support {

class ScriptedFolderPicker : public platform::FolderPicker {
 public:
  int answer = kCancelled;
  std::string folder;  // the Linux folder chosen with kChosen
  std::string title;
  std::vector<std::string> startedAt;

  int Browse(const std::string& shownTitle, const std::string& initial, std::string& chosen) override {
    title = shownTitle;
    startedAt.push_back(initial);
    chosen = folder;
    return answer;
  }
};

}  // namespace testing_support
