#include "cli/OptionsCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>

#include "app/CLibraryApp.h"
#include "platform/DriveTable.h"

OptionsCommand::OptionsCommand(CLI::App& parent)
    : command_(parent.add_subcommand("options", "Show or change the cache folder and the CD drive")) {
  command_->add_option("--cache-path", cachePath_,
                       "Cache folder: a Linux path or a drive path such as C:\\QORCache");
  command_->add_option("--cd-drive", cdDrive_, "Letter of the CD drive used by Add CD and playback");
}

bool OptionsCommand::Chosen() const { return command_->parsed(); }

std::string OptionsCommand::CdDriveLetter(CLibraryApp& app) const {
  std::string letter = *cdDrive_;
  // "E", "e", "E:" and "E:\" all name drive E.
  if (letter.size() > 1 && letter[1] == ':') letter.resize(1);
  if (letter.size() != 1) throw UsageError("--cd-drive takes a drive letter, not '" + *cdDrive_ + "'");
  letter[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(letter[0])));
  const auto cdDrives = app.Drives().GetDriveList(platform::kDriveCdRom);
  if (std::find(cdDrives.begin(), cdDrives.end(), letter) == cdDrives.end())
    throw UsageError("drive " + letter + ": is not a CD drive of the drive table");
  return letter;
}

int OptionsCommand::Run(CLibraryApp& app, std::FILE* out) {
  CAppSettings& settings = app.Settings();
  // Check both arguments before changing either, as the dialog's OK takes both.
  const std::string cachePath = cachePath_ ? FolderArgument(app, *cachePath_) : settings.cacheFolder;
  const std::string cdDrive = cdDrive_ ? CdDriveLetter(app) : settings.cdDrive;
  settings.cacheFolder = cachePath;
  settings.cdDrive = cdDrive;
  std::fprintf(out, "Cache Path: %s\n", OneLine(settings.cacheFolder).c_str());
  std::fprintf(out, "CD Drive: %s\n", OneLine(settings.cdDrive).c_str());
  return 0;
}
