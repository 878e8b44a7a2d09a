#include "cli/ConsoleProgressLine.h"

#include <algorithm>

#include "cli/ConsoleCommand.h"

ConsoleProgressLine::ConsoleProgressLine(std::FILE* err, bool terminal) : err_(err), terminal_(terminal) {}

void ConsoleProgressLine::SetStatus(const std::string& text) {
  status_ = OneLine(text);
  Draw();
}

void ConsoleProgressLine::SetPosition(int position) {
  position_ = std::max(-1, std::min(position, 100));
  Draw();
}

void ConsoleProgressLine::Finish() {
  if (terminal_ && !lastDrawn_.empty()) std::fputs("\n", err_);
  lastDrawn_.clear();
  std::fflush(err_);
}

void ConsoleProgressLine::Draw() {
  constexpr int kWidth = 20;
  // While the share is not known the bar holds dots and no share is told;
  // the status (the folder walked) shows the work going on.
  const std::string bar =
      position_ < 0 ? std::string(kWidth, '.')
                    : std::string(position_ * kWidth / 100, '#') + std::string(kWidth - position_ * kWidth / 100, '-');
  const std::string share = position_ < 0 ? "" : std::to_string(position_) + "% ";
  const std::string line = "[" + bar + "] " + share + status_;
  if (line == lastDrawn_) return;
  lastDrawn_ = line;
  if (terminal_) {
    // Back to the line's start, draw, clear what a longer line left behind.
    std::fprintf(err_, "\r%s\x1b[K", line.c_str());
  } else {
    std::fprintf(err_, "%s\n", line.c_str());
  }
  std::fflush(err_);
}
