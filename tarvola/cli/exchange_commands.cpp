// tarvola import, tarvola export

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/files.h"
#include "tarvola/cli/import_account.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

// --- import ------------------------------------------------------------------------------------------

nlohmann::ordered_json asJson(const SlipFileImportResult& result, const std::string& rejects) {
  nlohmann::ordered_json all = countsAsJson(result);
  all["selfPaidStored"] = result.selfPaidStored;
  all["refusedLines"] = refusedAsJson(result);
  all["warnings"] = result.rebuildWarnings;
  all["rejectFile"] = rejectsAsJson(result, rejects);
  return all;
}

void requireRebuilt(const SlipFileImportResult& result) {
  if (result.rebuildFailures.empty()) return;
  std::string all = "The lines are stored, but the return could not be recounted from them:";
  for (const std::string& failure : result.rebuildFailures) all += "\n" + failure;
  throw CommandFailure(all + "\nMend the document that the message names, then: tarvola return recount");
}

int importFile(const ImportOptions& options, const Context& context) {
  const FileImport order = orderOf(options, "the exchange file", context);
  const SlipFileImportResult result = takenFile("export", [&] { return importSlipFile(order); });
  if (context.json)
    context.out << jsonText(asJson(result, order.rejectPath)) << '\n';
  else
    printAccount(result, "import of " + context.period().text(), order.rejectPath, context);
  if (result.likeUtf8 > 0)
    context.err << grouped(result.likeUtf8) << (result.likeUtf8 == 1 ? " line looks" : " lines look")
                << " like UTF-8 in a file that does not say so: check the names in them.\n";
  for (const std::string& warning : result.rebuildWarnings) context.err << "Note: " << warning << '\n';
  requireRebuilt(result);
  return exitCodeOf(result);
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

void exportFile(const ExportOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  FinishedFile file(options.file, options.force);
  requireDocuments(period);
  // A damaged document would leave the store without its figures, and no import would take it back.
  requireWhole(documentFaults(period), "Nothing was exported.");
  const Messages messages;
  CEksporBP().pEksporPPh("", 4, std::to_string(period.month), std::to_string(period.year), period.correction,
                         file.partPath(), "");
  file.requireWritten(messages);
  const std::uint64_t rows = linesOf(file.partPath()) - 1;
  file.finish();
  if (context.json)
    context.out << jsonText(nlohmann::ordered_json{{"file", options.file}, {"rows", rows}}) << '\n';
  else
    context.out << "Exported " << grouped(rows) << " documents of " << period.text() << " to " << options.file << ".\n";
}

}  // namespace

void addExchangeCommands(CLI::App& app, Context& context, int& exitCode) {
  auto importing = std::make_shared<ImportOptions>();
  CLI::App* importCommand = app.add_subcommand("import", "Take a slip exchange file into a return");
  importCommand->group(groups::exchange);
  addImportOptions(*importCommand, *importing, "The exchange file", context);
  importCommand->callback([importing, &context, &exitCode] { exitCode = importFile(*importing, context); });

  auto exporting = std::make_shared<ExportOptions>();
  CLI::App* exportCommand = app.add_subcommand("export", "Write a return to a slip exchange file");
  exportCommand->group(groups::exchange);
  exportCommand->add_option("FILE", exporting->file, "The file to write")->type_name("")->required();
  exportCommand->add_flag("--force", exporting->force, "Replace the file if it exists");
  addPeriodOptions(*exportCommand, context);
  exportCommand->callback([exporting, &context] { exportFile(*exporting, context); });
}

}  // namespace tarvola::cli
