// The desktop program on a private session bus (the test runs under
// dbus-run-session), driven over the bus as a media key daemon or a
// command-line remote drives it: real GStreamer into no device, the player on
// its own thread, three stored files of four seconds each.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>

#include "app/CLibraryApp.h"
#include "platform/mci/GstMediaControl.h"
#include "playback/PlayerThread.h"
#include "qt/MainWindow.h"
#include "qt/MprisService.h"
#include "qt/dialogs/QueuedCalls.h"
#include "tests/qt/DesktopDialogSet.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/HeldFile.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/QtEventually.h"
#include "tests/support/RecordingMediaControl.h"

namespace {

using testing_support::TurnsUntil;

using namespace std::chrono_literals;
const QString kBus = QString::fromLatin1(MprisService::kBusName);
const QString kPath = QString::fromLatin1(MprisService::kObjectPath);
const QString kPlayer = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
constexpr qlonglong kFileUs = 4'000'000;

// Four seconds of silence as 8 kHz mono 16-bit PCM.
void WriteWave(const std::string& path) {
  const std::uint32_t rate = 8000, bytes = rate * 2 * 4;
  std::ofstream out(path, std::ios::binary);
  auto u32 = [&out](std::uint32_t v) { out.write(reinterpret_cast<const char*>(&v), 4); };
  auto u16 = [&out](std::uint16_t v) { out.write(reinterpret_cast<const char*>(&v), 2); };
  out.write("RIFF", 4);
  u32(36 + bytes);
  out.write("WAVEfmt ", 8);
  u32(16);
  u16(1);
  u16(1);
  u32(rate);
  u32(rate * 2);
  u16(2);
  u16(16);
  out.write("data", 4);
  u32(bytes);
  out << std::string(bytes, '\0');
}

// Collects the PlaybackStatus values that PropertiesChanged announced.
class Announcements : public QObject {
  Q_OBJECT
 public:
  QStringList statuses;
 public slots:
  void Changed(const QString& interface, const QVariantMap& changed, const QStringList&) {
    if (interface == QStringLiteral("org.mpris.MediaPlayer2.Player") &&
        changed.contains(QStringLiteral("PlaybackStatus")))
      statuses << changed.value(QStringLiteral("PlaybackStatus")).toString();
  }
};

class MprisBusTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  MprisBusTest() {
    drives.AddFixed('C', folder.MakeFolder("c"));
    app.Start();
    const int pathId = testing_support::StoreFolder(app.Db(), testing_support::StoreVolume(app.Db(), 3, "C", ""), "\\");
    std::string ids;
    for (const char* title : {"One", "Two", "Three"}) {
      WriteWave(folder.Path() + "/c/" + title + ".wav");
      const int fileId = testing_support::StoreFile(app.Db(), pathId, std::string(title) + ".wav");
      const std::string tags = "UPDATE MediaFiles SET Title='" + std::string(title) +
                               "', Artist='Quartet' WHERE FileID=" + std::to_string(fileId) + ";";
      testing_support::RunSql(app.Db(), tags);
      ids += (ids.empty() ? "" : ",") + std::to_string(fileId);
    }
    CPlayList list;
    list.Name = "Evening";
    list.FileIDs = ids;
    app.Db().AddPlayList(list);

    window = std::make_unique<MainWindow>(app, dialogs.For());
    app.Playback().UseRunner(&thread);
    window->Start();
    window->show();
  }
  ~MprisBusTest() override {
    app.Playback().UseRunner(nullptr);
    window.reset();
  }

  QDBusMessage Call(const QString& interface, const QString& method, const QVariantList& arguments = {}) {
    QDBusMessage message = QDBusMessage::createMethodCall(kBus, kPath, interface, method);
    message.setArguments(arguments);
    QDBusPendingCall pending = client.asyncCall(message, 10000);
    EXPECT_TRUE(TurnsUntil([&] { return pending.isFinished(); })) << method.toStdString();
    EXPECT_FALSE(pending.isError()) << method.toStdString() << ": " << pending.error().message().toStdString();
    return pending.reply();
  }
  QVariant Property(const QString& name) {
    const QDBusMessage reply = Call(kProperties, QStringLiteral("Get"), {kPlayer, name});
    if (reply.arguments().isEmpty()) return {};
    return reply.arguments().front().value<QDBusVariant>().variant();
  }
  QString Status() { return Property(QStringLiteral("PlaybackStatus")).toString(); }
  qlonglong Position() { return Property(QStringLiteral("Position")).toLongLong(); }
  QVariantMap Metadata() {
    return qdbus_cast<QVariantMap>(Property(QStringLiteral("Metadata")).value<QDBusArgument>());
  }
  QString Title() { return Metadata().value(QStringLiteral("xesam:title")).toString(); }

  platform::mci::GstMediaControl media{platform::mci::AudioOutput::Silent, files};
  CLibraryApp app{folder.Path() + "/", PlatformServices{table, files, messages, media}};
  DesktopDialogSet dialogs{messages};
  QueuedCalls mainThread;  // the player thread's results reach the test through it
  PlayerThread thread{app.Player(), [this](std::function<void()> done) { mainThread.Post(std::move(done)); }};
  std::unique_ptr<MainWindow> window;
  QDBusConnection client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("remote"));
};

// The play list "Evening" activated over the bus and playing its first row.
class ActivatedPlayListTest : public MprisBusTest {
 protected:
  void SetUp() override {
    if (!QDBusConnection::sessionBus().isConnected()) GTEST_SKIP() << "no session bus: run under dbus-run-session";
    ASSERT_TRUE(window->PublishOnSessionBus());
    ASSERT_TRUE(client.connect(kBus, kPath, kProperties, QStringLiteral("PropertiesChanged"), &announced,
                               SLOT(Changed(QString, QVariantMap, QStringList))));
  }
  void Activate() {
    const QDBusMessage lists = Call(QStringLiteral("org.mpris.MediaPlayer2.Playlists"), QStringLiteral("GetPlaylists"),
                                    {0u, 10u, QStringLiteral("UserDefined"), false});
    ASSERT_EQ(lists.arguments().size(), 1);
    const auto stored = qdbus_cast<QList<MprisPlayList>>(lists.arguments().front().value<QDBusArgument>());
    ASSERT_EQ(stored.size(), 1);
    EXPECT_EQ(stored.front().name, QStringLiteral("Evening"));
    Call(QStringLiteral("org.mpris.MediaPlayer2.Playlists"), QStringLiteral("ActivatePlaylist"),
         {QVariant::fromValue(stored.front().id)});
    ASSERT_TRUE(TurnsUntil([&] { return Status() == QStringLiteral("Playing") && Position() > 300'000; }));
  }
  QDBusObjectPath Track() { return Metadata().value(QStringLiteral("mpris:trackid")).value<QDBusObjectPath>(); }
  // Moves the playing file close to its end, so that the end comes soon.
  void NearItsEnd() { Call(kPlayer, QStringLiteral("SetPosition"), {QVariant::fromValue(Track()), kFileUs - 200'000}); }

  Announcements announced;
};

TEST_F(ActivatedPlayListTest, ActivatingPlaysTheFirstRowAndTellsItsTags) {
  const QDBusMessage identity =
      Call(kProperties, QStringLiteral("Get"), {QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("Identity")});
  ASSERT_FALSE(identity.arguments().isEmpty());
  EXPECT_EQ(identity.arguments().front().value<QDBusVariant>().variant().toString(), QStringLiteral("Vantrelle"));
  EXPECT_EQ(Status(), QStringLiteral("Stopped"));
  Activate();
  const QVariantMap metadata = Metadata();
  EXPECT_EQ(metadata.value(QStringLiteral("xesam:title")).toString(), QStringLiteral("One"));
  EXPECT_EQ(metadata.value(QStringLiteral("xesam:artist")).toStringList(), QStringList{QStringLiteral("Quartet")});
  EXPECT_TRUE(metadata.value(QStringLiteral("xesam:url")).toString().endsWith(QStringLiteral("/c/One.wav")));
  EXPECT_NEAR(metadata.value(QStringLiteral("mpris:length")).toLongLong(), kFileUs, 50'000);
  EXPECT_TRUE(messages.Shown().empty());
}

// PlayPause pauses where it is and plays on from there; moved while paused,
// the place is exact.
TEST_F(ActivatedPlayListTest, PausedItStandsStillMovesExactlyAndPlaysOnFromThere) {
  Activate();
  Call(kPlayer, QStringLiteral("PlayPause"));
  ASSERT_TRUE(TurnsUntil([&] { return Status() == QStringLiteral("Paused"); }));
  const qlonglong paused = Position();
  TurnsUntil([] { return false; }, 300ms);  // time passes: a paused position stands still
  EXPECT_EQ(Position(), paused);
  Call(kPlayer, QStringLiteral("SetPosition"), {QVariant::fromValue(Track()), qlonglong{200'000}});
  EXPECT_TRUE(TurnsUntil([&] { return Position() == 200'000; }));
  Call(kPlayer, QStringLiteral("Seek"), {qlonglong{1'500'000}});
  EXPECT_TRUE(TurnsUntil([&] { return Position() == 1'700'000; }));
  Call(kPlayer, QStringLiteral("PlayPause"));
  ASSERT_TRUE(TurnsUntil([&] { return Status() == QStringLiteral("Playing"); }));
  EXPECT_GE(Position(), 1'700'000);
  EXPECT_TRUE(TurnsUntil([&] { return announced.statuses.contains(QStringLiteral("Paused")); }));
}

// Next and Previous step through the rows; then the list plays to its end.
TEST_F(ActivatedPlayListTest, NextAndPreviousStepAndTheListPlaysThroughToItsEnd) {
  Activate();
  EXPECT_TRUE(Property(QStringLiteral("CanGoNext")).toBool());
  Call(kPlayer, QStringLiteral("Next"));
  EXPECT_TRUE(TurnsUntil([&] { return Title() == QStringLiteral("Two"); }));
  Call(kPlayer, QStringLiteral("Previous"));
  EXPECT_TRUE(TurnsUntil([&] { return Title() == QStringLiteral("One"); }));
  NearItsEnd();
  EXPECT_TRUE(TurnsUntil([&] { return Title() == QStringLiteral("Two") && Status() == QStringLiteral("Playing"); }));
  NearItsEnd();
  EXPECT_TRUE(TurnsUntil([&] { return Title() == QStringLiteral("Three") && Status() == QStringLiteral("Playing"); }));
  EXPECT_FALSE(Property(QStringLiteral("CanGoNext")).toBool());
  NearItsEnd();
  EXPECT_TRUE(TurnsUntil([&] { return Status() == QStringLiteral("Stopped"); }));
  EXPECT_EQ(Title(), QStringLiteral("Three"));
  EXPECT_TRUE(TurnsUntil([&] { return announced.statuses.contains(QStringLiteral("Stopped")); }));
}

// Every property of every interface is read, one by one and all at once,
// with and without an active play list; levels that are no number or out of
// range are ignored. A property sent with the wrong signature would end the
// program.
TEST_F(MprisBusTest, EveryPropertyReadsWithItsTypeAndJunkLevelsAreIgnored) {
  if (!QDBusConnection::sessionBus().isConnected()) GTEST_SKIP() << "no session bus: run under dbus-run-session";
  ASSERT_TRUE(window->PublishOnSessionBus());
  const QString playLists = QStringLiteral("org.mpris.MediaPlayer2.Playlists");
  const std::map<QString, QStringList> properties{
      {QStringLiteral("org.mpris.MediaPlayer2"),
       {"Identity", "DesktopEntry", "CanQuit", "CanRaise", "HasTrackList", "SupportedUriSchemes",
        "SupportedMimeTypes"}},
      {kPlayer,
       {"PlaybackStatus", "Metadata", "Position", "Volume", "Rate", "MinimumRate", "MaximumRate", "CanGoNext",
        "CanGoPrevious", "CanPlay", "CanPause", "CanSeek", "CanControl"}},
      {playLists, {"PlaylistCount", "Orderings", "ActivePlaylist"}},
  };
  auto readAll = [&] {
    for (const auto& [interface, names] : properties) {
      SCOPED_TRACE(interface.toStdString());
      const QDBusMessage all = Call(kProperties, QStringLiteral("GetAll"), {interface});
      ASSERT_EQ(all.arguments().size(), 1);
      const auto values = qdbus_cast<QVariantMap>(all.arguments().front().value<QDBusArgument>());
      for (const QString& name : names) {
        EXPECT_TRUE(values.contains(name)) << name.toStdString();
        EXPECT_EQ(Call(kProperties, QStringLiteral("Get"), {interface, name}).arguments().size(), 1)
            << name.toStdString();
      }
    }
  };
  auto active = [&] {
    const QDBusMessage reply = Call(kProperties, QStringLiteral("Get"), {playLists, QStringLiteral("ActivePlaylist")});
    const auto argument = reply.arguments().value(0).value<QDBusVariant>().variant().value<QDBusArgument>();
    EXPECT_EQ(argument.currentSignature(), QStringLiteral("(b(oss))"));
    return qdbus_cast<MprisActivePlayList>(argument);
  };
  readAll();
  const MprisActivePlayList none = active();
  EXPECT_FALSE(none.valid);
  EXPECT_EQ(none.playList.id.path(), QStringLiteral("/"));
  EXPECT_TRUE(none.playList.name.isEmpty());

  auto set = [&](const QString& name, const QVariant& value) {
    QDBusMessage message = QDBusMessage::createMethodCall(kBus, kPath, kProperties, QStringLiteral("Set"));
    message.setArguments({kPlayer, name, QVariant::fromValue(QDBusVariant(value))});
    QDBusPendingCall pending = client.asyncCall(message, 10000);
    EXPECT_TRUE(TurnsUntil([&] { return pending.isFinished(); })) << name.toStdString();
  };
  set(QStringLiteral("Volume"), 0.5);
  EXPECT_TRUE(TurnsUntil([&] { return app.Settings().volume == 500; }));
  for (double junk : {std::nan(""), HUGE_VAL, -HUGE_VAL, -0.25, 1.5}) {
    set(QStringLiteral("Volume"), junk);
    set(QStringLiteral("Rate"), junk);
  }
  set(QStringLiteral("Position"), qlonglong{-1});  // read-only: refused
  Call(kPlayer, QStringLiteral("Seek"), {std::numeric_limits<qlonglong>::max()});
  Call(kPlayer, QStringLiteral("Seek"), {std::numeric_limits<qlonglong>::min()});
  EXPECT_EQ(Property(QStringLiteral("Volume")).toDouble(), 0.5);
  EXPECT_EQ(app.Settings().volume, 500);
  EXPECT_EQ(Property(QStringLiteral("Rate")).toDouble(), 1.0);

  const QDBusMessage lists =
      Call(playLists, QStringLiteral("GetPlaylists"), {0u, 10u, QStringLiteral("UserDefined"), false});
  const auto stored = qdbus_cast<QList<MprisPlayList>>(lists.arguments().value(0).value<QDBusArgument>());
  ASSERT_EQ(stored.size(), 1);
  Call(playLists, QStringLiteral("ActivatePlaylist"), {QVariant::fromValue(stored.front().id)});
  ASSERT_TRUE(TurnsUntil([&] { return Status() == QStringLiteral("Playing"); }));
  readAll();
  const MprisActivePlayList evening = active();
  EXPECT_TRUE(evening.valid);
  EXPECT_EQ(evening.playList.name, QStringLiteral("Evening"));
  EXPECT_EQ(evening.playList.id, stored.front().id);
  EXPECT_EQ(Property(QStringLiteral("Volume")).toDouble(), 0.5);
}

// The real program, copied into a program folder of its own, is asked over
// the bus to play a file whose open hangs in the kernel, then to quit: it
// ends at once, leaving the open behind.
TEST(RealProgram, QuitsOverTheBusWhileAnOpenHangs) {
  if (!QDBusConnection::sessionBus().isConnected()) GTEST_SKIP() << "no session bus: run under dbus-run-session";
  testing_support::ProgramFolder place;
  const std::string program = place.folder.Path() + "/vantrelle";
  std::filesystem::copy_file(VANTRELLE_BIN_DIR "/vantrelle", program);
  place.drives.AddFixed('C', place.folder.MakeFolder("c"));
  std::filesystem::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v2.mp3",
                             place.folder.Path() + "/c/held.mp3");
  {
    testing_support::RecordingMediaControl unused;
    CLibraryApp app{place.folder.Path() + "/", PlatformServices{place.table, place.files, place.messages, unused}};
    app.Start();
    const int pathId = testing_support::StoreFolder(app.Db(), testing_support::StoreVolume(app.Db(), 3, "C", ""), "\\");
    CPlayList list;
    list.Name = "Stuck";
    list.FileIDs = std::to_string(testing_support::StoreFile(app.Db(), pathId, "held.mp3"));
    app.Db().AddPlayList(list);
    app.Exit();
  }
  testing_support::HeldFile holder(place.folder.Path() + "/c/held.mp3");
  ASSERT_TRUE(holder.Held());

  const pid_t child = ::fork();
  if (child == 0) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
    ::_exit(127);
  }
  ASSERT_GT(child, 0);
  int status = -1;
  auto ended = [&] { return ::waitpid(child, &status, WNOHANG) == child; };
  QDBusConnection remote = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("real"));
  auto call = [&](const QString& interface, const QString& method, const QVariantList& arguments = {}) {
    QDBusMessage message = QDBusMessage::createMethodCall(kBus, kPath, interface, method);
    message.setArguments(arguments);
    QDBusPendingCall pending = remote.asyncCall(message, 10000);
    EXPECT_TRUE(TurnsUntil([&] { return pending.isFinished(); })) << method.toStdString();
    return pending.reply();
  };
  EXPECT_TRUE(TurnsUntil([&] { return ended() || remote.interface()->isServiceRegistered(kBus).value(); }));
  const QString playLists = QStringLiteral("org.mpris.MediaPlayer2.Playlists");
  const QDBusMessage lists =
      call(playLists, QStringLiteral("GetPlaylists"), {0u, 10u, QStringLiteral("UserDefined"), false});
  const auto stored = qdbus_cast<QList<MprisPlayList>>(lists.arguments().value(0).value<QDBusArgument>());
  EXPECT_EQ(stored.size(), 1);
  if (stored.size() == 1) call(playLists, QStringLiteral("ActivatePlaylist"), {QVariant::fromValue(stored.front().id)});
  EXPECT_TRUE(TurnsUntil([&] { return holder.Awaited(); }));  // the program's open waits now

  // A program that waited for its open to be given up by the time limit
  // would end only after the limit: half of it is ample for one that does not.
  call(QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("Quit"));
  const bool quit = TurnsUntil(ended, platform::mci::GstMediaControl::kOpenLimit / 2);
  EXPECT_TRUE(quit);
  if (!quit) {
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
  }
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

// A second start on the catalogue of a running window brings that window to
// the front and ends, as other players do; the first program runs on.
TEST(RealProgram, ASecondStartRaisesTheFirstWindowAndEnds) {
  if (!QDBusConnection::sessionBus().isConnected()) GTEST_SKIP() << "no session bus: run under dbus-run-session";
  testing_support::TempFolder place;
  const std::string data = place.MakeFolder("data");
  auto start = [&] {
    const pid_t child = ::fork();
    if (child == 0) {
      ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
      ::setenv("VANTRELLE_DATA", data.c_str(), 1);  // a private catalogue
      ::execl(VANTRELLE_BIN_DIR "/vantrelle", "vantrelle", static_cast<char*>(nullptr));
      ::_exit(127);
    }
    return child;
  };
  auto endedWith = [](pid_t child, int& status) { return ::waitpid(child, &status, WNOHANG) == child; };
  QDBusConnection remote = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("second"));
  const pid_t first = start();
  int firstStatus = -1, secondStatus = -1;
  ASSERT_TRUE(TurnsUntil(
      [&] { return endedWith(first, firstStatus) || remote.interface()->isServiceRegistered(kBus).value(); }));
  const QDBusMessage entry = remote.call(QDBusMessage::createMethodCall(kBus, kPath, kProperties, QStringLiteral("Get"))
                                         << QStringLiteral("org.mpris.MediaPlayer2") << QStringLiteral("DesktopEntry"));
  EXPECT_EQ(entry.arguments().value(0).value<QDBusVariant>().variant().toString(),
            QStringLiteral("org.vantrelle.Vantrelle"));

  const pid_t second = start();
  EXPECT_TRUE(TurnsUntil([&] { return endedWith(second, secondStatus); }));
  EXPECT_TRUE(WIFEXITED(secondStatus) && WEXITSTATUS(secondStatus) == 0) << secondStatus;
  EXPECT_FALSE(endedWith(first, firstStatus));

  remote.call(
      QDBusMessage::createMethodCall(kBus, kPath, QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("Quit")));
  EXPECT_TRUE(TurnsUntil([&] { return endedWith(first, firstStatus); }));
  EXPECT_TRUE(WIFEXITED(firstStatus) && WEXITSTATUS(firstStatus) == 0) << firstStatus;
}

}  // namespace

#include "MprisBusTest.moc"
