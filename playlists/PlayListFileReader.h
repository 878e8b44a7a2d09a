#pragma once
// The files a play list file of another player names. Pure functions of the
// file's text; any thread.

#include <string>
#include <vector>

#include "playlists/PlayListFileFormat.h"

// The entries of the text in its order, each as an absolute Linux path made
// lexically normal ("." and ".." resolved): a path relative to listFolder
// (the play list file's own folder) is taken from there, a file URL is
// decoded. An entry that names no local file (a URL of another scheme or
// host) comes back as written. A UTF-8 byte-order mark, blank lines and line
// ends of "\r\n" are allowed. M3U: every line that does not start with "#".
// PLS: the "FileN=" entries, by N (the first of a number counts); the
// "NumberOfEntries" line is not needed. XSPF: the first location of each
// track.
std::vector<std::string> ReadPlayListFile(PlayListFileFormat format, const std::string& text,
                                          const std::string& listFolder);
