#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

/// What is wrong with a command line, in the words of the tool.
namespace tarvola::cli {

/// Fails on the first word that is no command where one is needed.
void requireKnownCommands(const CLI::App& app, const std::vector<std::string>& words);

/// Fails the command with what the parser has found wrong, what may have been meant, and where the help is.
[[noreturn]] void failAsUsage(const CLI::App& app, const CLI::ParseError& error);

}  // namespace tarvola::cli
