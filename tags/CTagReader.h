#pragma once
// The tag reader for MP3, Ogg Vorbis, FLAC, Musepack, WMA, Opus and M4A
// files, built on TagLib.
//
// The type comes from the name alone: the path's ending, without regard to
// ASCII case (".ogg", ".mp3", ".flac", ".mpc", ".wma", ".opus", ".m4a"); the
// content is never sniffed, so a misnamed file fails to parse and yields
// nothing. Paths of four characters or fewer are never opened.
//
// Only regular files are opened (links followed): a pipe, a socket or a
// device leaves the record untouched.
//
// From a parsed file it writes id3Title, id3Artist, id3Album, id3Comment as
// UTF-8, each cut to at most 64 KiB (never inside a character) and then
// without trailing white space (a missing field becomes ""), Track (0 when
// the tag has none), and
// Length (s), BitRate (kbit/s), SampleRate (Hz) and Channels as TagLib gives
// them. No other field is touched. An empty file counts as unparseable.
//
// GetTag catches nothing: exceptions from the file system or TagLib reach the
// caller. It keeps no state, so calls may come from any thread the file
// system allows.

#include <cstddef>
#include <string>

#include "platform/FileSystem.h"
#include "tags/TagReader.h"

class CTagReader : public TagReader {
 public:
  // A longer text costs memory in every copy of the record, for nothing a
  // person would read.
  static constexpr std::size_t kMaxTagTextBytes = 65536;

  // The file system must outlive the reader.
  explicit CTagReader(const platform::FileSystem& fileSystem);

  int GetTag(std::string fullPath, CMediaFile& file) override;

 private:
  const platform::FileSystem& fileSystem_;
};
