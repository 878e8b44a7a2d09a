#include "qt/dialogs/QtCoverLoader.h"

#include <QBuffer>
#include <QImageReader>

#include "qt/dialogs/QueuedCalls.h"
#include "tags/CoverFinder.h"

namespace {

// Decoding is refused past this many megabytes, whatever the header says.
constexpr int kAllocationLimitMb = 80;

}  // namespace

QtCoverLoader::QtCoverLoader(const platform::FileSystem& files, QObject* parent)
    : QObject(parent), finder_(std::make_shared<const CoverFinder>(files)) {
  pool_.setMaxThreadCount(1);  // one disk read at a time, in the order asked
}

// Reads not yet started are dropped: only the one under way is waited for,
// so closing never waits for a queue of slow discs.
QtCoverLoader::~QtCoverLoader() { ClearAndWait(pool_); }

QImage QtCoverLoader::Decode(const std::string& bytes) {
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setAllocationLimit(kAllocationLimitMb);
  const QSize size = reader.size();
  if (!size.isValid() || size.width() > kMaxDimension || size.height() > kMaxDimension) return {};
  if (size.width() > kMaxEdge || size.height() > kMaxEdge)
    reader.setScaledSize(size.scaled(kMaxEdge, kMaxEdge, Qt::KeepAspectRatio));
  return reader.read();
}

const QImage* QtCoverLoader::Cached(int fileId, const std::string& path) const {
  const Key key{fileId, path};
  for (const auto& [cachedKey, image] : cache_)
    if (cachedKey == key) return &image;
  return nullptr;
}

void QtCoverLoader::Request(int fileId, const std::string& path) {
  if (const QImage* cached = Cached(fileId, path)) {
    emit Loaded(fileId, QString::fromStdString(path), *cached);
    return;
  }
  Key key{fileId, path};
  if (!reading_.insert(key).second) return;
  // The destructor waits for the task, so the loader outlives it; a result
  // posted to a loader deleted since is dropped with the loader's events.
  StartTask(pool_, [this, finder = finder_, key] {
    const QImage image = Decode(finder->Find(key.second).bytes);
    results_.Post([this, key, image] { Store(key, image); });
  });
}

void QtCoverLoader::RequestLocated(int fileId, std::function<std::string()> locate) {
  StartTask(pool_, [this, finder = finder_, fileId, locate = std::move(locate)] {
    const std::string path = locate();
    const QImage image = path.empty() ? QImage() : Decode(finder->Find(path).bytes);
    results_.Post([this, key = Key{fileId, path}, image] {
      if (key.second.empty())
        emit Loaded(key.first, QString(), image);
      else
        Store(key, image);
    });
  });
}

void QtCoverLoader::Store(const Key& key, const QImage& image) {
  reading_.erase(key);
  cache_.emplace_back(key, image);
  if (cache_.size() > kCached) cache_.pop_front();
  emit Loaded(key.first, QString::fromStdString(key.second), image);
}
