#include "cli/AddCommands.h"

#include <unistd.h>

#include "app/CLibraryApp.h"
#include "cli/ConsoleProgressDialog.h"
#include "cli/NoFolderPicker.h"
#include "scan/ScanCommands.h"

namespace {

template <class Action>
int RunScanCommand(CLibraryApp& app, Action action) {
  NoFolderPicker picker;
  ConsoleProgressDialog dialog(app.Platform().messages, stderr, isatty(STDERR_FILENO) == 1);
  ScanCommands commands(app.Scanner(), app.Drives(), app.Settings(), picker, dialog);
  action(commands);
  return 0;
}

}  // namespace

AddHdCommand::AddHdCommand(CommandArguments& parent)
    : command_(parent, "add-hd", "Scan a folder on a disk and store it in the library") {
  command_.Add("FOLDER", folder_, "A Linux path, or a drive path such as C:\\Music").Required();
}

bool AddHdCommand::Chosen() const { return command_.Chosen(); }

int AddHdCommand::Run(CLibraryApp& app, std::FILE*) {
  const std::string drivePath = FolderArgument(app, folder_);
  if (!app.Drives().FileExists(drivePath)) throw UsageError("there is no folder '" + folder_ + "'");
  return RunScanCommand(app, [&](ScanCommands& commands) { commands.AddFolder(drivePath); });
}

AddCdCommand::AddCdCommand(CommandArguments& parent)
    : command_(parent, "add-cd", "Scan the CD in the CD drive and store it in the library") {}

bool AddCdCommand::Chosen() const { return command_.Chosen(); }

int AddCdCommand::Run(CLibraryApp& app, std::FILE*) {
  return RunScanCommand(app, [](ScanCommands& commands) { commands.AddCd(); });
}
