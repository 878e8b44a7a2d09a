// vantrelle-copy-bench: how fast the copy worker copies play list files into
// a folder, against `cp` of the same files in the same run.
//
// Lays out files of a few megabytes on disk C of a made-up program folder,
// catalogues them as one disk volume, reads them once and copies them once
// untimed so that both sides start warm, then times rounds of the worker and
// of `cp`, in alternating order, each into a fresh folder and with the
// written data flushed (untimed) before the next copy starts.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/MediaDB.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/MessageBox.h"
#include "playlists/CopyJob.h"
#include "playlists/CopyWorker.h"
#include "volumes/CDriveServices.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

// A disk volume asks nothing; a box shown here is a fault of the benchmark.
class ReportingMessageBox : public platform::MessageBox {
 public:
  platform::Answer Show(const std::string& text, platform::Buttons, platform::Icon) override {
    std::fprintf(stderr, "unexpected message box: %s\n", text.c_str());
    return platform::Answer::Cancel;
  }
};

struct Settings {
  int totalMb = 1024;
  int fileMb = 5;
  int rounds = 3;
  std::string work;
  bool keep = false;
};

void WriteSource(const std::string& path, std::size_t bytes, unsigned seed) {
  std::vector<char> block(1 << 20);
  for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<char>((i * 131 + seed) >> 3);
  std::ofstream out(path, std::ios::binary);
  for (std::size_t written = 0; written < bytes; written += block.size())
    out.write(block.data(), static_cast<std::streamsize>(std::min(block.size(), bytes - written)));
}

// Sources on disk and in the catalogue; returns their FileIDs in list order.
IdList BuildLibrary(MediaDB& db, const std::string& disk, const Settings& settings) {
  fs::create_directories(disk + "/Music");
  CMediaVolume volume;
  volume.VolType = 3;
  volume.DrvLtr = "C";
  volume.SerialNo = "1";
  CMediaPath path;
  path.VolID = db.AddVolume(volume);
  path.FullPath = "\\Music\\";
  const int pathId = db.AddPath(path);

  IdList ids;
  const int files = settings.totalMb / settings.fileMb;
  db.Begin();
  for (int i = 0; i < files; ++i) {
    CMediaFile file;
    file.VolID = path.VolID;
    file.PathID = pathId;
    file.FileName = "track" + std::to_string(i) + ".mp3";
    WriteSource(disk + "/Music/" + file.FileName, std::size_t(settings.fileMb) << 20, i);
    ids.push_back(db.AddFile(file));
  }
  db.Commit();
  return ids;
}

void ReadAll(const std::string& folder) {
  std::vector<char> buffer(1 << 20);
  for (const auto& entry : fs::directory_iterator(folder)) {
    std::ifstream in(entry.path(), std::ios::binary);
    while (in.read(buffer.data(), static_cast<std::streamsize>(buffer.size()))) {
    }
  }
}

// Seconds taken by one copy into a fresh target; the target's data is then
// flushed, untimed, and the target removed.
double TimeCopy(const std::string& target, const std::function<void()>& copy) {
  fs::remove_all(target);
  fs::create_directories(target);
  ::sync();
  const auto start = Clock::now();
  copy();
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  ::sync();
  fs::remove_all(target);
  return seconds;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t mid = values.size() / 2;
  return values.size() % 2 ? values[mid] : (values[mid - 1] + values[mid]) / 2;
}

int Run(const Settings& settings) {
  const std::string program = settings.work + "/program/", disk = settings.work + "/disk";
  fs::create_directories(program + "drives");
  fs::create_directories(disk);
  fs::create_directory_symlink(disk, program + "drives/c:");
  platform::LinuxDriveTable table(program);
  platform::LinuxFileSystem files(table);
  ReportingMessageBox messages;
  CDriveServices drives(table, files, messages);
  MediaDB db;
  db.Open(program);

  const IdList ids = BuildLibrary(db, disk, settings);
  ReadAll(disk + "/Music");
  const double megabytes = double(ids.size()) * settings.fileMb;
  std::printf("%zu files of %d MB (%.0f MB), %d rounds, in %s\n", ids.size(), settings.fileMb, megabytes,
              settings.rounds, settings.work.c_str());

  CopyJob job;
  job.target = "C:\\WorkerCopy";
  CopyWorker worker(db, drives, "", job);
  const std::string cp = "cp -- '" + disk + "/Music/'*.mp3 '" + disk + "/CpCopy/'";
  // The first copy of a run is several times slower whichever copier makes
  // it (the file system settling after the sources were written): one
  // untimed copy goes first.
  TimeCopy(disk + "/CpCopy", [&] { [[maybe_unused]] const int ignored = std::system(cp.c_str()); });
  std::vector<double> workerTimes, cpTimes;
  for (int round = 0; round < settings.rounds; ++round) {
    const auto timeWorker = [&] { workerTimes.push_back(TimeCopy(disk + "/WorkerCopy", [&] { worker.Run(ids); })); };
    const auto timeCp = [&] {
      cpTimes.push_back(TimeCopy(disk + "/CpCopy", [&] {
        if (std::system(cp.c_str()) != 0) std::fprintf(stderr, "cp failed\n");
      }));
    };
    if (round % 2 == 0) {
      timeWorker();
      timeCp();
    } else {
      timeCp();
      timeWorker();
    }
    std::printf("round %d: worker %.3f s, cp %.3f s\n", round + 1, workerTimes.back(), cpTimes.back());
  }

  const double workerMedian = Median(workerTimes), cpMedian = Median(cpTimes);
  std::printf("median: worker %.3f s (%.0f MB/s), cp %.3f s (%.0f MB/s), ratio %.2f (target <= 1.20)\n", workerMedian,
              megabytes / workerMedian, cpMedian, megabytes / cpMedian, workerMedian / cpMedian);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Times the copy worker against cp on the same files."};
  Settings settings;
  app.add_option("--total-mb", settings.totalMb, "Megabytes to copy")->check(CLI::Range(1, 1 << 20));
  app.add_option("--file-mb", settings.fileMb, "Megabytes per file")->check(CLI::Range(1, 4096));
  app.add_option("--rounds", settings.rounds, "Rounds of each copy")->check(CLI::Range(1, 100));
  app.add_option("-w,--work", settings.work, "Work folder (default: a new folder under /tmp, removed)");
  app.add_flag("--keep", settings.keep, "Keep the work folder");
  CLI11_PARSE(app, argc, argv);

  const bool madeWork = settings.work.empty();
  if (madeWork) {
    std::string pattern = (fs::temp_directory_path() / "vantrelle-copy-bench-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) {
      std::perror("mkdtemp");
      return 1;
    }
    settings.work = pattern;
  }
  const int status = Run(settings);
  if (madeWork && !settings.keep) fs::remove_all(settings.work);
  return status;
}
