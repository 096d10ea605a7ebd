// tarvola import, tarvola export

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/damage.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/selfpaid_editor.h"
#include "tarvola/cli/slip_forms.h"
#include "tarvola/cli/table.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

namespace fs = std::filesystem;

std::string grouped(std::uint64_t value) { return Format(static_cast<double>(value), "#,##0"); }

// --- import ------------------------------------------------------------------------------------------

struct ImportOptions {
  std::string file;
  std::string rejects;
};

/// Where refused lines go if nobody says: beside the file, "month.csv" to "month.rejected.csv".
std::string rejectsBeside(const fs::path& file) {
  return (file.parent_path() / (file.stem().string() + ".rejected" + file.extension().string())).string();
}

void printRefused(const SlipFileImportResult& result, const std::string& rejects, std::ostream& err) {
  constexpr std::size_t most = 20;
  for (std::size_t i = 0; i < result.firstRefused.size() && i < most; ++i)
    err << "line " << result.firstRefused[i].lineNumber << ": " << result.firstRefused[i].reason << '\n';
  if (result.refused > most) err << "... and " << grouped(result.refused - most) << " more\n";
  err << "Refused lines are in " << rejects << " with their reasons. Mend them there and import that file.\n";
}

nlohmann::ordered_json asJson(const SlipFileImportResult& result, const std::string& rejects) {
  nlohmann::ordered_json refusedLines = nlohmann::ordered_json::array();
  for (const RefusedLine& line : result.firstRefused)
    refusedLines.push_back({{"line", line.lineNumber}, {"reason", line.reason}});
  return {{"read", result.read},
          {"stored", result.stored},
          {"alreadyThere", result.alreadyThere},
          {"refused", result.refused},
          {"selfPaidStored", result.selfPaidStored},
          {"refusedLines", refusedLines},
          {"warnings", result.rebuildWarnings},
          {"rejectFile", result.refused > 0 ? nlohmann::ordered_json(rejects) : nlohmann::ordered_json(nullptr)}};
}

void printAccount(const SlipFileImportResult& result, const Period& period, std::ostream& out) {
  Table table({{"import of " + period.text()}, {"lines", Table::Align::Right}});
  table.add({"stored", grouped(result.stored)});
  table.add({"already there", grouped(result.alreadyThere)});
  table.add({"refused", grouped(result.refused)});
  table.addRule();
  table.add({"read", grouped(result.read)});
  table.print(out);
}

void requireRebuilt(const SlipFileImportResult& result) {
  if (result.rebuildFailures.empty()) return;
  std::string all = "The lines are stored, but the return could not be recounted from them:";
  for (const std::string& failure : result.rebuildFailures) all += "\n" + failure;
  throw CommandFailure(all + "\nMend the document that the message names, then: tarvola return recount");
}

SlipFileImportResult takeFile(const SlipFileImport& order) {
  try {
    return importSlipFile(order);
  } catch (const RunTimeError& failure) {
    if (failure.number() != static_cast<std::int32_t>(ErrorNumber::InvalidFileFormat)) throw;
    throw CommandFailure(failure.description() + ".\nName a file with the columns that 'tarvola export' writes.");
  }
}

int importFile(const ImportOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  if (!fs::exists(options.file))
    throw CommandFailure("There is no file " + options.file + ".\nName the exchange file.");
  if (fs::is_directory(options.file))
    throw CommandFailure(options.file + " is a folder, not a file.\nName the exchange file.");
  const std::string rejects = options.rejects.empty() ? rejectsBeside(options.file) : options.rejects;
  const ProgressLine progress;
  const SlipFileImportResult result = takeFile({.path = options.file,
                                                .month = period.month,
                                                .year = period.year,
                                                .correction = period.correction,
                                                .rejectPath = rejects});
  if (context.json)
    context.out << asJson(result, rejects).dump(2) << '\n';
  else
    printAccount(result, period, context.out);
  if (result.refused > 0 && !context.json) printRefused(result, rejects, context.err);
  if (result.likeUtf8 > 0)
    context.err << grouped(result.likeUtf8) << (result.likeUtf8 == 1 ? " line looks" : " lines look")
                << " like UTF-8 in a file that does not say so: check the names in them.\n";
  for (const std::string& warning : result.rebuildWarnings) context.err << "Note: " << warning << '\n';
  requireRebuilt(result);
  return result.refused > 0 ? Refused : Done;
}

// --- export ------------------------------------------------------------------------------------------

struct ExportOptions {
  std::string file;
  bool force = false;
};

std::uint64_t linesOf(const std::string& path) {
  std::uint64_t lines = 0;
  LineReader reader = LineReader::open(path);
  for (std::string_view line; reader.next(line);) ++lines;
  return lines;
}

void requireReplaceable(const ExportOptions& options) {
  const fs::path folder = fs::path(options.file).parent_path();
  if (!folder.empty() && !fs::is_directory(folder))
    throw CommandFailure("There is no folder " + folder.string() + ".\nMake it, or name another place.");
  if (!options.force && fs::exists(options.file))
    throw CommandFailure(options.file + " exists already.\nGive another name, or replace it with --force.");
}

bool holdsDocuments(const char* table, const Period& period) {
  CGeneralClass general;
  const RecordsetPtr first = general.pGetRecordDbase(
      std::string("SELECT MAX(NOBUKTI) AS sFirst FROM ") + table +
      " WHERE NOBUKTI <> '-' AND KD_JENIS_PAJAK = '113' AND MS_PAJAK = " + std::to_string(period.month) +
      " AND TH_PAJAK = " + std::to_string(period.year) +
      " AND KD_PEMBETULAN_KE = " + std::to_string(period.correction));
  return first != nullptr && !first->get_Collect("sFirst").isNull();
}

/// The export tells of an empty period by the same kind of message as of its success, so the tool looks first.
void requireDocuments(const Period& period) {
  if (!holdsDocuments("DS_FORM_INDUK", period) && !holdsDocuments("DAT_SSP_PPh22", period))
    throw CommandFailure("The return " + period.text() +
                         " holds no slips and no self-paid forms; there is nothing to export.");
}

/// A damaged document would leave the store without its figures, and no import would take it back.
void requireWholeDocuments(const Period& period) {
  std::vector<std::string> all;
  const auto add = [&](const store::FormCodes& form) {
    const std::vector<std::string> faults = packedFaults(form, period);
    all.insert(all.end(), faults.begin(), faults.end());
  };
  for (const SlipForm& form : slipForms) add(form.codes);
  for (const SelfPaidForm& form : selfPaidForms()) add(form.codes);
  requireWhole(all, "Nothing was exported.");
}

void exportFile(const ExportOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  requireReplaceable(options);
  requireDocuments(period);
  requireWholeDocuments(period);
  const ProgressLine progress;
  const Messages messages;
  CEksporBP().pEksporPPh("", 4, std::to_string(period.month), std::to_string(period.year), period.correction,
                         options.file, "");
  messages.throwIfAny();
  const std::uint64_t rows = linesOf(options.file) - 1;
  if (context.json)
    context.out << nlohmann::ordered_json{{"file", options.file}, {"rows", rows}}.dump(2) << '\n';
  else
    context.out << "Exported " << grouped(rows) << " documents of " << period.text() << " to " << options.file << ".\n";
}

}  // namespace

void addExchangeCommands(CLI::App& app, Context& context, int& exitCode) {
  auto importing = std::make_shared<ImportOptions>();
  CLI::App* importCommand = app.add_subcommand("import", "Take a slip exchange file into a return");
  importCommand->group(groups::exchange);
  importCommand->add_option("FILE", importing->file, "The exchange file")->required();
  importCommand->add_option("--rejects", importing->rejects,
                            "Where refused lines go (beside the file as FILE.rejected.csv)");
  addPeriodOptions(*importCommand, context);
  importCommand->callback([importing, &context, &exitCode] { exitCode = importFile(*importing, context); });

  auto exporting = std::make_shared<ExportOptions>();
  CLI::App* exportCommand = app.add_subcommand("export", "Write a return to a slip exchange file");
  exportCommand->group(groups::exchange);
  exportCommand->add_option("FILE", exporting->file, "The file to write")->required();
  exportCommand->add_flag("--force", exporting->force, "Replace the file if it exists");
  addPeriodOptions(*exportCommand, context);
  exportCommand->callback([exporting, &context] { exportFile(*exporting, context); });
}

}  // namespace tarvola::cli
