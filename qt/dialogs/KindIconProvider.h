#pragma once
// Icons for a file dialog by kind of entry only. The default provider asks
// the MIME database, which opens files to look at their content: the
// catalogue among them, and closing it would drop the locks SQLite holds on
// it.

#include <QAbstractFileIconProvider>
#include <QFileInfo>

class KindIconProvider : public QAbstractFileIconProvider {
 public:
  QIcon icon(const QFileInfo& info) const override {
    return QAbstractFileIconProvider::icon(info.isDir() ? Folder : File);
  }
  QString type(const QFileInfo& info) const override {
    return info.isDir() ? QStringLiteral("Folder") : QStringLiteral("File");
  }
};
