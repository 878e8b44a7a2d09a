#pragma once
#include <string>

#include "cli/ConsoleCommand.h"

// `add-hd FOLDER`: "Add HD" with FOLDER chosen in the picker.
class AddHdCommand : public ConsoleCommand {
 public:
  explicit AddHdCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  std::string folder_;
};

// `add-cd`: "Add CD" on the configured CD drive.
class AddCdCommand : public ConsoleCommand {
 public:
  explicit AddCdCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
};
