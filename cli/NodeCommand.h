#pragma once
// A console command on one node of the library, named as KIND ID (for
// instance `remove folder 3`): the kinds it takes, and the id.

#include <initializer_list>
#include <string>

#include "cli/ConsoleCommand.h"

class NodeCommand : public ConsoleCommand {
 public:
  NodeCommand(CommandArguments& parent, const char* name, const char* description,
              std::initializer_list<std::string> kinds);
  bool Chosen() const override;

 protected:
  // Throws UsageError unless the catalogue holds the node's row.
  void RequireRow(CLibraryApp& app) const;

  std::string kind_;
  int id_ = 0;

 private:
  CommandArguments command_;
};
