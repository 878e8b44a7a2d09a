#include "playlists/CopySummary.h"

#include <algorithm>

namespace {

std::string FilesCopied(int count) { return std::to_string(count) + (count == 1 ? " file copied" : " files copied"); }

// File names may hold line breaks and tabs; the status line stays one line.
std::string OnOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  return text;
}

}  // namespace

void CopySummary::Add(const std::string& source, const std::string& fileName, const platform::CopyResult& result) {
  using Outcome = platform::CopyResult::Outcome;
  if (result.outcome == Outcome::Copied)
    ++copied_;
  else
    notCopied_.push_back({source, fileName, result.outcome == Outcome::AlreadyThere, result.reason});
}

void CopySummary::AddFailure(const std::string& source, const std::string& fileName, const std::string& reason) {
  notCopied_.push_back({source, fileName, false, reason});
}

int CopySummary::AlreadyThere() const {
  return static_cast<int>(
      std::count_if(notCopied_.begin(), notCopied_.end(), [](const NotCopiedFile& file) { return file.alreadyThere; }));
}

int CopySummary::Failed() const { return static_cast<int>(notCopied_.size()) - AlreadyThere(); }

std::string CopySummary::StatusLine() const {
  std::string line = FilesCopied(copied_);
  if (const int there = AlreadyThere()) line += ", " + std::to_string(there) + " already there";
  if (const int failed = Failed()) line += ", " + std::to_string(failed) + " failed: " + FailuresNamed();
  return line + ".";
}

// "a.mp3 (disk full), b.mp3 (source missing) and 4 more"
std::string CopySummary::FailuresNamed() const {
  std::string named;
  int shown = 0;
  for (const NotCopiedFile& file : notCopied_) {
    if (file.alreadyThere) continue;
    if (shown == kNamedFailures) return named + " and " + std::to_string(Failed() - shown) + " more";
    named += (shown++ ? ", " : "") + OnOneLine(file.fileName) + " (" + file.reason + ")";
  }
  return named;
}
