#include "playlists/CCopyDlg.h"

#include "platform/MessageBox.h"
#include "playlists/CopyJob.h"
#include "playlists/CopyWorker.h"

CCopyDlg::CCopyDlg(CopyWorker& worker, IdList fileIds, platform::MessageBox& messages, WorkerDialogView& view)
    : CWorkerDlg(
          {.timerId = kTimerId,
           .progress = worker.Job().state,
           .work = [&worker, ids = std::move(fileIds)] { worker.Run(ids); },
           .finish = [&messages] { messages.Show(kComplete, platform::Buttons::Ok, platform::Icon::Information); }},
          view) {}
