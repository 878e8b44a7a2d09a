#include "qt/dialogs/QtFolderPicker.h"

#include <QDir>
#include <QFileDialog>

#include "qt/dialogs/QtText.h"

QtFolderPicker::QtFolderPicker(QWidget* parent) : parent_(parent) {}

void QtFolderPicker::SetParent(QWidget* parent) { parent_ = parent; }

int QtFolderPicker::Browse(const std::string& title, const std::string& initialFolder,
                           std::string& chosenFolder) {
  const QString folder = QFileDialog::getExistingDirectory(parent_, ToQString(title),
                                                           ToQString(initialFolder));
  if (folder.isEmpty()) return kCancelled;
  chosenFolder = ToStdString(QDir(folder).absolutePath());
  return kChosen;
}
