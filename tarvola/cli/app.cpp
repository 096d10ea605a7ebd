#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <new>
#include <optional>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/person.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

constexpr const char* footer = R"(From an exchange file to a finished return:
  export TARVOLA_STORE=2009.tarvola
  tarvola store create 2009.tarvola --npwp 013121660091000 \
      --name "PT Contoh" --address "Jl. Contoh 1"
  tarvola import month.csv --period 01/2009
  tarvola return show --period 01/2009
  tarvola return check --period 01/2009

'tarvola help COMMAND' tells more of a command.
Exit codes: 0 done, 1 failed, 2 wrong command line, 3 done but for refused lines.)";

/// "help" and "help slip add": the same as --help behind those words.
std::vector<std::string> withHelpAsOption(std::vector<std::string> arguments) {
  if (arguments.empty()) return {"--help"};
  if (arguments.front() != "help") return arguments;
  arguments.erase(arguments.begin());
  arguments.emplace_back("--help");
  return arguments;
}

/// Fails on the first word that is no command where one is needed.
void requireKnownCommands(const CLI::App& app, const std::vector<std::string>& words) {
  const CLI::App* at = &app;
  for (const std::string& word : words) {
    if (at->get_require_subcommand_min() == 0 || word.empty() || word.front() == '-') return;
    const auto commands = at->get_subcommands([](const CLI::App*) { return true; });
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const CLI::App* command) { return command->get_name() == word; });
    if (found == commands.end())
      throw CommandFailure("There is no command \"" + (at == &app ? word : at->get_name() + " " + word) +
                               "\".\nSee: tarvola help" + (at == &app ? "" : " " + at->get_name()),
                           Usage);
    at = *found;
  }
}

void describe(CLI::App& app, Context& context) {
  app.name("tarvola");
  app.require_subcommand(1);
  app.fallthrough();
  app.set_version_flag("--version", std::string("tarvola ") + version());
  app.get_formatter()->column_width(26);
  app.set_help_flag("-h,--help", "Show this help");
  app.add_option("-s,--store", context.storePath, "The store (or TARVOLA_STORE in the environment)")->type_name("FILE");
  app.add_flag("--json", context.json, "Print the result as JSON");
}

std::string storeOfEnvironment() {
  const char* path = std::getenv("TARVOLA_STORE");
  return path == nullptr ? "" : path;
}

/// Whoever reads a result from a file or a pipe must not take half of it for the whole.
void requireWritten(std::ostream& out) {
  out.flush();
  if (!out) throw CommandFailure("The output could not be written.\nSee whether the disk is full.");
}

/// The store of a command is closed with it.
struct OpenStore {
  OpenStore() = default;
  ~OpenStore() { closeStore(); }
  OpenStore(const OpenStore&) = delete;
  OpenStore& operator=(const OpenStore&) = delete;
};

}  // namespace

int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, const Terminal& terminal) {
  Context context{.out = out, .err = err, .storePath = storeOfEnvironment(), .width = terminal.width};
  std::optional<Person> person;
  if (terminal.input != nullptr) context.person = &person.emplace(*terminal.input, err);
  const OpenStore openStore;
  int exitCode = Done;
  CLI::App app("Prepares the Indonesian monthly final income tax return, PPh Pasal 4 ayat (2).");
  describe(app, context);
  addStoreCommands(app, context);
  addReturnCommands(app, context, exitCode);
  addSlipCommands(app, context);
  addSelfPaidCommands(app, context);
  addListCommands(app, context);
  addExchangeCommands(app, context, exitCode);
  addPaymentCommands(app, context, exitCode);
  addReportCommands(app, context);
  // Last, so that the commands do not take it over.
  app.footer(footer);
  try {
    std::vector<std::string> words = withHelpAsOption(arguments);
    requireKnownCommands(app, words);
    std::reverse(words.begin(), words.end());
    app.parse(words);
    requireWritten(out);
    return exitCode;
  } catch (const CLI::ParseError& error) {
    return app.exit(error, out, err) == 0 ? Done : Usage;
  } catch (const CommandFailure& failure) {
    err << "tarvola: " << failure.what() << '\n';
    return failure.code();
  } catch (const std::bad_alloc&) {
    err << "tarvola: There is not enough memory for this.\nEnd other programs, and run the command again.\n";
    return Failed;
  } catch (const std::exception& failure) {
    err << "tarvola: " << failure.what() << '\n';
    return Failed;
  }
}

}  // namespace tarvola::cli
