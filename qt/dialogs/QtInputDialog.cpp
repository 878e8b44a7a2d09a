#include "qt/dialogs/QtInputDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/dialogs/QtDialogParts.h"
#include "qt/dialogs/QtDialogUnits.h"
#include "qt/dialogs/QtText.h"

// The template: 200 x 67 dialog units, prompt and edit 162 wide from x 19,
// the two 50 x 14 buttons centred 6 apart.
QtInputDialog::QtInputDialog(QWidget* parent)
    : QDialog(parent),
      prompt_(new QLabel(this)),
      edit_(MakeEdit(*this, 12)),
      ok_(MakeButton(*this, QStringLiteral("OK"), 50, 14)) {
  setWindowTitle(kTemplateCaption);
  QPushButton* cancel = MakeButton(*this, QStringLiteral("Cancel"), 50, 14);
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* column = new QVBoxLayout(this);
  SetMarginsDu(*column, *this, 19, 7);
  column->setSpacing(DialogUnitsY(*this, 4));
  column->addWidget(prompt_);
  column->addWidget(edit_);
  column->addSpacing(DialogUnitsY(*this, 7));
  column->addLayout(CentredRow(*this, {ok_, cancel}, 6));
  resize(DialogUnits(*this, 200, 67).expandedTo(sizeHint()));
}

void QtInputDialog::SetCaption(const std::string& caption) { setWindowTitle(ToQString(caption)); }
void QtInputDialog::SetPrompt(const std::string& prompt) { prompt_->setText(ToQString(prompt)); }

void QtInputDialog::SetEditText(const std::string& text) {
  shownText_ = text;
  edit_->setText(ToQString(text));
}

void QtInputDialog::SetOkLabel(const std::string& label) { ok_->setText(ToQString(label)); }

int QtInputDialog::RunModal() {
  edit_->selectAll();
  edit_->setFocus();
  const int result = exec() == QDialog::Accepted ? kOk : kCancel;
  ok_->setText(QStringLiteral("OK"));
  return result;
}

std::string QtInputDialog::EditText() const { return EditedText(edit_->text(), shownText_); }
