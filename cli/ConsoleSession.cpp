#include "cli/ConsoleSession.h"

#include <unistd.h>

#include <memory>
#include <optional>
#include <vector>

#include "app/CLibraryApp.h"
#include "app/ExitStatus.h"
#include "catalogue/CppSQLite3Exception.h"
#include "cli/AddCommands.h"
#include "cli/BrowseCommands.h"
#include "cli/ConsoleMessageBox.h"
#include "cli/DrivesCommand.h"
#include "cli/FileInfoCommand.h"
#include "cli/NodeCommands.h"
#include "cli/OptionsCommand.h"
#include "cli/PlayCommand.h"
#include "cli/PlayListCommands.h"
#include "cli/PlayListFileCommands.h"
#include "cli/PlayListPlayCommand.h"
#include "platform/DataFolder.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/mci/GstMediaControl.h"
#include "playback/DeferredMediaControl.h"

namespace {

int RunSession(ConsoleCommand& command, AnswerPolicy policy) {
  const platform::DataFolder data = platform::FindDataFolder();
  if (!data.error.empty()) {
    std::fprintf(stderr, "vantrelle-cli: %s\n", data.error.c_str());
    return exit_status::kCatalogueFailed;
  }
  platform::LinuxDriveTable::CreateDefaultIfMissing(data.path);
  platform::LinuxDriveTable drives(data.path);
  platform::LinuxFileSystem files(drives);
  ConsoleMessageBox messages(policy, stdin, stdout, isatty(STDIN_FILENO) == 1);
  // GStreamer starts only when a command plays something.
  DeferredMediaControl media([&files] { return platform::mci::GstMediaControl::ForProgram(files); });
  CLibraryApp app(data.path, PlatformServices{drives, files, messages, media});

  try {
    switch (app.Start()) {
      case CLibraryApp::StartResult::Ready:
        break;
      case CLibraryApp::StartResult::Refused:
        app.Exit();
        return exit_status::kCatalogueRefused;
      case CLibraryApp::StartResult::InUse:
        std::fprintf(stderr, "%s\n", app.InUseMessage().c_str());
        return exit_status::kCatalogueInUse;
      case CLibraryApp::StartResult::Forbidden:
        std::fprintf(stderr, "vantrelle-cli: %s\n", app.ForbiddenMessage().c_str());
        return exit_status::kCatalogueFailed;
    }
  } catch (const CppSQLite3Exception& failure) {
    std::fprintf(stderr, "vantrelle-cli: cannot open the catalogue: %s\n", failure.Message());
    return exit_status::kCatalogueFailed;
  }

  int status = exit_status::kDone;
  try {
    status = command.Run(app, stdout);
  } catch (const UsageError& error) {
    std::fprintf(stderr, "vantrelle-cli: %s\n", error.what());
    status = exit_status::kWrongCommandLine;
  }
  app.Exit();
  return status;
}

}  // namespace

int RunConsole(int argc, char** argv) {
  CommandLine cli("vantrelle-cli", "The console face of Vantrelle: catalogue, search and play music on disks and CDs.",
                  "Exit status: 0 done (a cancelled question too); 1 a catalogue statement failed, the\n"
                  "catalogue cannot be opened or must not be used where it lies, it is read-only and the\n"
                  "command would change it, a rescan found another disk or lost its disk, or a play list\n"
                  "file could not be written or read or named no catalogued file; 2 a wrong\n"
                  "command line; 3 the catalogue is of another version; 4 another Vantrelle program is using\n"
                  "the catalogue.\n"
                  "The catalogue lives in $VANTRELLE_DATA, else beside the program when it holds Quillora.db\n"
                  "or vantrelle.portable, else in $XDG_DATA_HOME/vantrelle or ~/.local/share/vantrelle.");
  bool yes = false, no = false;
  const Argument yesFlag = cli.AddFlag("--yes", yes, "Answer every question with OK (or Retry)");
  cli.AddFlag("--no", no, "Answer every question with Cancel").Excludes(yesFlag);

  std::vector<std::unique_ptr<ConsoleCommand>> commands;
  commands.push_back(std::make_unique<AddCdCommand>(cli));
  commands.push_back(std::make_unique<AddHdCommand>(cli));
  commands.push_back(std::make_unique<OptionsCommand>(cli));
  commands.push_back(std::make_unique<DrivesCommand>(cli));
  commands.push_back(std::make_unique<PlayCommand>(cli));
  commands.push_back(std::make_unique<PlayListPlayCommand>(cli));
  commands.push_back(std::make_unique<SavePlayListCommand>(cli));
  commands.push_back(std::make_unique<CopyCommand>(cli));
  commands.push_back(std::make_unique<ClearCacheCommand>(cli));
  commands.push_back(std::make_unique<ExportPlayListCommand>(cli));
  commands.push_back(std::make_unique<ImportPlayListCommand>(cli));
  commands.push_back(std::make_unique<TreeCommand>(cli));
  commands.push_back(std::make_unique<ListCommand>(cli));
  commands.push_back(std::make_unique<SearchCommand>(cli));
  commands.push_back(std::make_unique<FileInfoCommand>(cli));
  commands.push_back(std::make_unique<VolumeInfoCommand>(cli));
  commands.push_back(std::make_unique<RescanCommand>(cli));
  commands.push_back(std::make_unique<RemoveCommand>(cli));

  if (const std::optional<int> ended = cli.Parse(argc, argv, exit_status::kWrongCommandLine)) return *ended;

  const AnswerPolicy policy = yes ? AnswerPolicy::Yes : no ? AnswerPolicy::No : AnswerPolicy::Ask;
  for (auto& command : commands)
    if (command->Chosen()) return RunSession(*command, policy);
  return exit_status::kWrongCommandLine;
}
