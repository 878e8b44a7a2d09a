#include "qt/dialogs/QtCoverView.h"

#include <QPixmap>

#include "qt/dialogs/QtCoverLoader.h"

QtCoverView::QtCoverView(QtCoverLoader& loader, int edge, QWidget* parent)
    : QLabel(parent), loader_(loader), edge_(edge) {
  setFixedSize(edge, edge);
  setAlignment(Qt::AlignCenter);
  setObjectName(QStringLiteral("Cover"));
  connect(&loader_, &QtCoverLoader::Loaded, this, &QtCoverView::OnLoaded);
}

void QtCoverView::ShowNothing() {
  fileId_ = 0;
  path_.clear();
  locating_ = false;
  clear();
}

void QtCoverView::ShowCoverLocated(int fileId, std::function<std::string()> locate) {
  ShowNothing();
  if (!locate) return;
  fileId_ = fileId;
  locating_ = true;
  setWordWrap(true);
  setText(QStringLiteral("Checking the disc\u2026"));
  loader_.RequestLocated(fileId, std::move(locate));
}

void QtCoverView::ShowCoverOf(int fileId, const std::string& path) {
  ShowNothing();
  if (path.empty()) return;
  fileId_ = fileId;
  path_ = QString::fromStdString(path);
  loader_.Request(fileId, path);
}

void QtCoverView::OnLoaded(int fileId, const QString& path, const QImage& image) {
  if (fileId != fileId_ || (!locating_ && path != path_)) return;
  if (locating_) {
    locating_ = false;
    path_ = path;
    clear();
  }
  if (image.isNull()) return;
  setPixmap(QPixmap::fromImage(image.scaled(edge_, edge_, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}
