#include "cli/NodeCommand.h"

#include "app/CLibraryApp.h"

NodeCommand::NodeCommand(CommandArguments& parent, const char* name, const char* description,
                         std::initializer_list<std::string> kinds)
    : command_(parent, name, description) {
  command_.Add("KIND", kind_, "The kind of node").Required().OneOf(kinds);
  command_.Add("ID", id_, "Its VolID, PathID or PlayListID").Required();
}

bool NodeCommand::Chosen() const { return command_.Chosen(); }

void NodeCommand::RequireRow(CLibraryApp& app) const {
  MediaDB& db = app.Db();
  const bool found = kind_ == "volume"   ? db.GetVolume(id_) != nullptr
                     : kind_ == "folder" ? db.GetPath(id_) != nullptr
                                         : db.GetPlayList(id_) != nullptr;
  const char* key = kind_ == "volume" ? "VolID" : kind_ == "folder" ? "PathID" : "PlayListID";
  if (!found) throw UsageError("no " + kind_ + " with " + key + " " + std::to_string(id_) + " in the library");
}
