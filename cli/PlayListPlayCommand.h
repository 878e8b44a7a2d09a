#pragma once
#include <optional>

#include "catalogue/MediaDB.h"
#include "cli/ConsoleCommand.h"

// Plays the files (each listed once) one after another from the first,
// printing "ROW/COUNT FILENAME" as each starts; `seconds` of each when given. Returns when the
// last one ended, a disc prompt was cancelled or a file did not play.
void PlayFilesThrough(CLibraryApp& app, const IdList& rows, std::optional<int> seconds, std::FILE* out);

// `play-list PLAYLISTID [--seconds N]`: plays a stored play list through from
// its first file, printing each file as it starts; N seconds of each file
// when given, else each to its end. A disc prompt that is cancelled, or a
// file that cannot be played, ends the run (status 0, as in the desktop).
class PlayListPlayCommand : public ConsoleCommand {
 public:
  explicit PlayListPlayCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  CommandArguments command_;
  int playListId_ = 0;
  std::optional<int> seconds_;
};
