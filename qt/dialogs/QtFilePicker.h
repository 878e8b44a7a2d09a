#pragma once
// The file picker as Qt's file dialog. User-interface thread only.

#include <QPointer>
#include <QWidget>

#include "platform/FilePicker.h"

class QtFilePicker : public platform::FilePicker {
 public:
  explicit QtFilePicker(QWidget* parent = nullptr);

  void SetParent(QWidget* parent);

  int Pick(Purpose purpose, const std::string& title, const std::string& filter, const std::string& start,
           std::string& chosenFile) override;

 private:
  QPointer<QWidget> parent_;
};
