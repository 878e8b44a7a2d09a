#pragma once
// The About box: the product's name and version, and links to the project's
// own README and licence, opened by the desktop's viewer for local files.
// User-interface thread only.

#include <QDialog>

class QtAboutBox : public QDialog {
  Q_OBJECT

 public:
  static constexpr const char* kProduct = "Tandrelo Vantrelle";
  static constexpr const char* kVersion = "v1.4";

  explicit QtAboutBox(QWidget* parent = nullptr);

  // Where a document of the project lies: beside the program, one or two
  // folders up (the build's bin folder, an installed bin folder's share/doc),
  // else in the source folder the program was built from. Empty if nowhere.
  static QString FindDocument(const QString& name);
};

// Shows the About box modally.
void ShowAboutBox(QWidget* parent);
