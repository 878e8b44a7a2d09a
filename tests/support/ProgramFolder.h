#pragma once
// A program folder in a temporary folder, served by the real drive table and
// file system, with message boxes a script answers: what a test of the whole
// application stands on. The test lays out the drives it needs and brings
// the media control and the application.

#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "tests/support/ScriptedMessageBox.h"
#include "tests/support/TempFolder.h"

namespace testing_support {

struct ProgramFolder {
  TempFolder folder;
  TestDrives drives{folder.Path()};
  platform::LinuxDriveTable table{folder.Path()};
  platform::LinuxFileSystem files{table};
  ScriptedMessageBox messages;
};

}  // namespace testing_support
