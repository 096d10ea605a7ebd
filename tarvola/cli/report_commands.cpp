// tarvola report write | read

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/filer.h"
#include "tarvola/cli/files.h"
#include "tarvola/cli/import_account.h"
#include "tarvola/cli/input_values.h"
#include "tarvola/cli/report_summary.h"
#include "tarvola/cli/table.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/runtime/code_page.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

// --- the secret --------------------------------------------------------------------------------------------

constexpr const char* secretVariable = "TARVOLA_SECRET";

/// A text in UTF-8 or else in the ANSI code page.
std::string asText(std::string_view bytes) { return isUtf8(bytes) ? std::string(bytes) : fromAnsi(bytes); }

std::string firstLine(const std::string& path) try {
  LineReader reader = LineReader::open(path);
  std::string_view line;
  return reader.next(line) ? std::string(line) : std::string();
} catch (const RunTimeError& failure) {
  throw CommandFailure(path + ": " + failure.description() + ".\nName the file of the secret.");
}

std::string readSecretFile(const std::string& path) {
  constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
  constexpr std::string_view utf16Mark = "\xFF\xFE";
  constexpr std::string_view turnedUtf16Mark = "\xFE\xFF";
  requireInputFile(path, "the file of the secret");
  std::string line = firstLine(path);
  if (line.starts_with(utf16Mark) || line.starts_with(turnedUtf16Mark))
    throw CommandFailure(path + " is a text in UTF-16.\nSave it in UTF-8, with the secret alone in the first line.");
  if (line.starts_with(utf8Mark)) line.erase(0, utf8Mark.size());
  return asText(line);
}

/// Nobody types a control character or sees one. A secret with one is a line end or another program's format that came
/// along unseen, and what is enciphered with it nobody else can read.
void requireVisible(const std::string& secret) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
  if (std::any_of(secret.begin(), secret.end(), isControl))
    throw CommandFailure(
        "The secret holds a character that cannot be seen, as a line end or a tab.\n"
        "Give the secret alone, as plain text.");
}

/// The secret of a report. It is not taken from the command line, which other users of the machine can see.
std::string requireSecret(const std::string& file, std::ostream& err) {
  constexpr std::size_t lengthThatCounts = 32;
  const char* variable = std::getenv(secretVariable);
  std::string secret = file.empty() ? asText(variable == nullptr ? "" : variable) : readSecretFile(file);
  if (secret.empty())
    throw CommandFailure(std::string("No secret is given.\nName a file that holds it with --secret-file, or set ") +
                             secretVariable + " in the environment.",
                         Usage);
  requireVisible(secret);
  if (secret.front() == ' ' || secret.back() == ' ')
    err << "Note: the secret begins or ends with a blank, which counts.\n";
  if (Len(secret) > lengthThatCounts) err << "Note: only the first 32 characters of the secret count.\n";
  return secret;
}

// --- reading -----------------------------------------------------------------------------------------------

/// What a person can do about a file that could not be read.
std::string remedyOf(const RunTimeError& failure) {
  return failure.number() == static_cast<std::int32_t>(ErrorNumber::AuthenticationFailed)
             ? "Give the secret that the file was written with."
             : "Get the file once more from who wrote it, or write it anew with: tarvola report write";
}

ReportingFile readReport(const std::string& path, const std::string& secret) {
  requireInputFile(path, "the reporting file");
  try {
    return readReportingFile(path, secret);
  } catch (const RunTimeError& failure) {
    throw CommandFailure(failure.description() + ".\n" + remedyOf(failure));
  }
}

void printSummary(const ReportSummary& summary, const ReportingFile& report, const Context& context) {
  std::ostream& out = context.out;
  const Period& period = summary.period;
  out << (period.correction == 0 ? "SPT Normal" : "SPT Pembetulan Ke-" + std::to_string(period.correction)) << ", "
      << period.text() << '\n'
      << summary.name << ", NPWP " << formattedNpwp(summary.npwp) << "\n\n";
  Table table({{"Form"},
               {"Uraian"},
               {"Lines", Table::Align::Right},
               {"Bruto (Rp)", Table::Align::Right},
               {"PPh (Rp)", Table::Align::Right}});
  double gross = 0;
  double tax = 0;
  std::size_t count = 0;
  for (const ReportedForm& form : summary.forms) {
    table.add({std::string(form.kdForm), std::string(form.printedName), grouped(form.count), rupiah(form.grossRupiah),
               rupiah(form.taxRupiah)});
    count += form.count;
    gross += form.grossRupiah;
    tax += form.taxRupiah;
  }
  table.addRule();
  table.add({"", "All documents", grouped(count), rupiah(gross), rupiah(tax)});
  table.add({"F113204", "Main return", "1", rupiah(summary.grossRupiah), rupiah(summary.taxRupiah)});
  constexpr std::size_t nameColumn = 1;
  table.shrink(nameColumn, context.width);
  table.print(out);
  out << "\nPayments (SSP): " << grouped(summary.paymentCount) << ", " << rupiah(summary.paidRupiah)
      << "   Transfers (PBK): " << grouped(summary.transferCount) << ", " << rupiah(summary.transferredRupiah)
      << "\nLength and control sums are right: " << grouped(report.lines.size()) << " lines, "
      << grouped(report.byteLength) << " bytes, status " << summary.status << ".\n";
}

Json asJson(const ReportSummary& summary, const ReportingFile& report) {
  Json forms = Json::array();
  for (const ReportedForm& form : summary.forms)
    forms.push_back({{"form", form.kdForm},
                     {"lines", form.count},
                     {"gross", jsonNumber(form.grossRupiah)},
                     {"tax", jsonNumber(form.taxRupiah)}});
  return {{"month", summary.period.month},
          {"year", summary.period.year},
          {"correction", summary.period.correction},
          {"npwp", summary.npwp},
          {"name", summary.name},
          {"status", summary.status},
          {"lines", report.lines.size()},
          {"bytes", report.byteLength},
          {"forms", forms},
          {"totalGross", jsonNumber(summary.grossRupiah)},
          {"totalTax", jsonNumber(summary.taxRupiah)},
          {"payments", summary.paymentCount},
          {"paymentsTotal", jsonNumber(summary.paidRupiah)},
          {"transfers", summary.transferCount},
          {"transfersTotal", jsonNumber(summary.transferredRupiah)}};
}

struct ReadOptions {
  std::string file;
  std::string secretFile;
  std::string save;
  bool force = false;
  bool lines = false;
};

/// Writes the plain lines as the library wrote them: ANSI, CR LF.
void saveLines(const ReportingFile& report, const ReadOptions& options) {
  FinishedFile file(options.save, options.force);
  try {
    TextFile text = TextFile::create(file.partPath());
    for (const std::string& line : report.lines) text.WriteLine(line);
    text.Close();
  } catch (const RunTimeError& failure) {
    file.failUnwritten(failure.description());
  }
  file.finish();
}

void readCommand(const ReadOptions& options, const Context& context) {
  const std::string secret = requireSecret(options.secretFile, context.err);
  requireOtherFile(options.save, options.file);
  requireOtherFile(options.save, options.secretFile);
  const ReportingFile report = readReport(options.file, secret);
  if (!options.save.empty()) saveLines(report, options);
  if (options.lines && !context.json) {
    for (const std::string& line : report.lines) context.out << line << '\n';
    return;
  }
  const ReportSummary summary = summaryOf(report);
  if (context.json) {
    Json all = asJson(summary, report);
    if (options.lines) all["text"] = report.lines;
    context.out << jsonText(all) << '\n';
  } else {
    printSummary(summary, report, context);
  }
  if (!options.save.empty() && !context.json) context.out << "Saved the plain lines to " << options.save << ".\n";
}

// --- writing -----------------------------------------------------------------------------------------------

struct WriteOptions {
  std::string file;
  std::string secretFile;
  std::string updateDate;
  std::string nklb;
  int status = 0;
  std::optional<int> paymentsCorrection;
  bool force = false;
};

double readAmount(const std::string& typed) {
  if (typed.empty()) return 0;
  const InputField field{.name = "--nklb", .kind = InputKind::Amount, .label = ""};
  return CDbl(readInput(field, std::string_view(typed)));
}

std::uint8_t readStatus(int status) {
  if (status < 0 || status > 255) throw CommandFailure("The status is a number from 0 to 255.", Usage);
  return static_cast<std::uint8_t>(status);
}

std::int16_t readCorrection(int correction) {
  if (correction < 0 || correction > 99)
    throw CommandFailure("Corrections run from 0 (the first filing) to 99.", Usage);
  return static_cast<std::int16_t>(correction);
}

ReportRequest requestOf(const WriteOptions& options, const Period& period) {
  return {.month = period.month,
          .year = period.year,
          .correction = period.correction,
          .status = readStatus(options.status),
          .dJmlNKLB = readAmount(options.nklb),
          .paymentsCorrection = readCorrection(options.paymentsCorrection.value_or(period.correction)),
          .updateDate = options.updateDate.empty() ? formatDate(today()) : readDate("--updated", options.updateDate)};
}

/// Writes through the library. It tells of a missing folder and of success by the same kind of message, so whether a
/// file is there decides.
void writeReport(const ReportRequest& request, const FinishedFile& file, const std::string& secret) {
  const std::string& path = file.partPath();
  const Messages messages;
  CLaporData().pEksporDataTRV4_2009(CStr(std::int32_t{request.month}), CStr(std::int32_t{request.year}),
                                    request.correction, path, request.status, readFiler().npwp, request.dJmlNKLB,
                                    CStr(std::int32_t{request.paymentsCorrection}), secret, request.updateDate);
  file.requireWritten(messages);
  if (!std::filesystem::exists(path)) messages.throwIfNotified(missingFolderRemedy(path));
}

/// Reads the file back before it is put in its place: what the tax office will read must be what the store says.
ReportingFile readBack(const std::string& path, const std::string& secret, const ReportRequest& request,
                       std::ostream& err) {
  ReportingFile report;
  try {
    report = readReportingFile(path, secret);
  } catch (const RunTimeError& failure) {
    const std::string fault = Replace(failure.description(), path + ": ", "");
    throw CommandFailure("The report was written, but does not read back: " + fault + ".\nNo file was kept.");
  }
  const Messages messages;
  const ReportComparison comparison = compareReport(report, request);
  messages.throwIfAny();
  if (comparison.firstDifference > 0)
    throw CommandFailure("The report was written, but its line " + grouped(comparison.firstDifference) +
                         " is not what the store says now.\nNo file was kept. Try again when nobody else is working "
                         "on the return.");
  if (comparison.linesWithLostCharacters > 0)
    err << "Note: " << counted(comparison.linesWithLostCharacters, "line has", "lines have")
        << " characters that a report cannot hold, \"?\" stands for each. The first is line "
        << grouped(comparison.firstLostCharacters) << ".\n";
  return report;
}

/// A report takes packed texts as they stand, and leaves out what it cannot read of the main return.
void requireWholeReturn(const Period& period) {
  std::vector<std::string> faults = packedFaults(store::F113204, period);
  for (std::string& fault : documentFaults(period)) faults.push_back(std::move(fault));
  requireWhole(faults, "Nothing was reported.");
}

void writeCommand(const WriteOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  const ReportRequest request = requestOf(options, period);
  const std::string secret = requireSecret(options.secretFile, context.err);
  requireReturn(period);
  requireWholeReturn(period);
  requireOtherFile(options.file, options.secretFile);
  FinishedFile file(options.file, options.force);
  writeReport(request, file, secret);
  const ReportingFile report = readBack(file.partPath(), secret, request, context.err);
  file.finish();
  if (context.json)
    context.out << jsonText(Json{{"file", options.file}, {"lines", report.lines.size()}, {"bytes", report.byteLength}})
                << '\n';
  else
    context.out << "Wrote the report of " << period.text() << " to " << options.file << ": "
                << grouped(report.lines.size()) << " lines, read back and compared.\n";
}

constexpr const char* secretHelp = "File whose first line is the secret\n(or TARVOLA_SECRET in the environment)";

}  // namespace

void addReportCommands(CLI::App& app, Context& context) {
  CLI::App* group = app.add_subcommand("report", "Write the enciphered reporting file, or read one")
                        ->group(groups::exchange)
                        ->require_subcommand(1);

  auto writing = std::make_shared<WriteOptions>();
  CLI::App* write = group->add_subcommand("write", "Write the reporting file of a return");
  write->add_option("FILE", writing->file, "The file to write")->type_name("")->required();
  write->add_option("--secret-file", writing->secretFile, secretHelp)->type_name("FILE");
  write->add_option("--status", writing->status, "Status of the return in its line (0)")->type_name("N");
  write->add_option("--nklb", writing->nklb, "Amount behind the status, in rupiah (0)")->type_name("AMOUNT");
  write->add_option("--updated", writing->updateDate, "Date in the line of the profile (today)")->type_name("DATE");
  write->add_option("--payments-correction", writing->paymentsCorrection, "Correction of the payments (the return's)")
      ->type_name("N");
  write->add_flag("--force", writing->force, "Replace the file if it exists");
  addPeriodOptions(*write, context);
  write->callback([writing, &context] { writeCommand(*writing, context); });

  auto reading = std::make_shared<ReadOptions>();
  CLI::App* read = group->add_subcommand("read", "Decipher and check a reporting file, and sum it up");
  read->add_option("FILE", reading->file, "The reporting file")->type_name("")->required();
  read->add_option("--secret-file", reading->secretFile, secretHelp)->type_name("FILE");
  read->add_flag("--lines", reading->lines, "Print the plain lines");
  read->add_option("--save", reading->save, "Write the plain lines to a file")->type_name("OUT");
  read->add_flag("--force", reading->force, "Replace that file if it exists");
  read->callback([reading, &context] { readCommand(*reading, context); });
}

}  // namespace tarvola::cli
