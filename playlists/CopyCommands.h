#pragma once
// Copying the play list's files ("Cache", "Copy Selection To ..", "Copy All
// To ..") behind the modal "Copying Files" dialog, and clearing the cache.
// User-interface thread only. The referenced objects must outlive this one.

#include <string>

class CAppSettings;
class CDriveServices;
class CPlayListModel;
class CopySummary;
class MediaDB;
class WorkerDialogHost;

class CopyCommands {
 public:
  static constexpr const char* kClearCacheQuestion = "Delete all files in cache?";
  static constexpr const char* kOutsideDrive = "The folder %s lies above the root of its drive: nothing was done.";

  CopyCommands(CPlayListModel& model, MediaDB& db, const CDriveServices& drives, const CAppSettings& settings,
               WorkerDialogHost& dialogs);

  // Copies all rows, or the selected ones, into the folder (a drive path,
  // taken in its one spelling); returns, when the dialog has closed and the
  // worker has ended, what the copy came to (the copy job's summary). A
  // folder whose ".." climb above its drive's root is refused with a message.
  const CopySummary& CopyFiles(const std::string& targetFolder, bool selectionOnly);
  const CopySummary& CopyToCache();

  // Asks first; then deletes the files in the cache folder, leaving its
  // sub-folders and everything in them. Failures are passed over. A cache
  // folder that climbs above its drive's root is refused with a message.
  void ClearCache();

 private:
  CPlayListModel& model_;
  MediaDB& db_;
  const CDriveServices& drives_;
  const CAppSettings& settings_;
  WorkerDialogHost& dialogs_;
};
