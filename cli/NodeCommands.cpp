#include "cli/NodeCommands.h"

#include <CLI/CLI.hpp>

#include "cli/ConsoleLibraryWindow.h"
#include "ui/CLibraryTree.h"

TreeMenuCommand::TreeMenuCommand(CLI::App& parent, const char* name, const char* description,
                                 int menuCommand, std::initializer_list<std::string> kinds)
    : command_(parent.add_subcommand(name, description)), menuCommand_(menuCommand) {
  command_->add_option("KIND", kind_, "The kind of node")->required()->check(CLI::IsMember(kinds));
  command_->add_option("ID", id_, "Its VolID, PathID or PlayListID")->required();
}

bool TreeMenuCommand::Chosen() const { return command_->parsed(); }

int TreeMenuCommand::Run(CLibraryApp& app, std::FILE*) {
  ConsoleLibraryWindow window(app);
  window.ChooseFromMenu(window.Node(kind_, id_), menuCommand_);
  return 0;
}

VolumeInfoCommand::VolumeInfoCommand(CLI::App& parent)
    : command_(parent.add_subcommand("volume-info", "Show or edit a volume's display name and description")) {
  command_->add_option("VOLID", volId_, "The volume")->required();
  command_->add_option("--display-name", displayName_, "Type this display name, then press Update");
  command_->add_option("--description", description_, "Type this description, then press Update");
}

bool VolumeInfoCommand::Chosen() const { return command_->parsed(); }

int VolumeInfoCommand::Run(CLibraryApp& app, std::FILE* out) {
  ConsoleLibraryWindow window(app);
  window.volumeInfoUser = [&](VolumeInfoForm& form) {
    if (displayName_) form.displayName = *displayName_;
    if (description_) form.description = *description_;
    std::fprintf(out, "Display Name: %s\nVolume Name: %s\nDescription: %s\n",
                 OneLine(form.displayName).c_str(), OneLine(form.volumeName).c_str(),
                 OneLine(form.description).c_str());
    return displayName_ || description_ ? kDialogOk : kDialogCancel;
  };
  window.ChooseFromMenu(window.Node("volume", volId_), CLibraryTree::kVolumeInfo);
  return 0;
}
