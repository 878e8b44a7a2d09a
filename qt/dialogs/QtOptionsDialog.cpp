#include "qt/dialogs/QtOptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/dialogs/QtDialogParts.h"
#include "qt/dialogs/QtDialogUnits.h"
#include "qt/dialogs/QtText.h"

// The template: 240 x 105 dialog units; the edit 166 wide from x 48 with the
// 19-wide "..." after it; the 32-wide drop-down under it; the two 50 x 14
// buttons at the bottom right.
QtOptionsDialog::QtOptionsDialog(QWidget* parent)
    : QDialog(parent),
      cachePath_(MakeEdit(*this, 12)),
      drives_(new QComboBox(this)),
      browse_(MakeButton(*this, QStringLiteral("..."), 19, 11)),
      allFormats_(new QCheckBox(QString::fromLatin1(COptionsDlg::kAllFormats), this)),
      replayGain_(new QComboBox(this)) {
  setWindowTitle(COptionsDlg::kCaption);
  browse_->setFixedWidth(DialogUnitsX(*this, 19));
  cachePath_->setObjectName(QStringLiteral("Cache Path:"));
  drives_->setObjectName(QStringLiteral("CD Drive:"));
  drives_->setEditable(false);
  drives_->setMinimumWidth(DialogUnitsX(*this, 32));
  allFormats_->setToolTip(QString::fromLatin1(COptionsDlg::kAllFormatsTip));
  replayGain_->setObjectName(QString::fromLatin1(COptionsDlg::kReplayGain));
  replayGain_->addItem(QStringLiteral("Off"), QStringLiteral("off"));
  replayGain_->addItem(QStringLiteral("Track"), QStringLiteral("track"));
  replayGain_->addItem(QStringLiteral("Album"), QStringLiteral("album"));
  replayGain_->setToolTip(QStringLiteral("Play each file at the level its ReplayGain tags ask for"));
  QPushButton* ok = MakeButton(*this, QStringLiteral("OK"), 50, 14);
  QPushButton* cancel = MakeButton(*this, QStringLiteral("Cancel"), 50, 14);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* fields = new QGridLayout;
  fields->setHorizontalSpacing(DialogUnitsX(*this, 4));
  fields->setVerticalSpacing(DialogUnitsY(*this, 12));
  fields->addWidget(new QLabel(QStringLiteral("Cache Path:"), this), 0, 0);
  auto* pathRow = new QHBoxLayout;
  pathRow->setSpacing(DialogUnitsX(*this, 1));
  pathRow->addWidget(cachePath_);
  pathRow->addWidget(browse_);
  fields->addLayout(pathRow, 0, 1);
  fields->addWidget(new QLabel(QStringLiteral("CD Drive:"), this), 1, 0);
  fields->addWidget(drives_, 1, 1, Qt::AlignLeft);
  fields->addWidget(allFormats_, 2, 0, 1, 2);
  fields->addWidget(new QLabel(QString::fromLatin1(COptionsDlg::kReplayGain), this), 3, 0);
  fields->addWidget(replayGain_, 3, 1, Qt::AlignLeft);

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(DialogUnitsX(*this, 6));
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);

  auto* column = new QVBoxLayout(this);
  SetMarginsDu(*column, *this, 7, 9);
  column->addLayout(fields);
  column->addStretch();
  column->addSpacing(DialogUnitsY(*this, 10));
  column->addLayout(buttons);
  resize(DialogUnits(*this, 240, 105).expandedTo(sizeHint()));
}

// The drop-down lists its entries sorted; each remembers its place in the
// form's list, which is what the form's selection counts in.
void QtOptionsDialog::Load(const OptionsForm& form) {
  shown_ = form;
  cachePath_->setText(ToQString(form.cachePath));
  drives_->clear();
  for (std::size_t i = 0; i < form.drives.size(); ++i) drives_->addItem(ToQString(form.drives[i]), static_cast<int>(i));
  drives_->model()->sort(0);
  drives_->setCurrentIndex(drives_->findData(form.selectedDrive));
  allFormats_->setChecked(form.allFormats);
  replayGain_->setCurrentIndex(std::max(0, replayGain_->findData(ToQString(form.replayGain))));
}

void QtOptionsDialog::Store(OptionsForm& form) const {
  form.cachePath = EditedText(cachePath_->text(), shown_.cachePath);
  form.selectedDrive = drives_->currentIndex() < 0 ? -1 : drives_->currentData().toInt();
  form.allFormats = allFormats_->isChecked();
  form.replayGain = replayGain_->currentData().toString().toStdString();
}

// What the user typed stays the form's cache path when the picker is
// cancelled; a chosen folder replaces it.
void QtOptionsDialog::Browse(OptionsForm& form, const std::function<void()>& browse) {
  form.cachePath = EditedText(cachePath_->text(), shown_.cachePath);
  browse();
  shown_.cachePath = form.cachePath;
  cachePath_->setText(ToQString(form.cachePath));
}

int QtOptionsDialog::RunModal(OptionsForm& form, const std::function<void()>& browse) {
  Load(form);
  const QMetaObject::Connection picking = connect(browse_, &QPushButton::clicked, this, [&] { Browse(form, browse); });
  cachePath_->setFocus();
  const int result = exec() == QDialog::Accepted ? kDialogOk : kDialogCancel;
  disconnect(picking);
  if (result == kDialogOk) Store(form);
  return result;
}
