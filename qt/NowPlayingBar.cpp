#include "qt/NowPlayingBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include "qt/dialogs/QtCoverView.h"
#include "qt/dialogs/QtText.h"

namespace {

constexpr int kVolumeWidth = 70;
constexpr int kSeekMinimumWidth = 60;
constexpr int kPageStepMs = 10000;
constexpr int kVolumeStep = 50;

QString SongAndArtist(const NowPlayingStrip& strip) {
  if (strip.artist.empty()) return ToQString(strip.song);
  if (strip.song.empty()) return ToQString(strip.artist);
  return ToQString(strip.song) + QStringLiteral(" \u2014 ") + ToQString(strip.artist);
}

}  // namespace

NowPlayingBar::NowPlayingBar(QWidget* parent, QtCoverLoader* covers)
    : QWidget(parent),
      pause_(new QPushButton(QStringLiteral("Pause"), this)),
      song_(new QLabel(this)),
      time_(new QLabel(QStringLiteral("0:00 / 0:00"), this)),
      seek_(new QSlider(Qt::Horizontal, this)),
      volume_(new QSlider(Qt::Horizontal, this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  pause_->setToolTip(QStringLiteral("Pause or resume (Space)"));
  song_->setTextInteractionFlags(Qt::NoTextInteraction);
  song_->setMinimumWidth(40);
  seek_->setMinimumWidth(kSeekMinimumWidth);
  seek_->setPageStep(kPageStepMs);
  seek_->setToolTip(QStringLiteral("Position"));
  volume_->setRange(0, 1000);
  volume_->setPageStep(kVolumeStep);
  volume_->setFixedWidth(kVolumeWidth);
  volume_->setToolTip(QStringLiteral("Volume"));
  if (covers) {
    cover_ = new QtCoverView(*covers, pause_->sizeHint().height(), this);
    row->addWidget(cover_);
  }
  row->addWidget(pause_);
  row->addWidget(song_, 2);
  row->addWidget(time_);
  row->addWidget(seek_, 3);
  row->addWidget(volume_);

  connect(pause_, &QPushButton::clicked, this, [this] {
    if (onPauseResume) onPauseResume();
  });
  // A drag seeks once, when let go; a click on the groove or a key at once.
  connect(seek_, &QSlider::sliderReleased, this, [this] {
    if (onSeek) onSeek(seek_->value());
  });
  connect(seek_, &QSlider::valueChanged, this, [this](int ms) {
    if (!showing_ && !seek_->isSliderDown() && onSeek) onSeek(ms);
  });
  connect(volume_, &QSlider::valueChanged, this, [this](int level) {
    if (!showing_ && onVolume) onVolume(level);
  });
  Show({});
}

void NowPlayingBar::Show(const NowPlayingStrip& strip) {
  showing_ = true;
  pause_->setEnabled(strip.open);
  pause_->setText(strip.paused ? QStringLiteral("Resume") : QStringLiteral("Pause"));
  song_->setText(strip.open ? SongAndArtist(strip) : ToQString(strip.opening));
  song_->setToolTip(song_->text());
  time_->setText(ToQString(strip.open ? strip.time : "0:00 / 0:00"));
  seek_->setEnabled(strip.open && strip.lengthMs > 0);
  if (!seek_->isSliderDown()) {
    seek_->setRange(0, std::max(strip.lengthMs, 0));
    seek_->setValue(strip.positionMs);
  }
  showing_ = false;
  ShowCover(strip);
}

// Asks for a cover only when the file or its place changed: the strip is
// shown four times a second.
void NowPlayingBar::ShowCover(const NowPlayingStrip& strip) {
  if (!cover_) return;
  const int fileId = strip.open ? strip.fileId : 0;
  const std::string path = strip.open ? strip.coverPath : "";
  if (fileId == coverFileId_ && path == coverPath_) return;
  coverFileId_ = fileId;
  coverPath_ = path;
  if (path.empty())
    cover_->ShowNothing();
  else
    cover_->ShowCoverOf(fileId, path);
}

void NowPlayingBar::ShowVolume(int level) {
  showing_ = true;
  volume_->setValue(level);
  showing_ = false;
}

int NowPlayingBar::PreferredHeight() const { return sizeHint().height(); }
