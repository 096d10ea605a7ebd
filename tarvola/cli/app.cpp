#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <new>
#include <optional>
#include <ostream>

#include "tarvola/cli/command_line.h"
#include "tarvola/cli/commands.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/person.h"
#include "tarvola/cli/terminal.h"
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

/// "help", "help slip add" and "slip help": the same as --help behind those words.
std::vector<std::string> withHelpAsOption(std::vector<std::string> arguments) {
  if (arguments.empty()) return {"--help"};
  const auto isOption = [](const std::string& word) { return word.starts_with('-'); };
  const bool isBehind = arguments.back() == "help" && std::none_of(arguments.begin(), arguments.end(), isOption);
  if (arguments.front() != "help" && !isBehind) return arguments;
  std::erase(arguments, "help");
  arguments.emplace_back("--help");
  return arguments;
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
  // The commands take it over.
  app.footer("Every command takes -s,--store FILE and --json too; see: tarvola help");
}

std::string storeOfEnvironment() {
  const char* path = std::getenv("TARVOLA_STORE");
  return path == nullptr ? "" : path;
}

/// Reads the words, and does what they say.
void parse(CLI::App& app, std::vector<std::string> words, std::ostream& out, std::ostream& err) {
  requireKnownCommands(app, words);
  std::reverse(words.begin(), words.end());
  try {
    app.parse(words);
  } catch (const CLI::ParseError& error) {
    // Help and version come the same way as what is wrong.
    if (error.get_exit_code() != 0) failAsUsage(app, error);
    app.exit(error, out, err);
  }
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
  // Last, so that the commands keep theirs.
  app.footer(footer);
  try {
    const ProgressLine progress(out, err);
    parse(app, withHelpAsOption(arguments), out, err);
    requireWritten(out);
    return exitCode;
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
