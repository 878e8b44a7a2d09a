#include "qt/dialogs/QtFilePicker.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "qt/dialogs/KindIconProvider.h"
#include "qt/dialogs/QtText.h"

QtFilePicker::QtFilePicker(QWidget* parent) : parent_(parent) {}

void QtFilePicker::SetParent(QWidget* parent) { parent_ = parent; }

int QtFilePicker::Pick(Purpose purpose, const std::string& title, const std::string& filter, const std::string& start,
                       std::string& chosenFile) {
  // Qt's own dialog with icons by kind, as the folder picker: a desktop's
  // native dialog opens the files it lists to choose their icons.
  KindIconProvider icons;
  QFileDialog dialog(parent_, ToQString(title), ToQString(start), ToQString(filter));
  dialog.setIconProvider(&icons);
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontUseCustomDirectoryIcons);
  const bool saving = purpose == Purpose::Save;
  dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return kCancelled;
  chosenFile = ToStdString(QDir::cleanPath(QFileInfo(dialog.selectedFiles().constFirst()).absoluteFilePath()));
  return kChosen;
}
