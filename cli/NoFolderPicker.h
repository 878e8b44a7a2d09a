#pragma once
// The console takes folders as arguments; a picker it never shows answers
// as if cancelled.

#include "platform/FolderPicker.h"

class NoFolderPicker : public platform::FolderPicker {
 public:
  int Browse(const std::string&, const std::string&, std::string&) override { return kCancelled; }
};
