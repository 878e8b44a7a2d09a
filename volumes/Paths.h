#pragma once
// Path texts as the catalogue keeps them: a backslash separates, a drive
// letter and ":" may lead, and a folder always ends with a backslash.
// Pure functions of their text. The forms, by example:
//   drive text          D                        (a letter alone)
//   normalised folder   C:\Music\Rock\ (or \Music\Rock\ without a drive)
//   stored folder path  \Music\Rock\ (MediaPaths.FullPath)
//   full file path      C:\Music\Rock\song.mp3

#include <string>

#include "catalogue/MediaTypes.h"

// Which endings a scan records: MP3, Ogg Vorbis and WMA, or those and FLAC,
// Musepack, Opus and M4A too.
enum class AudioFormats { Classic, Every };

// Whether a scan with these formats records files of that type.
bool Catalogues(AudioFormats formats, int type);

// "" and "\" give "\"; otherwise a trailing "\" is added when missing, and a
// leading one when the path has no drive and does not begin with "\".
std::string NormalizeFolder(const std::string& path);

// The drive's letter and ":" (when drive is not empty), the normalised folder
// and the file name.
std::string MakeFullPath(const std::string& drive, const std::string& folder, const std::string& fileName);

// The text after the last "\"; empty when the path ends with "\".
std::string GetFileNamePart(const std::string& path);

// The path without its file name part and without its first two characters
// (taken to be the drive letter and colon).
std::string GetFolderPart(const std::string& path);

// The last component of a folder ("Rock" for \Music\Rock\); "\" for a root.
std::string GetFolderName(const std::string& folder);

// The media type of a name's extension, compared in lower case; kNotMedia
// for an ending the formats leave out.
int GetFileType(const std::string& fileName, AudioFormats formats = AudioFormats::Classic);
