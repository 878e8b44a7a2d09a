#pragma once
// The console's command line. CLI11 is header-only and takes seconds to
// compile in each file that includes it, so only CommandLine.cpp does: the
// commands declare their arguments through these three small classes.

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

// One argument of a command, to add rules to.
class Argument {
 public:
  explicit Argument(CLI::Option* option) : option_(option) {}
  Argument& Required();
  Argument& InRange(int low, int high);
  Argument& NonNegative();
  // One of the words; with ignoreCase "YES" is taken as "yes".
  Argument& OneOf(const std::vector<std::string>& words, bool ignoreCase = false);
  // What the help shows for the value ("yes|no").
  Argument& ValueText(const char* text);
  Argument& Excludes(const Argument& other);

 private:
  CLI::Option* option_;
};

// A command of the console, the whole command line or a group of options:
// the arguments it takes. A name "NAME" is positional, "--name" an option.
class CommandArguments {
 public:
  // A command below parent.
  CommandArguments(CommandArguments& parent, const char* name, const char* description);
  // Whether this command was named on the command line.
  bool Chosen() const;

  Argument Add(const char* name, std::string& value, const char* description);
  Argument Add(const char* name, int& value, const char* description);
  Argument Add(const char* name, std::vector<int>& value, const char* description);
  Argument Add(const char* name, std::optional<std::string>& value, const char* description);
  Argument Add(const char* name, std::optional<int>& value, const char* description);
  Argument Add(const char* name, std::optional<bool>& value, const char* description);
  Argument AddFlag(const char* name, bool& value, const char* description);
  // A group of which exactly one option must be given.
  CommandArguments AddChoiceGroup(const char* name, const char* description);

 protected:
  explicit CommandArguments(CLI::App* app) : app_(app) {}

 private:
  CLI::App* app_;
};

class CommandLine : public CommandArguments {
 public:
  CommandLine(const char* program, const char* description, const char* footer);
  ~CommandLine();
  // The exit status when the run ends here: 0 after printing the help,
  // wrongStatus after telling what is wrong with the command line. Nothing
  // when the chosen command is to run.
  std::optional<int> Parse(int argc, char** argv, int wrongStatus);

 private:
  explicit CommandLine(std::unique_ptr<CLI::App> root);
  std::unique_ptr<CLI::App> root_;
};
