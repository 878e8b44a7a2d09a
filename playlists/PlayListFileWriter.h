#pragma once
// The text of a play list file for other players: extended M3U or XSPF, both
// UTF-8 without a byte-order mark. Texts that are not UTF-8 are taken as
// Latin-1. Pure functions; any thread.

#include <cstdint>
#include <string>
#include <vector>

#include "playlists/PlayListFileFormat.h"

// A file as a play list file lists it.
struct PlayListFileEntry {
  std::string path;  // absolute Linux path
  std::string title;
  std::string artist;
  std::int32_t seconds = 0;  // 0 or less: not known
};

// For M3U: "#EXTM3U", then for each file "#EXTINF:SECONDS,ARTIST - TITLE"
// (-1 seconds when not known, the title alone without an artist) and its
// path on a line of its own; a path that a line cannot hold (a line break in
// it, a blank at its end, bytes that are not UTF-8) as a file URL. Lines end with "\n".
// For XSPF: a document with a track for each file: its file URL, title,
// creator and duration (ms, left out when not known).
// PLS is read only: it gives "".
std::string WritePlayListFile(PlayListFileFormat format, const std::vector<PlayListFileEntry>& entries);
