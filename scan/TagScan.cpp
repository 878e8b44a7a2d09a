#include "scan/TagScan.h"

#include <cstdlib>
#include <string_view>

#include "base/CountText.h"
#include "base/WorkerProgress.h"
#include "catalogue/MediaDB.h"
#include "catalogue/Records.h"
#include "platform/MessageBox.h"
#include "scan/ScanReport.h"
#include "scan/TagReadAhead.h"
#include "scan/VolumeIndex.h"
#include "tags/TagReader.h"
#include "volumes/Paths.h"

namespace {

constexpr int kTagsNotRead = 0;
constexpr int kReading = 1;
constexpr int kStored = 2;

// WMA files whose names end in lower-case "wma" are left unread on purpose;
// SONG.WMA is read.
bool LeftUnread(std::string_view fileName) {
  return fileName.size() >= 3 && fileName.substr(fileName.size() - 3) == "wma";
}

void CopyTagsAndProperties(const CMediaFile& read, CMediaFile& file) {
  file.id3Title = read.id3Title;
  file.id3Artist = read.id3Artist;
  file.id3Album = read.id3Album;
  file.id3Comment = read.id3Comment;
  file.Track = read.Track;
  file.Length = read.Length;
  file.BitRate = read.BitRate;
  file.SampleRate = read.SampleRate;
  file.Channels = read.Channels;
}

// The reader leaves a record as it was when it cannot read the file: no
// audio properties.
bool ReadNothing(const CMediaFile& read) { return read.SampleRate == 0 && read.Channels == 0; }

}  // namespace

TagScan::TagScan(MediaDB& db, TagReader& reader, platform::MessageBox& messages, WorkerProgress& progress,
                 ScanReport& report, unsigned readerThreads)
    : db_(db),
      reader_(reader),
      messages_(messages),
      progress_(progress),
      report_(report),
      readerThreads_(readerThreads) {}

bool TagScan::ToRead(const VolumeIndex& index, int fileId) const {
  return index.FileScanState(fileId) == kTagsNotRead && (readLowerCaseWma_ || !LeftUnread(index.FileName(fileId)));
}

namespace {

// A file's path for the reader: below a root with a Linux path, the stored
// folder paths are spelled as the walk listed them, so the Linux path follows
// from the root's without resolving the drive path again.
class ReaderPaths {
 public:
  ReaderPaths(const std::string& root, const std::string& localRoot)
      : drive_(root.substr(0, 1)), rootFolder_(GetFolderPart(root)), localRoot_(localRoot) {
    if (!localRoot_.empty() && !localRoot_.ends_with('/')) localRoot_ += '/';
  }

  std::string Of(const std::string& folder, std::string_view name) const {
    if (localRoot_.empty() || !folder.starts_with(rootFolder_)) return MakeFullPath(drive_, folder, std::string(name));
    std::string path = localRoot_;
    for (std::size_t i = rootFolder_.size(); i < folder.size(); ++i) path += folder[i] == '\\' ? '/' : folder[i];
    path += name;
    return path;
  }

 private:
  std::string drive_;
  std::string rootFolder_;
  std::string localRoot_;
};

}  // namespace

void TagScan::Run(const std::string& root, const std::string& localRoot, int volId, VolumeIndex& index,
                  AudioFormats formats) {
  readLowerCaseWma_ = formats == AudioFormats::Every;
  const int rootId = index.FindPath(GetFolderPart(root));
  if (rootId == -1) return;
  const IdList subtree = db_.GetSubtreePathIds(rootId);

  // The files to read, in the order the loop below stores them: the folder
  // (its place in the subtree) and the file, whose full path a reader thread
  // makes when it comes to it. Counted first, so the list takes no more room
  // than it needs.
  std::size_t count = 0;
  int leftUnread = 0;
  for (std::int32_t pathId : subtree)
    if (index.Path(pathId))
      for (int fileId : index.FilesOf(pathId)) {
        count += ToRead(index, fileId) ? 1 : 0;
        leftUnread += index.FileScanState(fileId) == kTagsNotRead && !ToRead(index, fileId) ? 1 : 0;
      }
  report_.WmaLeftUnread(leftUnread);
  std::vector<std::pair<std::uint32_t, std::int32_t>> toRead;
  toRead.reserve(count);
  for (std::size_t at = 0; at < subtree.size(); ++at)
    if (index.Path(subtree[at]))
      for (int fileId : index.FilesOf(subtree[at]))
        if (ToRead(index, fileId)) toRead.emplace_back(static_cast<std::uint32_t>(at), fileId);
  const ReaderPaths paths(root, localRoot);
  TagReadAhead readAhead(
      reader_, toRead.size(),
      [&](std::size_t i) {
        const auto [at, fileId] = toRead[i];
        return paths.Of(index.Path(subtree[at])->FullPath, index.FileName(fileId));
      },
      readerThreads_);
  const auto total = static_cast<std::int64_t>(toRead.size());
  std::size_t taken = 0;
  progress_.SetOverall(CountOfTotal(0, total, "file", "files"));

  progress_.progress = 0;
  for (std::int32_t pathId : subtree) {
    const PathRow* folder = index.Path(pathId);
    const std::vector<int> fileIds = index.FilesOf(pathId);
    const int n = static_cast<int>(fileIds.size());
    for (int i = 0; i < n; ++i) {
      const int fileId = fileIds[i];
      const bool unread = folder && ToRead(index, fileId);
      if (progress_.cancel || (unread && !readAhead.WaitFor(taken, progress_.cancel))) {
        readAhead.Stop();
        return;
      }
      if (unread) {
        // An unread row holds no tags yet: a fresh record stands for it.
        CMediaFile record;
        record.FileID = fileId;
        record.PathID = static_cast<int>(pathId);
        record.VolID = volId;
        record.FileName = index.FileName(fileId);
        bool unreadable = false;
        ScanFileTags(record, [&](CMediaFile& file) {
          const CMediaFile read = readAhead.Take(taken++);
          unreadable = ReadNothing(read);
          CopyTagsAndProperties(read, file);
        });
        if (unreadable) {
          report_.FileUnreadable();
          // A disk unplugged meanwhile, or a file being written: tried again next time.
          db_.SetFileStamp(fileId, FileStamp::Unread());
        }
        index.SetFileScanState(fileId, kStored);
        progress_.SetOverall(CountOfTotal(static_cast<std::int64_t>(taken), total, "file", "files"));
        // The bar follows the count line: files read of files to read.
        progress_.progress = static_cast<int>(100 * static_cast<std::int64_t>(taken) / total);
      }
    }
  }
}

void TagScan::ScanFileTags(CMediaFile& record, const std::function<void(CMediaFile&)>& read) {
  progress_.SetStatus(record.FileName);
  db_.SetFileScanState(record.FileID, kReading);
  try {
    read(record);
  } catch (...) {
    EndAfterReaderFailure();
  }
  // Tags, properties and the new state in one change of the row.
  db_.UpdateFileTagsAndProperties(record, kStored);
}

void TagScan::EndAfterReaderFailure() {
  messages_.Show(kReaderFailure, platform::Buttons::Ok, platform::Icon::Error);
  // The phase's transaction is never committed: SQLite discards it when the
  // catalogue is next opened, and the files stay unread.
  std::abort();
}
