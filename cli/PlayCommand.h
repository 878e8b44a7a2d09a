#pragma once
#include <chrono>
#include <optional>

#include "cli/ConsoleCommand.h"

class CMciPlayer;

// `play FILEID [--seconds N]`: Play on that file, disc prompt included; waits
// N seconds, or to the end of the file, then Stop. A file that cannot be
// played ends the command at once (status 0, as the desktop program carries
// on after its box); the box names the file and the reason.
class PlayCommand : public ConsoleCommand {
 public:
  explicit PlayCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  // How long to let the file play at most.
  std::chrono::milliseconds Limit(const CMciPlayer& player) const;

  CommandArguments command_;
  int fileId_ = 0;
  std::optional<int> seconds_;
};
