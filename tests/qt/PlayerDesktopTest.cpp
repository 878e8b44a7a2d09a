// The desktop program playing: the player on its own thread as the program
// runs it, over a media control that answers like a device and whose open
// can be held as long as a slow disc takes.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <future>

#include "playback/PlayerThread.h"
#include "qt/NowPlayingBar.h"
#include "qt/dialogs/QtCoverView.h"
#include "qt/dialogs/QueuedCalls.h"
#include "tests/qt/DesktopFixture.h"

namespace {

class PlayerDesktopTest : public DesktopTest {
 protected:
  PlayerDesktopTest() {
    app.Playback().UseRunner(&thread);
    media.Answer("status QL_MCI_DEV_1 length", 0, "245000");
    media.Answer("status QL_MCI_DEV_1 position", 0, "83000");
    media.Answer("status QL_MCI_DEV_1 mode", 0, "playing");
  }
  ~PlayerDesktopTest() override { app.Playback().UseRunner(nullptr); }

  QueuedCalls mainThread;  // the player thread's results reach the test through it
  PlayerThread thread{app.Player(), [this](std::function<void()> done) { mainThread.Post(std::move(done)); }};
};

TEST_F(PlayerDesktopTest, ASlowOpenLeavesTheWindowAnsweringThenTheStripFollowsThePlayer) {
  std::filesystem::copy_file(VANTRELLE_SOURCE_DIR "/tests/fixtures/audio/art.jpg", home + "/Music/Rock/Cover.JPG");
  AddMusicFolder();
  Click(Node("Rock"));
  std::promise<void> release;
  std::shared_future<void> released = release.get_future().share();
  std::atomic<bool> opening = false;
  media.BeforeEachCommand([&](const std::string& command) {
    if (!command.starts_with("open")) return;
    opening = true;
    released.wait();
  });

  ClickRow(List(), 0);
  QTest::mouseClick(window->Button(CMainDlg::kPlay), Qt::LeftButton);
  int ticks = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
  timer.start(5);
  ASSERT_EVENTUALLY(opening);
  ASSERT_EVENTUALLY(ticks >= 10);  // the event loop turns while the open is held
  EXPECT_FALSE(window->Strip().PauseButton().isEnabled());
  release.set_value();

  NowPlayingBar& strip = window->Strip();
  ASSERT_EVENTUALLY(strip.Time().text() == QStringLiteral("1:23 / 4:05"));
  EXPECT_EQ(strip.Title().text(), QStringLiteral("Café Müller"));
  EXPECT_EQ(strip.Artist().text(), QStringLiteral("Dara O'Neill"));
  EXPECT_EQ(strip.SeekSlider().value(), 83000);
  ASSERT_EVENTUALLY(!strip.Cover()->pixmap().isNull());  // the folder's picture, read off this thread
  EXPECT_GE(strip.Cover()->height(), NowPlayingBar::kCoverEdge);
  EXPECT_GE(strip.height(), NowPlayingBar::kCoverEdge);
  EXPECT_GT(strip.Title().x(), strip.Cover()->geometry().right());
  EXPECT_TRUE(std::ranges::count(messages.Texts(), std::string(CPlaybackControl::kCannotPlay)) == 0);

  // Space pauses, the button then offers to resume; the sliders send their levels.
  QTest::keyClick(&List(), Qt::Key_Space);
  ASSERT_EVENTUALLY(media.Received("pause QL_MCI_DEV_1"));
  media.Answer("status QL_MCI_DEV_1 mode", 0, "paused");
  ASSERT_EVENTUALLY(strip.PauseButton().text() == QStringLiteral("Resume"));
  QTest::mouseClick(&strip.PauseButton(), Qt::LeftButton);
  ASSERT_EVENTUALLY(media.Received("resume QL_MCI_DEV_1"));
  strip.SeekSlider().setValue(120000);
  ASSERT_EVENTUALLY(media.Received("seek QL_MCI_DEV_1 to 120000"));
  strip.VolumeSlider().setValue(300);
  ASSERT_EVENTUALLY(media.Received("setaudio QL_MCI_DEV_1 volume to 300"));
  EXPECT_EQ(app.Settings().volume, 300);

  // Played to its end, the file is shown no more and the button offers to play.
  media.Answer("status QL_MCI_DEV_1 mode", 0, "stopped");
  ASSERT_EVENTUALLY(strip.Time().text() == QStringLiteral("0:00"));
  EXPECT_TRUE(strip.Title().text().isEmpty());
  EXPECT_EQ(strip.PauseButton().text(), QStringLiteral("Play"));
  EXPECT_TRUE(strip.PauseButton().isEnabled());
  EXPECT_EQ(strip.SeekSlider().value(), 0);

  // Enter in the list plays the selected file; Ctrl+F goes to Find.
  media.Forget();
  ClickRow(List(), 1);
  QTest::keyClick(&List(), Qt::Key_Return);
  ASSERT_EVENTUALLY(media.Received("open \"C:\\Music\\Rock\\SONG.MP3\" type mpegvideo alias QL_MCI_DEV_1"));
  QTest::keyPress(&List(), Qt::Key_Control, Qt::ControlModifier);
  QTest::keyClick(&List(), Qt::Key_F, Qt::ControlModifier);
  QTest::keyRelease(&List(), Qt::Key_Control);
  EXPECT_EQ(window->focusWidget(), static_cast<QWidget*>(&window->FindField()));
  EXPECT_TRUE(window->isVisible());
}

TEST_F(PlayerDesktopTest, ThePlayListPlaysThroughMarksThePlayingRowAndTheButtonIsKept) {
  AddMusicFolder();
  Click(Node("Rock"));
  ClickRow(List(), 0);
  ClickRow(List(), 1, Qt::ShiftModifier);
  user::ChooseFromMenu("Add To PlayList");
  RightClick(List(), 1);
  ASSERT_EQ(PlayList().RowCount(), 2);
  QPushButton* through = window->PlayList().Button(CPlayListDlg::kPlayThrough);
  ASSERT_NE(through, nullptr);
  EXPECT_TRUE(through->isChecked());

  ClickRow(PlayList(), 0);
  QTest::keyClick(&PlayList(), Qt::Key_Return);
  const auto bold = [this](int row) {
    return PlayList().model()->index(row, 0).data(Qt::FontRole).value<QFont>().bold();
  };
  ASSERT_EVENTUALLY(bold(0));
  EXPECT_FALSE(bold(1));
  // The first file ends: the second plays and is marked.
  media.Answer("status QL_MCI_DEV_1 position", 0, "245000");
  media.Answer("status QL_MCI_DEV_1 mode", 0, "stopped");
  ASSERT_EVENTUALLY(media.Received("open \"C:\\Music\\Rock\\SONG.MP3\" type mpegvideo alias QL_MCI_DEV_1"));
  media.Answer("status QL_MCI_DEV_1 mode", 0, "playing");
  ASSERT_EVENTUALLY(bold(1));
  EXPECT_FALSE(bold(0));

  // Play in the main list plays on into the rows below the file.
  media.Forget();
  ClickRow(List(), 0);
  QTest::mouseClick(window->Button(CMainDlg::kPlay), Qt::LeftButton);
  ASSERT_EVENTUALLY(media.Received("cue QL_MCI_DEV_1 \"C:\\Music\\Rock\\SONG.MP3\""));

  // Shuffle, Repeat and the rows are there again at the next start.
  QTest::mouseClick(window->PlayList().Button(CPlayListDlg::kShuffle), Qt::LeftButton);
  QTest::mouseClick(window->PlayList().Button(CPlayListDlg::kRepeat), Qt::LeftButton);
  EXPECT_EQ(window->PlayList().Button(CPlayListDlg::kRepeat)->text(), QStringLiteral("Repeat: all"));
  const Strings rows = Column(PlayList(), 0);
  Restart();
  EXPECT_EQ(Column(PlayList(), 0), rows);
  EXPECT_TRUE(window->PlayList().Button(CPlayListDlg::kShuffle)->isChecked());
  through = window->PlayList().Button(CPlayListDlg::kPlayThrough);
  QTest::mouseClick(through, Qt::LeftButton);
  EXPECT_FALSE(through->isChecked());
  EXPECT_FALSE(app.Settings().playThrough);
  app.Exit();
  EXPECT_EQ(app.Db().GetConfig(CAppSettings::kShuffle), "1");
  EXPECT_EQ(app.Db().GetConfig(CAppSettings::kRepeat), "all");
}

}  // namespace
