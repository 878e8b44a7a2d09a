// Runs the real vantrelle-cli from a copy in a fresh program folder, as a user would.
#include "tests/cli/ConsoleFixture.h"

namespace {

namespace fs = std::filesystem;
using ConsoleTest = ConsoleFixture;

TEST_F(ConsoleTest, FirstRunCreatesTheCatalogueAndLaterRunsKeepTheOptions) {
  Outcome first = Run("options");
  EXPECT_EQ(first.status, 0) << first.err;
  EXPECT_EQ(first.out, "Cache Path: C:\\QORCache\nCD Drive: \nCatalogue every audio format: no\nReplayGain: track\n" +
                           CatalogueLine());
  EXPECT_TRUE(fs::is_directory(home + "/QORCache"));
  EXPECT_TRUE(fs::is_symlink(program + "/drives/c:"));
  EXPECT_EQ(Query("SELECT ConfigID, Value FROM Configs WHERE ConfigID IN (1, 410, 605);"),
            "1=2.1;410=C:\\QORCache;605=;");

  // A CD drive whose disc is a folder, added to the table by hand.
  fs::create_symlink(folder.MakeFolder("disc"), program + "/drives/e::");
  const std::string options =
      "Cache Path: C:\\Cache\nCD Drive: E\nCatalogue every audio format: yes\nReplayGain: album\n" + CatalogueLine();
  Outcome changed = Run("options --cache-path " + home + "/Cache --cd-drive e: --all-formats YES --replaygain Album");
  EXPECT_EQ(changed.status, 0) << changed.err;
  EXPECT_EQ(changed.out, options);
  EXPECT_EQ(Run("options").out, options);
  EXPECT_EQ(Query("SELECT count(*) FROM Configs;"), "26;");  // settings and id marks
  EXPECT_EQ(Query("SELECT Value FROM Configs WHERE ConfigID=710;"), "1;");
  EXPECT_EQ(Query("SELECT Value FROM Configs WHERE ConfigID=715;"), "album;");
  EXPECT_EQ(Run("options --all-formats maybe").status, 2);
  EXPECT_EQ(Run("options --replaygain loud").status, 2);

  Outcome wrongDrive = Run("options --cd-drive C --cache-path 'D:\\x'");
  EXPECT_EQ(wrongDrive.status, 2);
  EXPECT_EQ(wrongDrive.err, "vantrelle-cli: drive C: is not a CD drive of the drive table\n");
  EXPECT_EQ(Run("options").out, options);  // nothing half-done

  EXPECT_EQ(Run("no-such-command").status, 2);
  Outcome drives = Run("drives");
  EXPECT_NE(drives.out.find("E:\t5\t" + folder.Path() + "/disc\tready\t"), std::string::npos) << drives.out;
}

// The cache folder stays on its drive: ".." resolved, refused where it
// climbs above the root, and one stored so by an older version never emptied.
TEST_F(ConsoleTest, TheCacheFolderStaysOnItsDrive) {
  Run("options");
  fs::create_directories(home + "/Music");
  const Outcome resolved = Run("options --cache-path 'c:\\music\\..\\Cache'");
  EXPECT_EQ(resolved.status, 0) << resolved.err;
  EXPECT_EQ(resolved.out.substr(0, resolved.out.find('\n')), "Cache Path: C:\\Cache");

  const Outcome above = Run("options --cache-path 'C:\\Music\\..\\..'");
  EXPECT_EQ(above.status, 2);
  EXPECT_EQ(above.err, "vantrelle-cli: the folder 'C:\\Music\\..\\..' lies above the root of drive C:\n");
  EXPECT_EQ(Query("SELECT Value FROM Configs WHERE ConfigID=410;"), "C:\\Cache;");

  const std::string kept = folder.WriteFile("kept.txt", "beside the drive's root");
  Query("UPDATE Configs SET Value='C:\\..' WHERE ConfigID=410;");
  const Outcome cleared = Run("--yes clear-cache");
  EXPECT_EQ(cleared.status, 0);
  EXPECT_TRUE(fs::exists(kept));
  EXPECT_NE(cleared.out.find("The folder C:\\.. lies above the root of its drive: nothing was done."),
            std::string::npos)
      << cleared.out;
}

TEST_F(ConsoleTest, ACatalogueOfAnotherVersionIsRefusedAfterStartUp) {
  Run("options");
  Query("UPDATE Configs SET Value='3.0' WHERE ConfigID=1;");
  Outcome refused = Run("options --cache-path 'C:\\Elsewhere'");
  EXPECT_EQ(refused.status, 3);
  EXPECT_EQ(refused.out, "Incompatible database version (3.0)!\n");
  EXPECT_EQ(Query("SELECT Value FROM Configs WHERE ConfigID=410;"), "C:\\QORCache;");
}

TEST_F(ConsoleTest, AFileThatIsNoCatalogueIsLeftAloneWithOneLineOfReason) {
  const std::string text = "My shopping list\n";
  folder.WriteFile("program/Quillora.db", text);
  Outcome failed = Run("options");
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.out, "");
  EXPECT_EQ(std::count(failed.err.begin(), failed.err.end(), '\n'), 1) << failed.err;
  EXPECT_NE(failed.err.find("file is not a database"), std::string::npos) << failed.err;
  EXPECT_EQ(ReadAll(program + "/Quillora.db"), text);
}

TEST_F(ConsoleTest, AddHdAndAddCdScanWithProgressOnStandardError) {
  fs::create_directories(home + "/Music/Rock");
  fs::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/id3v1.mp3", home + "/Music/Rock/a.mp3");
  Outcome added = Run("add-hd " + home + "/Music");
  EXPECT_EQ(added.status, 0) << added.err;
  EXPECT_EQ(added.out, "Scan Complete.\n");
  EXPECT_NE(added.err.find("%"), std::string::npos);  // the progress bar
  EXPECT_EQ(Query("SELECT FullPath FROM MediaPaths;"), "\\Music\\;\\Music\\Rock\\;");
  EXPECT_EQ(Query("SELECT FileName, ScanState, id3Artist FROM MediaFiles;"), "a.mp3=2=Dara O'Neill;");
  EXPECT_EQ(Run("add-hd 'C:\\Music'").status, 0);  // the same folder as a drive path
  EXPECT_EQ(Query("SELECT count(*) FROM MediaFiles;"), "1;");
  EXPECT_EQ(Run("add-hd " + home + "/Nothing").status, 2);

  // An empty CD drive: the question is answered Cancel when no one can answer it.
  fs::create_symlink(folder.Path() + "/no-disc", program + "/drives/e::");
  Run("options --cd-drive E");
  Outcome noDisc = Run("add-cd");
  EXPECT_EQ(noDisc.status, 0);
  EXPECT_EQ(noDisc.out, "Please Insert CD into drive E:\n");
  Outcome insisted = Run("--yes add-cd");  // gives up once it is plain no disc is coming
  EXPECT_EQ(insisted.status, 0);
  EXPECT_EQ(std::count(insisted.out.begin(), insisted.out.end(), '\n'), 4);
  EXPECT_EQ(Query("SELECT count(*) FROM MediaVolumes;"), "1;");
}

}  // namespace
