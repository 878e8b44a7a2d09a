#pragma once
#include <optional>
#include <string>

#include "cli/ConsoleCommand.h"

// `export-playlist PLAYLISTID FILE`: the stored play list written as FILE,
// extended M3U (.m3u, .m3u8) or XSPF (.xspf), replacing a file there. Prints
// "N files exported." and a line "not at hand: PATH" for each file left out
// because its drive has no medium now. Another extension or an unknown play
// list: status 2, nothing written; a file that cannot be written: status 1.
class ExportPlayListCommand : public ConsoleCommand {
 public:
  explicit ExportPlayListCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  int playListId_ = 0;
  std::string file_;
};

// `import-playlist FILE [NAME]`: the catalogued files that the play list
// file (.m3u, .m3u8, .xspf or .pls) names, in order and each once, stored as
// the play list NAME (the file's name without its extension by default).
// Prints "N files imported." and a line "not in the catalogue: PATH" for
// each entry not found. Another extension: status 2; a file that cannot be
// read, or no entry found (nothing is stored then): status 1.
class ImportPlayListCommand : public ConsoleCommand {
 public:
  explicit ImportPlayListCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  std::string file_;
  std::optional<std::string> name_;
};
