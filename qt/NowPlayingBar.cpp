#include "qt/NowPlayingBar.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include "qt/dialogs/QtCoverView.h"
#include "qt/dialogs/QtText.h"

namespace {

constexpr int kVolumeWidth = 70;
constexpr int kSeekMinimumWidth = 60;
constexpr int kTextMinimumWidth = 40;
constexpr int kPageStepMs = 10000;
constexpr int kVolumeStep = 50;

QLabel* MakeLine(QWidget* parent, bool bold) {
  auto* line = new QLabel(parent);
  line->setTextInteractionFlags(Qt::NoTextInteraction);
  line->setMinimumWidth(kTextMinimumWidth);
  if (bold) {
    QFont font = line->font();
    font.setBold(true);
    line->setFont(font);
  }
  return line;
}

void ShowLine(QLabel& line, const std::string& text) {
  line.setText(ToQString(text));
  line.setToolTip(line.text());
}

}  // namespace

NowPlayingBar::NowPlayingBar(QWidget* parent, QtCoverLoader* covers)
    : QWidget(parent),
      pause_(new QPushButton(QStringLiteral("Play"), this)),
      title_(MakeLine(this, true)),
      artist_(MakeLine(this, false)),
      time_(new QLabel(QStringLiteral("0:00"), this)),
      seek_(new QSlider(Qt::Horizontal, this)),
      volume_(new QSlider(Qt::Horizontal, this)) {
  auto* strip = new QHBoxLayout(this);
  strip->setContentsMargins(0, 0, 0, 0);
  if (covers) {
    cover_ = new QtCoverView(*covers, kCoverEdge, this);
    strip->addWidget(cover_, 0, Qt::AlignTop);
  }
  auto* lines = new QVBoxLayout;
  lines->setSpacing(2);
  lines->addWidget(title_);
  lines->addWidget(artist_);
  lines->addLayout(MakeControlsRow());
  strip->addLayout(lines, 1);

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

QLayout* NowPlayingBar::MakeControlsRow() {
  pause_->setToolTip(QStringLiteral("Play, pause or resume (Space)"));
  seek_->setMinimumWidth(kSeekMinimumWidth);
  seek_->setPageStep(kPageStepMs);
  seek_->setToolTip(QStringLiteral("Position"));
  volume_->setRange(0, 1000);
  volume_->setPageStep(kVolumeStep);
  volume_->setFixedWidth(kVolumeWidth);
  volume_->setToolTip(QStringLiteral("Volume"));
  auto* row = new QHBoxLayout;
  row->addWidget(pause_);
  row->addWidget(time_);
  row->addWidget(seek_, 1);
  row->addWidget(volume_);
  return row;
}

// Nothing open (stopped, or the run ended): no title, "0:00" and the Play button.
void NowPlayingBar::Show(const NowPlayingStrip& strip) {
  showing_ = true;
  ShowLine(*title_, strip.open ? strip.song : strip.opening);
  ShowLine(*artist_, strip.open ? strip.artist : "");
  time_->setText(ToQString(strip.open ? strip.time : "0:00"));
  ShowButton(strip);
  ShowSeekSlider(strip);
  showing_ = false;
  ShowCover(strip);
}

void NowPlayingBar::ShowButton(const NowPlayingStrip& strip) {
  pause_->setEnabled(strip.open || strip.opening.empty());
  if (!strip.open)
    pause_->setText(QStringLiteral("Play"));
  else
    pause_->setText(strip.paused ? QStringLiteral("Resume") : QStringLiteral("Pause"));
}

void NowPlayingBar::ShowSeekSlider(const NowPlayingStrip& strip) {
  seek_->setEnabled(strip.open && strip.lengthMs > 0);
  if (seek_->isSliderDown() && strip.open) return;
  seek_->setRange(0, strip.open ? std::max(strip.lengthMs, 0) : 0);
  seek_->setValue(strip.open ? strip.positionMs : 0);
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

int NowPlayingBar::PreferredHeight() const { return std::max(sizeHint().height(), cover_ ? kCoverEdge : 0); }
