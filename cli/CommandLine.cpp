#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <cstdio>

Argument& Argument::Required() {
  option_->required();
  return *this;
}

Argument& Argument::InRange(int low, int high) {
  option_->check(CLI::Range(low, high));
  return *this;
}

Argument& Argument::NonNegative() {
  option_->check(CLI::NonNegativeNumber);
  return *this;
}

Argument& Argument::OneOf(const std::vector<std::string>& words, bool ignoreCase) {
  if (ignoreCase)
    option_->check(CLI::IsMember(words, CLI::ignore_case));
  else
    option_->check(CLI::IsMember(words));
  return *this;
}

Argument& Argument::ValueText(const char* text) {
  option_->option_text(text);
  return *this;
}

Argument& Argument::Excludes(const Argument& other) {
  option_->excludes(other.option_);
  return *this;
}

CommandArguments::CommandArguments(CommandArguments& parent, const char* name, const char* description)
    : app_(parent.app_->add_subcommand(name, description)) {}

bool CommandArguments::Chosen() const { return app_->parsed(); }

Argument CommandArguments::Add(const char* name, std::string& value, const char* description) {
  return Argument(app_->add_option(name, value, description));
}

Argument CommandArguments::Add(const char* name, int& value, const char* description) {
  return Argument(app_->add_option(name, value, description));
}

Argument CommandArguments::Add(const char* name, std::vector<int>& value, const char* description) {
  return Argument(app_->add_option(name, value, description));
}

Argument CommandArguments::Add(const char* name, std::optional<std::string>& value, const char* description) {
  return Argument(app_->add_option(name, value, description));
}

Argument CommandArguments::Add(const char* name, std::optional<int>& value, const char* description) {
  return Argument(app_->add_option(name, value, description));
}

Argument CommandArguments::Add(const char* name, std::optional<bool>& value, const char* description) {
  return Argument(app_->add_option(name, value, description));
}

Argument CommandArguments::AddFlag(const char* name, bool& value, const char* description) {
  return Argument(app_->add_flag(name, value, description));
}

CommandArguments CommandArguments::AddChoiceGroup(const char* name, const char* description) {
  CLI::Option_group* group = app_->add_option_group(name, description);
  group->require_option(1);
  return CommandArguments(group);
}

CommandLine::CommandLine(const char* program, const char* description, const char* footer)
    : CommandLine(std::make_unique<CLI::App>(description, program)) {
  root_->footer(footer);
  root_->require_subcommand(1);
}

CommandLine::CommandLine(std::unique_ptr<CLI::App> root) : CommandArguments(root.get()), root_(std::move(root)) {}

CommandLine::~CommandLine() = default;

std::optional<int> CommandLine::Parse(int argc, char** argv, int wrongStatus) {
  try {
    root_->parse(argc, argv);
  } catch (const CLI::CallForHelp& help) {
    return root_->exit(help);
  } catch (const CLI::ParseError& error) {
    std::fprintf(stderr, "%s: %s\n", root_->get_name().c_str(), error.what());
    return wrongStatus;
  }
  return std::nullopt;
}
