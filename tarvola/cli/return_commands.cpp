// tarvola return create | show | recount | check

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/filer.h"
#include "tarvola/cli/json_list.h"
#include "tarvola/cli/table.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/interchange/return_check.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

using mainreturn::ReturnLine;
using mainreturn::returnLines;

// --- reading a return ------------------------------------------------------------------------------------

/// The loaded main form's fields, by name.
class ReturnFields {
 public:
  explicit ReturnFields(const Period& period) {
    const Messages messages;
    form_.pGetF113204("", "F113204", "01", period.month, period.year, period.correction, "-", "113");
    messages.throwIfAny();
  }

  [[nodiscard]] Variant value(std::string_view field) const { return form_.rs4_2Form()->get_Collect(field); }
  [[nodiscard]] double number(std::string_view field) const {
    const Variant held = value(field);
    return held.isNull() ? 0 : CDbl(held);
  }
  [[nodiscard]] std::string text(std::string_view field) const {
    const Variant held = value(field);
    return held.isNull() ? "" : CStr(held);
  }

 private:
  CF113204 form_;
};

std::string nameOf(const ReturnLine& line, const ReturnFields& fields) {
  const std::string own = line.ownText.empty() ? "" : fields.text(line.ownText);
  return own.empty() ? std::string(line.printedName) : std::string(line.printedName) + ": " + own;
}

// --- showing it --------------------------------------------------------------------------------------------

struct Mark {
  const char* field;
  const char* meaning;
};
/// The marks of part C whose meaning the figures of this library give.
constexpr Mark marks[] = {{"CHKC1", "payment records"}, {"CHKC2", "list of slips"}, {"CHKC3", "slips"}};

void printTable(const ReturnFields& fields, const Period& period, const Context& context) {
  std::ostream& out = context.out;
  out << kindOf(period) << ", " << period.text() << '\n';
  out << fields.text("NmWP") << ", NPWP " << formattedNpwp(fields.text("npwp")) << "\n\n";
  Table table({{"No"},
               {"Uraian"},
               {"Nilai Objek Pajak (Rp)", Table::Align::Right},
               {"Tarif (%)", Table::Align::Right},
               {"PPh (Rp)", Table::Align::Right}});
  for (const ReturnLine& line : returnLines)
    table.add({std::string(line.number), nameOf(line, fields), rupiah(fields.number(line.gross)),
               CStr(fields.number(line.rate)), rupiah(fields.number(line.tax))});
  table.addRule();
  table.add(
      {"", "Jumlah", rupiah(fields.number(mainreturn::totalGross)), "", rupiah(fields.number(mainreturn::totalTax))});
  table.shrink(1, context.width);
  table.print(out);

  out << "\nSlips: " << rupiah(fields.number("C3"))
      << "   Payment and transfer records: " << rupiah(fields.number("c1")) << "\nMarks:";
  for (const Mark& mark : marks) out << "  [" << (fields.number(mark.field) != 0 ? 'x' : ' ') << "] " << mark.meaning;
  out << '\n';
}

void printJson(const ReturnFields& fields, const Period& period, std::ostream& out) {
  nlohmann::ordered_json lines = nlohmann::ordered_json::array();
  for (const ReturnLine& line : returnLines)
    lines.push_back({{"line", line.number},
                     {"name", nameOf(line, fields)},
                     {"gross", jsonNumber(fields.number(line.gross))},
                     {"rate", jsonNumber(fields.number(line.rate))},
                     {"tax", jsonNumber(fields.number(line.tax))}});
  nlohmann::ordered_json marked;
  for (const Mark& mark : marks) marked[mark.field] = fields.number(mark.field) != 0;
  const nlohmann::ordered_json all = {{"month", period.month},
                                      {"year", period.year},
                                      {"correction", period.correction},
                                      {"npwp", fields.text("npwp")},
                                      {"name", fields.text("NmWP")},
                                      {"lines", lines},
                                      {"totalGross", jsonNumber(fields.number(mainreturn::totalGross))},
                                      {"totalTax", jsonNumber(fields.number(mainreturn::totalTax))},
                                      {"slips", jsonNumber(fields.number("C3"))},
                                      {"paymentRecords", jsonNumber(fields.number("c1"))},
                                      {"marks", marked}};
  out << jsonText(all) << '\n';
}

/// Numbers as machines read them, with a decimal point.
void printCsv(const ReturnFields& fields, std::ostream& out) {
  out << "line,name,gross,rate,tax\n";
  for (const ReturnLine& line : returnLines)
    out << line.number << ',' << csvField(nameOf(line, fields)) << ',' << numberLiteral(fields.number(line.gross))
        << ',' << numberLiteral(fields.number(line.rate)) << ',' << numberLiteral(fields.number(line.tax)) << '\n';
  out << "total,Jumlah," << numberLiteral(fields.number(mainreturn::totalGross)) << ",,"
      << numberLiteral(fields.number(mainreturn::totalTax)) << '\n';
}

void showReturn(const Context& context, bool csv) {
  context.connect();
  const Period period = context.period();
  requireReturn(period);
  requireWhole(packedFaults(store::F113204, period),
               "Its lines cannot be shown; tarvola return recount rebuilds what the documents give.");
  const ReturnFields fields(period);
  if (context.json)
    printJson(fields, period, context.out);
  else if (csv)
    printCsv(fields, context.out);
  else
    printTable(fields, period, context);
}

// --- making and recounting it --------------------------------------------------------------------------------

void report(const Context& context, const Period& period, const char* done, const std::string& inWords) {
  if (!context.json) {
    context.out << inWords << '\n';
    return;
  }
  const nlohmann::ordered_json result = {
      {"month", period.month}, {"year", period.year}, {"correction", period.correction}, {"done", done}};
  context.out << jsonText(result) << '\n';
}

void createReturn(const Context& context) {
  context.connect();
  const Period period = context.period();
  if (returnExists(period)) throw CommandFailure("The return " + period.text() + " exists already.");
  const Filer filer = readFiler();
  const Messages messages;
  CF113204().pCreateF113204Hdr(filer.npwp, "F113204", "01", period.month, period.year, period.correction, "-", "113",
                               filer.name, filer.address, formatDate(today()));
  messages.throwIfAny();
  report(context, period, "made", "Made the return " + period.text() + ".");
}

void recountReturn(const Context& context) {
  context.connect();
  const Period period = context.period();
  requireReturn(period);
  const RebuildOutcome rebuilt = rebuildReturn(period.month, period.year, period.correction);
  for (const std::string& warning : rebuilt.warnings) context.err << "Note: " << warning << '\n';
  if (!rebuilt.failures.empty())
    throw CommandFailure("The return " + period.text() + " could not be recounted: " + rebuilt.failures.front() +
                         "\nSee which document stops it with: tarvola return check");
  report(context, period, "recounted", "Recounted the return " + period.text() + " from its documents.");
}

// --- checking it ---------------------------------------------------------------------------------------------

void printFindingsJson(const std::vector<CheckFinding>& findings, const Period& period, std::ostream& out) {
  JsonList list(out, {{"month", period.month}, {"year", period.year}, {"correction", period.correction}}, "findings");
  for (const CheckFinding& finding : findings)
    list.add({{"finding", checkKindText(finding.kind)},
              {"warning", finding.isWarning},
              {"document", finding.document},
              {"field", finding.field},
              {"stored", finding.stored},
              {"recounted", finding.recounted}});
  list.end();
}

void printFindings(const std::vector<CheckFinding>& findings, std::size_t warnings, const Period& period,
                   const Context& context) {
  if (findings.empty()) {
    context.out << "The return " << period.text() << " agrees with its documents.\n";
    return;
  }
  Table table({{""}, {"Document"}, {"Field"}, {"Stored"}, {"Recounted"}, {"Finding"}});
  for (const CheckFinding& finding : findings)
    table.add({finding.isWarning ? "warning" : "wrong", finding.document, finding.field, finding.stored,
               finding.recounted, std::string(checkKindText(finding.kind))});
  table.shrink(5, context.width);
  table.print(context.out);
  context.out << '\n'
              << counted(findings.size() - warnings, "thing is wrong", "things are wrong") << ", "
              << counted(warnings, "warning", "warnings") << ".\n";
}

/// Warnings alone leave a return sound.
int checkStoredReturn(const Context& context) {
  context.connect();
  const Period period = context.period();
  requireReturn(period);
  const std::vector<CheckFinding> findings = checkReturn(period.month, period.year, period.correction);
  const auto warnings = static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(), [](const CheckFinding& finding) { return finding.isWarning; }));
  if (context.json)
    printFindingsJson(findings, period, context.out);
  else
    printFindings(findings, warnings, period, context);
  return warnings == findings.size() ? Done : Failed;
}

}  // namespace

void addReturnCommands(CLI::App& app, Context& context, int& exitCode) {
  CLI::App* group = app.add_subcommand("return", "Make, show, check, correct and compare returns")
                        ->group(groups::returns)
                        ->require_subcommand(1);

  CLI::App* create = group->add_subcommand("create", "Make the header documents of a return, all amounts 0");
  addPeriodOptions(*create, context);
  create->callback([&context] { createReturn(context); });

  CLI::App* show = group->add_subcommand("show", "Show the lines of a return, its totals, slips and marks");
  addPeriodOptions(*show, context);
  auto csv = std::make_shared<bool>(false);
  show->add_flag("--csv", *csv, "Print the lines as CSV");
  show->callback([csv, &context] { showReturn(context, *csv); });

  CLI::App* recount = group->add_subcommand("recount", "Rebuild a return from all its slips and self-paid forms");
  addPeriodOptions(*recount, context);
  recount->callback([&context] { recountReturn(context); });

  CLI::App* check = group->add_subcommand("check", "Compare a return with its documents, and change nothing");
  addPeriodOptions(*check, context);
  check->callback([&context, &exitCode] { exitCode = checkStoredReturn(context); });

  addReturnDirectory(*group, context);
  addReturnCorrection(*group, context);
  addReturnDifference(*group, context, exitCode);
  addReturnRemoval(*group, context);
}

}  // namespace tarvola::cli
