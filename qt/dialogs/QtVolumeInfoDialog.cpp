#include "qt/dialogs/QtVolumeInfoDialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/dialogs/QtDialogParts.h"
#include "qt/dialogs/QtDialogUnits.h"
#include "qt/dialogs/QtText.h"

// The template: 258 x 95 dialog units; edits 194 wide from x 55, 18 apart;
// the two 50 x 14 buttons centred 7 apart.
QtVolumeInfoDialog::QtVolumeInfoDialog(QWidget* parent)
    : QDialog(parent),
      displayName_(MakeEdit(*this, 12)),
      volumeName_(MakeEdit(*this, 12)),
      description_(MakeEdit(*this, 12)) {
  setWindowTitle(CVolumeInfoDlg::kCaption);
  volumeName_->setReadOnly(true);
  QPushButton* update = MakeButton(*this, QStringLiteral("Update"), 50, 14);
  QPushButton* cancel = MakeButton(*this, QStringLiteral("Cancel"), 50, 14);
  update->setDefault(true);
  connect(update, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* fields = new QGridLayout;
  fields->setHorizontalSpacing(DialogUnitsX(*this, 4));
  fields->setVerticalSpacing(DialogUnitsY(*this, 6));
  int row = 0;
  for (auto [label, edit] :
       {std::pair{"Display Name:", displayName_}, {"Volume Name:", volumeName_}, {"Description:", description_}}) {
    fields->addWidget(new QLabel(QString::fromLatin1(label), this), row, 0);
    edit->setObjectName(QString::fromLatin1(label));
    fields->addWidget(edit, row++, 1);
  }

  auto* column = new QVBoxLayout(this);
  SetMarginsDu(*column, *this, 7, 10);
  column->addLayout(fields);
  column->addStretch();
  column->addSpacing(DialogUnitsY(*this, 10));
  column->addLayout(CentredRow(*this, {update, cancel}, 7));
  resize(DialogUnits(*this, 258, 95).expandedTo(sizeHint()));
}

void QtVolumeInfoDialog::Load(const VolumeInfoForm& form) {
  shown_ = form;
  for (auto [edit, text] : {std::pair{displayName_, &form.displayName},
                            {volumeName_, &form.volumeName},
                            {description_, &form.description}}) {
    edit->setText(ToQString(*text));
    edit->setCursorPosition(0);
  }
}

int QtVolumeInfoDialog::RunModal(VolumeInfoForm& form) {
  Load(form);
  displayName_->setFocus();
  if (exec() != QDialog::Accepted) return kDialogCancel;
  form.displayName = EditedText(displayName_->text(), shown_.displayName);
  form.volumeName = EditedText(volumeName_->text(), shown_.volumeName);
  form.description = EditedText(description_->text(), shown_.description);
  return kDialogOk;
}
