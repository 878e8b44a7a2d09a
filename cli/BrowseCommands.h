#pragma once
#include <string>

#include "cli/ConsoleCommand.h"
#include "cli/NodeCommand.h"

// `tree`: the library tree as a rebuild leaves it.
class TreeCommand : public ConsoleCommand {
 public:
  explicit TreeCommand(CLI::App& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CLI::App* command_;
};

// `list folder PATHID` / `list playlist PLAYLISTID`: that node selected, and
// the media list it fills.
class ListCommand : public NodeCommand {
 public:
  explicit ListCommand(CLI::App& parent);
  int Run(CLibraryApp& app, std::FILE* out) override;
};

// `search TEXT`: the quick search with TEXT in the Find field.
class SearchCommand : public ConsoleCommand {
 public:
  explicit SearchCommand(CLI::App& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CLI::App* command_;
  std::string text_;
};
