// tarvola list show

#include <CLI/CLI.hpp>
#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <span>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/json_list.h"
#include "tarvola/cli/table.h"
#include "tarvola/store/statement.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

/// A column of a list's rows: its field, and what stands above it.
struct Column {
  std::string_view field;
  std::string_view title;
  bool isAmount = false;
};
struct Sum {
  std::string_view field;
  std::string_view label;
};

/// Where the rows of a list lie, and what is shown of them.
struct ShownList {
  store::FormCodes codes;
  std::string_view printedName;
  std::string_view table;
  /// What the rows expand as; "" where they are plain columns.
  std::string_view rowsCode;
  std::span<const Sum> sums;
  std::span<const Column> columns;
  /// The column that is shortened on a narrow terminal.
  std::size_t longColumn = 0;
};

constexpr std::array slipSums = {Sum{"A6", "Nilai objek pajak"}, Sum{"A7", "PPh"},
                                 Sum{"B6", "Nilai objek pajak, collection 1"}, Sum{"B7", "PPh, collection 1"}};
constexpr std::array slipColumns = {Column{"SEQ", "SEQ", true},          Column{"NoBukti", "Number"},
                                    Column{"Tgl_Potong", "Date"},        Column{"NPWPLT", "NPWP"},
                                    Column{"NMWPLT", "Payee"},           Column{"NOP", "Objek Pajak (Rp)", true},
                                    Column{"PPHDIPTG", "PPh (Rp)", true}};
constexpr std::array interestSums = {Sum{"JML1A3", "DN payees"},  Sum{"JML1A4", "DN bruto"},  Sum{"JML1A5", "DN PPh"},
                                     Sum{"JML1B3", "LN payees"},  Sum{"JML1B4", "LN bruto"},  Sum{"JML1B5", "LN PPh"},
                                     Sum{"JML23", "SBI payees"},  Sum{"JML24", "SBI bruto"},  Sum{"JML25", "SBI PPh"},
                                     Sum{"JML33", "Giro payees"}, Sum{"JML34", "Giro bruto"}, Sum{"JML35", "Giro PPh"},
                                     Sum{"JML3", "All payees"},   Sum{"JML4", "All bruto"},   Sum{"JML5", "All PPh"}};
constexpr std::array interestColumns = {Column{"NOBUKTI", "Number"},
                                        Column{"JENIS", "Kind"},
                                        Column{"NPWP", "NPWP"},
                                        Column{"NMWP", "Payee"},
                                        Column{"BRUTO", "Bruto (Rp)", true},
                                        Column{"TARIF", "Tarif (%)"},
                                        Column{"PPH", "PPh (Rp)", true}};
constexpr std::array selfPaidSums = {Sum{"JMLPHSL", "Bruto"}, Sum{"JmlPPh", "PPh"}};
constexpr std::array selfPaidColumns = {Column{"SEQ", "SEQ", true}, Column{"NoBukti", "NTPN"},
                                        Column{"Tgl_Potong", "Date"}, Column{"PHSL", "Bruto (Rp)", true},
                                        Column{"PPH", "PPh (Rp)", true}};

constexpr ShownList selfPaidList(const store::FormCodes& codes, std::string_view rowsCode,
                                 std::string_view printedName) {
  return {.codes = codes,
          .printedName = printedName,
          .table = "LAMPIRAN_SSP_PPh22",
          .rowsCode = rowsCode,
          .sums = selfPaidSums,
          .columns = selfPaidColumns,
          .longColumn = 1};
}

constexpr std::array shownLists = {
    ShownList{.codes = store::D113206,
              .printedName = "Daftar Bukti Pemotongan/Pemungutan PPh Final Pasal 4 Ayat (2)",
              .table = "DS_FORM_LAMPIRAN",
              .rowsCode = "D113206-CollA",
              .sums = slipSums,
              .columns = slipColumns,
              .longColumn = 4},
    ShownList{.codes = store::D113210,
              .printedName = "Daftar Bunga Deposito/Tabungan, Diskonto SBI, Jasa Giro",
              .table = "D113210",
              .rowsCode = "",
              .sums = interestSums,
              .columns = interestColumns,
              .longColumn = 3},
    selfPaidList(store::DSewaTnhBgn, "DSewaTnhBgn-Coll", "Persewaan Tanah dan/atau Bangunan disetor sendiri"),
    selfPaidList(store::DAlihTnhBgn, "DAlihTnhBgn-Coll", "Pengalihan Hak atas Tanah dan/atau Bangunan disetor sendiri"),
    selfPaidList(store::DJasaKonstruksi, "DJasaKonstruksi-Coll", "Jasa Konstruksi disetor sendiri")};

const ShownList& requireList(std::string_view code) {
  std::string known;
  for (const ShownList& list : shownLists) {
    if (equalsIgnoreCase(list.codes.kdForm, code)) return list;
    known.append(known.empty() ? "" : ", ").append(list.codes.kdForm);
  }
  if (code.empty()) throw CommandFailure("No list is named.\nName one with --list: " + known + ".", Usage);
  throw CommandFailure("There is no list \"" + std::string(code) + "\".\nThere are: " + known + ".", Usage);
}

/// The rows of a list in the order of their numbers, as they are stored. The first collection holds them all.
RecordsetPtr storedRowsOf(const ShownList& list, const Period& period) {
  CGeneralClass general;
  store::Statement select("SELECT * FROM ");
  select << store::name(list.table) << " WHERE " << store::periodCondition(storePeriod(period));
  if (list.rowsCode.empty())
    select << " ORDER BY NOBUKTI, JENIS";
  else
    select << " AND KD_FORM = " << store::text(list.codes.kdForm) << " AND COLLNO = 0 ORDER BY SEQ";
  RecordsetPtr rows = general.pGetRecordDbase(select.str());
  if (rows == nullptr) throw CommandFailure("The rows of " + std::string(list.codes.kdForm) + " could not be read.");
  return rows;
}

RecordsetPtr rowsOf(const ShownList& list, const Period& period) {
  const RecordsetPtr rows = storedRowsOf(list, period);
  return list.rowsCode.empty() ? rows : DatFormConverter().ExpandDatForm(list.rowsCode, rows);
}

std::vector<std::string> faultsOf(const ShownList& list, const Period& period) {
  std::vector<std::string> all = packedFaults(list.codes, period, store::headerNumber);
  if (list.rowsCode.empty()) return all;
  const std::vector<std::string> ofRows = packedFaults(list.rowsCode, list.codes.kdForm, storedRowsOf(list, period));
  all.insert(all.end(), ofRows.begin(), ofRows.end());
  return all;
}

std::string shown(const RecordsetPtr& row, const Column& column) {
  return column.isAmount ? rupiah(fieldNumber(row, column.field)) : fieldText(row, column.field);
}

void printJson(const ShownList& list, const Period& period, const RecordsetPtr& header, const RecordsetPtr& rows,
               std::ostream& out) {
  Json sums;
  for (const Sum& sum : list.sums) sums[std::string(sum.field)] = jsonNumber(fieldNumber(header, sum.field));
  JsonList all(out,
               {{"list", list.codes.kdForm},
                {"month", period.month},
                {"year", period.year},
                {"correction", period.correction},
                {"sums", sums}},
               "rows");
  for (; !rows->get_EOF(); rows->MoveNext()) {
    Json row;
    for (const Column& column : list.columns)
      row[std::string(column.field)] =
          column.isAmount ? jsonNumber(fieldNumber(rows, column.field)) : Json(fieldText(rows, column.field));
    all.add(row);
  }
  all.end();
}

void printCsv(const ShownList& list, const RecordsetPtr& rows, std::ostream& out) {
  for (std::size_t i = 0; i < list.columns.size(); ++i) out << (i > 0 ? "," : "") << list.columns[i].field;
  out << '\n';
  for (; !rows->get_EOF(); rows->MoveNext()) {
    for (std::size_t i = 0; i < list.columns.size(); ++i) {
      const Column& column = list.columns[i];
      out << (i > 0 ? "," : "")
          << (column.isAmount ? numberLiteral(fieldNumber(rows, column.field))
                              : csvField(fieldText(rows, column.field)));
    }
    out << '\n';
  }
}

void printRows(const ShownList& list, const RecordsetPtr& rows, const Context& context) {
  std::vector<Table::Heading> headings;
  for (const Column& column : list.columns)
    headings.push_back({std::string(column.title), column.isAmount ? Table::Align::Right : Table::Align::Left});
  Table table(headings);
  for (; !rows->get_EOF(); rows->MoveNext()) {
    std::vector<std::string> row;
    for (const Column& column : list.columns) row.push_back(shown(rows, column));
    table.add(row);
  }
  if (table.empty()) return;
  table.shrink(list.longColumn, context.width);
  table.print(context.out);
  context.out << '\n';
}

void printTable(const ShownList& list, const Period& period, const RecordsetPtr& header, const RecordsetPtr& rows,
                const Context& context) {
  context.out << list.codes.kdForm << ", " << list.printedName << "\nReturn " << period.text() << ", "
              << rupiah(rows->get_RecordCount()) << (rows->get_RecordCount() == 1 ? " row" : " rows") << "\n\n";
  printRows(list, rows, context);
  Table sums({{"Sum"}, {"Field"}, {"Value", Table::Align::Right}});
  for (const Sum& sum : list.sums)
    sums.add({std::string(sum.label), std::string(sum.field), rupiah(fieldNumber(header, sum.field))});
  sums.print(context.out);
}

void showList(const std::string& code, bool csv, const Context& context) {
  context.connect();
  const ShownList& list = requireList(code);
  const Period period = context.period();
  requireReturn(period);
  requireHeader(period, list.codes);
  const RecordsetPtr header = expandedDocuments(list.codes, period, store::headerNumber);
  const RecordsetPtr rows = rowsOf(list, period);
  if (context.json)
    printJson(list, period, header, rows, context.out);
  else if (csv)
    printCsv(list, rows, context.out);
  else
    printTable(list, period, header, rows, context);
  requireWhole(faultsOf(list, period), wrongFigures);
}

}  // namespace

void addListCommands(CLI::App& app, Context& context) {
  CLI::App* group =
      app.add_subcommand("list", "Show the lists of a return")->group(groups::returns)->require_subcommand(1);
  CLI::App* show = group->add_subcommand("show", "Show the sums and rows of a list");
  auto code = std::make_shared<std::string>();
  auto csv = std::make_shared<bool>(false);
  show->add_option("-l,--list", *code, "D113206, D113210, DSewaTnhBgn,\nDAlihTnhBgn or DJasaKonstruksi")
      ->type_name("LIST");
  show->add_flag("--csv", *csv, "Print the rows as CSV");
  addPeriodOptions(*show, context);
  show->callback([code, csv, &context] { showList(*code, *csv, context); });
}

}  // namespace tarvola::cli
