#include "cli/NodeCommands.h"

#include <unistd.h>

#include "app/CLibraryApp.h"
#include "cli/ConsoleProgressDialog.h"
#include "cli/NoFolderPicker.h"
#include "dialogs/CVolumeInfoDlg.h"
#include "scan/ScanCommands.h"
#include "ui/LibraryCommands.h"

namespace {

// The volume's edit dialog answered by the command line.
class ConsoleVolumeInfo : public VolumeInfoView {
 public:
  explicit ConsoleVolumeInfo(std::function<int(VolumeInfoForm&)> user) : user_(std::move(user)) {}
  int RunModal(VolumeInfoForm& form) override { return user_(form); }

 private:
  std::function<int(VolumeInfoForm&)> user_;
};

}  // namespace

RescanCommand::RescanCommand(CommandArguments& parent)
    : NodeCommand(parent, "rescan", "Rescan a volume or a folder of the library", {"volume", "folder"}) {}

int RescanCommand::Run(CLibraryApp& app, std::FILE*) {
  RequireRow(app);
  NoFolderPicker picker;
  ConsoleProgressDialog dialog(app.Platform().messages, stderr, isatty(STDERR_FILENO) == 1);
  ScanCommands scans(app.Scanner(), app.Drives(), app.Settings(), picker, dialog);
  const bool scanned =
      kind_ == "volume" ? app.Commands().RescanVolume(id_, scans) : app.Commands().RescanFolder(id_, scans);
  return scanned ? 0 : 1;
}

RemoveCommand::RemoveCommand(CommandArguments& parent)
    : NodeCommand(parent, "remove", "Remove a volume, a folder or a play list from the library (asks first)",
                  {"volume", "folder", "playlist"}) {}

int RemoveCommand::Run(CLibraryApp& app, std::FILE*) {
  RequireRow(app);
  LibraryCommands& commands = app.Commands();
  if (kind_ == "volume")
    commands.RemoveVolume(id_);
  else if (kind_ == "folder")
    commands.RemoveFolder(id_);
  else
    commands.RemovePlayList(id_);
  return 0;
}

VolumeInfoCommand::VolumeInfoCommand(CommandArguments& parent)
    : command_(parent, "volume-info", "Show or edit a volume's display name and description") {
  command_.Add("VOLID", volId_, "The volume").Required();
  command_.Add("--display-name", displayName_, "Type this display name, then press Update");
  command_.Add("--description", description_, "Type this description, then press Update");
}

bool VolumeInfoCommand::Chosen() const { return command_.Chosen(); }

int VolumeInfoCommand::Run(CLibraryApp& app, std::FILE* out) {
  if (!app.Db().GetVolume(volId_))
    throw UsageError("no volume with VolID " + std::to_string(volId_) + " in the library");
  ConsoleVolumeInfo view([&](VolumeInfoForm& form) {
    if (displayName_) form.displayName = *displayName_;
    if (description_) form.description = *description_;
    std::fprintf(out, "Display Name: %s\nVolume Name: %s\nDescription: %s\n", OneLine(form.displayName).c_str(),
                 OneLine(form.volumeName).c_str(), OneLine(form.description).c_str());
    return displayName_ || description_ ? kDialogOk : kDialogCancel;
  });
  app.Commands().EditVolume(volId_, view);
  return 0;
}
