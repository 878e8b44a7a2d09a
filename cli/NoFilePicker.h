#pragma once
// The console takes files as arguments; a picker it never shows answers as
// if cancelled.

#include "platform/FilePicker.h"

class NoFilePicker : public platform::FilePicker {
 public:
  int Pick(Purpose, const std::string&, const std::string&, const std::string&, std::string&) override {
    return kCancelled;
  }
};
