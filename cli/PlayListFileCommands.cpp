#include "cli/PlayListFileCommands.h"

#include <filesystem>

#include "app/CLibraryApp.h"
#include "app/ExitStatus.h"
#include "base/CountText.h"
#include "playlists/CPlayListModel.h"
#include "playlists/FileIds.h"
#include "playlists/PlayListFileFormat.h"
#include "playlists/PlayListFiles.h"
#include "settings/CAppSettings.h"

namespace {

// The play list file could not be written or read, or named no catalogued file.
constexpr int kNotDone = 1;

std::string Shown(const std::string& text) { return OneLine(TerminalText(text)); }

}  // namespace

ExportPlayListCommand::ExportPlayListCommand(CommandArguments& parent)
    : command_(parent, "export-playlist", "Write a stored play list as an M3U or XSPF file") {
  command_.Add("PLAYLISTID", playListId_, "The play list").Required();
  command_.Add("FILE", file_, "The file to write: .m3u, .m3u8 or .xspf").Required();
}

bool ExportPlayListCommand::Chosen() const { return command_.Chosen(); }

int ExportPlayListCommand::Run(CLibraryApp& app, std::FILE* out) {
  const auto playList = app.Db().GetPlayList(playListId_);
  if (!playList) throw UsageError("no play list with PlayListID " + std::to_string(playListId_) + " in the catalogue");
  if (!WrittenFormatOf(file_)) throw UsageError(Shown(file_) + ": " + kNotWrittenFormat);
  const PlayListFileExport exported =
      ExportPlayListFile(app.Db(), app.Drives(), app.Settings().cdDrive, ParseIdList(playList->FileIDs), file_);
  if (!exported.error.empty()) {
    std::fprintf(stderr, "vantrelle-cli: cannot write %s: %s\n", Shown(file_).c_str(), exported.error.c_str());
    return kNotDone;
  }
  std::fprintf(out, "%s exported.\n", Counted(exported.written, "file", "files").c_str());
  for (const std::string& path : exported.notAtHand) std::fprintf(out, "not at hand: %s\n", Shown(path).c_str());
  return exit_status::kDone;
}

ImportPlayListCommand::ImportPlayListCommand(CommandArguments& parent)
    : command_(parent, "import-playlist", "Store the catalogued files of an M3U, XSPF or PLS file as a play list") {
  command_.Add("FILE", file_, "The play list file: .m3u, .m3u8, .xspf or .pls").Required();
  command_.Add("NAME", name_, "The play list's name (default: the file's name without its extension)");
}

bool ImportPlayListCommand::Chosen() const { return command_.Chosen(); }

int ImportPlayListCommand::Run(CLibraryApp& app, std::FILE* out) {
  if (!PlayListFileFormatOf(file_)) throw UsageError(Shown(file_) + ": " + kNotReadFormat);
  const PlayListFileImport imported = ImportPlayListFile(app.Db(), app.Drives(), file_);
  if (!imported.error.empty()) {
    std::fprintf(stderr, "vantrelle-cli: cannot read %s: %s\n", Shown(file_).c_str(), imported.error.c_str());
    return kNotDone;
  }
  const IdList& ids = imported.found.fileIds;
  if (!ids.empty()) StorePlayList(app.Db(), name_.value_or(std::filesystem::path(file_).stem().string()), ids);
  std::fprintf(out, "%s imported.\n", Counted(static_cast<std::int64_t>(ids.size()), "file", "files").c_str());
  for (const std::string& path : imported.found.notCatalogued)
    std::fprintf(out, "not in the catalogue: %s\n", Shown(path).c_str());
  return ids.empty() ? kNotDone : exit_status::kDone;
}
