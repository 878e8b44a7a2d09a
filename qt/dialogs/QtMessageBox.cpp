#include "qt/dialogs/QtMessageBox.h"

#include <QMessageBox>

#include "catalogue/CatalogueFailure.h"
#include "qt/dialogs/QtText.h"

namespace {

QMessageBox::Icon ToQtIcon(platform::Icon icon) {
  switch (icon) {
    case platform::Icon::Information:
      return QMessageBox::Information;
    case platform::Icon::Warning:
      return QMessageBox::Warning;
    case platform::Icon::Error:
      return QMessageBox::Critical;
    case platform::Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ToQtButtons(platform::Buttons buttons) {
  switch (buttons) {
    case platform::Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case platform::Buttons::RetryCancel:
      return QMessageBox::Retry | QMessageBox::Cancel;
    case platform::Buttons::Ok:
      break;
  }
  return QMessageBox::Ok;
}

platform::Answer ToAnswer(int button) {
  switch (button) {
    case QMessageBox::Ok:
      return platform::Answer::Ok;
    case QMessageBox::Retry:
      return platform::Answer::Retry;
    default:
      return platform::Answer::Cancel;
  }
}

}  // namespace

QtMessageBox::QtMessageBox(QWidget* parent) : parent_(parent) {}

void QtMessageBox::SetParent(QWidget* parent) { parent_ = parent; }

void QtMessageBox::Prepare(QMessageBox& box, const std::string& text, platform::Buttons buttons, platform::Icon icon) {
  box.setWindowTitle(QString::fromLatin1(kCaption));
  box.setText(ToQString(text));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(ToQtIcon(icon));
  box.setStandardButtons(ToQtButtons(buttons));
  // Esc and the window's close button answer Cancel, or OK when that is all.
  box.setEscapeButton(buttons == platform::Buttons::Ok ? QMessageBox::Ok : QMessageBox::Cancel);
}

platform::Answer QtMessageBox::ShowHere(const std::string& text, platform::Buttons buttons, platform::Icon icon) {
  QMessageBox box(parent_);
  Prepare(box, text, buttons, icon);
  return ToAnswer(box.exec());
}

platform::Answer QtMessageBox::Show(const std::string& text, platform::Buttons buttons, platform::Icon icon) {
  platform::Answer answer = platform::Answer::Cancel;
  onItsThread_.RunAndWait([&] { answer = ShowHere(text, buttons, icon); });
  return answer;
}

void ShowCatalogueFailuresIn(QtMessageBox* messages) {
  if (!messages) return NoticeCatalogueFailuresWith({});
  NoticeCatalogueFailuresWith([messages](const std::string& text) {
    const std::string prefix = "vantrelle: ";
    const std::string shown = text.rfind(prefix, 0) == 0 ? text.substr(prefix.size()) : text;
    messages->Show("Vantrelle has to end: " + shown, platform::Buttons::Ok, platform::Icon::Error);
  });
}
