#pragma once
// One catalogue row each. Records are snapshots: nothing writes them back to
// the catalogue by itself. Integers are signed 32-bit; a NULL column loads as 0
// or as the empty text.

#include <cstdint>
#include <string>

class CMediaFile {
 public:
  std::int32_t FileID = 0;
  std::int32_t VolID = 0;
  std::int32_t PathID = 0;
  std::int32_t ScanState = 0;
  std::int32_t DirtyBit = 0;
  std::string FileName;
  std::int64_t Size = 0;  // taken from the file system; never stored
  std::int32_t Type = 0;
  std::string Title;
  std::string Artist;
  std::string Album;
  std::string Comment;
  std::int32_t Rating = 0;
  std::string id3Title;
  std::string id3Artist;
  std::string id3Album;
  std::string id3Genre;  // never loaded nor stored
  std::string id3Comment;
  std::int32_t Length = 0;
  std::int32_t BitRate = 0;
  std::int32_t SampleRate = 0;
  std::int32_t Channels = 0;
  // The tag's track number (0: none). Kept beside the file's stamp, not in
  // MediaFiles; GetFile leaves it 0.
  std::int32_t Track = 0;
};

// A text of a file as shown: the user's where there is one, else the tag's.
inline const std::string& UserOrTag(const std::string& user, const std::string& tag) {
  return user.empty() ? tag : user;
}

class CMediaPath {
 public:
  std::int32_t PathID = 0;
  std::int32_t VolID = 0;
  std::int32_t DirtyBit = 0;
  std::int32_t ParentID = 0;
  std::string Name;
  std::string FullPath;
};

class CMediaVolume {
 public:
  std::int32_t VolID = 0;
  std::string Name;
  std::string DisplayName;
  std::int32_t VolType = 0;
  std::string SerialNo;
  std::string DrvLtr;
  std::string Description;
};

class CPlayList {
 public:
  std::int32_t PlayListID = 0;
  std::string Name;
  std::string FileIDs;
};

// What a scan needs to know of a volume's rows, read in one statement each.
struct PathRow {
  std::int32_t PathID = 0;
  std::int32_t ParentID = 0;
  std::string FullPath;
  std::int32_t DirtyBit = 0;
};

// A file as it was when its tags were read: its modification time and size.
// A file whose stamp differs is read again by the next scan.
struct FileStamp {
  std::int64_t modifiedNs = 0;
  std::int64_t size = -1;  // -1: not known (read before stamps were kept)
  bool Known() const { return size >= 0; }
  bool operator==(const FileStamp&) const = default;
  // Kept for a file the reader could not read, so that the next scan tries
  // again: no readable audio file is empty and from 1970.
  static FileStamp Unread() { return {0, 0}; }
};

struct FileRow {
  std::int32_t FileID = 0;
  std::int32_t PathID = 0;
  std::string FileName;
  std::int32_t ScanState = 0;
  std::int32_t DirtyBit = 0;
  FileStamp Stamp;
};

// What the library tree shows of a folder.
struct PathNodeRow {
  std::int32_t PathID = 0;
  std::int32_t ParentID = 0;
  std::int32_t VolID = 0;
  std::string Name;
};

// What the media list shows of a file: its own columns, its folder's stored
// path, its volume's and its track. A file whose volume or folder row is
// missing has VolType 0 and empty texts for them.
struct MediaListRow {
  std::int32_t FileID = 0;
  std::string Title;
  std::string id3Title;
  std::string Artist;
  std::string id3Artist;
  std::string FileName;
  std::int32_t Rating = 0;
  std::int32_t Length = 0;
  std::int32_t VolType = 0;
  std::string DisplayName;
  std::string DrvLtr;
  std::string FullPath;
  std::string Album;
  std::string id3Album;
  std::int32_t Track = 0;  // 0: not known
};
