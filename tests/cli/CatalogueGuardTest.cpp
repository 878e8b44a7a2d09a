// The catalogue under ordinary faults, with the real vantrelle-cli: a second
// program, kills during the first start, read-only storage, hostile tags.
#include <fcntl.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/cli/ConsoleFixture.h"
#include "tests/support/Eventually.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class CatalogueGuardTest : public ConsoleFixture {
 protected:
  // Starts vantrelle-cli with a terminal for its standard input, so that its
  // questions wait for an answer; standard output goes to the file "out".
  pid_t StartOnTerminal(const std::string& arguments, const std::string& from = "") {
    terminal_ = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal_ < 0 || grantpt(terminal_) != 0 || unlockpt(terminal_) != 0) return -1;
    const std::string secondary = ptsname(terminal_);
    const std::string command = "cd '" + (from.empty() ? program : from) + "' && HOME='" + home +
                                "' exec ./vantrelle-cli " + arguments + " >'" + folder.Path() + "/out' 2>/dev/null";
    const pid_t child = fork();
    if (child == 0) {
      setsid();
      const int in = open(secondary.c_str(), O_RDWR);
      dup2(in, STDIN_FILENO);
      execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
      _exit(127);
    }
    return child;
  }

  bool WaitForOutput(const std::string& text) {
    return testing_support::Eventually([&] { return ReadAll(folder.Path() + "/out").find(text) != std::string::npos; });
  }

  void Answer(const std::string& line) {
    ASSERT_EQ(write(terminal_, line.data(), line.size()), static_cast<ssize_t>(line.size()));
  }

  static int ExitStatus(pid_t child) {
    int raw = 0;
    waitpid(child, &raw, 0);
    return WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  }

  void TearDown() override {
    if (terminal_ >= 0) close(terminal_);
  }

  // A CD drive E whose disc folder is still missing: add-cd waits on it.
  std::string EmptyCdDrive() {
    const std::string disc = folder.Path() + "/disc";
    fs::create_symlink(disc, program + "/drives/e::");
    EXPECT_EQ(Run("options --cd-drive E").status, 0);
    return disc;
  }

  static void InsertDiscWithOneSong(const std::string& disc) {
    fs::create_directories(disc + "/Album");
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", disc + "/Album/a.mp3");
  }

  // A FUSE view of a folder; false where bindfs or FUSE is missing.
  static bool Bindfs(const std::string& from, const std::string& to, const std::string& options) {
    return std::system(("bindfs " + options + " '" + from + "' '" + to + "' 2>/dev/null").c_str()) == 0;
  }

  // The program folder as the user "nobody" may reach and read it.
  void OpenToEveryone() {
    for (const std::string& path : {folder.Path(), home, program}) chmod(path.c_str(), 0755);
  }

  std::vector<std::string> Names(const std::string& path) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  void AddMusicFolder() {
    fs::create_directories(home + "/Music");
    fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Music/a.mp3");
    ASSERT_EQ(Run("add-hd " + home + "/Music").status, 0);
  }

  std::string DefaultOptions() const {
    return "Cache Path: C:\\QORCache\nCD Drive: \nCatalogue every audio format: no\nReplayGain: track\n" +
           CatalogueLine();
  }

  int terminal_ = -1;
};

TEST_F(CatalogueGuardTest, ASecondProgramIsRefusedWhileTheFirstScansAndNothingIsLost) {
  ASSERT_EQ(Run("options").status, 0);
  const std::string disc = EmptyCdDrive();

  // The first program waits with the catalogue open: the CD drive is empty.
  const pid_t first = StartOnTerminal("add-cd");
  ASSERT_GT(first, 0);
  ASSERT_TRUE(WaitForOutput("[Retry/Cancel]"));

  const std::string inUse =
      "The catalogue is in use by another Vantrelle program (process " + std::to_string(first) + ").\n";
  for (const char* command : {"tree", "search x", "remove volume 1", "add-hd ."}) {
    const Outcome second = Run(command);
    EXPECT_EQ(second.status, 4) << command;
    EXPECT_EQ(second.err, inUse);
  }
  // Another path to the same file (a bind mount of the program folder).
  const std::string other = folder.MakeFolder("other");
  if (mount(program.c_str(), other.c_str(), nullptr, MS_BIND, nullptr) == 0) {
    const Outcome second = RunFrom(other, "tree");
    umount2(other.c_str(), MNT_DETACH);
    EXPECT_EQ(second.status, 4);
    EXPECT_EQ(second.err, inUse);
  }

  InsertDiscWithOneSong(disc);
  Answer("retry\n");
  EXPECT_EQ(ExitStatus(first), 0);
  EXPECT_NE(ReadAll(folder.Path() + "/out").find("Scan Complete."), std::string::npos);
  EXPECT_EQ(Query("SELECT FileName, ScanState FROM MediaFiles;"), "a.mp3=2;");
  EXPECT_EQ(Run("tree").status, 0);  // the catalogue is free again
}

// Its journal and write-ahead log are named after the path: under two names
// a crash's last commits would be found under one and lost under the other.
TEST_F(CatalogueGuardTest, AHardLinkedCatalogueIsRefusedUnderEitherName) {
  ASSERT_EQ(Run("options").status, 0);
  const std::string second = folder.MakeFolder("second");
  fs::copy_file(program + "/vantrelle-cli", second + "/vantrelle-cli");
  fs::create_hard_link(program + "/Quillora.db", second + "/Quillora.db");
  for (const std::string& where : {program, second}) {
    const Outcome refused = RunFrom(where, "options --all-formats yes");
    EXPECT_EQ(refused.status, 1) << where;
    EXPECT_EQ(refused.out, "");
    EXPECT_NE(refused.err.find("The catalogue " + where + "/Quillora.db has 2 hard links."), std::string::npos)
        << refused.err;
  }
  fs::remove(second + "/Quillora.db");
  EXPECT_EQ(Run("options").out, DefaultOptions());
  EXPECT_EQ(Query("PRAGMA integrity_check;"), "ok;");
}

// Through a FUSE view flock and record locks may stay in this kernel, and
// SQLite's shared index cannot be shared: a view that keeps its locks to
// itself is refused; one that passes them on gets a rollback journal, and a
// program on the real path is kept out meanwhile.
TEST_F(CatalogueGuardTest, ThroughAFuseViewOneProgramAtATimeAndNoWriteAheadLog) {
  ASSERT_EQ(Run("options").status, 0);
  const std::string disc = EmptyCdDrive();
  const std::string view = folder.MakeFolder("view");
  if (!Bindfs(program, view, "")) GTEST_SKIP() << "no bindfs or no FUSE here";
  const Outcome kept = RunFrom(view, "tree");
  umount2(view.c_str(), MNT_DETACH);
  EXPECT_EQ(kept.status, 1);
  EXPECT_NE(kept.err.find("The catalogue " + view + "/Quillora.db lies on a fuse file system"), std::string::npos)
      << kept.err;

  ASSERT_TRUE(Bindfs(program, view, "--multithreaded --enable-lock-forwarding"));
  const pid_t first = StartOnTerminal("add-cd", view);
  ASSERT_GT(first, 0);
  const bool waiting = WaitForOutput("[Retry/Cancel]");
  const bool logged = fs::exists(program + "/Quillora.db-wal") || fs::exists(program + "/Quillora.db-shm");
  const Outcome second = Run("tree");
  InsertDiscWithOneSong(disc);
  Answer("retry\n");
  const int firstStatus = ExitStatus(first);
  umount2(view.c_str(), MNT_DETACH);

  ASSERT_TRUE(waiting);
  EXPECT_FALSE(logged);
  EXPECT_EQ(second.status, 4);
  // The lock below the view is the daemon's: there is no program's number to give.
  EXPECT_EQ(second.err, "The catalogue is in use by another Vantrelle program.\n");
  EXPECT_EQ(firstStatus, 0);
  EXPECT_EQ(Query("PRAGMA journal_mode;"), "delete;");
  EXPECT_EQ(Query("SELECT FileName, ScanState FROM MediaFiles;"), "a.mp3=2;");
  EXPECT_EQ(Query("PRAGMA integrity_check;"), "ok;");
  EXPECT_EQ(Run("tree").status, 0);
  EXPECT_EQ(Query("PRAGMA journal_mode;"), "wal;");
}

TEST_F(CatalogueGuardTest, KillsDuringTheFirstStartLeaveACatalogueTheNextStartUses) {
  for (int round = 0; round < 30; ++round) {
    for (const char* name : {"Quillora.db", "Quillora.db-wal", "Quillora.db-shm"}) fs::remove(program + "/" + name);
    const pid_t child = fork();
    if (child == 0) {
      if (chdir(program.c_str()) != 0) _exit(127);
      setenv("HOME", home.c_str(), 1);
      const int quiet = open("/dev/null", O_RDWR);
      dup2(quiet, STDOUT_FILENO);
      dup2(quiet, STDERR_FILENO);
      execl("./vantrelle-cli", "vantrelle-cli", "tree", static_cast<char*>(nullptr));
      _exit(127);
    }
    // Once the program writes the new catalogue (or has already ended), the
    // kills are spread over the making of it: time passing is the point here.
    bool ended = false;
    const std::string made = program + "/Quillora.db";
    ASSERT_TRUE(testing_support::Eventually([&] {
      std::error_code error;
      ended = waitpid(child, nullptr, WNOHANG) == child;
      const auto size = fs::file_size(made, error);
      return ended || (!error && size > 0);
    })) << "round "
        << round;
    if (!ended) {
      std::this_thread::sleep_for(std::chrono::milliseconds(round));
      kill(child, SIGKILL);
      ExitStatus(child);
    }

    const Outcome next = Run("options");
    ASSERT_EQ(next.status, 0) << "round " << round << ": " << next.err;
    ASSERT_EQ(next.out, DefaultOptions()) << "round " << round;
    ASSERT_EQ(Query("SELECT count(*) FROM Configs;"), "26;") << "round " << round;
  }
}

// Read-only storage (a read-only bind mount, which holds even for root) and
// a folder of another owner that the user may only read and enter: every
// command that changes nothing works and leaves nothing behind; one that
// would change the catalogue says it is read-only. The catalogue is one an
// older version made, whose file stamps keep no track numbers: it is read
// as it is, and gains them when next opened for writing.
TEST_F(CatalogueGuardTest, ReadOnlyStorageAndAFolderTheUserMayNotWriteServeReadingAndRefuseChanges) {
  AddMusicFolder();
  const std::string tree = Run("tree").out;
  const std::string list = Run("list folder 1").out;
  const std::string stamps = Query("SELECT FileID,ModifiedNs,Size FROM vantrelle_file_stamps;");
  Query("ALTER TABLE vantrelle_file_stamps DROP COLUMN Track;");
  const std::string trackColumns =
      "SELECT count(*) FROM pragma_table_info('vantrelle_file_stamps') WHERE name='Track';";
  ASSERT_EQ(Query(trackColumns), "0;");
  const auto names = Names(program);
  const std::string readOnly = "The catalogue is read-only. Nothing was changed in " + program + "/Quillora.db.\n";

  const bool bound = mount(program.c_str(), program.c_str(), nullptr, MS_BIND, nullptr) == 0;
  if (bound && mount(nullptr, program.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0) {
    const Outcome shown = Run("tree");
    const Outcome found = Run("search Neill");
    const Outcome edited = Run("file-info 1 --rating 4");
    umount2(program.c_str(), MNT_DETACH);
    EXPECT_EQ(shown.status, 0) << shown.err;
    EXPECT_EQ(shown.out, tree);
    EXPECT_EQ(found.status, 0) << found.err;
    EXPECT_NE(found.out.find("a.mp3"), std::string::npos) << found.out;
    EXPECT_EQ(edited.status, 1);
    EXPECT_EQ(edited.err, readOnly);
    EXPECT_EQ(Names(program), names);
  } else if (bound) {
    umount2(program.c_str(), MNT_DETACH);
  }

  OpenToEveryone();
  chmod(program.c_str(), 0555);
  for (const char* command : {"tree", "list folder 1", "search Neill", "file-info 1", "options", "drives"}) {
    const Outcome read = RunFrom(program, command, true);
    EXPECT_EQ(read.status, 0) << command << ": " << read.err;
    if (std::string(command) == "tree" || std::string(command) == "list folder 1") {
      EXPECT_EQ(read.out, std::string(command) == "tree" ? tree : list);
    }
  }
  for (const char* command : {"options --all-formats yes", "file-info 1 --title Mine", "--yes remove volume 1"}) {
    const Outcome changed = RunFrom(program, command, true);
    EXPECT_EQ(changed.status, 1) << command;
    EXPECT_NE(changed.err.find(readOnly), std::string::npos) << command << ": " << changed.err;
    EXPECT_EQ(changed.out.find("format: yes"), std::string::npos) << changed.out;
  }
  chmod(program.c_str(), 0755);
  EXPECT_EQ(Names(program), names);
  EXPECT_EQ(Query(trackColumns), "0;");
  EXPECT_EQ(Run("options").out, DefaultOptions());
  EXPECT_EQ(Run("list folder 1").out, list);
  EXPECT_EQ(Query(trackColumns), "1;");
  EXPECT_EQ(Query("SELECT FileID,ModifiedNs,Size FROM vantrelle_file_stamps;"), stamps);
  EXPECT_EQ(Query("PRAGMA integrity_check;"), "ok;");
}

// A run on a catalogue whose file the user made read-only leaves no index
// of that mode behind: once the file may be written again, changes stick.
TEST_F(CatalogueGuardTest, AfterAReadOnlyRunTheOwnerWritesAsBefore) {
  AddMusicFolder();
  OpenToEveryone();
  ASSERT_EQ(std::system(("chown -R nobody '" + program + "'").c_str()), 0);
  chmod((program + "/Quillora.db").c_str(), 0444);

  const Outcome read = RunFrom(program, "tree", true);
  EXPECT_EQ(read.status, 0) << read.err;
  EXPECT_FALSE(fs::exists(program + "/Quillora.db-shm"));
  EXPECT_FALSE(fs::exists(program + "/Quillora.db-wal"));

  chmod((program + "/Quillora.db").c_str(), 0644);
  const Outcome written = RunFrom(program, "file-info 1 --title Mine", true);
  EXPECT_EQ(written.status, 0) << written.err;
  EXPECT_EQ(Query("SELECT Title FROM MediaFiles;"), "Mine;");
}

TEST_F(CatalogueGuardTest, ControlCharactersOfTagsReachTheTerminalAsQuestionMarks) {
  AddMusicFolder();
  // Escape sequences that would clear the screen and set the window title; a C1 escape.
  ASSERT_EQ(Run("file-info 1 --title \"$(printf '\\033[2J\\033]0;owned\\007')\" "
                "--artist \"$(printf 'Caf\\303\\251 \\302\\2331m')\"")
                .status,
            0);
  const std::string row = Run("list folder 1").out;
  EXPECT_NE(row.find("\t?[2J?]0;owned?\tCafé ?1m\t"), std::string::npos) << row;
  EXPECT_EQ(row.find('\x1b'), std::string::npos);
}

}  // namespace
