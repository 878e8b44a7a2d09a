#pragma once
// Play list files of other players, written from the catalogue's files and
// read into them. A file is listed by the Linux path it is played from (a
// file on a CD under the mount point of the CD drive of the settings), with
// the title and artist the play list window shows. User-interface thread
// only (the catalogue is read).

#include <string>
#include <vector>

#include "catalogue/MediaDB.h"
#include "playlists/CataloguedFiles.h"

class CDriveServices;

struct PlayListFileExport {
  std::string error;  // why nothing was written, "" when the file was
  int written = 0;    // files listed
  // The drive paths of files whose drive has no root now (a CD drive with no
  // disc mounted): they are left out.
  std::vector<std::string> notAtHand;
};

struct PlayListFileImport {
  std::string error;  // why the file could not be read, "" when it was
  CataloguedFiles found;
};

// The texts of PlayListFileExport::error and PlayListFileImport::error that
// the name of the play list file alone decides.
inline constexpr const char* kNotWrittenFormat = "a play list file is written as .m3u, .m3u8 or .xspf";
inline constexpr const char* kNotReadFormat = "a play list file is read from .m3u, .m3u8, .xspf or .pls";

// Writes the files, in order, as the play list file at the Linux path in the
// format its name ends for, replacing the file there (see
// platform::WriteWholeFile); ids without a file row are passed over.
PlayListFileExport ExportPlayListFile(MediaDB& db, const CDriveServices& drives, const std::string& cdDrive,
                                      const IdList& fileIds, const std::string& path);

// Reads the play list file at the Linux path (in the format its name ends
// for) and finds the catalogued files it names, each once, in order.
PlayListFileImport ImportPlayListFile(MediaDB& db, const CDriveServices& drives, const std::string& path);

// The path with ".m3u8" added when its file name has no extension (a name
// typed into a save dialog).
std::string WithPlayListExtension(const std::string& path);

// What an export or import came to, as a line for the user: "12 files
// exported to PATH.", "Cannot write PATH: disk full.", "3 files imported; 1
// file is not in the catalogue." added: the files that were not listed yet.
std::string ExportOutcome(const PlayListFileExport& exported, const std::string& path);
std::string ImportOutcome(const PlayListFileImport& imported, const std::string& path, int added);
