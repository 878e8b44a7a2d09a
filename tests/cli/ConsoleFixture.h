#pragma once
// Runs the real vantrelle-cli from a copy in a fresh program folder, as a user
// would, and reads the catalogue it leaves behind: a portable copy, whose
// catalogue lies beside it.

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/support/TempFolder.h"

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

class ConsoleFixture : public ::testing::Test {
 protected:
  ConsoleFixture() {
    std::filesystem::copy_file(VANTRELLE_BIN_DIR "/vantrelle-cli", program + "/vantrelle-cli");
    std::ofstream(program + "/vantrelle.portable").flush();
  }

  // What `options` says of where the catalogue is.
  std::string CatalogueLine() const { return "Catalogue: " + program + "/Quillora.db\n"; }

  static std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream content;
    content << in.rdbuf();
    return content.str();
  }

  // A run that hangs is cut off by timeout (status 124); nobody answers questions.
  Outcome Run(const std::string& arguments) { return RunFrom(program, arguments); }

  // The same from another path to a program folder (a second folder, a bind
  // mount, a FUSE view), run by the user "nobody" when asNobody is true.
  Outcome RunFrom(const std::string& programPath, const std::string& arguments, bool asNobody = false) {
    const std::string out = folder.Path() + "/out", err = folder.Path() + "/err";
    const std::string user = asNobody ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    const std::string command = "cd '" + programPath + "' && " + environment + " HOME='" + home + "' timeout 60 " +
                                user + "./vantrelle-cli " + arguments + " >'" + out + "' 2>'" + err + "' </dev/null";
    const int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, ReadAll(out), ReadAll(err)};
  }

  // Runs SQL on the catalogue; the rows come back as "a=b;c=d;".
  std::string Query(const std::string& sql) {
    sqlite3* db = nullptr;
    sqlite3_open((program + "/Quillora.db").c_str(), &db);
    std::string result;
    sqlite3_exec(
        db, sql.c_str(),
        [](void* text, int columns, char** values, char**) {
          auto& out = *static_cast<std::string*>(text);
          for (int i = 0; i < columns; ++i)
            out += std::string(values[i] ? values[i] : "") + (i + 1 < columns ? "=" : ";");
          return 0;
        },
        &result, nullptr);
    sqlite3_close(db);
    return result;
  }

  // Variables set for each run ("NAME='value' ...").
  std::string environment;
  testing_support::TempFolder folder;
  std::string home = folder.MakeFolder("home");
  std::string program = folder.MakeFolder("program");
};
