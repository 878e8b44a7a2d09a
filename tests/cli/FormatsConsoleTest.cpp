// Every audio format on request, and the cover picture a file's details name.
#include "tests/cli/ConsoleFixture.h"

namespace {

namespace fs = std::filesystem;
const std::string kFixtures = VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/";

class FormatsConsoleTest : public ConsoleFixture {
 protected:
  std::string Id(const std::string& fileName) {
    const std::string id = Query("SELECT FileID FROM MediaFiles WHERE FileName='" + fileName + "';");
    return id.substr(0, id.size() - 1);
  }
};

TEST_F(FormatsConsoleTest, EveryFormatIsCataloguedOnRequestAndRemovedAfterTheQuestion) {
  const std::string mixed = folder.MakeFolder("home/Mixed");
  for (auto [fixture, name] : {std::pair{"id3v1.mp3", "a.mp3"},
                               {"lossless.flac", "b.flac"},
                               {"musepack.mpc", "c.MPC"},
                               {"pictured-speech.opus", "d.opus"},
                               {"Tone.M4A", "e.m4a"},
                               {"lying.opus", "f.opus"},
                               {"truncated.flac", "g.flac"}})
    fs::copy_file(kFixtures + fixture, mixed + "/" + name);
  fs::copy_file(kFixtures + "art.jpg", mixed + "/Cover.jpg");
  const std::string listing = "SELECT FileName, Type, id3Title, Length FROM MediaFiles ORDER BY FileName;";
  const std::string mp3 = "a.mp3=1=Café Müller=1;";

  ASSERT_EQ(Run("add-hd " + mixed).out, "Scan Complete.\n");
  EXPECT_EQ(Query(listing), mp3);
  const std::string mp3Id = Id("a.mp3");

  ASSERT_EQ(Run("options --all-formats yes").status, 0);
  EXPECT_EQ(Run("rescan volume 1").out, "Scan Complete.\n");
  EXPECT_EQ(Query(listing), mp3 +
                                "b.flac=4=Lossless Tone=1;c.MPC=5=It's Musepack=1;"
                                "d.opus=6=Opus Tone=1;e.m4a=7=Advanced Tone=1;f.opus=6==1;g.flac=4==0;");
  const Outcome flac = Run("file-info " + Id("b.flac"));
  EXPECT_NE(flac.out.find("\nFLAC Info\nLength:  0:01\n"), std::string::npos) << flac.out;
  EXPECT_NE(flac.out.find("\nPicture: Cover.jpg\n"), std::string::npos) << flac.out;
  const Outcome opus = Run("file-info " + Id("d.opus"));
  EXPECT_NE(opus.out.find("\nOpus Info\n"), std::string::npos) << opus.out;
  EXPECT_NE(opus.out.find("\nPicture: embedded\n"), std::string::npos) << opus.out;

  // Turned off, nothing goes until a scan, which asks first.
  ASSERT_EQ(Run("options --all-formats no").status, 0);
  const Outcome asked = Run("rescan volume 1");
  EXPECT_NE(asked.out.find("The catalogue holds 6 FLAC, Musepack, Opus or M4A files under C:\\Mixed\\"),
            std::string::npos)
      << asked.out;
  EXPECT_EQ(asked.out.find("Scan Complete."), std::string::npos);
  EXPECT_EQ(Query("SELECT count(*) FROM MediaFiles;"), "7;");
  EXPECT_EQ(Run("--yes rescan volume 1").out, asked.out + "Scan Complete.\n");
  EXPECT_EQ(Query(listing), mp3);
  EXPECT_EQ(Id("a.mp3"), mp3Id);
  EXPECT_EQ(Run("rescan volume 1").out, "Scan Complete.\n");  // nothing left to ask about
}

}  // namespace
