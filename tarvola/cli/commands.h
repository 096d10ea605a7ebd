#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvola::cli {

class Person;

/// A return: month, year and correction number.
struct Period {
  std::int16_t month = 0;
  std::int16_t year = 0;
  std::int16_t correction = 0;

  /// "01/2009", with ", correction 1" behind it where there is one.
  [[nodiscard]] std::string text() const;
};

/// What all commands share: where the store is, where output goes, and how it is wanted.
struct Context {
  std::ostream& out;
  std::ostream& err;
  std::string storePath = {};
  std::string periodText = {};
  int correction = 0;
  bool json = false;
  /// Whom the commands may ask; nullptr where nobody sits at the input.
  Person* person = nullptr;
  /// Columns that fit the terminal; 0 where there is none, and nothing is shortened.
  std::size_t width = 0;

  /// Checks that there is a store at the path and connects the library to it on this thread. Fails with what is wrong.
  void connect() const;
  /// The period that was given; fails if it is missing, no period, or outside the months 1 to 12.
  [[nodiscard]] Period period() const;
};

/// Lets go of the store that Context::connect has opened.
void closeStore();

/// The terminal that the tool runs on, if there is one.
struct Terminal {
  /// Where a person types; nullptr where nobody does.
  std::istream* input = nullptr;
  /// Columns of the output; 0 if it goes elsewhere.
  std::size_t width = 0;
};

/// Runs the tool with the words behind its name. Returns what the shell gets.
int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, const Terminal& terminal = {});

// Each adds its commands to the tool.
void addStoreCommands(CLI::App& app, Context& context);
void addReturnCommands(CLI::App& app, Context& context, int& exitCode);
void addSlipCommands(CLI::App& app, Context& context);
void addSelfPaidCommands(CLI::App& app, Context& context);
void addListCommands(CLI::App& app, Context& context);
void addExchangeCommands(CLI::App& app, Context& context, int& exitCode);
void addPaymentCommands(CLI::App& app, Context& context, int& exitCode);
void addReportCommands(CLI::App& app, Context& context);

// Each adds some more to "tarvola return".
void addReturnDirectory(CLI::App& group, Context& context);
void addReturnRemoval(CLI::App& group, Context& context);
void addReturnCorrection(CLI::App& group, Context& context);
void addReturnDifference(CLI::App& group, Context& context, int& exitCode);

/// What the commands are sorted under in the help.
namespace groups {
inline constexpr const char* stores = "Stores";
inline constexpr const char* returns = "Returns";
inline constexpr const char* documents = "Documents";
inline constexpr const char* exchange = "Exchange";
}  // namespace groups

/// Adds --period to a command.
void addPeriodOption(CLI::App& command, Context& context);
/// Adds --period and --correction to a command.
void addPeriodOptions(CLI::App& command, Context& context);

}  // namespace tarvola::cli
