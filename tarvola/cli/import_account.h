#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/failure.h"
#include "tarvola/interchange/import_account.h"
#include "tarvola/runtime/errors.h"

/// What the imports have in common: the order, and how it is told what became of every line.
namespace tarvola::cli {

/// What the command line says of an import.
struct ImportOptions {
  std::string file;
  std::string rejects;
};

/// The file, the place of refused lines and the period. `what` names the file in the help: "The payment file".
void addImportOptions(CLI::App& command, ImportOptions& options, const char* what, Context& context);
/// Connects to the store and makes the order. Fails for a file that is none, naming `what` to name: "the payment file",
/// and where the refused lines would replace what must stay.
FileImport orderOf(const ImportOptions& options, const char* what, const Context& context);

/// A count as people read it.
std::string grouped(std::uint64_t value);
/// "1 payment", "2.000 payments".
std::string counted(std::uint64_t count, const char* one, const char* many);

/// The account as a table, and behind it on standard error the refused lines.
void printAccount(const ImportAccount& account, const std::string& title, const std::string& rejects,
                  const Context& context);
/// The four numbers of an account.
nlohmann::ordered_json countsAsJson(const ImportAccount& account);
nlohmann::ordered_json refusedAsJson(const ImportAccount& account);
/// The name of the reject file, null if there is none.
nlohmann::ordered_json rejectsAsJson(const ImportAccount& account, const std::string& rejects);

/// Runs an import. A file that is none fails with what to name instead: one as the command `exporter` writes it.
template <class Import>
auto takenFile(const std::string& exporter, Import import) {
  try {
    return import();
  } catch (const RunTimeError& failure) {
    if (failure.number() != static_cast<std::int32_t>(ErrorNumber::InvalidFileFormat)) throw;
    throw CommandFailure(failure.description() + ".\nName a file with the columns that 'tarvola " + exporter +
                         "' writes.");
  }
}

/// 0, or the code for refused lines.
int exitCodeOf(const ImportAccount& account) noexcept;

}  // namespace tarvola::cli
