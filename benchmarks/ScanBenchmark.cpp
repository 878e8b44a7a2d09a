// vantrelle-scan-bench: how fast a whole scan of a disk folder runs against
// what TagLib alone needs to read the same files, and how fast rescans run.
//
// For each library size N, in a child process of its own (so each size has its
// own memory peak): builds a library of N hard-linked audio files, warms the
// cache, times TagLib alone, a fresh scan into a new catalogue, a rescan with
// nothing changed and a rescan after 1 % of the files came and 1 % went; then
// what the windows read from that catalogue: the tree's folders, a folder's
// list, quick searches that find nothing and a tenth of the files, typed
// searches in a window just started and after an edit, a stored play list
// of 10,000 files; whole console runs (vantrelle-cli beside this program);
// and the removal of the whole scanned folder. The floors: TagLib alone on
// one core and on every core, and a plain walk (find -type f).

#include <fcntl.h>
#include <sys/wait.h>
#include <taglib/asffile.h>
#include <taglib/mpegfile.h>
#include <taglib/tag.h>
#include <taglib/vorbisfile.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "benchmarks/BenchLibrary.h"
#include "benchmarks/CatalogueQueries.h"
#include "benchmarks/PeakMemory.h"
#include "catalogue/MediaDB.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "platform/MessageBox.h"
#include "scan/CVolumeScanner.h"
#include "tags/CTagReader.h"
#include "volumes/CDriveServices.h"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

enum Phase {
  kBuild,
  kWarm,
  kTagLib,
  kTagLibAll,
  kGetTag,
  kWalk,
  kFresh,
  kRescan,
  kChanged,
  kTree,
  kList,
  kSearchFirst,
  kSearchNone,
  kSearchTenth,
  kTextsAtStart,
  kTypedAtStart,
  kTyped,
  kTypedAfterEdit,
  kPlayList,
  kCliList,
  kCliSearchNone,
  kCliSearchTenth,
  kCliSavePlayList,
  kRemove,
  kPhaseCount
};

constexpr const char* kPhaseNames[kPhaseCount] = {
    "build library",
    "warm cache (read all)",
    "floor: TagLib, one core",
    "floor: TagLib, all cores",
    "floor: GetTag (drive)",
    "floor: find -type f",
    "fresh scan",
    "no-change rescan",
    "rescan +1% -1%",
    "tree: every folder",
    "a folder's list",
    "search, first of all",
    "search, no match",
    "search, 1/10 match",
    "texts read after start",
    "typed, first after start",
    "typed search, 1/10",
    "typed after an edit",
    "play list of 10,000",
    "cli: list folder",
    "cli: search, no match",
    "cli: search, 1/10",
    "cli: save-playlist",
    "remove scanned folder",
};

// Found in no file; found in the name of one track of every album of ten.
constexpr const char* kNoMatch = "zq%_x";
constexpr const char* kTenthMatch = "05 TRACK";
constexpr std::size_t kPlayListFiles = 10000;

struct PhaseResult {
  double seconds = 0;
  int files = 0;
  long peakKb = -1;
};

// What a child sends back through its pipe: plain data only.
struct SizeResult {
  int n = 0;
  PhaseResult phase[kPhaseCount];
  long processPeakKb = -1;
  bool peaksPerPhase = false;
  int removed = 0;
  int added = 0;
  int floorParsed = 0;  // files TagLib found a bit rate in
  char problems[512] = {};
};

// Every box is answered OK: a scan that asks anything is reported by the checks.
class OkMessageBox : public platform::MessageBox {
 public:
  platform::Answer Show(const std::string& text, platform::Buttons, platform::Icon) override {
    ++shown;
    std::fprintf(stderr, "message box: %s\n", text.c_str());
    return platform::Answer::Ok;
  }
  int shown = 0;
};

void AddProblem(SizeResult& result, const std::string& text) {
  const std::size_t used = std::strlen(result.problems);
  std::snprintf(result.problems + used, sizeof result.problems - used, "%s%s", used ? "; " : "", text.c_str());
}

// Runs one phase: time, and the resident peak reached while it ran.
template <class Work>
void Measure(SizeResult& result, Phase phase, int files, Work&& work) {
  result.peaksPerPhase = bench::ResetPeakResident();
  const auto start = Clock::now();
  work();
  result.phase[phase].seconds = std::chrono::duration<double>(Clock::now() - start).count();
  result.phase[phase].files = files;
  result.phase[phase].peakKb = bench::PeakResidentKb();
  if (result.phase[phase].peakKb > result.processPeakKb) result.processPeakKb = result.phase[phase].peakKb;
}

// Reads every byte of a file, so that the floor and the scans find it cached.
std::size_t ReadWhole(const std::string& path) {
  const int fd = ::open(path.c_str(), O_RDONLY);
  if (fd < 0) return 0;
  static char buffer[1 << 16];
  std::size_t total = 0;
  ssize_t got;
  while ((got = ::read(fd, buffer, sizeof buffer)) > 0) total += static_cast<std::size_t>(got);
  ::close(fd);
  return total;
}

bool EndsWith(const std::string& text, const char* ending) {
  const std::size_t n = std::strlen(ending);
  return text.size() >= n && strcasecmp(text.c_str() + text.size() - n, ending) == 0;
}

// TagLib with nothing around it: the class chosen by the name's ending, the
// four text fields and the four properties read. Returns whether it parsed.
bool ReadWithTagLib(const std::string& path, std::size_t& checksum) {
  std::unique_ptr<TagLib::File> file;
  constexpr auto style = TagLib::AudioProperties::Average;
  if (EndsWith(path, ".mp3"))
    file = std::make_unique<TagLib::MPEG::File>(path.c_str(), true, style);
  else if (EndsWith(path, ".ogg"))
    file = std::make_unique<TagLib::Ogg::Vorbis::File>(path.c_str(), true, style);
  else if (EndsWith(path, ".wma"))
    file = std::make_unique<TagLib::ASF::File>(path.c_str(), true, style);
  if (!file || !file->isValid()) return false;
  if (const TagLib::Tag* tag = file->tag()) {
    checksum += tag->title().to8Bit(true).size() + tag->artist().to8Bit(true).size() +
                tag->album().to8Bit(true).size() + tag->comment().to8Bit(true).size();
  }
  const TagLib::AudioProperties* audio = file->audioProperties();
  if (!audio) return false;
  checksum +=
      static_cast<std::size_t>(audio->lengthInSeconds() + audio->bitrate() + audio->sampleRate() + audio->channels());
  return audio->bitrate() > 0;
}

// TagLib alone on one thread per core, each taking every k-th file.
void ReadWithTagLibOnEveryCore(const bench::BenchLibrary& library, std::size_t& checksum) {
  std::vector<std::string> paths;
  library.ForEachFile([&](const std::string& local, const std::string&) { paths.push_back(local); });
  const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
  std::vector<std::size_t> sums(cores);
  std::vector<std::thread> threads;
  for (unsigned t = 0; t < cores; ++t)
    threads.emplace_back([&, t] {
      for (std::size_t i = t; i < paths.size(); i += cores) ReadWithTagLib(paths[i], sums[t]);
    });
  for (std::thread& thread : threads) thread.join();
  for (std::size_t sum : sums) checksum += sum;
}

// A whole run of the console program on the library's catalogue, its
// output thrown away; seconds, or -1 when it failed.
double RunConsole(const std::string& programFolder, const std::vector<std::string>& arguments) {
  static const std::string cli = (fs::read_symlink("/proc/self/exe").parent_path() / "vantrelle-cli").string();
  if (!fs::exists(cli)) return -1;
  std::vector<char*> argv{const_cast<char*>(cli.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  std::fflush(nullptr);
  const auto start = Clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    ::setenv("VANTRELLE_DATA", programFolder.c_str(), 1);
    const int null = ::open("/dev/null", O_WRONLY);
    ::dup2(null, STDOUT_FILENO);
    ::execv(cli.c_str(), argv.data());
    std::_Exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? seconds : -1;
}

// Files in the catalogue, and how many of them have their tags stored.
void CheckCatalogue(MediaDB& db, const char* after, int expected, SizeResult& result) {
  const int files = bench::QueryNumber(db.Path(), "SELECT count(*) FROM MediaFiles;");
  const int tagged = bench::QueryNumber(db.Path(), "SELECT count(*) FROM MediaFiles WHERE ScanState=2;");
  if (files != expected || tagged != expected) {
    AddProblem(result, std::string(after) + ": " + std::to_string(files) + " files catalogued, " +
                           std::to_string(tagged) + " tagged, " + std::to_string(expected) + " expected");
  }
}

// A typed search as the window runs it: the files found and the texts of
// the first rows shown.
int TypedSearch(MediaDB& db, const char* text) {
  const IdList found = db.SearchFileIds(text);
  db.FileListRows(
      IdList(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(found.size(), 256))));
  return static_cast<int>(found.size());
}

void SetPhase(SizeResult& result, Phase phase, double seconds, int files) {
  result.phase[phase].seconds = seconds;
  result.phase[phase].files = files;
  result.phase[phase].peakKb = -1;
}

// The window's start: the catalogue opened anew and the texts read ahead;
// the time until they are there, a search typed at once (which waits for
// them), then typed searches, also right after an edit of one title.
template <class Median>
void MeasureTypedSearches(MediaDB& db, SizeResult& result, const Median& median) {
  MediaDB window;
  auto start = Clock::now();
  window.Open(fs::path(db.Path()).parent_path().string() + "/");
  window.ReadSearchTextsAhead();
  const int found = TypedSearch(window, kTenthMatch);
  SetPhase(result, kTypedAtStart, std::chrono::duration<double>(Clock::now() - start).count(), found);
  MediaDB again;
  start = Clock::now();
  again.Open(fs::path(db.Path()).parent_path().string() + "/");
  again.ReadSearchTextsAhead();
  while (again.SearchWouldWait()) std::this_thread::yield();
  SetPhase(result, kTextsAtStart, std::chrono::duration<double>(Clock::now() - start).count(), found);
  median(kTyped, [&] { return TypedSearch(window, kTenthMatch); });
  const int edited = bench::QueryNumber(db.Path(), "SELECT max(FileID) FROM MediaFiles;");
  int round = 0;
  median(kTypedAfterEdit, [&] {
    auto file = window.GetFile(edited);
    file->Title = "Edited " + std::to_string(++round);
    window.UpdateFileUserInfo(*file);
    return TypedSearch(window, kTenthMatch);
  });
}

// Whole runs of the console program: a folder's list, the two searches and
// a play list of up to 100,000 files saved.
void MeasureConsoleRuns(MediaDB& db, int album, SizeResult& result) {
  const std::string program = fs::path(db.Path()).parent_path().string() + "/";
  const auto run = [&](Phase phase, const std::vector<std::string>& arguments, int files) {
    double times[3];
    for (double& time : times) time = RunConsole(program, arguments);
    std::sort(std::begin(times), std::end(times));
    SetPhase(result, phase, times[1], files);
    if (times[0] < 0) AddProblem(result, std::string(kPhaseNames[phase]) + " failed");
  };
  run(kCliList, {"list", "folder", std::to_string(album)}, 10);
  run(kCliSearchNone, {"search", kNoMatch}, 0);
  run(kCliSearchTenth, {"search", kTenthMatch}, result.phase[kSearchTenth].files);
  std::vector<std::string> save{"save-playlist", "bench"};
  for (std::int64_t id : bench::QueryNumbers(db.Path(), "SELECT FileID FROM MediaFiles LIMIT 100000;"))
    save.push_back(std::to_string(id));
  run(kCliSavePlayList, save, static_cast<int>(save.size()) - 2);
}

// What the tree, the list and the search read, and a removal, as the windows
// run them; each takes the median of three runs but the removal.
void MeasureReads(MediaDB& db, SizeResult& result) {
  const auto median = [&](Phase phase, const std::function<int()>& work) {
    double times[3];
    for (double& time : times) {
      const auto start = Clock::now();
      result.phase[phase].files = work();
      time = std::chrono::duration<double>(Clock::now() - start).count();
    }
    std::sort(std::begin(times), std::end(times));
    result.phase[phase].seconds = times[1];
    result.phase[phase].peakKb = -1;
  };
  median(kTree, [&] { return static_cast<int>(db.GetPathNodeRows().size()); });
  const int root = bench::QueryNumber(db.Path(), "SELECT PathID FROM MediaPaths WHERE ParentID=-1;");
  const int album = bench::QueryNumber(db.Path(), "SELECT max(PathID) FROM MediaPaths;");
  median(kList, [&] { return static_cast<int>(db.GetFolderListRows(album).size()); });
  // The first search after a change reads the texts of every file; once.
  const auto firstSearch = Clock::now();
  result.phase[kSearchFirst].files = static_cast<int>(db.SearchListRows(kNoMatch).size());
  result.phase[kSearchFirst].seconds = std::chrono::duration<double>(Clock::now() - firstSearch).count();
  result.phase[kSearchFirst].peakKb = -1;
  median(kSearchNone, [&] { return static_cast<int>(db.SearchListRows(kNoMatch).size()); });
  median(kSearchTenth, [&] { return static_cast<int>(db.SearchListRows(kTenthMatch).size()); });
  if (result.phase[kSearchNone].files != 0) AddProblem(result, "a search found what is not there");
  IdList playList;
  for (std::int64_t id : bench::QueryNumbers(db.Path(), "SELECT FileID FROM MediaFiles ORDER BY FileID DESC;"))
    if (playList.size() < kPlayListFiles) playList.push_back(static_cast<std::int32_t>(id));
  median(kPlayList, [&] { return static_cast<int>(db.FileListRows(playList).size()); });
  MeasureTypedSearches(db, result, median);
  MeasureConsoleRuns(db, album, result);
  const int files = bench::QueryNumber(db.Path(), "SELECT count(*) FROM MediaFiles;");
  const auto start = Clock::now();
  db.Begin();
  db.DeletePathTree(root);
  db.Commit();
  result.phase[kRemove].seconds = std::chrono::duration<double>(Clock::now() - start).count();
  result.phase[kRemove].files = files - bench::QueryNumber(db.Path(), "SELECT count(*) FROM MediaFiles;");
  result.phase[kRemove].peakKb = -1;
}

void RunSize(const std::string& folder, const std::string& fixtures, SizeResult& result) {
  const int n = result.n;
  bench::BenchLibrary library(folder, fixtures, n);
  Measure(result, kBuild, n, [&] { library.Build(); });

  std::size_t bytes = 0;
  Measure(result, kWarm, n, [&] {
    library.ForEachFile([&](const std::string& local, const std::string&) { bytes += ReadWhole(local); });
  });

  std::size_t checksum = 0;
  Measure(result, kTagLib, n, [&] {
    library.ForEachFile([&](const std::string& local, const std::string&) {
      if (ReadWithTagLib(local, checksum)) ++result.floorParsed;
    });
  });
  if (result.floorParsed != n) AddProblem(result, "TagLib parsed " + std::to_string(result.floorParsed) + " files");
  Measure(result, kTagLibAll, n, [&] { ReadWithTagLibOnEveryCore(library, checksum); });
  Measure(result, kWalk, n, [&] {
    if (std::system(("find '" + library.Folder() + "' -type f > /dev/null").c_str()) != 0)
      AddProblem(result, "find failed");
  });

  platform::LinuxDriveTable table(library.ProgramFolder());
  platform::LinuxFileSystem fileSystem(table);
  OkMessageBox messages;
  CDriveServices drives(table, fileSystem, messages);
  CTagReader reader(fileSystem);

  int read = 0;
  Measure(result, kGetTag, n, [&] {
    library.ForEachFile([&](const std::string&, const std::string& drive) {
      CMediaFile record;
      reader.GetTag(drive, record);
      if (record.BitRate > 0) ++read;
    });
  });
  if (read != n) AddProblem(result, "GetTag read " + std::to_string(read) + " files");

  MediaDB db;
  CVolumeScanner scanner(db, drives, reader, messages);
  const auto scan = [&] {
    scanner.Prepare(platform::kDriveFixed, bench::BenchLibrary::kScanRoot);
    scanner.Run();
  };
  Measure(result, kFresh, n, [&] {
    db.Open(library.ProgramFolder());
    scan();
  });
  CheckCatalogue(db, "fresh scan", n, result);
  std::fprintf(stderr, "  (fresh scan: tag phase %.3f s of it)\n",
               std::chrono::duration<double>(scanner.TagPhaseTime()).count());

  Measure(result, kRescan, n, scan);
  CheckCatalogue(db, "rescan", n, result);

  library.ApplyChange();
  result.removed = library.Removed();
  result.added = library.Added();
  Measure(result, kChanged, library.FileCount() - result.removed + result.added, scan);
  CheckCatalogue(db, "rescan after change", n - result.removed + result.added, result);

  MeasureReads(db, result);

  if (messages.shown) AddProblem(result, std::to_string(messages.shown) + " message boxes");
  if (bytes == 0 || checksum == 0) AddProblem(result, "nothing read");
}

// Runs one size in a child process; false when the child failed outright.
bool RunSizeInChild(const std::string& folder, const std::string& fixtures, SizeResult& result) {
  int channel[2];
  if (::pipe(channel) != 0) return false;
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child < 0) return false;
  if (child == 0) {
    ::close(channel[0]);
    try {
      RunSize(folder, fixtures, result);
    } catch (const std::exception& failure) {
      AddProblem(result, std::string("failed: ") + failure.what());
    }
    const bool sent = ::write(channel[1], &result, sizeof result) == sizeof result;
    ::close(channel[1]);
    std::_Exit(sent ? 0 : 1);
  }
  ::close(channel[1]);
  std::size_t got = 0;
  auto* bytes = reinterpret_cast<char*>(&result);
  ssize_t part;
  while (got < sizeof result && (part = ::read(channel[0], bytes + got, sizeof result - got)) > 0)
    got += static_cast<std::size_t>(part);
  ::close(channel[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  return got == sizeof result && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 0; i < argc; ++i) {
    const std::string arg = argv[i];
    if (i) line += ' ';
    line += arg.find_first_of(" \t'\"") == std::string::npos ? arg : "'" + arg + "'";
  }
  return line;
}

double Mb(long kb) { return kb < 0 ? -1 : kb / 1024.0; }

void PrintSize(const SizeResult& r) {
  for (int p = 0; p < kPhaseCount; ++p) {
    const PhaseResult& phase = r.phase[p];
    std::printf("%8d  %-24s %8d %9.3f %10.0f %8.1f\n", r.n, kPhaseNames[p], phase.files, phase.seconds,
                phase.seconds > 0 ? phase.files / phase.seconds : 0.0, Mb(phase.peakKb));
  }
  const double taglib = r.phase[kTagLibAll].seconds;
  const double getTag = r.phase[kGetTag].seconds;
  const double fresh = r.phase[kFresh].seconds;
  std::printf(
      "%8d  fresh/floor: %.2fx (TagLib, every core), %.2fx (GetTag, one core); process peak %.1f MB; "
      "change -%d +%d\n",
      r.n, taglib > 0 ? fresh / taglib : 0.0, getTag > 0 ? fresh / getTag : 0.0, Mb(r.processPeakKb), r.removed,
      r.added);
  if (r.problems[0]) std::printf("%8d  PROBLEMS: %s\n", r.n, r.problems);
}

const char* Verdict(bool met) { return met ? "ok" : "MISSED"; }

void PrintTargets(const SizeResult& r) {
  const auto ms = [&](Phase phase) { return r.phase[phase].seconds * 1000; };
  const double fresh = r.phase[kFresh].seconds / r.phase[kTagLibAll].seconds;
  const double rescan = r.phase[kRescan].seconds / r.phase[kWalk].seconds;
  // The fresh scan's own peak, where the kernel lets peaks be taken per phase.
  const double peak = Mb(r.peaksPerPhase ? r.phase[kFresh].peakKb : r.processPeakKb);
  std::printf(
      "targets at N=%d: fresh <= 1.2x TagLib on every core: %.2fx %s | no-change rescan <= 1.25x find: %.2fx %s | "
      "fresh scan peak <= 128 MB: %.1f MB %s\n",
      r.n, fresh, Verdict(fresh <= 1.2), rescan, Verdict(rescan <= 1.25), peak, Verdict(peak >= 0 && peak <= 128));
  std::printf(
      "  cli list folder <= 20 ms: %.1f ms %s | cli search none <= 600 ms: %.0f ms %s | cli search %d <= 1000 ms: "
      "%.0f ms %s | cli save-playlist %d <= 1000 ms: %.0f ms %s\n",
      ms(kCliList), Verdict(ms(kCliList) >= 0 && ms(kCliList) <= 20), ms(kCliSearchNone),
      Verdict(ms(kCliSearchNone) >= 0 && ms(kCliSearchNone) <= 600), r.phase[kCliSearchTenth].files,
      ms(kCliSearchTenth), Verdict(ms(kCliSearchTenth) >= 0 && ms(kCliSearchTenth) <= 1000),
      r.phase[kCliSavePlayList].files, ms(kCliSavePlayList),
      Verdict(ms(kCliSavePlayList) >= 0 && ms(kCliSavePlayList) <= 1000));
  std::printf(
      "  typed search <= 50 ms: %.1f ms %s | after an edit: %.1f ms %s | texts there %.0f ms after start; a search "
      "typed at once: %.0f ms\n",
      ms(kTyped), Verdict(ms(kTyped) <= 50), ms(kTypedAfterEdit), Verdict(ms(kTypedAfterEdit) <= 50), ms(kTextsAtStart),
      ms(kTypedAtStart));
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Times a whole scan against TagLib alone, and rescans, on made-up libraries."};
  std::vector<int> sizes{10000, 100000};
  std::string work;
  std::string fixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio";
  bool keep = false;
  app.add_option("-n,--sizes", sizes, "Library sizes in files, comma separated")
      ->delimiter(',')
      ->check(CLI::Range(1, 10000000));
  app.add_option("-w,--work", work, "Work folder (default: a new folder under /tmp, removed)");
  app.add_option("--fixtures", fixtures, "Folder of the audio fixtures")->check(CLI::ExistingDirectory);
  app.add_flag("--keep", keep, "Keep the libraries and catalogues");
  CLI11_PARSE(app, argc, argv);

  bool madeWork = false;
  if (work.empty()) {
    std::string pattern = (fs::temp_directory_path() / "vantrelle-scan-bench-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) {
      std::perror("mkdtemp");
      return 1;
    }
    work = pattern;
    madeWork = true;
  } else {
    fs::create_directories(work);
  }
  work = fs::canonical(work).string();

  std::printf("command: %s\nwork folder: %s\n\n", CommandLine(argc, argv).c_str(), work.c_str());
  std::printf("%8s  %-24s %8s %9s %10s %8s\n", "N", "phase", "files", "time s", "files/s", "peak MB");

  std::vector<SizeResult> results;
  bool allOk = true;
  for (int n : sizes) {
    const std::string folder = work + "/n" + std::to_string(n);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    SizeResult result;
    result.n = n;
    const bool ran = RunSizeInChild(folder, fixtures, result);
    if (!ran) AddProblem(result, "the child process failed");
    allOk = allOk && ran && !result.problems[0];
    PrintSize(result);
    std::fflush(stdout);
    results.push_back(result);
    if (!keep) fs::remove_all(folder, ignored);
  }
  if (!results[0].peaksPerPhase) std::printf("\n(peaks are since the child started: /proc/self/clear_refs refused)\n");
  std::printf("\n");
  for (const SizeResult& r : results) PrintTargets(r);

  if (madeWork && !keep) {
    std::error_code ignored;
    fs::remove_all(work, ignored);
  }
  return allOk ? 0 : 1;
}
