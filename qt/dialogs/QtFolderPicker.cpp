#include "qt/dialogs/QtFolderPicker.h"

#include <QDir>
#include <QFileDialog>

#include "qt/dialogs/KindIconProvider.h"
#include "qt/dialogs/QtText.h"

QtFolderPicker::QtFolderPicker(QWidget* parent) : parent_(parent) {}

void QtFolderPicker::SetParent(QWidget* parent) { parent_ = parent; }

int QtFolderPicker::Browse(const std::string& title, const std::string& initialFolder, std::string& chosenFolder) {
  // Qt's own dialog, showing folders only: a desktop's native dialog lists
  // the files too and opens them to choose their icons.
  KindIconProvider icons;
  QFileDialog dialog(parent_, ToQString(title), ToQString(initialFolder));
  dialog.setIconProvider(&icons);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOptions(QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog |
                    QFileDialog::DontUseCustomDirectoryIcons);
  dialog.setFilter(QDir::AllDirs | QDir::Drives | QDir::NoDotAndDotDot);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return kCancelled;
  chosenFolder = ToStdString(QDir(dialog.selectedFiles().constFirst()).absolutePath());
  return kChosen;
}
