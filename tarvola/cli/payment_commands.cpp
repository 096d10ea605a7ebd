// tarvola payments import | export | list

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/filer.h"
#include "tarvola/cli/files.h"
#include "tarvola/cli/import_account.h"
#include "tarvola/cli/table.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/store/statement.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

// --- reading -----------------------------------------------------------------------------------------------

struct Payment {
  std::string date;
  std::string number;
  std::string account;
  std::string kind;
  double rupiah = 0;

  /// Whether an export of the library takes it.
  [[nodiscard]] bool isExported() const {
    return findPaymentCode(paymentAccounts, account) != nullptr && findPaymentCode(paymentKinds, kind) != nullptr;
  }
};

struct Transfer {
  std::string date;
  std::string number;
  /// In whose favour.
  std::string npwp;
  double rupiah = 0;
};

struct Records {
  std::vector<Payment> payments;
  std::vector<Transfer> transfers;

  [[nodiscard]] double paid() const { return sumOf(payments); }
  [[nodiscard]] double transferred() const { return sumOf(transfers); }

 private:
  template <class Record>
  static double sumOf(const std::vector<Record>& records) {
    double sum = 0;
    for (const Record& record : records) sum += record.rupiah;
    return sum;
  }
};

RecordsetPtr rowsOf(const store::Statement& statement) {
  RecordsetPtr rows = CGeneralClass().pGetRecordDbase(statement.str());
  if (rows == nullptr)
    throw CommandFailure("The store could not be read.\nTry again; if it fails again, restore a copy.");
  return rows;
}

/// Every payment and transfer that the return counts. The look-ups of the library leave out some kinds of payment, and
/// transfers in favour of others.
Records readRecords(const Period& period) {
  Records records;
  const RecordsetPtr payments =
      rowsOf(store::Statement("SELECT * FROM DATSSP WHERE KODEPASAL = ")
             << std::int32_t{store::taxArticle} << " AND MsPjk = " << std::int32_t{period.month}
             << " AND ThPjk = " << std::int32_t{period.year} << " AND KdPmbtln = " << std::int32_t{period.correction}
             << " ORDER BY TglSSP ASC");
  for (; !payments->get_EOF(); payments->MoveNext())
    records.payments.push_back({fieldText(payments, "TglSSP"), fieldText(payments, "NTPP"),
                                fieldText(payments, "KdMAP"), fieldText(payments, "KdJnsStr"),
                                fieldNumber(payments, "JmlByr")});
  const RecordsetPtr transfers =
      rowsOf(store::Statement("SELECT * FROM datPBKPPhMasa WHERE PASAL = ")
             << std::int32_t{store::taxArticle} << " AND MsPjkPBK = " << std::int32_t{period.month}
             << " AND ThPjkPBK = " << std::int32_t{period.year} << " ORDER BY TanggalBerlaku ASC");
  for (; !transfers->get_EOF(); transfers->MoveNext())
    records.transfers.push_back({fieldText(transfers, "TanggalBerlaku"), fieldText(transfers, "NoBuktiPBK"),
                                 fieldText(transfers, "NPWPTertuju"), fieldNumber(transfers, "JumlahPBK")});
  return records;
}

/// What an old account is today, by the store's table.
std::map<std::string, std::string> readNewAccounts() {
  std::map<std::string, std::string> accounts;
  for (const RecordsetPtr rows = rowsOf(store::Statement("SELECT * FROM REF_SSP_NEW")); !rows->get_EOF();
       rows->MoveNext())
    accounts.emplace(fieldText(rows, "KDMAP_LAMA"), fieldText(rows, "KDMAP_BARU"));
  return accounts;
}

/// The tax that the return says is to be paid; nothing without a return.
std::optional<double> taxOf(const Period& period) {
  if (!returnExists(period)) return std::nullopt;
  return fieldNumber(expandedDocuments(store::F113204, period, store::headerNumber), mainreturn::totalTax);
}

// --- list --------------------------------------------------------------------------------------------------

std::string withName(std::string text, const PaymentCode* code) {
  if (code == nullptr) return text + " ?";
  return code->name.empty() ? text : text.append(" ").append(code->name);
}

std::string accountText(const Payment& payment, const std::map<std::string, std::string>& newAccounts) {
  const auto found = newAccounts.find(payment.account);
  std::string text = payment.account + (found == newAccounts.end() ? "" : " (" + found->second + ")");
  return withName(std::move(text), findPaymentCode(paymentAccounts, payment.account));
}

std::string numberText(const std::string& number) {
  constexpr std::string_view none = "0000000000000000";
  return number == none ? "(without)" : number;
}

void addSum(Table& table, const std::string& label, double rupiahSum) {
  table.add({label, "", "", "", "", rupiah(rupiahSum)});
}

void printTax(double paid, const Period& period, std::ostream& out) {
  const std::optional<double> tax = taxOf(period);
  if (!tax) return;
  out << "\nPPh of the return: " << rupiah(*tax) << "   Paid: " << rupiah(paid)
      << "   Difference: " << rupiah(*tax - paid) << '\n';
}

void printRecords(const Records& records, const Period& period, const Context& context) {
  context.out << "Payments (SSP) and transfers (PBK) of " << period.text() << "\n\n";
  Table table({{""}, {"Date"}, {"Number"}, {"Account"}, {"Kind of payment"}, {"Amount (Rp)", Table::Align::Right}});
  const std::map<std::string, std::string> newAccounts = readNewAccounts();
  for (const Payment& each : records.payments)
    table.add({"SSP", each.date, numberText(each.number), accountText(each, newAccounts),
               withName(each.kind, findPaymentCode(paymentKinds, each.kind)), rupiah(each.rupiah)});
  for (const Transfer& each : records.transfers)
    table.add({"PBK", each.date, each.number, "", "", rupiah(each.rupiah)});
  table.addRule();
  addSum(table, counted(records.payments.size(), "payment", "payments"), records.paid());
  addSum(table, counted(records.transfers.size(), "transfer", "transfers"), records.transferred());
  addSum(table, "Paid", records.paid() + records.transferred());
  constexpr std::size_t kindColumn = 4;
  table.shrink(kindColumn, context.width);
  table.print(context.out);
  printTax(records.paid() + records.transferred(), period, context.out);
}

std::string nameOf(const PaymentCode* code) { return code == nullptr ? "" : std::string(code->name); }

void printJson(const Records& records, const Period& period, std::ostream& out) {
  Json payments = Json::array();
  for (const Payment& each : records.payments)
    payments.push_back({{"date", each.date},
                        {"number", each.number},
                        {"account", each.account},
                        {"accountName", nameOf(findPaymentCode(paymentAccounts, each.account))},
                        {"kind", each.kind},
                        {"kindName", nameOf(findPaymentCode(paymentKinds, each.kind))},
                        {"amount", jsonNumber(each.rupiah)}});
  Json transfers = Json::array();
  for (const Transfer& each : records.transfers)
    transfers.push_back({{"date", each.date}, {"number", each.number}, {"amount", jsonNumber(each.rupiah)}});
  const double paid = records.paid() + records.transferred();
  const std::optional<double> tax = taxOf(period);
  const Json all = {{"month", period.month},
                    {"year", period.year},
                    {"correction", period.correction},
                    {"payments", payments},
                    {"transfers", transfers},
                    {"paymentsTotal", jsonNumber(records.paid())},
                    {"transfersTotal", jsonNumber(records.transferred())},
                    {"paid", jsonNumber(paid)},
                    {"returnTax", tax ? jsonNumber(*tax) : Json(nullptr)}};
  out << jsonText(all) << '\n';
}

void printCsv(const Records& records, std::ostream& out) {
  out << "record,date,number,account,kind,amount\n";
  for (const Payment& each : records.payments)
    out << "SSP," << each.date << ',' << csvField(each.number) << ',' << csvField(each.account) << ','
        << csvField(each.kind) << ',' << numberLiteral(each.rupiah) << '\n';
  for (const Transfer& each : records.transfers)
    out << "PBK," << each.date << ',' << csvField(each.number) << ",,," << numberLiteral(each.rupiah) << '\n';
}

void listRecords(const Context& context, bool csv) {
  context.connect();
  const Period period = context.period();
  const Records records = readRecords(period);
  if (context.json)
    printJson(records, period, context.out);
  else if (csv)
    printCsv(records, context.out);
  else
    printRecords(records, period, context);
}

// --- import ------------------------------------------------------------------------------------------------

/// The count of payment records is kept by the latest return of a month alone.
void countIntoReturn(const Period& period, const Context& context) {
  const Messages messages;
  CImporSSPPBK records;
  records.pUpdateTRVPPh4_2009(readFiler().npwp, period.month, period.year);
  const std::int16_t latest = records.aMaxKdPembetulan("", store::F113204.kdForm, period.month, period.year);
  if (!messages.failures().empty())
    throw CommandFailure("The lines are stored, but the return could not be told of them: " +
                         messages.failures().front() + "\nImport the file again; what is stored stays.");
  if (latest != period.correction)
    context.err << "Note: the latest return of the month, " << Period{period.month, period.year, latest}.text()
                << ", keeps the count of payment records; that of " << period.text() << " stays as it is.\n";
}

Json asJson(const PaymentFileImportResult& result, const std::string& rejects) {
  Json all = countsAsJson(result);
  all["unnumberedStored"] = result.unnumberedStored;
  all["refusedLines"] = refusedAsJson(result);
  all["rejectFile"] = rejectsAsJson(result, rejects);
  return all;
}

int importFile(const ImportOptions& options, const Context& context) {
  const FileImport order = orderOf(options, "the payment file", context);
  const Period period = context.period();
  requireReturn(period);
  const PaymentFileImportResult result = takenFile("payments export", [&] { return importPaymentFile(order); });
  if (context.json)
    context.out << jsonText(asJson(result, order.rejectPath)) << '\n';
  else
    printAccount(result, "payments of " + period.text(), order.rejectPath, context);
  if (result.unnumberedStored > 0)
    context.err << "Note: stored payments without a number (sixteen zeros): " << grouped(result.unnumberedStored)
                << ". They are known by all that they say, so check their count.\n";
  if (result.read > result.refused) countIntoReturn(period, context);
  return exitCodeOf(result);
}

// --- export ------------------------------------------------------------------------------------------------

struct ExportOptions {
  std::string file;
  bool force = false;
  bool onlyPayments = false;
  bool onlyTransfers = false;
};

/// Writes through the library, whose messages decide whether it succeeded. A folder that does not exist is told by an
/// informative one, which a success never shows.
void writeRecords(const ExportOptions& options, const Period& period, const std::string& npwp,
                  const FinishedFile& file) {
  auto write = &CEksporSSPPBK::pEksporSSPPBK;
  if (options.onlyPayments) write = &CEksporSSPPBK::pEksporSSP;
  if (options.onlyTransfers) write = &CEksporSSPPBK::pEksporPBK;
  const Messages messages;
  (CEksporSSPPBK().*write)(npwp, store::taxArticle, period.month, period.year, file.partPath(), period.correction);
  file.requireWritten(messages);
  messages.throwIfNotified(missingFolderRemedy(file.partPath()));
}

struct ExportedCounts {
  std::uint64_t payments = 0;
  std::uint64_t transfers = 0;
};

ExportedCounts countLines(const std::string& path) {
  ExportedCounts counts;
  LineReader reader = LineReader::open(path);
  for (std::string_view line; reader.next(line);) {
    if (line.starts_with("SSP4;")) ++counts.payments;
    if (line.starts_with("PBK4;")) ++counts.transfers;
  }
  return counts;
}

/// What the export takes of the records; it leaves out other codes and transfers in favour of others.
ExportedCounts expectedCounts(const Records& records, const ExportOptions& options, const std::string& npwp) {
  ExportedCounts counts;
  for (const Payment& each : records.payments)
    if (each.isExported() && !options.onlyTransfers) ++counts.payments;
  for (const Transfer& each : records.transfers)
    if (equalsIgnoreCase(each.npwp, npwp) && !options.onlyPayments) ++counts.transfers;
  return counts;
}

void noteLeftOut(const Records& records, const ExportOptions& options, const ExportedCounts& counts,
                 std::ostream& err) {
  if (!options.onlyTransfers && counts.payments < records.payments.size())
    err << "Note: " << counted(records.payments.size() - counts.payments, "payment is", "payments are")
        << " of an account or kind that no payment file takes. See: tarvola payments list\n";
  if (!options.onlyPayments && counts.transfers < records.transfers.size())
    err << "Note: " << counted(records.transfers.size() - counts.transfers, "transfer is", "transfers are")
        << " not in favour of the filer, and no payment file takes them. See: tarvola payments list\n";
}

void exportFile(const ExportOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  if (options.onlyPayments && options.onlyTransfers)
    throw CommandFailure("--ssp and --pbk shut each other out.\nGive one of them, or none for both kinds.", Usage);
  const std::string npwp = readFiler().npwp;
  const Records records = readRecords(period);
  const ExportedCounts expected = expectedCounts(records, options, npwp);
  FinishedFile file(options.file, options.force);
  if (expected.payments + expected.transfers == 0)
    throw CommandFailure("The store holds no such payment records of " + period.text() +
                         "; there is nothing to export.");
  writeRecords(options, period, npwp, file);
  const ExportedCounts written = countLines(file.partPath());
  if (written.payments != expected.payments || written.transfers != expected.transfers)
    throw CommandFailure("The file holds " + grouped(written.payments + written.transfers) +
                         " records where the store has " + grouped(expected.payments + expected.transfers) +
                         ".\nNothing was kept. Try again.");
  file.finish();
  noteLeftOut(records, options, expected, context.err);
  if (context.json)
    context.out << jsonText(
                       Json{{"file", options.file}, {"payments", written.payments}, {"transfers", written.transfers}})
                << '\n';
  else
    context.out << "Exported " << counted(written.payments, "payment", "payments") << " and "
                << counted(written.transfers, "transfer", "transfers") << " of " << period.text() << " to "
                << options.file << ".\n";
}

}  // namespace

void addPaymentCommands(CLI::App& app, Context& context, int& exitCode) {
  CLI::App* group = app.add_subcommand("payments", "Take in, show and write payments (SSP) and transfers (PBK)")
                        ->group(groups::exchange)
                        ->require_subcommand(1);

  auto importing = std::make_shared<ImportOptions>();
  CLI::App* importCommand = group->add_subcommand("import", "Take a payment file into a return");
  addImportOptions(*importCommand, *importing, "The payment file", context);
  importCommand->callback([importing, &context, &exitCode] { exitCode = importFile(*importing, context); });

  auto exporting = std::make_shared<ExportOptions>();
  CLI::App* exportCommand = group->add_subcommand("export", "Write payments and transfers to a payment file");
  exportCommand->add_option("FILE", exporting->file, "The file to write")->type_name("")->required();
  exportCommand->add_flag("--ssp", exporting->onlyPayments, "Payments alone");
  exportCommand->add_flag("--pbk", exporting->onlyTransfers, "Transfers alone, six columns");
  exportCommand->add_flag("--force", exporting->force, "Replace the file if it exists");
  addPeriodOptions(*exportCommand, context);
  exportCommand->callback([exporting, &context] { exportFile(*exporting, context); });

  CLI::App* list = group->add_subcommand("list", "Show payments and transfers beside the tax of the return");
  auto csv = std::make_shared<bool>(false);
  list->add_flag("--csv", *csv, "Print the payments and transfers as CSV");
  addPeriodOptions(*list, context);
  list->callback([csv, &context] { listRecords(context, *csv); });
}

}  // namespace tarvola::cli
