#include "scan/ScanReport.h"

#include "base/CountText.h"
#include "platform/FileSystem.h"
#include "volumes/Paths.h"

namespace {

// "3 files and 1 folder were skipped for their names."
std::string SkippedLine(int files, int folders, const char* oneReason, const char* manyReason) {
  if (files + folders == 0) return "";
  std::string subject;
  if (files > 0) subject = Counted(files, "file", "files");
  if (files > 0 && folders > 0) subject += " and ";
  if (folders > 0) subject += Counted(folders, "folder", "folders");
  const bool one = files + folders == 1;
  return subject + (one ? " was skipped for " : " were skipped for ") + (one ? oneReason : manyReason);
}

void AddLine(std::string& notes, const std::string& line) {
  if (line.empty()) return;
  if (!notes.empty()) notes += "\n";
  notes += line;
}

}  // namespace

void ScanReport::Clear(AudioFormats formats) {
  formats_ = formats;
  refusal_.clear();
  notRead_.clear();
  forName_ = {};
  forLength_ = {};
  found_ = {};
}

// Only audio files count: any other file would not have been recorded anyway.
// A folder might have held some, so every folder counts.
void ScanReport::Count::Add(const platform::DirEntry& entry, AudioFormats formats) {
  if (entry.IsFolder())
    ++folders;
  else if (entry.IsFile() && GetFileType(entry.name, formats) != kNotMedia)
    ++files;
}

void ScanReport::SkippedForName(const platform::DirEntry& entry) { forName_.Add(entry, formats_); }
void ScanReport::SkippedForLength(const platform::DirEntry& entry) { forLength_.Add(entry, formats_); }

std::string ScanReport::Notes() const {
  std::string notes;
  const int notRead = static_cast<int>(notRead_.size());
  if (notRead > 0)
    AddLine(notes, Counted(notRead, "folder could not be read; its entries were kept.",
                           "folders could not be read; their entries were kept."));
  AddLine(notes, SkippedLine(forName_.files, forName_.folders, "its name.", "their names."));
  AddLine(notes,
          SkippedLine(forLength_.files, forLength_.folders, "the length of its path.", "the length of their paths."));
  return notes;
}

std::string ScanReport::Found() const {
  return "Found " + Counted(found_.folders, "folder", "folders") + ": " + Counted(found_.added, "file", "files") +
         " added, " + Counted(found_.removed, "file", "files") + " removed, " +
         Counted(found_.unreadable, "file", "files") + " could not be read." +
         (found_.wmaLeftUnread == 0 ? ""
                                    : " " + Counted(found_.wmaLeftUnread, "WMA file named in lower case was not read.",
                                                    "WMA files named in lower case were not read."));
}
