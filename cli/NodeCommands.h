#pragma once
#include <optional>
#include <string>

#include "cli/ConsoleCommand.h"
#include "cli/NodeCommand.h"

// `rescan volume VOLID` / `rescan folder PATHID`: the library's rescan, as
// the tree's menu runs it.
class RescanCommand : public NodeCommand {
 public:
  explicit RescanCommand(CommandArguments& parent);
  int Run(CLibraryApp& app, std::FILE* out) override;
};

// `remove volume VOLID` / `remove folder PATHID` / `remove playlist
// PLAYLISTID`: the library's removal, after its question.
class RemoveCommand : public NodeCommand {
 public:
  explicit RemoveCommand(CommandArguments& parent);
  int Run(CLibraryApp& app, std::FILE* out) override;
};

// `volume-info VOLID [--display-name TEXT] [--description TEXT]`: "Vol Info /
// Edit" of the volume; prints the dialog's three fields and, with options,
// presses Update with those edits.
class VolumeInfoCommand : public ConsoleCommand {
 public:
  explicit VolumeInfoCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  int volId_ = 0;
  std::optional<std::string> displayName_;
  std::optional<std::string> description_;
};
