#pragma once
// A square that shows a music file's cover picture, scaled to fit, once the
// loader has read it; empty while it reads, when the file is not at hand
// (an empty path) and when it has none. Reading never blocks the window.
//
//   QtCoverView cover(loader, 120, parent);
//   cover.ShowCoverOf(fileId, fullPath);  // a drive path or a Linux path
//
// Only the last file asked for is shown: a picture arriving for an earlier
// one is ignored. User-interface thread only.

#include <QLabel>
#include <functional>
#include <string>

class QtCoverLoader;

class QtCoverView : public QLabel {
  Q_OBJECT

 public:
  // edge: the square's side in pixels. The loader must outlive the view.
  QtCoverView(QtCoverLoader& loader, int edge, QWidget* parent = nullptr);

  void ShowCoverOf(int fileId, const std::string& path);
  // The path is found by locate on the loader's thread (it may read a disc);
  // meanwhile the square says "Checking the disc…".
  void ShowCoverLocated(int fileId, std::function<std::string()> locate);
  void ShowNothing();

 private:
  void OnLoaded(int fileId, const QString& path, const QImage& image);

  QtCoverLoader& loader_;
  int edge_;
  int fileId_ = 0;
  QString path_;
  bool locating_ = false;  // the path comes with the picture
};
