#include "qt/dialogs/QtFileInfoDialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/dialogs/QtCoverView.h"
#include "qt/dialogs/QtDialogParts.h"
#include "qt/dialogs/QtDialogUnits.h"
#include "qt/dialogs/QtRatingButtons.h"
#include "qt/dialogs/QtText.h"

// The template: 268 x 198 dialog units; edits 211 wide from x 41, 16 apart;
// the rating under them from x 53; the 163-wide group from x 45; the two
// 44 x 15 buttons centred at the bottom.
QtFileInfoDialog::QtFileInfoDialog(QWidget* parent, QtCoverLoader* covers)
    : QDialog(parent),
      file_(MakeEdit(*this, 12)),
      title_(MakeEdit(*this, 12)),
      artist_(MakeEdit(*this, 12)),
      album_(MakeEdit(*this, 12)),
      comment_(MakeEdit(*this, 12)),
      rating_(new QtRatingButtons(this)) {
  setWindowTitle(CFileInfoDlg::kCaption);
  file_->setReadOnly(true);
  QPushButton* update = MakeButton(*this, QStringLiteral("Update"), 44, 15);
  QPushButton* cancel = MakeButton(*this, QStringLiteral("Cancel"), 44, 15);
  update->setDefault(true);  // Enter presses Update, the dialog's OK
  connect(update, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* fields = new QGridLayout;
  fields->setHorizontalSpacing(DialogUnitsX(*this, 4));
  fields->setVerticalSpacing(DialogUnitsY(*this, 4));
  int row = 0;
  for (auto [label, edit] : {std::pair{"File:", file_},
                             {"Title:", title_},
                             {"Artist:", artist_},
                             {"Album:", album_},
                             {"Comment:", comment_}}) {
    fields->addWidget(new QLabel(QString::fromLatin1(label), this), row, 0);
    edit->setObjectName(QString::fromLatin1(label));
    fields->addWidget(edit, row++, 1, 1, 2);
  }
  fields->addWidget(new QLabel(QStringLiteral("Rating:"), this), row, 0, Qt::AlignBottom);
  auto* ratingRow = new QHBoxLayout;
  ratingRow->addSpacing(DialogUnitsX(*this, 12));
  ratingRow->addWidget(rating_);
  ratingRow->addStretch();
  fields->addLayout(ratingRow, row++, 1);
  fields->setRowMinimumHeight(row - 1, DialogUnitsY(*this, 24));
  fields->addLayout(MakeMpegInfo(), row, 1);
  if (covers) {
    // Beside the rating and the group, as tall as both.
    cover_ = new QtCoverView(*covers, DialogUnitsY(*this, 64), this);
    fields->addWidget(cover_, row - 1, 2, 2, 1, Qt::AlignRight | Qt::AlignBottom);
  }

  auto* column = new QVBoxLayout(this);
  SetMarginsDu(*column, *this, 7, 9);
  column->addLayout(fields);
  column->addStretch();
  column->addSpacing(DialogUnitsY(*this, 10));
  column->addLayout(CentredRow(*this, {update, cancel}, 10));
  resize(DialogUnits(*this, 268, 198).expandedTo(sizeHint()));
}

QLayout* QtFileInfoDialog::MakeMpegInfo() {
  auto* group = new QGroupBox(QStringLiteral("MPEG Info"), this);
  info_ = group;
  group->setMinimumWidth(DialogUnitsX(*this, 163));
  auto* grid = new QGridLayout(group);
  grid->setHorizontalSpacing(DialogUnitsX(*this, 8));
  // The template's own texts, replaced whenever a form is shown.
  const std::array<const char*, 4> texts{"Length: 4m 30s", "Bit Rate:  128", "Sample Rate: 44 KHz", "Channels: 2"};
  const std::array<std::pair<int, int>, 4> cells{{{0, 0}, {0, 1}, {1, 1}, {1, 0}}};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    mpegInfo_[i] = new QLabel(QString::fromLatin1(texts[i]), group);
    grid->addWidget(mpegInfo_[i], cells[i].first, cells[i].second);
  }
  auto* row = new QHBoxLayout;
  row->addSpacing(DialogUnitsX(*this, 4));
  row->addWidget(group);
  row->addStretch();
  return row;
}

void QtFileInfoDialog::Load(const FileInfoForm& form) {
  shown_ = form;
  file_->setText(ToQString(form.fileName));
  file_->setCursorPosition(0);
  for (auto [edit, text] :
       {std::pair{title_, &form.title}, {artist_, &form.artist}, {album_, &form.album}, {comment_, &form.comment}}) {
    edit->setText(ToQString(*text));
    edit->setCursorPosition(0);
  }
  const std::array<const std::string*, 4> info{&form.length, &form.bitRate, &form.sampleRate, &form.channels};
  for (std::size_t i = 0; i < info.size(); ++i) mpegInfo_[i]->setText(ToQString(*info[i]));
  info_->setTitle(ToQString(form.infoTitle));
  rating_->SetRating(form.checkedRating);
  if (cover_ && form.locateCover)
    cover_->ShowCoverLocated(form.fileId, form.locateCover);
  else if (cover_)
    cover_->ShowCoverOf(form.fileId, form.coverPath);
}

void QtFileInfoDialog::Store(FileInfoForm& form) const {
  form.title = EditedText(title_->text(), shown_.title);
  form.artist = EditedText(artist_->text(), shown_.artist);
  form.album = EditedText(album_->text(), shown_.album);
  form.comment = EditedText(comment_->text(), shown_.comment);
  form.checkedRating = rating_->Rating();
}

int QtFileInfoDialog::RunModal(FileInfoForm& form) {
  Load(form);
  title_->setFocus();
  if (exec() != QDialog::Accepted) return kDialogCancel;
  Store(form);
  return kDialogOk;
}
