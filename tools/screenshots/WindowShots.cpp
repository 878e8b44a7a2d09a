// The main window and the play list window over a small sample catalogue: a
// disk folder and a CD with a few albums, ratings and a saved play list; and
// the first start, fitted to the screen, over an empty catalogue.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QObject>
#include <QPainter>
#include <QTemporaryDir>
#include <QTreeWidgetItem>
#include <cstdio>
#include <filesystem>
#include <string>

#include "app/CLibraryApp.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/MediaControl.h"
#include "platform/MessageBox.h"
#include "qt/MainWindow.h"
#include "qt/NowPlayingBar.h"
#include "qt/PlayListWindow.h"
#include "qt/QtDialogSet.h"
#include "qt/QtListControl.h"
#include "qt/QtTreeControl.h"
#include "qt/dialogs/QtCoverLoader.h"
#include "tools/screenshots/Shots.h"
#include "ui/CMainDlg.h"

namespace {

// Nothing is played for a picture, and no question is asked.
class QuietMessages : public platform::MessageBox {
 public:
  platform::Answer Show(const std::string&, platform::Buttons, platform::Icon) override { return platform::Answer::Ok; }
};

// A device that takes every file and is always 1:23 into a song of 4:05.
class NoAudio : public platform::MediaControl {
 public:
  std::uint32_t mciSendString(const char* command, char* reply, unsigned size) override {
    const std::string text = command;
    std::string answer;
    if (text.ends_with(" mode")) answer = "playing";
    if (text.ends_with(" length")) answer = "245000";
    if (text.ends_with(" position")) answer = "83000";
    if (reply && size) std::snprintf(reply, size, "%s", answer.c_str());
    return 0;
  }
  bool mciGetErrorString(std::uint32_t, char* text, unsigned size) override {
    if (text && size) *text = '\0';
    return false;
  }
};

struct SampleTrack {
  const char* file;
  const char* title;
  const char* artist;
  int seconds;
  int rating;
};

// Everything the windows work with, in a temporary program folder. It is a
// child of the main window, so it goes away after the window is done with it.
class SampleDesktop : public QObject {
 public:
  explicit SampleDesktop(bool firstStart)
      : firstStart_(firstStart),
        table(folder.path().toStdString()),
        files(table),
        app(folder.path().toStdString() + "/", PlatformServices{table, files, messages, audio}),
        covers(files),
        dialogs(messages, covers) {
    std::filesystem::create_directories(folder.path().toStdString() + "/drives");
    std::filesystem::create_directory_symlink(folder.path().toStdString(), folder.path().toStdString() + "/drives/c:");
    app.Start();
    if (firstStart_) return;
    app.Settings().mainWidth = 760;
    app.Settings().mainHeight = 420;
    app.Settings().splitter = 230;
    app.Settings().playListWidth = 470;  // every button in sight
    app.PlayThrough().SetShuffle(true);
    app.PlayThrough().SetRepeat(CPlayThrough::Repeat::All);
    FillCatalogue();
  }

  std::unique_ptr<MainWindow> MakeWindow() {
    auto window = std::make_unique<MainWindow>(app, dialogs.Services());
    window->Start();
    setParent(window.get());
    if (firstStart_) return window;
    // The play list window's rows, as "Add To PlayList" would have put them.
    app.PlayList().AddFiles({trackIds[0], trackIds[2], trackIds[5], trackIds[6]});
    ShowAlbum(*window, "Low Tide");
    // Sorted by rating, the best first: two clicks on the heading.
    for (int click = 0; click < 2; ++click) window->List().onHeaderClicked(CMediaList::kRating);
    // Its first row playing: the strip and the bold row show it.
    app.PlayThrough().PlayRow(0);
    window->Logic().PollNow();
    return window;
  }

 private:
  int AddVolume(const char* name, int type, const char* serial, const char* drive) {
    CMediaVolume volume;
    volume.Name = volume.DisplayName = name;
    volume.VolType = type;
    volume.SerialNo = serial;
    volume.DrvLtr = drive;
    return app.Db().AddVolume(volume);
  }
  int AddFolder(int volId, int parentId, const char* name, const std::string& fullPath) {
    CMediaPath path;
    path.VolID = volId;
    path.ParentID = parentId;
    path.Name = name;
    path.FullPath = fullPath;
    return app.Db().AddPath(path);
  }
  void AddTracks(int volId, int pathId, std::initializer_list<SampleTrack> tracks, const char* album) {
    for (const SampleTrack& track : tracks) {
      CMediaFile file;
      file.VolID = volId;
      file.PathID = pathId;
      file.FileName = track.file;
      file.Type = 1;
      const int id = app.Db().AddFile(file);
      file.FileID = id;
      file.id3Title = track.title;
      file.id3Artist = track.artist;
      file.id3Album = album;
      file.Length = track.seconds;
      file.BitRate = 192;
      file.SampleRate = 44100;
      file.Channels = 2;
      app.Db().UpdateFileTagsAndProperties(file, 2);
      file.Rating = track.rating;
      app.Db().UpdateFileUserInfo(file);
      trackIds.push_back(static_cast<std::uint32_t>(id));
    }
  }

  void FillCatalogue() {
    const int disk = AddVolume("home", 3, "594633643", "C");
    const int music = AddFolder(disk, -1, "Music", "\\Music\\");
    const int owls = AddFolder(disk, music, "The Quiet Owls", "\\Music\\The Quiet Owls\\");
    AddTracks(disk, AddFolder(disk, owls, "Low Tide", "\\Music\\The Quiet Owls\\Low Tide\\"),
              {{"01 Harbour Lights.mp3", "Harbour Lights", "The Quiet Owls", 245, 5},
               {"02 Salt Air.mp3", "Salt Air", "The Quiet Owls", 198, 3},
               {"03 Night Harbour.mp3", "Night Harbour", "The Quiet Owls", 270, 4},
               {"04 Paper Boats.mp3", "Paper Boats", "The Quiet Owls", 161, 0}},
              "Low Tide");
    PaintCover(folder.path() + QStringLiteral("/Music/The Quiet Owls/Low Tide"));
    AddTracks(disk, AddFolder(disk, owls, "First Light", "\\Music\\The Quiet Owls\\First Light\\"),
              {{"01 Morning.mp3", "Morning", "The Quiet Owls", 203, 2}}, "First Light");
    const int cd = AddVolume("Jazz Collection 1", 5, "305419896", "D");
    const int cdRoot = AddFolder(cd, -1, "\\", "\\");
    AddTracks(cd, AddFolder(cd, cdRoot, "Disc One", "\\Disc One\\"),
              {{"Blue Hour.mp3", "Blue Hour", "Ada Lindqvist Trio", 392, 4},
               {"Late Train.mp3", "Late Train", "Ada Lindqvist Trio", 301, 0}},
              "Disc One");
    CPlayList evening;
    evening.Name = "Evening mix";
    evening.FileIDs = std::to_string(trackIds[0]) + "," + std::to_string(trackIds[5]);
    app.Db().AddPlayList(evening);
  }

  // A folder.jpg for the album: a dusk sky over the sea.
  static void PaintCover(const QString& albumFolder) {
    QDir().mkpath(albumFolder);
    QImage cover(256, 256, QImage::Format_RGB32);
    QPainter painter(&cover);
    QLinearGradient sky(0, 0, 0, 256);
    sky.setColorAt(0, QColor(38, 52, 96));
    sky.setColorAt(0.6, QColor(214, 132, 92));
    sky.setColorAt(1, QColor(24, 60, 82));
    painter.fillRect(cover.rect(), sky);
    painter.setBrush(QColor(250, 214, 150));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPoint(128, 150), 34, 34);
    painter.fillRect(0, 160, 256, 96, QColor(24, 60, 82));
    painter.end();
    cover.save(albumFolder + QStringLiteral("/folder.jpg"), "JPG");
    QFile(albumFolder + QStringLiteral("/01 Harbour Lights.mp3")).open(QIODevice::WriteOnly);  // its file, empty
  }

  static void ShowAlbum(MainWindow& window, const char* album) {
    const auto found = window.Tree().findItems(album, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) return;
    for (QTreeWidgetItem* parent = found.front()->parent(); parent; parent = parent->parent())
      parent->setExpanded(true);
    window.Tree().setCurrentItem(found.front());
  }

  bool firstStart_;
  QTemporaryDir folder;
  platform::LinuxDriveTable table;
  platform::LinuxFileSystem files;
  QuietMessages messages;
  NoAudio audio;
  CLibraryApp app;
  QtCoverLoader covers;
  QtDialogSet dialogs;
  IdList trackIds;
};

std::unique_ptr<QWidget> MainWindowWithSamples() {
  // The sample desktop becomes the window's child once the window exists.
  auto* desktop = new SampleDesktop(false);
  return desktop->MakeWindow();
}

std::unique_ptr<QWidget> MainWindowAtFirstStart() { return (new SampleDesktop(true))->MakeWindow(); }

}  // namespace

void AddWindowShots(ShotList& shots) {
  shots.push_back({"main-window.png", MainWindowWithSamples});
  shots.push_back({"first-start.png", MainWindowAtFirstStart});
  shots.push_back({"play-list-window.png", MainWindowWithSamples,
                   [](QWidget& made) -> QWidget* { return &static_cast<MainWindow&>(made).PlayList(); }});
  shots.push_back({"now-playing.png", MainWindowWithSamples,
                   [](QWidget& made) -> QWidget* { return &static_cast<MainWindow&>(made).Strip(); }});
}
