// The catalogue under ordinary faults, with the real vantrelle-cli: a second
// program, kills during the first start, read-only storage, hostile tags.
#include <fcntl.h>
#include <signal.h>
#include <sys/mount.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "tests/cli/ConsoleFixture.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class CatalogueGuardTest : public ConsoleFixture {
 protected:
  // Starts vantrelle-cli with a terminal for its standard input, so that its
  // questions wait for an answer; standard output goes to the file "out".
  pid_t StartOnTerminal(const std::string& arguments) {
    terminal_ = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal_ < 0 || grantpt(terminal_) != 0 || unlockpt(terminal_) != 0) return -1;
    const std::string secondary = ptsname(terminal_);
    const std::string command = "cd '" + program + "' && HOME='" + home + "' exec ./vantrelle-cli " +
                                arguments + " >'" + folder.Path() + "/out' 2>/dev/null";
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
    for (auto waited = 0ms; waited < 20s; waited += 20ms) {
      if (ReadAll(folder.Path() + "/out").find(text) != std::string::npos) return true;
      std::this_thread::sleep_for(20ms);
    }
    return false;
  }

  void Answer(const std::string& line) { ASSERT_EQ(write(terminal_, line.data(), line.size()), static_cast<ssize_t>(line.size())); }

  static int ExitStatus(pid_t child) {
    int raw = 0;
    waitpid(child, &raw, 0);
    return WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  }

  void TearDown() override {
    if (terminal_ >= 0) close(terminal_);
  }

  int terminal_ = -1;
};

TEST_F(CatalogueGuardTest, ASecondProgramIsRefusedWhileTheFirstScansAndNothingIsLost) {
  ASSERT_EQ(Run("options").status, 0);
  const std::string disc = folder.Path() + "/disc";
  fs::create_symlink(disc, program + "/drives/e::");
  ASSERT_EQ(Run("options --cd-drive E").status, 0);

  // The first program waits with the catalogue open: the CD drive is empty.
  const pid_t first = StartOnTerminal("add-cd");
  ASSERT_GT(first, 0);
  ASSERT_TRUE(WaitForOutput("[Retry/Cancel]"));

  for (const char* command : {"tree", "search x", "remove volume 1", "add-hd ."}) {
    const Outcome second = Run(command);
    EXPECT_EQ(second.status, 4) << command;
    EXPECT_EQ(second.err, "The catalogue is in use by another Vantrelle program (process " +
                              std::to_string(first) + ").\n");
  }

  fs::create_directories(disc + "/Album");
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", disc + "/Album/a.mp3");
  Answer("retry\n");
  EXPECT_EQ(ExitStatus(first), 0);
  EXPECT_NE(ReadAll(folder.Path() + "/out").find("Scan Complete."), std::string::npos);
  EXPECT_EQ(Query("SELECT FileName, ScanState FROM MediaFiles;"), "a.mp3=2;");
  EXPECT_EQ(Run("tree").status, 0);  // the catalogue is free again
}

TEST_F(CatalogueGuardTest, KillsDuringTheFirstStartLeaveACatalogueTheNextStartUses) {
  for (int round = 0; round < 30; ++round) {
    for (const char* name : {"Quillora.db", "Quillora.db-wal", "Quillora.db-shm"})
      fs::remove(program + "/" + name);
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
    // Spread the kills over the start-up: from before the catalogue exists to after it is made.
    std::this_thread::sleep_for(std::chrono::milliseconds(round));
    kill(child, SIGKILL);
    ExitStatus(child);

    const Outcome next = Run("options");
    ASSERT_EQ(next.status, 0) << "round " << round << ": " << next.err;
    ASSERT_EQ(next.out, "Cache Path: C:\\QORCache\nCD Drive: \nCatalogue every audio format: no\n" + CatalogueLine())
        << "round " << round;
    ASSERT_EQ(Query("SELECT count(*) FROM Configs;"), "23;") << "round " << round;
  }
}

TEST_F(CatalogueGuardTest, AReadOnlyCatalogueServesTreeAndSearch) {
  fs::create_directories(home + "/Music");
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Music/a.mp3");
  ASSERT_EQ(Run("add-hd " + home + "/Music").status, 0);
  const std::string tree = Run("tree").out;

  // Read-only storage: a read-only bind mount for root, who may write anything else.
  const bool mounted = mount(program.c_str(), program.c_str(), nullptr, MS_BIND, nullptr) == 0 &&
                       mount(nullptr, program.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY,
                             nullptr) == 0;
  if (!mounted) {
    if (geteuid() == 0) GTEST_SKIP() << "no read-only mount";
    fs::permissions(program + "/Quillora.db", fs::perms::owner_read);
    fs::permissions(program, fs::perms::owner_read | fs::perms::owner_exec);
  }
  const Outcome shown = Run("tree");
  const Outcome found = Run("search Neill");
  const Outcome listed = Run("list folder 1");
  if (mounted)
    umount2(program.c_str(), MNT_DETACH);
  else
    fs::permissions(program, fs::perms::owner_all);

  EXPECT_EQ(shown.status, 0) << shown.err;
  EXPECT_EQ(shown.out, tree);
  EXPECT_EQ(found.status, 0) << found.err;
  EXPECT_NE(found.out.find("a.mp3"), std::string::npos) << found.out;
  EXPECT_EQ(listed.status, 0) << listed.err;
}

TEST_F(CatalogueGuardTest, ControlCharactersOfTagsReachTheTerminalAsQuestionMarks) {
  fs::create_directories(home + "/Music");
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Music/a.mp3");
  ASSERT_EQ(Run("add-hd " + home + "/Music").status, 0);
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
