#pragma once
// A progress bar and a status text on one line of standard error: redrawn in
// place on a terminal, written as a new line at each change otherwise.

#include <cstdio>
#include <string>

class ConsoleProgressLine {
 public:
  ConsoleProgressLine(std::FILE* err, bool terminal);

  void SetStatus(const std::string& text);
  void SetPosition(int position);  // 0..100
  // Ends the line on a terminal, so that later output starts on its own.
  void Finish();

 private:
  void Draw();

  std::FILE* err_;
  bool terminal_;
  std::string status_;
  int position_ = 0;
  std::string lastDrawn_;
};
