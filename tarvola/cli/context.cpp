#include <CLI/CLI.hpp>
#include <array>
#include <filesystem>
#include <memory>
#include <optional>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

namespace fs = std::filesystem;

/// The tables that the commands work on. A store that lacks one was not made for this library, or was damaged.
constexpr std::array requiredTables = {
    "DS_FORM_INDUK", "DS_FORM_LAMPIRAN",  "DAT_SSP_PPh22",     "LAMPIRAN_SSP_PPh22",  "D113210",
    "DATSSP",        "datPBKPPhMasa",     "SETTING_TARIF_PPH", "SETTING_NOBUKTI_PPH", "PROFILE",
    "BURSA",         "DS_REF_JENIS_PAJAK"};

void requireStoreFile(const std::string& path) {
  if (path.empty())
    throw CommandFailure("No store is named.\nName one with --store FILE, or in the environment as TARVOLA_STORE.");
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status))
    throw CommandFailure("There is no store at " + path + ".\nMake one with: tarvola store create " + path);
  if (fs::is_directory(status)) throw CommandFailure(path + " is a folder, not a store.\nName the store's file.");
}

/// A path that the library takes for an embedded store, whatever its ending.
std::string asStoreName(const std::string& path) { return path.find('/') == std::string::npos ? "./" + path : path; }

void requireTables(CGeneralClass& general, const std::string& path) {
  std::string missing;
  for (const char* table : requiredTables)
    if (!general.pCekKoneksi(std::string("SELECT * FROM ") + table + " WHERE 1 = 0"))
      missing += (missing.empty() ? "" : ", ") + std::string(table);
  if (!missing.empty())
    throw CommandFailure(path + " lacks a table that a store has: " + missing +
                         ".\nRestore the file from a copy, or make a new store and import the month again.");
}

struct MonthAndYear {
  int month;
  int year;
};

std::optional<int> wholeNumber(std::string_view text) {
  const std::optional<double> value = tryNumber(text);
  if (!value || *value != Int(*value) || *value < 0 || *value > 9999) return std::nullopt;
  return static_cast<int>(*value);
}

/// "01/2009", "1/2009" or "2009-01".
std::optional<MonthAndYear> readPeriod(std::string_view text) {
  const std::size_t cut = text.find_first_of("/-");
  if (cut == std::string_view::npos) return std::nullopt;
  const std::optional<int> first = wholeNumber(text.substr(0, cut));
  const std::optional<int> second = wholeNumber(text.substr(cut + 1));
  if (!first || !second) return std::nullopt;
  const bool yearComesFirst = *first > 99;
  return yearComesFirst ? MonthAndYear{*second, *first} : MonthAndYear{*first, *second};
}

/// Keeps the store's handle and its prepared statements while the command runs.
std::unique_ptr<CGeneralClass>& keptOpen() {
  static std::unique_ptr<CGeneralClass> general;
  return general;
}

/// A new object connects itself as the last one of the thread was, which may have failed; that is no matter here.
std::unique_ptr<CGeneralClass> newObject() {
  const Messages ofTheLastStore;
  return std::make_unique<CGeneralClass>();
}

}  // namespace

void closeStore() { keptOpen().reset(); }

std::string Period::text() const {
  const std::string month00 = Format(static_cast<double>(month), "00");
  const std::string which = month00 + "/" + std::to_string(year);
  return correction == 0 ? which : which + ", correction " + std::to_string(correction);
}

void Context::connect() const {
  requireStoreFile(storePath);
  auto general = newObject();
  const Messages messages;
  general->pSetCon(asStoreName(storePath), "", "");
  if (!messages.failures().empty())
    throw CommandFailure(storePath + " cannot be opened as a store: " + messages.failures().front() +
                         "\nName another file, or make a store with: tarvola store create");
  requireTables(*general, storePath);
  keptOpen() = std::move(general);
}

Period Context::period() const {
  if (periodText.empty()) throw CommandFailure("No period is named.\nName the month, as in --period 01/2009.", Usage);
  const std::optional<MonthAndYear> read = readPeriod(periodText);
  if (!read) throw CommandFailure(periodText + " is no period.\nWrite month and year, as in 01/2009.", Usage);
  if (read->month < 1 || read->month > 12)
    throw CommandFailure("Month " + std::to_string(read->month) + " does not exist.\nMonths run from 1 to 12.", Usage);
  if (read->year < 1000)
    throw CommandFailure("Year " + std::to_string(read->year) + " is none.\nWrite it with four digits.", Usage);
  if (correction < 0 || correction > 99)
    throw CommandFailure("Corrections run from 0 (the first filing) to 99.", Usage);
  return {static_cast<std::int16_t>(read->month), static_cast<std::int16_t>(read->year),
          static_cast<std::int16_t>(correction)};
}

void addPeriodOption(CLI::App& command, Context& context) {
  command.add_option("-p,--period", context.periodText, "Month of the return, as 01/2009")->type_name("MM/YYYY");
}

void addPeriodOptions(CLI::App& command, Context& context) {
  addPeriodOption(command, context);
  command.add_option("-c,--correction", context.correction, "The correction; 0 is the first filing")->type_name("N");
}

}  // namespace tarvola::cli
