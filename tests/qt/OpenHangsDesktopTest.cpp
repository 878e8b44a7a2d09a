// The desktop program while a file's open hangs in the kernel (the file is
// held, as a dead network share holds it): real GStreamer into the silent
// sink, the player on its own thread as the program runs it, and an open
// limit of an hour, so that only giving the open up can end it.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <chrono>
#include <filesystem>
#include <memory>

#include "app/CLibraryApp.h"
#include "platform/mci/GstMediaControl.h"
#include "playback/PlayerThread.h"
#include "qt/MainWindow.h"
#include "qt/NowPlayingBar.h"
#include "qt/SessionBus.h"
#include "qt/dialogs/QueuedCalls.h"
#include "tests/qt/DesktopDialogSet.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/HeldFile.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/QtEventually.h"
#include "tests/support/RecordingMediaControl.h"
#include "ui/CMainDlg.h"

namespace {

using testing_support::TurnsUntil;

namespace fs = std::filesystem;
const std::string kFixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/";

class OpenHangsDesktopTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  OpenHangsDesktopTest() {
    drives.AddFixed('C', music);
    app.Start();
    const int pathId = testing_support::StoreFolder(
        app.Db(), testing_support::StoreVolume(app.Db(), platform::kDriveFixed, "C", "Music", ""), "\\");
    fs::copy_file(kFixtures + "id3v2.mp3", music + "/held.mp3");
    fs::copy_file(kFixtures + "vorbis.ogg", music + "/good.ogg");
    held = testing_support::StoreFile(app.Db(), pathId, "held.mp3");
    good = testing_support::StoreFile(app.Db(), pathId, "good.ogg");
    window = std::make_unique<MainWindow>(app, dialogs.For());
    app.Playback().UseRunner(thread.get());
    window->Start();
    window->show();
  }
  ~OpenHangsDesktopTest() override { Quit(); }

  // As the program quits: the open is given up, the runner goes, the window.
  void Quit() {
    app.Playback().AbandonOpen();
    app.Playback().UseRunner(nullptr);
    thread.reset();
    window.reset();
  }
  QString Song() const { return window->Strip().Title().text(); }

  std::string music = folder.MakeFolder("music");
  platform::mci::GstMediaControl media{platform::mci::AudioOutput::Silent, files, std::chrono::hours(1)};
  CLibraryApp app{folder.Path() + "/", PlatformServices{table, files, messages, media}};
  DesktopDialogSet dialogs{messages};
  QueuedCalls mainThread;  // the player thread's results reach the test through it
  std::unique_ptr<PlayerThread> thread = std::make_unique<PlayerThread>(
      app.Player(), [this](std::function<void()> done) { mainThread.Post(std::move(done)); });
  std::unique_ptr<MainWindow> window;
  int held = 0;
  int good = 0;
};

TEST_F(OpenHangsDesktopTest, TheStripSaysWhatOpensAndStopAndPlayActWhileItHangs) {
  testing_support::HeldFile holder(music + "/held.mp3");
  ASSERT_TRUE(holder.Held());
  app.Playback().PlayFile(held);
  EXPECT_EQ(Song(), QStringLiteral("Opening held.mp3\u2026"));
  EXPECT_TRUE(TurnsUntil([&] { return holder.Awaited(); }));
  QTest::mouseClick(window->Button(CMainDlg::kStop), Qt::LeftButton);
  EXPECT_TRUE(TurnsUntil([&] { return Song().isEmpty(); }));

  // Play another file while the open hangs again: it plays.
  app.Playback().PlayFile(held);
  EXPECT_TRUE(TurnsUntil([&] { return holder.Awaited(); }));
  app.Playback().PlayFile(good);
  EXPECT_TRUE(TurnsUntil([&] { return window->Logic().LastStatus().fileId == good; }));
  EXPECT_EQ(window->Logic().LastStatus().mode, CMciPlayer::Mode::Playing);
  EXPECT_TRUE(messages.Texts().empty());

  // Quitting while an open hangs: the runner's thread is joined at once
  // (the fixture's limit is an hour).
  app.Playback().PlayFile(held);
  EXPECT_TRUE(TurnsUntil([&] { return holder.Awaited(); }));
  Quit();
  EXPECT_TRUE(messages.Texts().empty());
}

// Without a session bus address nothing connects, so no bus is started
// for the program; the user's bus socket is found when there is one.
TEST(SessionBus, WithoutAnAddressNoBusIsTouchedAndTheUsersSocketIsFound) {
  const QByteArray kept = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  const QByteArray keptRuntime = qgetenv("XDG_RUNTIME_DIR");
  testing_support::TempFolder runtime;
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(runtime.Path()));
  SettleSessionBusAddress();
  EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), QByteArray(kNoBus));
  EXPECT_FALSE(HasSessionBusAddress());
  {
    testing_support::ProgramFolder place;
    place.drives.AddFixed('C', place.folder.MakeFolder("c"));
    testing_support::RecordingMediaControl media;
    CLibraryApp app{place.folder.Path() + "/", PlatformServices{place.table, place.files, place.messages, media}};
    app.Start();
    DesktopDialogSet dialogs{place.messages};
    MainWindow window(app, dialogs.For());
    window.Start();
    EXPECT_FALSE(window.PublishOnSessionBus());
  }

  const std::string socket = runtime.Path() + "/bus";
  const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  socket.copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  SettleSessionBusAddress();
  EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS").toStdString(), "unix:path=" + socket);
  EXPECT_TRUE(HasSessionBusAddress());
  ::close(listener);

  // An address the desktop set is kept as it is.
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/elsewhere");
  SettleSessionBusAddress();
  EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), QByteArray("unix:path=/elsewhere"));
  if (kept.isNull())
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  else
    qputenv("DBUS_SESSION_BUS_ADDRESS", kept);
  if (keptRuntime.isNull())
    qunsetenv("XDG_RUNTIME_DIR");
  else
    qputenv("XDG_RUNTIME_DIR", keptRuntime);
}

}  // namespace
