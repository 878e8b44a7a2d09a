#include "playlists/PlayListFiles.h"

#include <filesystem>

#include "base/CountText.h"
#include "base/MessageText.h"
#include "platform/FileSystem.h"
#include "platform/SmallFile.h"
#include "playlists/CPlayListModel.h"
#include "playlists/PlayListFileReader.h"
#include "playlists/PlayListFileWriter.h"
#include "volumes/CDriveServices.h"
#include "volumes/PlayedFile.h"

namespace {

// Larger than any play list a person keeps; a larger file is no play list.
constexpr std::size_t kLargestPlayListFile = std::size_t{64} << 20;

// Why a file that could not be read was not: a short reason.
std::string UnreadableReason(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) return "no such file";
  if (!std::filesystem::is_regular_file(status)) return "not a regular file";
  if (std::filesystem::file_size(path, error) > kLargestPlayListFile) return "larger than 64 MiB";
  return "not readable";
}

std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  return std::filesystem::absolute(path, error).lexically_normal().string();
}

}  // namespace

PlayListFileExport ExportPlayListFile(MediaDB& db, const CDriveServices& drives, const std::string& cdDrive,
                                      const IdList& fileIds, const std::string& path) {
  PlayListFileExport result;
  const auto format = WrittenFormatOf(path);
  if (!format) {
    result.error = kNotWrittenFormat;
    return result;
  }
  std::vector<PlayListFileEntry> entries;
  // The texts of every file in one statement, in the list's order; ids
  // without a file row give none.
  for (const MediaListRow& row : db.FileListRows(fileIds)) {
    const auto played = LocatePlayedFile(db, row.FileID, cdDrive);
    if (!played) continue;
    std::string local = drives.Files().LocalPath(played->fullPath);
    if (local.empty()) {
      result.notAtHand.push_back(played->fullPath);
      continue;
    }
    const std::vector<std::string> texts = PlayListRowTexts(row);
    entries.push_back({std::move(local), texts[0], texts[1], row.Length});
  }
  result.error = platform::WriteWholeFile(AbsolutePath(path), WritePlayListFile(*format, entries));
  if (result.error.empty()) result.written = static_cast<int>(entries.size());
  return result;
}

PlayListFileImport ImportPlayListFile(MediaDB& db, const CDriveServices& drives, const std::string& path) {
  PlayListFileImport result;
  const auto format = PlayListFileFormatOf(path);
  if (!format) {
    result.error = kNotReadFormat;
    return result;
  }
  const auto text = platform::ReadSmallFile(path, kLargestPlayListFile);
  if (!text) {
    result.error = UnreadableReason(path);
    return result;
  }
  const std::string listFolder = std::filesystem::path(AbsolutePath(path)).parent_path().string();
  result.found = FindCataloguedFiles(db, drives, ReadPlayListFile(*format, *text, listFolder));
  return result;
}

std::string WithPlayListExtension(const std::string& path) {
  return std::filesystem::path(path).has_extension() ? path : path + ".m3u8";
}

std::string ExportOutcome(const PlayListFileExport& exported, const std::string& path) {
  if (!exported.error.empty()) return FillMessage("Cannot write %s: %s.", {path, exported.error});
  std::string outcome = FillMessage("%s exported to %s.", {Counted(exported.written, "file", "files"), path});
  if (!exported.notAtHand.empty())
    outcome += FillMessage(" %s left out: their disc or disk is not at hand.",
                           {Counted(static_cast<int>(exported.notAtHand.size()), "file", "files")});
  return outcome;
}

std::string ImportOutcome(const PlayListFileImport& imported, const std::string& path, int added) {
  if (!imported.error.empty()) return FillMessage("Cannot read %s: %s.", {path, imported.error});
  const std::size_t missing = imported.found.notCatalogued.size();
  const std::string count = Counted(added, "file", "files") + " imported";
  if (missing == 0) return count + ".";
  return FillMessage("%s; %s not in the catalogue.",
                     {count, Counted(static_cast<std::int64_t>(missing), "file is", "files are")});
}
