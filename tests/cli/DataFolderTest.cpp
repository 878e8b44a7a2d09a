// Where the console keeps its catalogue when installed, when told, and when
// it is a portable copy: the real program, run with a chosen environment.
#include <sys/stat.h>

#include "tests/cli/ConsoleFixture.h"

namespace {

namespace fs = std::filesystem;

class DataFolderTest : public ConsoleFixture {
 protected:
  DataFolderTest() { fs::remove(program + "/vantrelle.portable"); }

  // The program run with only these variables (and PATH) set.
  Outcome RunWith(const std::string& variables, const std::string& arguments) {
    const std::string out = folder.Path() + "/out", err = folder.Path() + "/err";
    const std::string command = "cd '" + program + "' && env -i PATH=\"$PATH\" " + variables +
                                " timeout 60 ./vantrelle-cli " + arguments + " >'" + out + "' 2>'" + err +
                                "' </dev/null";
    const int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, ReadAll(out), ReadAll(err)};
  }

  std::string CatalogueOf(const Outcome& outcome) {
    const auto at = outcome.out.find("Catalogue: ");
    return at == std::string::npos ? "" : outcome.out.substr(at + 11, outcome.out.find('\n', at) - at - 11);
  }

  std::vector<std::string> ProgramFolderHolds() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(program)) names.push_back(entry.path().filename());
    return names;
  }
};

TEST_F(DataFolderTest, AnInstalledProgramKeepsItsCatalogueInTheUsersDataFolder) {
  const Outcome first = RunWith("HOME='" + home + "'", "options");
  ASSERT_EQ(first.status, 0) << first.err;
  const std::string data = home + "/.local/share/vantrelle";
  EXPECT_EQ(CatalogueOf(first), data + "/Quillora.db");
  EXPECT_TRUE(fs::is_regular_file(data + "/Quillora.db"));
  EXPECT_TRUE(fs::is_symlink(data + "/drives/c:"));
  struct stat facts {};
  ASSERT_EQ(stat(data.c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777, 0700u);
  EXPECT_EQ(ProgramFolderHolds(), std::vector<std::string>{"vantrelle-cli"});

  const std::string xdg = folder.Path() + "/xdg";
  EXPECT_EQ(CatalogueOf(RunWith("HOME='" + home + "' XDG_DATA_HOME='" + xdg + "'", "options")),
            xdg + "/vantrelle/Quillora.db");
  // A relative XDG_DATA_HOME is ignored, as the base directory rules say.
  EXPECT_EQ(CatalogueOf(RunWith("HOME='" + home + "' XDG_DATA_HOME=relative", "options")), data + "/Quillora.db");
  const std::string mine = folder.Path() + "/mine";
  EXPECT_EQ(
      CatalogueOf(RunWith("HOME='" + home + "' XDG_DATA_HOME='" + xdg + "' VANTRELLE_DATA='" + mine + "'", "options")),
      mine + "/Quillora.db");
  const Outcome relative = RunWith("HOME='" + home + "' VANTRELLE_DATA=relative", "options");
  EXPECT_EQ(relative.status, 1);
  EXPECT_NE(relative.err.find("VANTRELLE_DATA must name a folder by its absolute path"), std::string::npos);
}

TEST_F(DataFolderTest, APortableCopyAndAnOldCatalogueStayBesideTheProgram) {
  std::ofstream(program + "/vantrelle.portable").flush();
  EXPECT_EQ(CatalogueOf(RunWith("HOME='" + home + "'", "options")), program + "/Quillora.db");
  // A catalogue made before the data folder existed stays where it is.
  fs::remove(program + "/vantrelle.portable");
  EXPECT_EQ(CatalogueOf(RunWith("HOME='" + home + "'", "options")), program + "/Quillora.db");
  EXPECT_FALSE(fs::exists(home + "/.local"));
}

TEST_F(DataFolderTest, AFolderThatCannotBeMadeIsNamedWithWhatToDo) {
  folder.WriteFile("home/.local", "a file where a folder should be");
  const Outcome refused = RunWith("HOME='" + home + "'", "tree");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find(home + "/.local/share/vantrelle"), std::string::npos) << refused.err;
  EXPECT_NE(refused.err.find("Set VANTRELLE_DATA"), std::string::npos) << refused.err;
  EXPECT_EQ(refused.out, "");
}

}  // namespace
