#pragma once
// The folder picker as Qt's folder dialog. User-interface thread only.

#include <QPointer>
#include <QWidget>

#include "platform/FolderPicker.h"

class QtFolderPicker : public platform::FolderPicker {
 public:
  explicit QtFolderPicker(QWidget* parent = nullptr);

  void SetParent(QWidget* parent);

  int Browse(const std::string& title, const std::string& initialFolder, std::string& chosenFolder) override;

 private:
  QPointer<QWidget> parent_;
};
