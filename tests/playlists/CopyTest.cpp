#include <sys/mount.h>

#include <atomic>
#include <thread>

#include "playlists/CopyCommands.h"
#include "playlists/CopyWorker.h"
#include "playlists/FileIds.h"
#include "tests/platform/ScopedTmpfs.h"
#include "tests/playlists/PlayListFixture.h"
#include "tests/support/Eventually.h"
#include "tests/support/WorkerDialogDriver.h"

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;
using platform::Answer;

void WaitFor(const std::function<bool()>& condition) { EXPECT_TRUE(testing_support::Eventually(condition)); }

class CopyTest : public PlayListTest {
 protected:
  void Hold(const IdList& ids) {
    list.rows.clear();
    app->PlayList().AddFiles(ids);
  }
  CopyJob& Job() { return app->PlayList().Copy(); }
  // The last copy's files not copied, as "name: reason".
  Strings NotCopied() {
    Strings lines;
    for (const NotCopiedFile& file : Job().summary.NotCopied())
      lines.push_back(file.fileName + ": " + (file.alreadyThere ? "already there" : file.reason));
    return lines;
  }

  testing_support::WorkerDialogDriver dialogs{messages};
  CopyCommands copy{app->PlayList(), app->Db(), app->Drives(), app->Settings(), dialogs};
};

TEST_F(CopyTest, TwoCdsAndADiskGoVolumeByVolumeAskingForEachDiscOnce) {
  const int jazz = AddVolume(5, "Jazz 1", 0x1111), rock = AddVolume(5, "Rock 1", 0x2222);
  const IdList ids = {AddFile("j.mp3", "jazz", jazz, "\\", "Jazz 1"), AddFile("same.mp3", "disk"),
                      AddFile("r.mp3", "rock", rock, "\\", "Rock 1"),
                      AddFile("same.mp3", "jazz", jazz, "\\Set\\", "Jazz 1/Set")};
  fs::permissions(Local("Jazz 1/j.mp3"), fs::perms::owner_read);  // as files on a CD are
  Hold(ids);
  messages.Script({Answer::Ok, Answer::Ok});
  messages.OnShow([&](const testing_support::ShownMessage& shown) {
    drives.InsertDisc('E', Local(shown.text.find("Jazz") != std::string::npos ? "Jazz 1" : "Rock 1"));
  });

  copy.CopyToCache();
  EXPECT_EQ(
      messages.Texts(),
      (Strings{"Please insert 'Jazz 1' into drive E:", "Please insert 'Rock 1' into drive E:", "File Copy Complete."}));
  EXPECT_EQ(Read("c/QORCache/same.mp3"), "jazz");  // the Jazz disc went before the disk
  EXPECT_EQ(Read("c/QORCache/j.mp3") + Read("c/QORCache/r.mp3"), "jazzrock");
  EXPECT_NE(fs::status(Local("c/QORCache/j.mp3")).permissions() & fs::perms::owner_write, fs::perms::none);
  EXPECT_EQ(dialogs.statusTexts.back(), "E:\\r.mp3");
  EXPECT_EQ(Job().state.progress, 25);  // counted again from 0 for the last volume
  EXPECT_EQ(NotCopied(), Strings{"same.mp3: already there"});
  EXPECT_EQ(app->Db().GetPlayList(app->PlayList().SavePlayList("Trip"))->FileIDs, BuildIdList(ids));

  // Cancel at the first disc prompt skips that disc and every later volume.
  drives.Eject('E');
  messages.OnShow(nullptr);
  copy.CopyFiles("C:\\Elsewhere", false);
  EXPECT_EQ(Read("c/Elsewhere/same.mp3"), "");
  EXPECT_EQ(messages.Texts().back(), "File Copy Complete.");
  EXPECT_EQ(NotCopied(), (Strings{"j.mp3: disc not inserted", "same.mp3: disc not inserted", "same.mp3: copy cancelled",
                                  "r.mp3: copy cancelled"}));
  EXPECT_EQ(Job().summary.NotCopied()[0].source, "E:\\j.mp3");
}

TEST_F(CopyTest, ProgressCountsEveryListedFileAndStartsWhereTheLastCopyLeftIt) {
  const int other = AddVolume(3, "Other", 2);
  const IdList ids = {AddFile("a.mp3"), AddFile("b.mp3"), AddFile("c.mp3", "", other)};
  CopyWorker worker(app->Db(), app->Drives(), "E", Job());
  Job().target = "C:\\Out";
  worker.CopyVolumeFiles(ids, disk);
  EXPECT_EQ(Job().state.progress, 66);
  worker.CopyVolumeFiles(ids, other);
  EXPECT_EQ(Job().state.progress, 33);
  worker.CopyVolumeFiles({ids[0], ids[1]}, disk);
  EXPECT_EQ(Job().state.progress, 100);

  // The disc prompt holds the worker until the dialog has shown its bar.
  Hold({AddFile("d.mp3", "", AddVolume(5, "Disc", 7), "\\", "Disc")});
  std::atomic<bool> shown{false};
  dialogs.beforeTick = [&](CWorkerDlg&, int tick) { shown = tick > 0; };
  messages.OnShow([&](const testing_support::ShownMessage&) { WaitFor([&] { return shown.load(); }); });
  copy.CopyToCache();
  EXPECT_EQ(dialogs.positions.back(), 100);
  EXPECT_EQ(dialogs.overallTexts.back(), "0 of 1 file");  // the disc never came
  EXPECT_EQ(messages.Texts().back(), "File Copy Complete.");
}

TEST_F(CopyTest, CancelClosesAtOnceAndTheWorkerStopsBeforeTheNextFile) {
  Hold({AddFile("a.mp3"), AddFile("b.mp3", "disc", AddVolume(5, "Disc", 7), "\\", "Disc")});
  std::atomic<bool> prompted{false};
  messages.Script({Answer::Ok});
  messages.OnShow([&](const testing_support::ShownMessage&) {
    prompted = true;
    WaitFor([&] { return Job().state.cancel.load(); });
    drives.InsertDisc('E', Local("Disc"));  // too late: the dialog has gone
  });
  dialogs.beforeTick = [&](CWorkerDlg& dialog, int) {
    WaitFor([&] { return prompted.load(); });
    dialog.OnCancel();
  };
  copy.CopyToCache();
  EXPECT_EQ(dialogs.endedWith, 0);
  EXPECT_TRUE(Job().state.done);  // the worker was waited for
  EXPECT_EQ(messages.Texts(), Strings{"Please insert 'Disc' into drive E:"});
  EXPECT_EQ(Read("c/QORCache/a.mp3") + Read("c/QORCache/b.mp3"), "data");
  EXPECT_EQ(NotCopied(), Strings{"b.mp3: copy cancelled"});
}

TEST_F(CopyTest, NothingThatIsThereChangesAndEveryFileNotCopiedIsReported) {
  folder.WriteFile("c/QORCache/a.mp3", "mine");
  const std::int32_t gone = AddFile("gone.mp3"), removedRow = AddFile("removed.mp3");
  fs::remove(Local("c/Music/gone.mp3"));
  Hold({AddFile("a.mp3", "new"), gone, AddFile("b.mp3", "first"), removedRow,
        AddFile("b.mp3", "second", 0, "\\Other\\", "c/Other")});
  testing_support::RunSql(app->Db(), "DELETE FROM MediaFiles WHERE FileID=" + std::to_string(removedRow) + ";");

  copy.CopyToCache();
  EXPECT_EQ(Read("c/QORCache/a.mp3") + Read("c/QORCache/b.mp3"), "minefirst");
  EXPECT_FALSE(fs::exists(Local("c/QORCache/gone.mp3")) || fs::exists(Local("c/QORCache/removed.mp3")));
  EXPECT_EQ(NotCopied(), (Strings{"a.mp3: already there", "gone.mp3: source missing", "b.mp3: already there",
                                  "FileID 2: not in the catalogue"}));
  copy.CopyFiles("C:\\Missing\\Folder", false);
  EXPECT_EQ(NotCopied()[0], "a.mp3: target folder missing");
  EXPECT_EQ(Job().summary.Failed(), 5);
  EXPECT_EQ(messages.Texts(), Strings(2, "File Copy Complete."));
}

TEST_F(CopyTest, ATargetThatFillsUpOrTurnsReadOnlyLosesNothing) {
  const std::string small = folder.MakeFolder("c/Small");
  platform_tests::ScopedTmpfs tmpfs(small, "64k");
  if (!tmpfs.Mounted()) GTEST_SKIP() << "mounting a tmpfs is not allowed here";
  folder.WriteFile("c/Small/keep.mp3", "kept");
  const std::string big(40 * 1024, 'x');
  Hold({AddFile("one.mp3", big), AddFile("two.mp3", big), AddFile("three.mp3", "small")});
  const auto target = [&] { return Read("c/Small/one.mp3") + Read("c/Small/three.mp3") + Read("c/Small/keep.mp3"); };

  copy.CopyFiles("C:\\Small", false);
  EXPECT_EQ(NotCopied(), Strings{"two.mp3: disk full"});
  EXPECT_EQ(target(), big + "smallkept");
  EXPECT_EQ(std::distance(fs::directory_iterator(small), fs::directory_iterator()), 3);  // no part file left
  ASSERT_EQ(mount("tmpfs", small.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
  copy.CopyFiles("C:\\Small", false);
  EXPECT_EQ(NotCopied(),
            (Strings{"one.mp3: already there", "two.mp3: target is read-only", "three.mp3: already there"}));
  EXPECT_EQ(target(), big + "smallkept");
  EXPECT_EQ(messages.Texts(), Strings(2, "File Copy Complete."));
}

}  // namespace
