#include "cli/DrivesCommand.h"

#include "app/CLibraryApp.h"
#include "platform/DriveTable.h"

DrivesCommand::DrivesCommand(CommandArguments& parent) : command_(parent, "drives", "List the drive table") {}

bool DrivesCommand::Chosen() const { return command_.Chosen(); }

int DrivesCommand::Run(CLibraryApp& app, std::FILE* out) {
  platform::DriveTable& table = app.Platform().drives;
  std::fprintf(out, "Drive\tType\tRoot\tReady\tSerial\tLabel\n");
  for (const std::string& drive : app.Drives().GetDriveList(-1)) {
    const char letter = drive[0];
    const bool ready = app.Drives().IsDriveReady(drive);
    std::string serial, label;
    if (const auto volume = ready ? app.Drives().ReadVolumeInfo(drive) : nullptr) {
      serial = volume->SerialNo;
      label = volume->Name;
    }
    std::fprintf(out, "%c:\t%d\t%s\t%s\t%s\t%s\n", letter, table.Type(letter),
                 OneLine(table.RootFolder(letter)).c_str(), ready ? "ready" : "not ready", serial.c_str(),
                 OneLine(label).c_str());
  }
  return 0;
}
