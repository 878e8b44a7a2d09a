#pragma once
// The tag reader for MP3, Ogg Vorbis, FLAC, Musepack and WMA files, built on
// TagLib.
//
// The type comes from the name alone: the path's ending, without regard to
// ASCII case (".ogg", ".mp3", ".flac", ".mpc", ".wma"); the content is never
// sniffed, so a misnamed file fails to parse and yields nothing. Paths of four
// characters or fewer are never opened.
//
// From a parsed file it writes id3Title, id3Artist, id3Album, id3Comment as
// UTF-8 with trailing white space removed (a missing field becomes ""), and
// Length (s), BitRate (kbit/s), SampleRate (Hz) and Channels as TagLib gives
// them. No other field is touched. An empty file counts as unparseable.
//
// GetTag catches nothing: exceptions from the file system or TagLib reach the
// caller. It keeps no state, so calls may come from any thread the file
// system allows.

#include <string>

#include "platform/FileSystem.h"
#include "tags/TagReader.h"

class CTagReader : public TagReader {
 public:
  // The file system must outlive the reader.
  explicit CTagReader(const platform::FileSystem& fileSystem);

  int GetTag(std::string fullPath, CMediaFile& file) override;

 private:
  const platform::FileSystem& fileSystem_;
};
