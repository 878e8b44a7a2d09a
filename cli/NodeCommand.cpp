#include "cli/NodeCommand.h"

#include <CLI/CLI.hpp>

#include "app/CLibraryApp.h"

NodeCommand::NodeCommand(CLI::App& parent, const char* name, const char* description,
                         std::initializer_list<std::string> kinds)
    : command_(parent.add_subcommand(name, description)) {
  command_->add_option("KIND", kind_, "The kind of node")->required()->check(CLI::IsMember(kinds));
  command_->add_option("ID", id_, "Its VolID, PathID or PlayListID")->required();
}

bool NodeCommand::Chosen() const { return command_->parsed(); }

void NodeCommand::RequireRow(CLibraryApp& app) const {
  MediaDB& db = app.Db();
  const bool found = kind_ == "volume"   ? db.GetVolume(id_) != nullptr
                     : kind_ == "folder" ? db.GetPath(id_) != nullptr
                                         : db.GetPlayList(id_) != nullptr;
  const char* key = kind_ == "volume" ? "VolID" : kind_ == "folder" ? "PathID" : "PlayListID";
  if (!found)
    throw UsageError("no " + kind_ + " with " + key + " " + std::to_string(id_) + " in the library");
}
