#include "cli/BrowseCommands.h"

#include "cli/ConsoleLibraryWindow.h"

TreeCommand::TreeCommand(CommandArguments& parent)
    : command_(parent, "tree", "Print the library tree with each node's item value") {}

bool TreeCommand::Chosen() const { return command_.Chosen(); }

int TreeCommand::Run(CLibraryApp& app, std::FILE* out) {
  ConsoleLibraryWindow(app).PrintTree(out);
  return 0;
}

ListCommand::ListCommand(CommandArguments& parent)
    : NodeCommand(parent, "list", "Print the files of a folder or a play list", {"folder", "playlist"}) {}

int ListCommand::Run(CLibraryApp& app, std::FILE* out) {
  ConsoleLibraryWindow window(app, kind_ == "folder" ? id_ : -1);
  window.Select(window.Node(kind_, id_));
  window.PrintList(out);
  return 0;
}

SearchCommand::SearchCommand(CommandArguments& parent)
    : command_(parent, "search", "Quick search: files whose name, title or artist holds TEXT") {
  command_.Add("TEXT", text_, "The text typed into the Find field").Required();
}

bool SearchCommand::Chosen() const { return command_.Chosen(); }

int SearchCommand::Run(CLibraryApp& app, std::FILE* out) {
  ConsoleLibraryWindow window(app, -1);
  window.Search(text_);
  window.PrintList(out);
  window.PrintFound(out);
  return 0;
}
