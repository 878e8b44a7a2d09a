#include "qt/dialogs/QtWorkerDialog.h"

#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "qt/dialogs/QtDialogParts.h"
#include "qt/dialogs/QtDialogUnits.h"
#include "qt/dialogs/QtText.h"

// The template: 224 x 62 dialog units; the status line 210 x 14 at the top,
// the bar 205 x 10 under it, the 50 x 14 "Cancel" centred at the bottom.
QtWorkerDialog::QtWorkerDialog(const char* caption, QWidget* parent)
    : QDialog(parent),
      status_(new QLabel(this)),
      bar_(new QProgressBar(this)),
      overall_(new QLabel(this)),
      cancel_(MakeButton(*this, QStringLiteral("Cancel"), 50, 14)),
      ticks_(new QTimer(this)),
      waiting_(new QTimer(this)) {
  setWindowTitle(QString::fromLatin1(caption));
  status_->setAlignment(Qt::AlignCenter);
  // Long paths are elided rather than widening the dialog.
  status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  status_->setMinimumHeight(DialogUnitsY(*this, 14));
  bar_->setRange(0, 100);
  bar_->setValue(0);
  bar_->setTextVisible(false);
  bar_->setFixedHeight(DialogUnitsY(*this, 10));
  overall_->setAlignment(Qt::AlignCenter);
  connect(cancel_, &QPushButton::clicked, this, &QtWorkerDialog::reject);
  connect(ticks_, &QTimer::timeout, this, [this] {
    if (logic_) logic_->OnTimer(timerId_);
  });
  connect(waiting_, &QTimer::timeout, this, [this] {
    if (logic_->WorkerBusy()) return;
    waiting_->stop();
    done(result());
  });

  auto* column = new QVBoxLayout(this);
  SetMarginsDu(*column, *this, 7, 7);
  column->setSpacing(DialogUnitsY(*this, 5));
  column->addWidget(status_);
  column->addWidget(bar_);
  column->addWidget(overall_);
  column->addLayout(CentredRow(*this, {cancel_}, 0));
  setFixedSize(DialogUnits(*this, 224, 62).expandedTo(sizeHint()));
}

int QtWorkerDialog::Run(CWorkerDlg& logic) {
  logic_ = &logic;
  cancel_->setEnabled(true);
  overall_->clear();
  logic.OnInitDialog();
  const int result = exec();
  // The run may have ended without the logic (its parent closing, say): the
  // worker is still stopped and waited for.
  logic.StopWorker();
  WaitForWorker();
  logic.OnDestroy();
  ticks_->stop();
  waiting_->stop();
  logic_ = nullptr;
  return result;
}

void QtWorkerDialog::SetStatusText(const std::string& text) {
  const QString full = ToQString(text);
  status_->setToolTip(full);
  const int width = status_->isVisible() ? status_->width() : DialogUnitsX(*this, 210);
  status_->setText(status_->fontMetrics().elidedText(full, Qt::ElideMiddle, width));
}

// A bar whose range is empty shows that work goes on without telling a share.
void QtWorkerDialog::SetProgressPos(int position) {
  bar_->setRange(0, position < 0 ? 0 : 100);
  if (position >= 0) bar_->setValue(position);
}

void QtWorkerDialog::SetOverallText(const std::string& text) { overall_->setText(ToQString(text)); }

void QtWorkerDialog::StartTimer(int id, int periodMs) {
  timerId_ = id;
  ticks_->start(periodMs);
}

void QtWorkerDialog::StopTimer(int) { ticks_->stop(); }

void QtWorkerDialog::EndDialog(int result) {
  cancel_->setEnabled(false);
  if (!logic_ || !logic_->WorkerBusy()) {
    done(result);
    return;
  }
  // The window stays, as the logic's own wait would keep it, but the event
  // loop keeps turning.
  logic_->StopWorker();
  setResult(result);
  waiting_->start(kWaitPollMs);
}

void QtWorkerDialog::reject() {
  if (logic_)
    logic_->OnCancel();
  else
    QDialog::reject();
}

void QtWorkerDialog::WaitForWorker() {
  if (!logic_->WorkerBusy()) return;
  QEventLoop loop;
  QTimer poll;
  connect(&poll, &QTimer::timeout, &loop, [&] {
    if (!logic_->WorkerBusy()) loop.quit();
  });
  poll.start(kWaitPollMs);
  // Input waits until the worker is gone; the worker's boxes open their own loops.
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}
