#pragma once
#include "cli/ConsoleCommand.h"

// `drives`: the drive table, one drive a line: letter, type number, root
// folder, ready or not, serial number, label.
class DrivesCommand : public ConsoleCommand {
 public:
  explicit DrivesCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
};
