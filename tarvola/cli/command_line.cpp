#include "tarvola/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "tarvola/cli/failure.h"
#include "tarvola/cli/suggestion.h"

namespace tarvola::cli {

namespace {

/// "return show"; "" for the tool itself.
std::string pathOf(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  if (parent == nullptr) return "";
  const std::string above = pathOf(*parent);
  return above.empty() ? command.get_name() : above + " " + command.get_name();
}

std::string seeHelpOf(const CLI::App& command) {
  const std::string path = pathOf(command);
  return "\nSee: tarvola help" + (path.empty() ? "" : " " + path);
}

bool isOption(const std::string& word) {
  return word.starts_with('-') && word.find_first_not_of('-') != std::string::npos;
}

/// The parser's own words, but for a value that is none: "Could not convert: --seq = 1,5".
std::string textOf(const CLI::ParseError& error) {
  const std::string text = error.what();
  constexpr std::string_view noValue = "Could not convert: ";
  const std::size_t sign = text.find(" = ");
  if (!text.starts_with(noValue) || sign == std::string::npos) return text + ".";
  return "\"" + text.substr(sign + 3) + "\" is no value for " + text.substr(noValue.size(), sign - noValue.size()) +
         ".";
}

std::vector<std::string> commandsOf(const CLI::App& group) {
  std::vector<std::string> names;
  for (const CLI::App* each : group.get_subcommands([](const CLI::App*) { return true; }))
    names.push_back(each->get_name());
  return names;
}

/// Those of the commands above it too, which it takes as well.
std::vector<std::string> optionsOf(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::App* at = &command; at != nullptr; at = at->get_parent())
    for (const CLI::Option* option : at->get_options())
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

[[noreturn]] void failOnUnknownCommand(const CLI::App& group, const std::string& word) {
  std::vector<std::string> known = commandsOf(group);
  if (group.get_parent() == nullptr) known.insert(known.end(), {"help", "--version"});
  const std::string path = pathOf(group);
  throw CommandFailure("There is no command \"" + (path.empty() ? "" : path + " ") + word + "\"." +
                           didYouMean(word, known) + seeHelpOf(group),
                       Usage);
}

[[noreturn]] void failOnMissingCommand(const CLI::App& group) {
  std::string known;
  for (const std::string& name : commandsOf(group)) known += (known.empty() ? "" : ", ") + name;
  const std::string path = pathOf(group);
  throw CommandFailure("No command is named" + (path.empty() ? "" : " behind \"" + path + "\"") +
                           ".\nThere are: " + known + "." + seeHelpOf(group),
                       Usage);
}

[[noreturn]] void failOnUnknownOption(const CLI::App& command, const std::string& word) {
  const std::string name = word.substr(0, word.find('='));
  throw CommandFailure("There is no option " + name + "." + didYouMean(name, optionsOf(command)) + seeHelpOf(command),
                       Usage);
}

const CLI::App& commandThatWasRead(const CLI::App& app) {
  const CLI::App* at = &app;
  while (!at->get_subcommands().empty()) at = at->get_subcommands().front();
  return *at;
}

}  // namespace

void requireKnownCommands(const CLI::App& app, const std::vector<std::string>& words) {
  const CLI::App* at = &app;
  for (const std::string& word : words) {
    if (at->get_require_subcommand_min() == 0 || word.empty() || word.front() == '-') return;
    const auto commands = at->get_subcommands([](const CLI::App*) { return true; });
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const CLI::App* command) { return command->get_name() == word; });
    if (found == commands.end()) failOnUnknownCommand(*at, word);
    at = *found;
  }
}

void failAsUsage(const CLI::App& app, const CLI::ParseError& error) {
  const CLI::App& command = commandThatWasRead(app);
  const std::vector<std::string> left = app.remaining(true);
  // A misspelt option leaves its value behind, and what it should have given is missing: it comes first.
  const auto option = std::find_if(left.begin(), left.end(), isOption);
  if (option != left.end()) failOnUnknownOption(command, *option);
  if (command.get_require_subcommand_min() > 0) {
    if (left.empty()) failOnMissingCommand(command);
    failOnUnknownCommand(command, left.front());
  }
  if (!left.empty()) throw CommandFailure("\"" + left.front() + "\" is one word too many." + seeHelpOf(command), Usage);
  throw CommandFailure(textOf(error) + seeHelpOf(command), Usage);
}

}  // namespace tarvola::cli
