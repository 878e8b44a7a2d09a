#include "dialogs/CFolderDialog.h"

#include "platform/FileSystem.h"
#include "platform/FolderPicker.h"
#include "volumes/CDriveServices.h"

CFolderDialog::CFolderDialog(platform::FolderPicker& picker, const CDriveServices& drives, std::string title,
                             std::string initialFolder)
    : picker_(picker), drives_(drives), title_(std::move(title)), initialFolder_(std::move(initialFolder)) {}

int CFolderDialog::DoModal() {
  const std::string start = initialFolder_.empty() ? "" : drives_.Files().LocalPath(initialFolder_);
  std::string chosen;
  const int result = picker_.Browse(title_, start, chosen);
  if (result == platform::FolderPicker::kCancelled) return kCancelled;
  if (result != platform::FolderPicker::kChosen) return kNoFileSystemPath;
  const std::string drivePath = drives_.ToDrivePath(chosen);
  if (drivePath.empty()) return kNoFileSystemPath;
  chosenPath_ = drivePath;
  return kChosen;
}
