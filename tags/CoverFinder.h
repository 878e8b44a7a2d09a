#pragma once
// Finds the cover picture of a music file, read on demand and never stored:
// the picture embedded in its tag (an ID3v2 APIC frame, a FLAC picture
// block, a Vorbis or Opus picture, MP4 "covr", ASF "WM/Picture", a Musepack
// APE cover), the front cover first; else the first of folder.jpg,
// cover.jpg, front.jpg and cover.png, in that order, in the file's folder,
// names compared without regard to ASCII case.
//
// A file that is not there (or is no regular file) has none. Only bytes
// that begin as a JPEG, PNG, GIF, BMP or WebP picture whose header gives its
// size count; a picture larger than kMaxPictureBytes, or than kMaxDimension
// pixels on a side, is passed over (an embedded one for the folder's), and
// a folder file that large is never read. Anything that cannot be read (a missing file, a
// folder that cannot be listed, a file that does not parse) counts as no
// picture: Find never throws.
//
// Keeps no state; any thread. Reading may take as long as the disk does, so
// a window calls it off its own thread.

#include <array>
#include <cstddef>
#include <string>

namespace platform {
class FileSystem;
}

struct CoverPicture {
  enum class Source { None, Embedded, FolderFile };
  Source source = Source::None;
  std::string fileName;           // the folder file's name as stored; "" otherwise
  std::string bytes;              // the picture as encoded (JPEG, PNG, ...)
  bool embeddedTooLarge = false;  // the tag held a picture that was passed over for its size

  bool Found() const { return source != Source::None; }
  // "embedded", the folder file's name, or "none"; after either of the last
  // two, " (embedded picture too large)" when one was passed over.
  std::string Describe() const;
};

class CoverFinder {
 public:
  // Far above any cover worth showing; a larger picture is taken for damage.
  static constexpr std::size_t kMaxPictureBytes = std::size_t{8} * 1024 * 1024;
  // Pixels on a side: more is not decoded for showing either.
  static constexpr long kMaxDimension = 4096;
  static constexpr std::array<const char*, 4> kFolderNames{"folder.jpg", "cover.jpg", "front.jpg", "cover.png"};

  // The file system resolves drive paths; it must outlive the finder.
  explicit CoverFinder(const platform::FileSystem& fileSystem);

  // fullPath: a drive path or an absolute Linux path of a music file.
  CoverPicture Find(const std::string& fullPath) const;

  // Whether the bytes begin as a picture of a kind a window can show.
  static bool LooksLikePicture(const std::string& bytes);
  // Whether such a picture is small enough to be shown (bytes and pixels).
  static bool SmallEnough(const std::string& bytes);

 private:
  const platform::FileSystem& fileSystem_;
};
