#pragma once
// The now-playing strip along the bottom of the main window: the cover at
// the left, beside it the song's title and artist on lines of their own, and
// under them the play, pause or resume button, "elapsed / total", the seek
// slider and the volume slider. It shows what the logic hands it and passes
// the user's moves on; a slider the user holds is not moved under the mouse.
// User-interface thread only.

#include <QWidget>
#include <functional>
#include <string>

#include "ui/MainWindowView.h"

class QLabel;
class QPushButton;
class QSlider;
class QtCoverLoader;
class QtCoverView;

class NowPlayingBar final : public QWidget {
 public:
  // The cover's edge in pixels: room for the title, the artist and the controls beside it.
  static constexpr int kCoverEdge = 64;

  // covers: shows the playing file's cover at the left when given.
  NowPlayingBar(QWidget* parent, QtCoverLoader* covers);

  std::function<void()> onPauseResume;
  std::function<void(int ms)> onSeek;
  std::function<void(int level)> onVolume;

  void Show(const NowPlayingStrip& strip);
  void ShowVolume(int level);
  // The height the strip needs.
  int PreferredHeight() const;

  QPushButton& PauseButton() const { return *pause_; }
  QLabel& Title() const { return *title_; }
  QLabel& Artist() const { return *artist_; }
  QLabel& Time() const { return *time_; }
  QSlider& SeekSlider() const { return *seek_; }
  QSlider& VolumeSlider() const { return *volume_; }
  QtCoverView* Cover() const { return cover_; }

 private:
  QLayout* MakeControlsRow();
  void ShowButton(const NowPlayingStrip& strip);
  void ShowSeekSlider(const NowPlayingStrip& strip);
  void ShowCover(const NowPlayingStrip& strip);
  QPushButton* pause_;  // children of the strip
  QLabel* title_;
  QLabel* artist_;
  QLabel* time_;
  QSlider* seek_;
  QSlider* volume_;
  QtCoverView* cover_ = nullptr;
  int coverFileId_ = 0;  // whose cover was asked for
  std::string coverPath_;
  bool showing_ = false;  // the sliders move for a status, not for the user
};
