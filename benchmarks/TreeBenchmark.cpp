// vantrelle-tree-bench: how fast the library tree is rebuilt, a folder's
// files listed and the quick search run on a large catalogue, and how long
// start-up takes until the tree is built.
//
// The catalogue is written row by row with SQL (no files on disk): volumes
// alternating CD and disk, each with one root folder, artist folders below
// it and album folders below those, ten files in every folder. Every
// operation runs through the application object exactly as the main window
// and the console run it, over in-memory controls.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/CLibraryApp.h"
#include "base/WorkerDialogHost.h"
#include "dialogs/CFileInfoDlg.h"
#include "dialogs/CVolumeInfoDlg.h"
#include "platform/FilePicker.h"
#include "platform/FolderPicker.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/MediaControl.h"
#include "platform/MemoryListControl.h"
#include "platform/MemoryTreeControl.h"
#include "platform/MessageBox.h"
#include "scan/ScanCommands.h"
#include "ui/QuickSearch.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

struct Settings {
  int files = 100000;
  int folders = 10000;
  int volumes = 20;
  int rounds = 5;
  std::string work;
  bool keep = false;
};

// Nothing here asks a question, plays a file, shows a menu or a dialog.
class Quiet : public platform::MessageBox,
              public platform::MediaControl,
              public platform::PopupMenu,
              public platform::FolderPicker,
              public platform::FilePicker,
              public VolumeInfoView,
              public FileInfoView,
              public WorkerDialogHost {
 public:
  platform::Answer Show(const std::string&, platform::Buttons, platform::Icon) override {
    return platform::Answer::Cancel;
  }
  std::uint32_t mciSendString(const char*, char*, unsigned) override { return 0; }
  bool mciGetErrorString(std::uint32_t, char*, unsigned) override { return false; }
  int Track(std::span<const platform::MenuEntry>) override { return 0; }
  int Browse(const std::string&, const std::string&, std::string&) override {
    return platform::FolderPicker::kCancelled;
  }
  int Pick(Purpose, const std::string&, const std::string&, const std::string&, std::string&) override {
    return platform::FilePicker::kCancelled;
  }
  int RunModal(VolumeInfoForm&) override { return kDialogCancel; }
  int RunModal(FileInfoForm&) override { return kDialogCancel; }
  void RunWorkerDialog(const char*, const MakeLogic&) override {}
};

// One process's worth of the program: the platform, the application object
// and the main window's panes in memory.
class Session {
 public:
  Session(const std::string& program, Quiet& quiet)
      : table_(program),
        files_(table_),
        app_(program, {table_, files_, quiet, quiet}),
        scans_(app_.Scanner(), app_.Drives(), app_.Settings(), quiet, quiet) {
    app_.Start();
    app_.Tree().Bind({tree_, quiet, quiet, scans_, quiet});
    app_.List().Bind({list_, quiet, quiet});
    app_.List().CreateColumns();
  }
  ~Session() {
    app_.Tree().Unbind();
    app_.List().Unbind();
    app_.Exit();
  }

  CLibraryApp& App() { return app_; }
  platform::MemoryTreeControl& Tree() { return tree_; }
  platform::MemoryListControl& List() { return list_; }

 private:
  platform::LinuxDriveTable table_;
  platform::LinuxFileSystem files_;
  CLibraryApp app_;
  ScanCommands scans_;
  platform::MemoryTreeControl tree_;
  platform::MemoryListControl list_;
};

int AddVolume(MediaDB& db, int number) {
  CMediaVolume volume;
  volume.VolType = number % 2 ? 5 : 3;
  volume.DrvLtr = number % 2 ? "D" : "C";
  volume.SerialNo = std::to_string(1000 + number);
  volume.Name = "VOL" + std::to_string(number);
  volume.DisplayName = "Volume " + std::to_string(number);
  return db.AddVolume(volume);
}

int AddFolder(MediaDB& db, int volId, int parentId, const std::string& name, const std::string& parentPath) {
  CMediaPath path;
  path.VolID = volId;
  path.ParentID = parentId;
  path.Name = name;
  path.FullPath = parentPath + name + "\\";
  return db.AddPath(path);
}

void AddFiles(MediaDB& db, int volId, int pathId, int count, int& serial) {
  for (int track = 1; track <= count; ++track, ++serial) {
    CMediaFile file;
    file.VolID = volId;
    file.PathID = pathId;
    file.FileName = (track < 10 ? "0" : "") + std::to_string(track) + " track" + std::to_string(serial) + ".mp3";
    file.Type = 1;
    db.AddFile(file);
    file.Rating = serial % 6;
    db.UpdateFileUserInfo(file);
    file.id3Title = "Title " + std::to_string(serial);
    file.id3Artist = "Artist " + std::to_string(serial / 1000);
    file.id3Album = "Album";
    file.Length = 120 + serial % 300;
    file.BitRate = 128;
    file.SampleRate = 44100;
    file.Channels = 2;
    db.UpdateFileTagsAndProperties(file, 2);
  }
}

// Per volume: a root folder, artist folders below it and up to nine album
// folders below each artist, as many folders as asked for; files spread
// evenly over every folder.
void BuildCatalogue(MediaDB& db, const Settings& settings) {
  const int foldersPerVolume = settings.folders / settings.volumes;
  const int filesPerFolder = settings.files / settings.folders;
  int serial = 0;
  db.Begin();
  for (int v = 1; v <= settings.volumes; ++v) {
    const int volId = AddVolume(db, v);
    const std::string rootPath = "\\Music" + std::to_string(v) + "\\";
    std::vector<int> folders{AddFolder(db, volId, -1, "Music" + std::to_string(v), "\\")};
    for (int a = 0; static_cast<int>(folders.size()) < foldersPerVolume; ++a) {
      const std::string artist = "Artist " + std::to_string(a);
      const int artistId = AddFolder(db, volId, folders.front(), artist, rootPath);
      folders.push_back(artistId);
      for (int b = 0; b < 9 && static_cast<int>(folders.size()) < foldersPerVolume; ++b)
        folders.push_back(AddFolder(db, volId, artistId, "Album " + std::to_string(b), rootPath + artist + "\\"));
    }
    for (int folder : folders) AddFiles(db, volId, folder, filesPerFolder, serial);
  }
  CPlayList evening;
  evening.Name = "Evening";
  evening.FileIDs = "1,2,3,4,5";
  db.AddPlayList(evening);
  db.Commit();
}

double Milliseconds(const std::function<void()>& run) {
  const auto start = Clock::now();
  run();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t mid = values.size() / 2;
  return values.size() % 2 ? values[mid] : (values[mid - 1] + values[mid]) / 2;
}

void Report(const char* what, const std::vector<double>& times, double limitMs, const std::string& detail) {
  const double median = Median(times);
  std::printf("%-28s %8.1f ms (limit %4.0f ms) %s  %s\n", what, median, limitMs, median < limitMs ? "ok  " : "SLOW",
              detail.c_str());
}

int Run(const Settings& settings) {
  const std::string program = settings.work + "/program/";
  fs::create_directories(program + "drives");
  fs::create_directory_symlink(settings.work, program + "drives/c:");
  Quiet quiet;
  {
    Session session(program, quiet);
    BuildCatalogue(session.App().Db(), settings);
  }
  std::printf("%d files in %d folders on %d volumes, median of %d rounds, in %s\n", settings.files, settings.folders,
              settings.volumes, settings.rounds, settings.work.c_str());

  std::vector<double> startUp, rebuild, folderList, fewHits, allHits;
  std::size_t nodes = 0, folderRows = 0, fewRows = 0, allRows = 0;
  for (int round = 0; round < settings.rounds; ++round) {
    std::unique_ptr<Session> session;
    startUp.push_back(Milliseconds([&] {
      session = std::make_unique<Session>(program, quiet);
      session->App().Tree().Rebuild();
    }));
    CLibraryTree& tree = session->App().Tree();
    CMediaList& list = session->App().List();
    rebuild.push_back(Milliseconds([&] { tree.Rebuild(); }));
    nodes = session->Tree().items.size();
    // An album folder in the middle of the last volume.
    const platform::TreeItem album = session->Tree().Find(settings.folders - settings.folders / 40);
    folderList.push_back(Milliseconds([&] { tree.SelectNode(album); }));
    folderRows = session->List().rows.size();
    fewHits.push_back(Milliseconds([&] { QuickSearch(tree, list, "Title 4242"); }));
    fewRows = session->List().rows.size();
    allHits.push_back(Milliseconds([&] { QuickSearch(tree, list, "track"); }));
    allRows = session->List().rows.size();
  }
  Report("start-up to a built tree", startUp, 1000, "");
  Report("tree rebuild", rebuild, 300, std::to_string(nodes) + " nodes");
  Report("a folder's list", folderList, 50, std::to_string(folderRows) + " rows");
  Report("quick search, few matches", fewHits, 300, std::to_string(fewRows) + " rows");
  Report("quick search, every file", allHits, 300, std::to_string(allRows) + " rows");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Times the library tree, the media list and the quick search on a large catalogue."};
  Settings settings;
  app.add_option("--files", settings.files, "Files in the catalogue")->check(CLI::Range(1, 10000000));
  app.add_option("--folders", settings.folders, "Folders in the catalogue")->check(CLI::Range(1, 1000000));
  app.add_option("--volumes", settings.volumes, "Volumes in the catalogue")->check(CLI::Range(1, 1000));
  app.add_option("--rounds", settings.rounds, "Rounds of each measurement")->check(CLI::Range(1, 100));
  app.add_option("-w,--work", settings.work, "Work folder (default: a new folder under /tmp, removed)");
  app.add_flag("--keep", settings.keep, "Keep the work folder");
  CLI11_PARSE(app, argc, argv);

  std::string made;
  if (settings.work.empty()) {
    made = (fs::temp_directory_path() / "vantrelle-tree-bench-XXXXXX").string();
    if (!::mkdtemp(made.data())) {
      std::perror("mkdtemp");
      return 1;
    }
    settings.work = made;
  }
  const int status = Run(settings);
  if (!made.empty() && !settings.keep) fs::remove_all(made);
  return status;
}
