#pragma once
// One command of the console: it declares its arguments on its command of the
// command line when constructed and runs between start-up and exit.

#include <cstdio>
#include <stdexcept>
#include <string>

#include "cli/CommandLine.h"

class CLibraryApp;

// A wrong argument noticed while a command runs (exit status 2).
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class ConsoleCommand {
 public:
  virtual ~ConsoleCommand() = default;
  // Whether this command was named on the command line.
  virtual bool Chosen() const = 0;
  // Returns the exit status; throws UsageError for a wrong argument.
  virtual int Run(CLibraryApp& app, std::FILE* out) = 0;
};

// A FOLDER argument as a drive path: a drive path ("C:\Music") is taken in
// its one spelling, ".." resolved; a Linux path is put on a drive letter.
// Throws UsageError when no drive of the table holds it, or when its ".."
// climb above the drive's root.
std::string FolderArgument(CLibraryApp& app, const std::string& argument);

// A text as the terminal may show it: bytes that are not UTF-8 are shown as
// Latin-1 letters, and control characters (which could drive the terminal:
// escape sequences in a tag or a file name) as "?". Line breaks are kept.
std::string TerminalText(const std::string& text);
// The same as one line: tabs and line breaks become blanks.
std::string OneLine(const std::string& text);
