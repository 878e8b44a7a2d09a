// vantrelle-playlist-bench: how long the play list window is held while many
// files are added to it, as "Add To PlayList", a drop or an activated stored
// play list add them: the catalogue read, the rows handed to the list and the
// list shown once more. Runs on the offscreen platform unless told otherwise.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "catalogue/MediaDB.h"
#include "playlists/CPlayListModel.h"
#include "qt/QtListControl.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

IdList BuildCatalogue(MediaDB& db, int files) {
  IdList ids;
  db.Begin();
  CMediaVolume volume;
  volume.VolType = 3;
  volume.DrvLtr = "C";
  volume.SerialNo = "1000";
  volume.DisplayName = "Music";
  const int volId = db.AddVolume(volume);
  CMediaPath path;
  path.VolID = volId;
  path.ParentID = -1;
  path.Name = "Music";
  path.FullPath = "\\Music\\";
  const int pathId = db.AddPath(path);
  for (int serial = 0; serial < files; ++serial) {
    CMediaFile file;
    file.VolID = volId;
    file.PathID = pathId;
    file.FileName = "track" + std::to_string(serial) + ".mp3";
    file.Type = 1;
    ids.push_back(db.AddFile(file));
    file.id3Title = "Title " + std::to_string(serial);
    file.id3Artist = "Artist " + std::to_string(serial / 100);
    file.Length = 120 + serial % 300;
    db.UpdateFileTagsAndProperties(file, 2);
  }
  db.Commit();
  return ids;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// From the call until the window has shown the rows.
double AddAndShow(CPlayListModel& model, QtListControl& list, const IdList& ids) {
  const auto start = Clock::now();
  model.AddFiles(ids);
  list.RowCount();
  QCoreApplication::processEvents();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// "Add To PlayList" from the main list with every row selected: the
// selected ids read from the list, then added.
double AddSelected(CPlayListModel& model, QtListControl& list, const QtListControl& mainList) {
  const auto start = Clock::now();
  model.AddFiles(GetFileIds(mainList, true));
  list.RowCount();
  QCoreApplication::processEvents();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) {
  int files = 10000;
  int rounds = 5;
  CLI::App cli{"Times adding many files to the play list window"};
  cli.add_option("--files", files, "files in the catalogue and the play list")->check(CLI::PositiveNumber);
  cli.add_option("--rounds", rounds, "rounds; the median is reported")->check(CLI::PositiveNumber);
  CLI11_PARSE(cli, argc, argv);

  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  int qtArgc = 1;
  QApplication qt(qtArgc, argv);
  const fs::path work = fs::temp_directory_path() / ("vantrelle-playlist-bench-" + std::to_string(::getpid()));
  fs::create_directories(work);
  {
    MediaDB db;
    db.Open(work.string() + "/");
    IdList ids = BuildCatalogue(db, files);
    std::reverse(ids.begin(), ids.end());  // an order the catalogue does not keep
    QtListControl list;
    list.resize(400, 600);
    list.show();
    CPlayListModel model(db);
    model.AttachList(list);
    model.InsertColumns();
    QtListControl mainList;
    mainList.InsertColumn(0, "Song", 100);
    for (std::int32_t id : ids) mainList.AppendRow({"song"}, id);
    mainList.SelectAll();
    std::vector<double> empty;
    std::vector<double> again;
    std::vector<double> selected;
    for (int round = 0; round < rounds; ++round) {
      model.RemoveAllRows();
      QCoreApplication::processEvents();
      empty.push_back(AddAndShow(model, list, ids));
      again.push_back(AddAndShow(model, list, ids));
      model.RemoveAllRows();
      QCoreApplication::processEvents();
      selected.push_back(AddSelected(model, list, mainList));
    }
    std::printf("%d files, median of %d rounds\n", files, rounds);
    std::printf("into an empty play list    %8.1f ms\n", Median(empty));
    std::printf("all of them listed already %8.1f ms\n", Median(again));
    std::printf("selected in the main list  %8.1f ms\n", Median(selected));
    model.DetachList();
  }
  fs::remove_all(work);
  return 0;
}
