#pragma once
#include <string>

#include "cli/ConsoleCommand.h"
#include "cli/NodeCommand.h"

// `tree`: the library tree as a rebuild leaves it.
class TreeCommand : public ConsoleCommand {
 public:
  explicit TreeCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
};

// `list folder PATHID` / `list playlist PLAYLISTID`: that node selected, and
// the media list it fills.
class ListCommand : public NodeCommand {
 public:
  explicit ListCommand(CommandArguments& parent);
  int Run(CLibraryApp& app, std::FILE* out) override;
};

// `search TEXT`: the quick search with TEXT in the Find field.
class SearchCommand : public ConsoleCommand {
 public:
  explicit SearchCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  std::string text_;
};
