#pragma once
#include <optional>
#include <string>
#include <vector>

#include "cli/ConsoleCommand.h"

// `save-playlist NAME FILEID...`: the play list window holding those files in
// that order (each once); "Save PlayList", NAME typed, "Save" pressed.
class SavePlayListCommand : public ConsoleCommand {
 public:
  explicit SavePlayListCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  std::string name_;
  std::vector<int> fileIds_;
};

// `copy --cache FILEID...` / `copy --to FOLDER FILEID...`: the play list window
// holding those files; "Cache", or "Copy All To .." with FOLDER picked. After
// "File Copy Complete." a line for each file not copied: "already there: NAME"
// or "not copied: SOURCE: REASON".
class CopyCommand : public ConsoleCommand {
 public:
  explicit CopyCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  bool toCache_ = false;
  std::optional<std::string> folder_;
  std::vector<int> fileIds_;
};

// `clear-cache`: the play list window's "C", question first.
class ClearCacheCommand : public ConsoleCommand {
 public:
  explicit ClearCacheCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
};
