#include "qt/DesktopSession.h"

#include <QApplication>
#include <memory>

#include "app/CLibraryApp.h"
#include "app/ExitStatus.h"
#include "catalogue/CppSQLite3Exception.h"
#include "platform/DataFolder.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/mci/GstMediaControl.h"
#include "playback/DeferredMediaControl.h"
#include "playback/PlayerThread.h"
#include "qt/MainWindow.h"
#include "qt/QtDialogSet.h"
#include "qt/RunningWindow.h"
#include "qt/dialogs/QtCoverLoader.h"
#include "qt/dialogs/QtMessageBox.h"
#include "qt/dialogs/QueuedCalls.h"

namespace {

// The main window from start-up to its close; a refused catalogue closes
// it right after start-up. Either way the close puts the geometry into the
// settings.
void RunMainWindow(CLibraryApp& app, QtMessageBox& messages, bool refused) {
  // The catalogue's changes reach the views from the event loop, after the
  // code that made them has returned.
  QueuedCalls onThisThread;
  app.Db().Events().PostWith([&onThisThread](std::function<void()> deliver) { onThisThread.Post(std::move(deliver)); });
  struct NoPostingAfter {
    CatalogueEvents& events;
    ~NoPostingAfter() { events.PostWith({}); }
  } noPostingAfter{app.Db().Events()};
  QtCoverLoader covers(app.Platform().files);
  QtDialogSet dialogs(messages, covers);
  MainWindow window(app, dialogs.Services());
  messages.SetParent(&window);
  dialogs.SetParent(&window);
  window.onClosed = [] { QCoreApplication::quit(); };
  // Opening and seeking run on a thread of their own from here on; the
  // thread ends (after its last command) before the window goes.
  PlayerThread player(app.Player(),
                      [&onThisThread](std::function<void()> done) { onThisThread.Post(std::move(done)); });
  app.Playback().UseRunner(&player);
  // An open that still waits is given up first, so that the thread's last
  // command ends at once and quitting never waits for a file that hangs.
  struct InlineAgain {
    CPlaybackControl& playback;
    ~InlineAgain() {
      playback.AbandonOpen();
      playback.UseRunner(nullptr);
    }
  } inlineAgain{app.Playback()};
  window.Start();
  if (refused) {
    window.close();
    return;
  }
  window.PublishOnSessionBus();  // without a session bus the program runs as ever
  window.show();
  QApplication::exec();
}

}  // namespace

int RunDesktop() {
  QtMessageBox messages;
  // A failed statement ends the program: the user is told before it goes.
  ShowCatalogueFailuresIn(&messages);
  struct NoNoticeAfter {
    ~NoNoticeAfter() { ShowCatalogueFailuresIn(nullptr); }
  } noNoticeAfter;
  const platform::DataFolder data = platform::FindDataFolder();
  if (!data.error.empty()) {
    messages.Show(data.error, platform::Buttons::Ok, platform::Icon::Error);
    return exit_status::kCatalogueFailed;
  }
  platform::LinuxDriveTable::CreateDefaultIfMissing(data.path);
  platform::LinuxDriveTable drives(data.path);
  platform::LinuxFileSystem files(drives);
  // GStreamer starts when something is first played.
  DeferredMediaControl media([&files] { return platform::mci::GstMediaControl::ForProgram(files); });
  CLibraryApp app(data.path, PlatformServices{drives, files, messages, media});

  CLibraryApp::StartResult started{};
  try {
    started = app.Start();
  } catch (const CppSQLite3Exception& failure) {
    messages.Show(std::string("Cannot open the catalogue: ") + failure.Message(), platform::Buttons::Ok,
                  platform::Icon::Error);
    return exit_status::kCatalogueFailed;
  }
  if (started == CLibraryApp::StartResult::InUse) {
    // The user's own window on this catalogue comes to the front instead.
    if (RaiseRunningWindow(app.CatalogueHolder())) return exit_status::kDone;
    messages.Show(app.InUseMessage(), platform::Buttons::Ok, platform::Icon::Error);
    return exit_status::kCatalogueInUse;
  }
  if (started == CLibraryApp::StartResult::Forbidden) {
    messages.Show(app.ForbiddenMessage(), platform::Buttons::Ok, platform::Icon::Error);
    return exit_status::kCatalogueFailed;
  }
  RunMainWindow(app, messages, started == CLibraryApp::StartResult::Refused);
  messages.SetParent(nullptr);
  app.Exit();
  return exit_status::kDone;
}
