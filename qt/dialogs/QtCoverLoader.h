#pragma once
// Reads cover pictures off the user-interface thread: one reader thread
// finds a file's picture (CoverFinder) and decodes it into a QImage no
// larger than kMaxEdge on a side, and Loaded hands it to the user-interface
// thread. The last kCached results, pictures or none, are kept, so going back
// to a file shows its cover at once.
//
// A picture whose header gives more than kMaxDimension pixels on a side is
// not decoded; bytes that do not decode give a null image, as no picture
// does. Requests and Loaded on the user-interface thread only; the
// destructor drops the queued reads and waits only for the one under way.

#include <QImage>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "qt/dialogs/QueuedCalls.h"
#include "tags/CoverFinder.h"

namespace platform {
class FileSystem;
}

class QtCoverLoader : public QObject {
  Q_OBJECT

 public:
  static constexpr int kMaxEdge = 512;
  static constexpr int kMaxDimension = static_cast<int>(CoverFinder::kMaxDimension);
  static constexpr std::size_t kCached = 8;

  // The file system must outlive the loader.
  explicit QtCoverLoader(const platform::FileSystem& files, QObject* parent = nullptr);
  ~QtCoverLoader() override;

  // The file's cover: Loaded follows, from the cache or once read. A request
  // for a file already being read is not read twice.
  void Request(int fileId, const std::string& path);
  // The same for a path that locate finds on the reader thread; Loaded then
  // carries that path ("" and a null image when the file is not at hand).
  // Nothing is cached for a file not at hand.
  void RequestLocated(int fileId, std::function<std::string()> locate);

  // The cached image (null: none) of a file, when there is one.
  const QImage* Cached(int fileId, const std::string& path) const;

  // The decoding the reader thread does, for any bytes; null when they are
  // no picture or too large.
  static QImage Decode(const std::string& bytes);

 signals:
  void Loaded(int fileId, const QString& path, const QImage& image);

 private:
  using Key = std::pair<int, std::string>;
  void Store(const Key& key, const QImage& image);

  std::shared_ptr<const CoverFinder> finder_;
  std::deque<std::pair<Key, QImage>> cache_;  // the newest last
  std::set<Key> reading_;
  QueuedCalls results_{this};  // results reach this object's thread through it
  QThreadPool pool_;
};
