#pragma once
#include <optional>
#include <string>

#include "cli/ConsoleCommand.h"

// `rescan volume VOLID` / `rescan folder PATHID` and `remove volume VOLID` /
// `remove folder PATHID` / `remove playlist PLAYLISTID`: a right-click on that
// node of the library tree and the menu's "rescan" or "remove".
class TreeMenuCommand : public ConsoleCommand {
 public:
  TreeMenuCommand(CLI::App& parent, const char* name, const char* description, int menuCommand,
                  std::initializer_list<std::string> kinds);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CLI::App* command_;
  int menuCommand_;
  std::string kind_;
  int id_ = 0;
};

// `volume-info VOLID [--display-name TEXT] [--description TEXT]`: "Vol Info /
// Edit" on the volume's node; prints the dialog's three fields and, with
// options, presses Update with those edits.
class VolumeInfoCommand : public ConsoleCommand {
 public:
  explicit VolumeInfoCommand(CLI::App& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CLI::App* command_;
  int volId_ = 0;
  std::optional<std::string> displayName_;
  std::optional<std::string> description_;
};
