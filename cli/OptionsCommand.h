#pragma once
#include <optional>
#include <string>

#include "cli/ConsoleCommand.h"

// `options [--cache-path PATH] [--cd-drive LETTER] [--all-formats yes|no]`:
// the Options dialog. Prints the three settings; with options, types those
// edits into it and presses OK. Only a CD drive the dialog offers can be
// chosen.
class OptionsCommand : public ConsoleCommand {
 public:
  explicit OptionsCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  // The letter of "E", "e", "E:" or "E:\".
  std::string CdDriveLetter() const;

  CommandArguments command_;
  std::optional<std::string> cachePath_;
  std::optional<std::string> cdDrive_;
  std::optional<bool> allFormats_;
  std::optional<std::string> replayGain_;
};
