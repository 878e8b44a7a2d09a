#pragma once
#include <optional>
#include <string>

#include "cli/ConsoleCommand.h"

// `options [--cache-path PATH] [--cd-drive LETTER]`: shows the two settings
// of the Options dialog; with options, changes them as OK in the dialog does.
class OptionsCommand : public ConsoleCommand {
 public:
  explicit OptionsCommand(CLI::App& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  std::string CdDriveLetter(CLibraryApp& app) const;

  CLI::App* command_;
  std::optional<std::string> cachePath_;
  std::optional<std::string> cdDrive_;
};
