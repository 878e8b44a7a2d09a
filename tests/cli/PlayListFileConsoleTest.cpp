// export-playlist and import-playlist run as a user runs them.
#include "tests/cli/ConsoleFixture.h"
#include "tests/platform/ScopedTmpfs.h"

namespace {

namespace fs = std::filesystem;

// Three copies of one tagged file ("Café Müller" by "Dara O'Neill", 1 s),
// catalogued; a play list "Mix" of them, a removed file among them.
class PlayListFileConsoleTest : public ConsoleFixture {
 protected:
  PlayListFileConsoleTest() {
    for (const std::string name : {"Sub Dir/Café one.mp3", "two.mp3", "three.mp3"}) {
      fs::create_directories(fs::path(music + "/" + name).parent_path());
      fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", music + "/" + name);
    }
    EXPECT_EQ(Run("add-hd " + music).status, 0);
    EXPECT_EQ(Run("file-info " + Id("three.mp3") + " --title 'Rock & <Roll>'").status, 0);
    EXPECT_EQ(Run("save-playlist Mix " + Id("three.mp3") + " " + Id("Café one.mp3") + " " + Id("two.mp3")).status, 0);
    mix = Query("SELECT FileIDs FROM PlayLists;");
    Query("UPDATE PlayLists SET FileIDs=FileIDs || ',99';");
  }
  std::string Id(const std::string& name) {
    const std::string id = Query("SELECT FileID FROM MediaFiles WHERE FileName='" + name + "';");
    return id.substr(0, id.size() - 1);
  }
  std::string Stored(const std::string& name) {
    return Query("SELECT FileIDs FROM PlayLists WHERE Name='" + name + "';");
  }

  std::string music = home + "/Music";
  std::string mix;  // "3,1,2;"
};

TEST_F(PlayListFileConsoleTest, ExportedListsImportAsTheSameFiles) {
  const Outcome m3u = Run("export-playlist 1 " + home + "/mix.m3u");
  EXPECT_EQ(m3u.status, 0);
  EXPECT_EQ(m3u.out, "3 files exported.\n");
  EXPECT_EQ(ReadAll(home + "/mix.m3u"), "#EXTM3U\n#EXTINF:1,Dara O'Neill - Rock & <Roll>\n" + music +
                                            "/three.mp3\n#EXTINF:1,Dara O'Neill - Café Müller\n" + music +
                                            "/Sub Dir/Café one.mp3\n#EXTINF:1,Dara O'Neill - Café Müller\n" + music +
                                            "/two.mp3\n");
  ASSERT_EQ(Run("export-playlist 1 " + home + "/mix.m3u8").status, 0);
  EXPECT_EQ(ReadAll(home + "/mix.m3u8"), ReadAll(home + "/mix.m3u"));
  ASSERT_EQ(Run("export-playlist 1 " + home + "/mix.xspf").status, 0);
  const std::string xspf = ReadAll(home + "/mix.xspf");
  EXPECT_NE(xspf.find("<location>file://" + music + "/Sub%20Dir/Caf%C3%A9%20one.mp3</location>"), std::string::npos);
  EXPECT_NE(xspf.find("<title>Rock &amp; &lt;Roll&gt;</title>\n      <creator>Dara O'Neill</creator>\n"
                      "      <duration>1000</duration>"),
            std::string::npos)
      << xspf;

  for (const char* file : {"mix.m3u", "mix.m3u8", "mix.xspf"}) {
    const Outcome imported = Run("import-playlist " + home + "/" + file + " " + file);
    EXPECT_EQ(imported.status, 0);
    EXPECT_EQ(imported.out, "3 files imported.\n");
    EXPECT_EQ(Stored(file), mix) << file;
  }
  EXPECT_EQ(Run("import-playlist " + home + "/mix.m3u").status, 0);  // named after the file
  EXPECT_EQ(Stored("mix"), mix);
}

TEST_F(PlayListFileConsoleTest, ImportsPlsAndM3uEntriesAndNamesThoseNotCatalogued) {
  const std::string m3u = home + "/lists/mixed.m3u";
  fs::create_directories(home + "/lists");
  std::ofstream(m3u) << "\xEF\xBB\xBF#EXTM3U\r\n# a comment\r\n\r\n../Music/three.mp3\r\nfile://" << music
                     << "/Sub%20Dir/Caf%C3%A9%20one.mp3\r\n"
                     << music << "/three.mp3\r\n/nowhere/gone.mp3\r\n";
  const Outcome mixed = Run("import-playlist " + m3u + " 'Mixed list'");
  EXPECT_EQ(mixed.status, 0);
  EXPECT_EQ(mixed.out, "2 files imported.\nnot in the catalogue: /nowhere/gone.mp3\n");
  EXPECT_EQ(Stored("Mixed list"), Id("three.mp3") + "," + Id("Café one.mp3") + ";");

  std::ofstream(music + "/radio.PLS") << "[playlist]\nFile2=" << music << "/two.mp3\nfile1=three.mp3\nTitle1=x\n"
                                      << "NumberOfEntries=2\nVersion=2\n";
  EXPECT_EQ(Run("import-playlist " + music + "/radio.PLS").out, "2 files imported.\n");
  EXPECT_EQ(Stored("radio"), Id("three.mp3") + "," + Id("two.mp3") + ";");

  std::ofstream(home + "/none.xspf") << "<playlist><trackList><track><location>/gone.mp3</location>";
  const Outcome none = Run("import-playlist " + home + "/none.xspf");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.out, "0 files imported.\nnot in the catalogue: /gone.mp3\n");
  EXPECT_EQ(Stored("none"), "");
  const Outcome unreadable = Run("import-playlist " + home + "/missing.m3u");
  EXPECT_EQ(unreadable.status, 1);
  EXPECT_EQ(unreadable.err, "vantrelle-cli: cannot read " + home + "/missing.m3u: no such file\n");
}

TEST_F(PlayListFileConsoleTest, WrongArgumentsAndFailedWritesLeaveNothingBehind) {
  for (const std::string& command : {"export-playlist 1 " + home + "/mix.txt", "export-playlist 1 " + home + "/mix.pls",
                                     "export-playlist 7 " + home + "/mix.m3u", "import-playlist " + home + "/x.txt"}) {
    const Outcome wrong = Run(command);
    EXPECT_EQ(wrong.status, 2) << command;
    EXPECT_TRUE(wrong.err.starts_with("vantrelle-cli: ")) << wrong.err;
  }
  EXPECT_EQ(Run("export-playlist 7 " + home + "/mix.m3u").err,
            "vantrelle-cli: no play list with PlayListID 7 in the catalogue\n");
  EXPECT_FALSE(fs::exists(home + "/mix.m3u"));
  const Outcome noFolder = Run("export-playlist 1 " + home + "/no/mix.m3u");
  EXPECT_EQ(noFolder.status, 1);
  EXPECT_EQ(noFolder.err, "vantrelle-cli: cannot write " + home + "/no/mix.m3u: target folder missing\n");

  const std::string small = folder.MakeFolder("small");
  platform_tests::ScopedTmpfs disk(small, "16k");
  if (!disk.Mounted()) GTEST_SKIP() << "mounting a tmpfs needs privileges";
  std::ofstream(small + "/mix.m3u") << "old\n";
  std::ofstream(small + "/filler") << std::string(64 << 10, 'x');
  const Outcome full = Run("export-playlist 1 " + small + "/mix.m3u");
  EXPECT_EQ(full.status, 1);
  EXPECT_EQ(full.err, "vantrelle-cli: cannot write " + small + "/mix.m3u: disk full\n");
  EXPECT_EQ(ReadAll(small + "/mix.m3u"), "old\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(small), fs::directory_iterator()), 2);
}

}  // namespace
