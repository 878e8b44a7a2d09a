#pragma once
#include <optional>
#include <string>

#include "cli/ConsoleCommand.h"

// `file-info FILEID [--title T] [--artist A] [--album B] [--comment C]
// [--rating 1..5 | --no-rating]`: "File Info / Edit" on the file; prints the
// dialog's fields, its group on the audio properties ("MPEG Info", "FLAC
// Info", ...) and the cover picture the window would show ("Picture:
// embedded", a folder file's name, "none", or "not at hand" when the file's
// disc or drive is not there) and, with options, presses Update with those
// edits (the other fields as the dialog showed them).
class FileInfoCommand : public ConsoleCommand {
 public:
  explicit FileInfoCommand(CommandArguments& parent);
  bool Chosen() const override;
  int Run(CLibraryApp& app, std::FILE* out) override;

 private:
  bool Edits() const;

  CommandArguments command_;
  int fileId_ = 0;
  std::optional<std::string> title_;
  std::optional<std::string> artist_;
  std::optional<std::string> album_;
  std::optional<std::string> comment_;
  std::optional<int> rating_;
  bool noRating_ = false;
};
