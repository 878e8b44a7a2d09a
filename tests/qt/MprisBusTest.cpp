// The desktop program on a private session bus (under dbus-run-session), driven
// as media keys or a command-line remote drive it: real GStreamer into no device,
// the player on its own thread, three one-second files in the play list "Evening";
// a recording media control where GStreamer cannot help.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QSlider>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>

#include "app/CLibraryApp.h"
#include "platform/mci/GstMediaControl.h"
#include "playback/PlayerThread.h"
#include "qt/MainWindow.h"
#include "qt/MprisService.h"
#include "qt/NowPlayingBar.h"
#include "qt/dialogs/QueuedCalls.h"
#include "tests/qt/DesktopDialogSet.h"
#include "tests/support/CatalogueRows.h"
#include "tests/support/HeldFile.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/QtEventually.h"
#include "tests/support/RecordingMediaControl.h"
#include "tests/support/ToneFiles.h"
#include "tests/support/ToneFlac.h"

namespace {

using testing_support::TurnsUntil;

const QString kBus = QString::fromLatin1(MprisService::kBusName);
const QString kPath = QString::fromLatin1(MprisService::kObjectPath);
const QString kPlayer = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString kPlayLists = QStringLiteral("org.mpris.MediaPlayer2.Playlists");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
constexpr qlonglong kLongest = std::numeric_limits<qlonglong>::max();

QDBusMessage CallOn(QDBusConnection& bus, const QString& interface, const QString& method,
                    const QVariantList& arguments = {}) {
  QDBusMessage message = QDBusMessage::createMethodCall(kBus, kPath, interface, method);
  message.setArguments(arguments);
  QDBusPendingCall pending = bus.asyncCall(message, 10000);
  EXPECT_TRUE(TurnsUntil([&] { return pending.isFinished(); })) << method.toStdString();
  return pending.reply();
}

// What the player's object sent: Seeked positions, the names PlaylistChanged
// carried and the PropertiesChanged maps of each interface.
class Heard : public QObject {
  Q_OBJECT
 public:
  QList<qlonglong> seeked;
  QStringList playLists;
  QMap<QString, QList<QVariantMap>> changed;
  QVariant Last(const QString& interface, const QString& name) const {
    const QList<QVariantMap> heard = changed.value(interface);
    for (auto it = heard.rbegin(); it != heard.rend(); ++it)
      if (it->contains(name)) return it->value(name);
    return {};
  }
 public slots:
  void Seeked(qlonglong position) { seeked << position; }
  void PlaylistChanged(const QDBusMessage& message) {
    playLists << qdbus_cast<MprisPlayList>(message.arguments().value(0).value<QDBusArgument>()).name;
  }
  void Changed(const QString& interface, const QVariantMap& values, const QStringList&) {
    changed[interface] << values;
  }
};

class MprisBusTest : public ::testing::Test, protected testing_support::ProgramFolder {
 protected:
  // recording: a recording media control answers the player instead of GStreamer.
  explicit MprisBusTest(bool recording = false)
      : app{folder.Path() + "/",
            PlatformServices{table, files, messages,
                             recording ? static_cast<platform::MediaControl&>(recorded) : silent}} {
    drives.AddFixed('C', folder.MakeFolder("c"));
    app.Start();
    const int pathId = testing_support::StoreFolder(app.Db(), testing_support::StoreVolume(app.Db(), 3, "C", ""), "\\");
    std::string ids;
    for (const auto& [title, fixture] :
         {std::pair{"One", "id3v1.mp3"}, {"Two", "lossless.flac"}, {"Three", "vorbis.ogg"}}) {
      const std::string name = std::string(title) + std::filesystem::path(fixture).extension().string();
      std::filesystem::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/" + std::string(fixture),
                                 folder.Path() + "/c/" + name);
      ids += (ids.empty() ? "" : ",") + std::to_string(testing_support::StoreFile(app.Db(), pathId, name));
    }
    testing_support::RunSql(app.Db(),
                            "UPDATE MediaFiles SET Title=substr(FileName,1,instr(FileName,'.')-1),"
                            "Artist='Quartet';");
    CPlayList list;
    list.Name = "Evening";
    list.FileIDs = ids;
    evening = app.Db().AddPlayList(list);
    window = std::make_unique<MainWindow>(app, dialogs.For());
    app.Playback().UseRunner(&thread);
    window->Start();
    window->show();
  }
  ~MprisBusTest() override {
    app.Playback().UseRunner(nullptr);
    window.reset();
  }
  void SetUp() override {
    if (!QDBusConnection::sessionBus().isConnected()) GTEST_SKIP() << "no session bus: run under dbus-run-session";
    ASSERT_TRUE(window->PublishOnSessionBus());
    ASSERT_TRUE(client.connect(kBus, kPath, kProperties, QStringLiteral("PropertiesChanged"), &heard,
                               SLOT(Changed(QString, QVariantMap, QStringList))));
    ASSERT_TRUE(client.connect(kBus, kPath, kPlayer, QStringLiteral("Seeked"), &heard, SLOT(Seeked(qlonglong))));
    ASSERT_TRUE(client.connect(kBus, kPath, kPlayLists, QStringLiteral("PlaylistChanged"), &heard,
                               SLOT(PlaylistChanged(QDBusMessage))));
  }

  QDBusMessage Call(const QString& interface, const QString& method, const QVariantList& arguments = {}) {
    const QDBusMessage reply = CallOn(client, interface, method, arguments);
    EXPECT_NE(reply.type(), QDBusMessage::ErrorMessage)
        << method.toStdString() << ": " << reply.errorMessage().toStdString();
    return reply;
  }
  QVariant Property(const QString& name, const QString& interface = kPlayer) {
    const QDBusMessage reply = Call(kProperties, QStringLiteral("Get"), {interface, name});
    if (reply.arguments().isEmpty()) return {};
    return reply.arguments().front().value<QDBusVariant>().variant();
  }
  void Set(const QString& name, const QVariant& value) {
    Call(kProperties, QStringLiteral("Set"), {kPlayer, name, QVariant::fromValue(QDBusVariant(value))});
  }
  QString Status() { return Property(QStringLiteral("PlaybackStatus")).toString(); }
  qlonglong Position() { return Property(QStringLiteral("Position")).toLongLong(); }
  QVariantMap Metadata() {
    return qdbus_cast<QVariantMap>(Property(QStringLiteral("Metadata")).value<QDBusArgument>());
  }
  QString Title() { return Metadata().value(QStringLiteral("xesam:title")).toString(); }
  QDBusObjectPath Track() { return Metadata().value(QStringLiteral("mpris:trackid")).value<QDBusObjectPath>(); }
  QList<MprisPlayList> PlayLists() {
    const QDBusMessage lists =
        Call(kPlayLists, QStringLiteral("GetPlaylists"), {0u, 10u, QStringLiteral("UserDefined"), false});
    return qdbus_cast<QList<MprisPlayList>>(lists.arguments().value(0).value<QDBusArgument>());
  }
  MprisActivePlayList Active() {
    return qdbus_cast<MprisActivePlayList>(
        Property(QStringLiteral("ActivePlaylist"), kPlayLists).value<QDBusArgument>());
  }
  void Activate() {
    const auto stored = PlayLists();
    ASSERT_EQ(stored.size(), 1);
    Call(kPlayLists, QStringLiteral("ActivatePlaylist"), {QVariant::fromValue(stored.front().id)});
    ASSERT_EVENTUALLY(Status() == QStringLiteral("Playing"));
  }

  // Plays as a sound card would, into a recording of what is heard.
  platform::mci::GstMediaControl silent{platform::mci::AudioOutput::Capture, files};
  const std::string heardFile = folder.Path() + "/heard.raw";
  const bool capturing = silent.CaptureInto(heardFile);
  testing_support::RecordingMediaControl recorded;
  CLibraryApp app;
  DesktopDialogSet dialogs{messages};
  QueuedCalls mainThread;  // the player thread's results reach the test through it
  PlayerThread thread{app.Player(), [this](std::function<void()> done) { mainThread.Post(std::move(done)); }};
  std::unique_ptr<MainWindow> window;
  QDBusConnection client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("remote"));
  Heard heard;
  int evening = 0;
};
class UnknownLengthTest : public MprisBusTest {
 protected:
  UnknownLengthTest() : MprisBusTest(true) {}
};

// Every property reads with a signature the bus accepts: one sent wrong would end the program.
TEST_F(MprisBusTest, ActivatingPlaysTheFirstRowAndTellsItsProperties) {
  EXPECT_EQ(Status(), QStringLiteral("Stopped"));
  EXPECT_EQ(Active().playList.id.path(), QStringLiteral("/"));  // none: still a valid path
  Activate();
  const QVariantMap metadata = Metadata();
  EXPECT_EQ(metadata.value(QStringLiteral("xesam:title")).toString(), QStringLiteral("One"));
  EXPECT_EQ(metadata.value(QStringLiteral("xesam:artist")).toStringList(), QStringList{QStringLiteral("Quartet")});
  EXPECT_TRUE(metadata.value(QStringLiteral("xesam:url")).toString().endsWith(QStringLiteral("/c/One.mp3")));
  EXPECT_GT(metadata.value(QStringLiteral("mpris:length")).toLongLong(), 500'000);
  const MprisActivePlayList active = Active();
  EXPECT_TRUE(active.valid);
  EXPECT_EQ(active.playList.name, QStringLiteral("Evening"));
  for (const QString& interface : {QStringLiteral("org.mpris.MediaPlayer2"), kPlayer, kPlayLists})
    EXPECT_EQ(Call(kProperties, QStringLiteral("GetAll"), {interface}).arguments().size(), 1)
        << interface.toStdString();
}

// The window's play-through runs a stored list of a tone cut in four
// without a gap, the third file tagged -6.02 dB at half the level of the
// fourth, which has no tags.
TEST_F(MprisBusTest, TheWindowPlaysAListThroughWithoutAGap) {
  using testing_support::kToneRate;
  ASSERT_TRUE(capturing);
  const std::string c = folder.Path() + "/c/";
  testing_support::WriteToneWav(c + "first.wav", 0, kToneRate, 0.5);
  testing_support::WriteToneWav(c + "second.wav", kToneRate, kToneRate, 0.5);
  testing_support::WriteToneWav(folder.Path() + "/third.wav", 2 * kToneRate, kToneRate, 0.5);
  testing_support::WriteToneWav(folder.Path() + "/fourth.wav", 3 * kToneRate, kToneRate, 0.5);
  ASSERT_TRUE(testing_support::EncodeFlac(folder.Path() + "/third.wav", c + "third.flac", -6.02));
  ASSERT_TRUE(testing_support::EncodeFlac(folder.Path() + "/fourth.wav", c + "fourth.flac", std::nullopt));
  const int pathId = app.Db().GetFile(1)->PathID;
  CPlayList tone;
  tone.Name = "Tone";
  for (const char* name : {"first.wav", "second.wav", "third.flac", "fourth.flac"})
    tone.FileIDs +=
        (tone.FileIDs.empty() ? "" : ",") + std::to_string(testing_support::StoreFile(app.Db(), pathId, name));
  const int toneId = app.Db().AddPlayList(tone);
  QDBusObjectPath path;
  for (const MprisPlayList& list : PlayLists())
    if (list.name == QStringLiteral("Tone")) path = list.id;
  ASSERT_NE(path.path(), QStringLiteral("/")) << toneId;
  Call(kPlayLists, QStringLiteral("ActivatePlaylist"), {QVariant::fromValue(path)});
  ASSERT_EVENTUALLY(Title().startsWith(QStringLiteral("fourth")));
  ASSERT_EVENTUALLY(Status() == QStringLiteral("Stopped"));
  const testing_support::Heard sound(testing_support::ReadCapture(heardFile));
  ASSERT_TRUE(sound.begins);
  EXPECT_LE(sound.longestQuiet, static_cast<std::size_t>(kToneRate / 50));
  EXPECT_NEAR(static_cast<double>(sound.Length()), 4.0 * kToneRate, kToneRate / 50.0);
  const std::size_t start = *sound.begins;
  const double tagged = sound.Peak(start + kToneRate * 21 / 10, start + kToneRate * 29 / 10);
  const double plain = sound.Peak(start + kToneRate * 31 / 10, start + kToneRate * 39 / 10);
  EXPECT_NEAR(tagged / plain, 0.5, 0.02) << tagged << " against " << plain;
}

// Next and Previous step through the rows; then the list plays to its end.
TEST_F(MprisBusTest, NextAndPreviousStepAndTheListPlaysThroughToItsEnd) {
  Activate();
  Call(kPlayer, QStringLiteral("Next"));
  EXPECT_EVENTUALLY(Title() == QStringLiteral("Two"));
  Call(kPlayer, QStringLiteral("Previous"));
  EXPECT_EVENTUALLY(Title() == QStringLiteral("One"));
  EXPECT_EVENTUALLY(Title() == QStringLiteral("Three") && Status() == QStringLiteral("Stopped"));
  EXPECT_EQ(heard.Last(kPlayer, QStringLiteral("PlaybackStatus")).toString(), QStringLiteral("Stopped"));
}

// Seeked is sent for each move, with the new place; calls that are ignored
// send nothing, and a seek past the end goes on to the next file.
TEST_F(MprisBusTest, SeekedOnlyForARealMoveWithTheNewPosition) {
  Activate();
  Call(kPlayer, QStringLiteral("Pause"));  // in whichever file the list reached
  ASSERT_EVENTUALLY(Status() == QStringLiteral("Paused"));
  const QDBusObjectPath track = Track();
  const qlonglong length = Metadata().value(QStringLiteral("mpris:length")).toLongLong();
  Call(kPlayer, QStringLiteral("SetPosition"), {QVariant::fromValue(track), qlonglong{-1}});
  Call(kPlayer, QStringLiteral("SetPosition"), {QVariant::fromValue(track), length + 1});
  Call(kPlayer, QStringLiteral("SetPosition"), {QVariant::fromValue(QDBusObjectPath("/org/vantrelle/track/999")), 0ll});
  Call(kPlayer, QStringLiteral("SetPosition"), {QVariant::fromValue(track), qlonglong{100'000}});
  ASSERT_EVENTUALLY(Position() == 100'000);
  Call(kPlayer, QStringLiteral("Seek"), {qlonglong{250'000}});
  ASSERT_EVENTUALLY(Position() == 350'000);
  Call(kPlayer, QStringLiteral("Seek"), {-kLongest - 1});
  ASSERT_EVENTUALLY(heard.seeked.size() == 3);
  EXPECT_EQ(heard.seeked, (QList<qlonglong>{100'000, 350'000, 0}));

  const QString title = Title();
  Call(kPlayer, QStringLiteral("Seek"), {kLongest});
  EXPECT_EVENTUALLY(Title() != title || Status() == QStringLiteral("Stopped"));
  EXPECT_EQ(heard.seeked.size(), 3);
}

// GStreamer measures every file, so the recording control plays one whose
// length it does not tell: Seek and SetPosition leave it where it is.
TEST_F(UnknownLengthTest, AFileOfUnknownLengthIgnoresSeekAndSetPosition) {
  recorded.Answer("status QL_MCI_DEV_1 length", 0, "0");
  recorded.Answer("status QL_MCI_DEV_1 position", 0, "5000");
  recorded.Answer("status QL_MCI_DEV_1 mode", 0, "playing");
  Activate();
  EXPECT_FALSE(Property(QStringLiteral("CanSeek")).toBool());
  recorded.Forget();
  Call(kPlayer, QStringLiteral("Seek"), {qlonglong{1'000'000}});
  Call(kPlayer, QStringLiteral("SetPosition"), {QVariant::fromValue(Track()), 0ll});
  Call(kPlayer, QStringLiteral("Seek"), {kLongest});
  Call(kPlayer, QStringLiteral("Pause"));  // the player takes commands in order: any before it are in
  ASSERT_EVENTUALLY(recorded.Received("pause QL_MCI_DEV_1"));
  for (const std::string& sent : recorded.Commands())
    EXPECT_TRUE(sent.starts_with("status") || sent.starts_with("pause")) << sent;
  EXPECT_TRUE(heard.seeked.isEmpty());
}

// A play list saved (under no name), renamed or removed is announced; the
// active one follows its row.
TEST_F(MprisBusTest, PlaylistChangedWhenAPlayListIsSavedRenamedOrRemoved) {
  Activate();
  const int unnamed = app.PlayList().SavePlayList("");
  ASSERT_EVENTUALLY(heard.playLists == QStringList{QStringLiteral("(no name)")});
  // The signal and the property change are two messages: either may come first.
  ASSERT_EVENTUALLY(heard.Last(kPlayLists, QStringLiteral("PlaylistCount")).toUInt() == 2u);
  EXPECT_EQ(PlayLists().back().name, QStringLiteral("(no name)"));
  EXPECT_TRUE(app.Db().GetPlayList(unnamed)->Name.empty());

  testing_support::RunSql(app.Db(), "UPDATE PlayLists SET Name='Night' WHERE PlayListID=" + std::to_string(evening));
  CatalogueChanges renamed;
  renamed.Add(CatalogueTable::PlayLists, evening);
  app.Db().Events().Publish(renamed);
  ASSERT_EVENTUALLY(heard.playLists.contains(QStringLiteral("Night")));
  ASSERT_EVENTUALLY(
      qdbus_cast<MprisActivePlayList>(heard.Last(kPlayLists, QStringLiteral("ActivePlaylist")).value<QDBusArgument>())
          .playList.name == QStringLiteral("Night"));

  app.Db().DeletePlayList(evening);
  ASSERT_EVENTUALLY(heard.Last(kPlayLists, QStringLiteral("PlaylistCount")).toUInt() == 1u);
  EXPECT_FALSE(Active().valid);
  EXPECT_EQ(heard.playLists.size(), 2);
}

// Shuffle and LoopStatus are the play-through's order, read, written and announced.
TEST_F(MprisBusTest, ShuffleAndLoopStatusRoundTripAndAreAnnounced) {
  EXPECT_FALSE(Property(QStringLiteral("Shuffle")).toBool());
  EXPECT_EQ(Property(QStringLiteral("LoopStatus")).toString(), QStringLiteral("None"));
  Set(QStringLiteral("Shuffle"), true);
  EXPECT_TRUE(app.PlayThrough().Shuffle());
  EXPECT_EVENTUALLY(heard.Last(kPlayer, QStringLiteral("Shuffle")) == QVariant(true));
  for (const auto& [status, repeat] : {std::pair{"Track", CPlayThrough::Repeat::One},
                                       {"Playlist", CPlayThrough::Repeat::All},
                                       {"None", CPlayThrough::Repeat::Off}}) {
    Set(QStringLiteral("LoopStatus"), QString::fromLatin1(status));
    EXPECT_EQ(app.PlayThrough().GetRepeat(), repeat) << status;
    EXPECT_EQ(Property(QStringLiteral("LoopStatus")).toString(), QString::fromLatin1(status));
    EXPECT_EVENTUALLY(heard.Last(kPlayer, QStringLiteral("LoopStatus")) == QVariant(QString::fromLatin1(status)));
  }
  Set(QStringLiteral("LoopStatus"), QStringLiteral("Sometimes"));
  EXPECT_EQ(Property(QStringLiteral("LoopStatus")).toString(), QStringLiteral("None"));
}

// A level set over the bus reaches the settings and the slider; junk is ignored.
TEST_F(MprisBusTest, VolumeOverTheBusMovesTheSlider) {
  Set(QStringLiteral("Volume"), 0.5);
  EXPECT_EQ(app.Settings().volume, 500);
  EXPECT_EQ(window->Strip().VolumeSlider().value(), 500);
  EXPECT_EVENTUALLY(heard.Last(kPlayer, QStringLiteral("Volume")) == QVariant(0.5));
  for (double junk : {std::nan(""), HUGE_VAL, -0.25, 1.5}) Set(QStringLiteral("Volume"), junk);
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
  EXPECT_TRUE(TurnsUntil([&] { return ended() || remote.interface()->isServiceRegistered(kBus).value(); }));
  const QDBusMessage lists =
      CallOn(remote, kPlayLists, QStringLiteral("GetPlaylists"), {0u, 10u, QStringLiteral("UserDefined"), false});
  const auto stored = qdbus_cast<QList<MprisPlayList>>(lists.arguments().value(0).value<QDBusArgument>());
  EXPECT_EQ(stored.size(), 1);
  if (stored.size() == 1)
    CallOn(remote, kPlayLists, QStringLiteral("ActivatePlaylist"), {QVariant::fromValue(stored.front().id)});
  EXPECT_TRUE(TurnsUntil([&] { return holder.Awaited(); }));  // the program's open waits now

  // A program that waited for its open to be given up by the time limit
  // would end only after the limit: half of it is ample for one that does not.
  CallOn(remote, QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("Quit"));
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
