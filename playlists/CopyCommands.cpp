#include "playlists/CopyCommands.h"

#include "base/MessageText.h"
#include "base/WorkerDialogHost.h"
#include "platform/MessageBox.h"
#include "playlists/CCopyDlg.h"
#include "playlists/CPlayListModel.h"
#include "playlists/CopyWorker.h"
#include "settings/CAppSettings.h"
#include "volumes/CDriveServices.h"
#include "volumes/Paths.h"

CopyCommands::CopyCommands(CPlayListModel& model, MediaDB& db, const CDriveServices& drives,
                           const CAppSettings& settings, WorkerDialogHost& dialogs)
    : model_(model), db_(db), drives_(drives), settings_(settings), dialogs_(dialogs) {}

const CopySummary& CopyCommands::CopyFiles(const std::string& targetFolder, bool selectionOnly) {
  CopyJob& job = model_.Copy();
  job.target = drives_.FolderWithinDrive(targetFolder);
  if (job.target.empty()) {
    job.summary = CopySummary();
    drives_.Messages().Show(FillMessage(kOutsideDrive, {targetFolder}), platform::Buttons::Ok, platform::Icon::Error);
    return job.summary;
  }
  job.selectionOnly = selectionOnly;
  job.state.SetStatus("");
  // The rows are read here, on the user-interface thread that owns the list;
  // the modal dialog keeps them from changing while the worker runs.
  const IdList fileIds = model_.GetFileIds(selectionOnly);
  CopyWorker worker(db_, drives_, settings_.cdDrive, job);
  dialogs_.RunWorkerDialog(CCopyDlg::kCaption, [&](WorkerDialogView& view, platform::MessageBox& messages) {
    return std::make_unique<CCopyDlg>(worker, fileIds, messages, view);
  });
  return job.summary;
}

const CopySummary& CopyCommands::CopyToCache() { return CopyFiles(settings_.cacheFolder, false); }

void CopyCommands::ClearCache() {
  if (drives_.Messages().Show(kClearCacheQuestion, platform::Buttons::OkCancel, platform::Icon::Information) !=
      platform::Answer::Ok)
    return;
  // A cache folder stored as typed by earlier versions may climb out of its drive.
  const std::string folder = drives_.FolderWithinDrive(settings_.cacheFolder);
  if (folder.empty() && !settings_.cacheFolder.empty()) {
    drives_.Messages().Show(FillMessage(kOutsideDrive, {settings_.cacheFolder}), platform::Buttons::Ok,
                            platform::Icon::Error);
    return;
  }
  drives_.DeleteFilesInFolder(NormalizeFolder(folder));
}
