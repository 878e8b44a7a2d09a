#include "cli/FileInfoCommand.h"

#include "app/CLibraryApp.h"
#include "cli/ConsoleLibraryWindow.h"
#include "tags/CoverFinder.h"
#include "volumes/CDriveServices.h"

namespace {

void Print(std::FILE* out, const char* label, const std::string& text) {
  std::fprintf(out, "%s%s\n", label, OneLine(text).c_str());
}

void PrintForm(std::FILE* out, const FileInfoForm& form) {
  Print(out, "File: ", form.fileName);
  Print(out, "Title: ", form.title);
  Print(out, "Artist: ", form.artist);
  Print(out, "Album: ", form.album);
  Print(out, "Comment: ", form.comment);
  Print(out, "Rating: ", form.checkedRating > 0 ? std::to_string(form.checkedRating) : "");
  Print(out, "", form.infoTitle);
  for (const std::string* info : {&form.length, &form.bitRate, &form.sampleRate, &form.channels}) Print(out, "", *info);
}

// What the window's cover shows: the picture's source, or why there is none.
std::string PictureLine(const platform::FileSystem& files, const FileInfoForm& form) {
  const std::string path = form.locateCover ? form.locateCover() : form.coverPath;
  if (path.empty()) return "not at hand";
  return CoverFinder(files).Find(path).Describe();
}

}  // namespace

FileInfoCommand::FileInfoCommand(CommandArguments& parent)
    : command_(parent, "file-info", "Show or edit a file's texts and rating") {
  command_.Add("FILEID", fileId_, "The file").Required();
  command_.Add("--title", title_, "Type this title");
  command_.Add("--artist", artist_, "Type this artist");
  command_.Add("--album", album_, "Type this album");
  command_.Add("--comment", comment_, "Type this comment");
  const Argument rating = command_.Add("--rating", rating_, "Check this rating button").InRange(1, 5);
  command_.AddFlag("--no-rating", noRating_, "Check no rating button").Excludes(rating);
}

bool FileInfoCommand::Chosen() const { return command_.Chosen(); }

bool FileInfoCommand::Edits() const { return title_ || artist_ || album_ || comment_ || rating_ || noRating_; }

int FileInfoCommand::Run(CLibraryApp& app, std::FILE* out) {
  const auto file = app.Db().GetFile(fileId_);
  if (!file) throw UsageError("no file with FileID " + std::to_string(fileId_) + " in the catalogue");
  ConsoleLibraryWindow window(app);
  window.fileInfoUser = [&](FileInfoForm& form) {
    for (auto [edit, field] : {std::pair{&title_, &form.title},
                               {&artist_, &form.artist},
                               {&album_, &form.album},
                               {&comment_, &form.comment}})
      if (*edit) *field = **edit;
    if (rating_) form.checkedRating = *rating_;
    if (noRating_) form.checkedRating = 0;
    PrintForm(out, form);
    Print(out, "Picture: ", PictureLine(app.Drives().Files(), form));
    return Edits() ? kDialogOk : kDialogCancel;
  };
  window.EditFileInfo(*file);
  return 0;
}
