#include "cli/PlayListCommands.h"

#include <algorithm>

#include "app/CLibraryApp.h"
#include "cli/ConsolePlayListWindow.h"
#include "playlists/CPlayListModel.h"

namespace {

// The ids as the main window would hand them over; throws UsageError for an
// id with no file row, before anything has been done.
IdList CataloguedFiles(CLibraryApp& app, const std::vector<int>& fileIds) {
  const IdList ids(fileIds.begin(), fileIds.end());
  const IdList existing = app.Db().ExistingFileIds(ids);
  if (existing.size() == ids.size()) return ids;
  const auto missing = std::mismatch(ids.begin(), ids.end(), existing.begin(), existing.end()).first;
  throw UsageError("no file with FileID " + std::to_string(*missing) + " in the catalogue");
}

// After "File Copy Complete.": a line for each file that was not copied.
void PrintNotCopied(std::FILE* out, const CopySummary& summary) {
  for (const NotCopiedFile& file : summary.NotCopied()) {
    if (file.alreadyThere)
      std::fprintf(out, "already there: %s\n", OneLine(file.fileName).c_str());
    else
      std::fprintf(out, "not copied: %s: %s\n", OneLine(file.source).c_str(), file.reason.c_str());
  }
}

}  // namespace

SavePlayListCommand::SavePlayListCommand(CommandArguments& parent)
    : command_(parent, "save-playlist", "Store files as a named play list") {
  command_.Add("NAME", name_, "The play list's name").Required();
  command_.Add("FILEID", fileIds_, "The files, in play list order");
}

bool SavePlayListCommand::Chosen() const { return command_.Chosen(); }

int SavePlayListCommand::Run(CLibraryApp& app, std::FILE*) {
  const IdList ids = CataloguedFiles(app, fileIds_);
  ConsolePlayListWindow window(app);
  window.Add(ids);
  window.WillType(name_);
  window.Press(CPlayListDlg::kSavePlayList);
  return 0;
}

CopyCommand::CopyCommand(CommandArguments& parent)
    : command_(parent, "copy", "Copy files to the cache folder or to a folder") {
  CommandArguments target = command_.AddChoiceGroup("target", "Where the copies go");
  target.AddFlag("--cache", toCache_, "Copy to the cache folder");
  target.Add("--to", folder_, "Copy to this folder: a Linux path, or a drive path such as C:\\Out");
  command_.Add("FILEID", fileIds_, "The files to copy");
}

bool CopyCommand::Chosen() const { return command_.Chosen(); }

int CopyCommand::Run(CLibraryApp& app, std::FILE* out) {
  const std::string target = folder_ ? FolderArgument(app, *folder_) : "";
  const IdList ids = CataloguedFiles(app, fileIds_);
  ConsolePlayListWindow window(app);
  window.Add(ids);
  if (folder_) {
    window.WillPick(target);
    window.Press(CPlayListDlg::kCopyAllTo);
  } else {
    window.Press(CPlayListDlg::kCache);
  }
  PrintNotCopied(out, app.PlayList().Copy().summary);
  return 0;
}

ClearCacheCommand::ClearCacheCommand(CommandArguments& parent)
    : command_(parent, "clear-cache", "Delete the files in the cache folder") {}

bool ClearCacheCommand::Chosen() const { return command_.Chosen(); }

int ClearCacheCommand::Run(CLibraryApp& app, std::FILE*) {
  ConsolePlayListWindow window(app);
  window.Press(CPlayListDlg::kClearCache);
  return 0;
}
