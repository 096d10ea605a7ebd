// tarvola return list

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/json_list.h"
#include "tarvola/cli/table.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/store/return_directory.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;
using store::StoredReturn;

// --- all returns -------------------------------------------------------------------------------------------

Period periodOf(const StoredReturn& stored) {
  return {stored.period.msPajak, stored.period.thPajak, stored.period.kdPembetulanKe};
}

/// A return without its main form was made or removed half; whoever sees it here can end that.
std::string statusOf(const StoredReturn& stored) {
  return kindOf(periodOf(stored)) + (stored.contents.mainForms == 0 ? " (without main form)" : "");
}

void printReturns(const std::vector<StoredReturn>& returns, const Context& context) {
  if (returns.empty()) {
    context.out
        << "The store holds no returns yet.\nMake one with 'tarvola return create', or import an exchange file.\n";
    return;
  }
  Table table({{"Return"},
               {"Status"},
               {"Slips", Table::Align::Right},
               {"Self-paid forms", Table::Align::Right},
               {"Bruto (Rp)", Table::Align::Right},
               {"PPh (Rp)", Table::Align::Right}});
  for (const StoredReturn& each : returns)
    table.add({Period{each.period.msPajak, each.period.thPajak, 0}.text(), statusOf(each),
               rupiah(static_cast<double>(each.contents.slips)),
               rupiah(static_cast<double>(each.contents.selfPaidForms)), rupiah(each.grossRupiah),
               rupiah(each.taxRupiah)});
  table.print(context.out);
}

void printReturnsJson(const std::vector<StoredReturn>& returns, std::ostream& out) {
  Json list = Json::array();
  for (const StoredReturn& each : returns)
    list.push_back({{"month", each.period.msPajak},
                    {"year", each.period.thPajak},
                    {"correction", each.period.kdPembetulanKe},
                    {"status", kindOf(periodOf(each))},
                    {"hasMainForm", each.contents.mainForms > 0},
                    {"slips", each.contents.slips},
                    {"selfPaidForms", each.contents.selfPaidForms},
                    {"gross", jsonNumber(each.grossRupiah)},
                    {"tax", jsonNumber(each.taxRupiah)}});
  out << jsonText(Json{{"returns", list}}) << '\n';
}

/// Numbers as machines read them, with a decimal point.
void printReturnsCsv(const std::vector<StoredReturn>& returns, std::ostream& out) {
  out << "month,year,correction,status,slips,selfPaidForms,gross,tax\n";
  for (const StoredReturn& each : returns)
    out << each.period.msPajak << ',' << each.period.thPajak << ',' << each.period.kdPembetulanKe << ','
        << csvField(statusOf(each)) << ',' << each.contents.slips << ',' << each.contents.selfPaidForms << ','
        << numberLiteral(each.grossRupiah) << ',' << numberLiteral(each.taxRupiah) << '\n';
}

void listReturns(const Context& context, bool csv) {
  const std::vector<StoredReturn> returns = store::storedReturns(store::StoreObject());
  if (context.json)
    printReturnsJson(returns, context.out);
  else if (csv)
    printReturnsCsv(returns, context.out);
  else
    printReturns(returns, context);
}

// --- the documents of one return -----------------------------------------------------------------------------

struct ListedDocument {
  std::string form;
  std::string code;
  std::string number;
  std::string name;
};

void append(const RecordsetPtr& rows, std::vector<ListedDocument>& documents) {
  for (; rows != nullptr && !rows->get_EOF(); rows->MoveNext())
    documents.push_back({fieldText(rows, "KD_FORM"), fieldText(rows, "JENIS_DOKUMEN"), fieldText(rows, "NOBUKTI"),
                         fieldText(rows, "URAIAN")});
}

std::vector<ListedDocument> documentsOf(const Period& period) {
  std::vector<ListedDocument> documents;
  const Messages messages;
  append(CGeneralClass().aGetList("", store::taxKind, period.month, period.year, period.correction), documents);
  messages.throwIfAny();
  append(store::listSelfPaidDocuments(store::StoreObject(), store::taxKind, storePeriod(period)), documents);
  return documents;
}

void printDocuments(const std::vector<ListedDocument>& documents, const Period& period, const Context& context) {
  context.out << kindOf(period) << ", " << period.text() << ", " << counted(documents.size(), "document", "documents")
              << "\n\n";
  Table table({{"Form"}, {"Number"}, {"Uraian"}});
  for (const ListedDocument& each : documents) table.add({each.form, each.number, each.name});
  table.shrink(2, context.width);
  table.print(context.out);
}

void printDocumentsJson(const std::vector<ListedDocument>& documents, const Period& period, std::ostream& out) {
  JsonList list(
      out,
      {{"month", period.month}, {"year", period.year}, {"correction", period.correction}, {"status", kindOf(period)}},
      "documents");
  for (const ListedDocument& each : documents)
    list.add({{"form", each.form}, {"code", each.code}, {"number", each.number}, {"name", each.name}});
  list.end();
}

void printDocumentsCsv(const std::vector<ListedDocument>& documents, std::ostream& out) {
  out << "form,code,number,name\n";
  for (const ListedDocument& each : documents)
    out << csvField(each.form) << ',' << csvField(each.code) << ',' << csvField(each.number) << ','
        << csvField(each.name) << '\n';
}

/// Documents whose code has no name, and those that are there twice, are not in the directory.
void noteMissing(std::size_t listed, std::int64_t stored, const Context& context) {
  const std::int64_t missing = stored - static_cast<std::int64_t>(listed);
  if (missing > 0)
    context.err << "Note: " << counted(missing, "document is", "documents are")
                << " not listed, being there twice or having a code without a name. See: tarvola return check\n";
}

void listDocuments(const Context& context, bool csv) {
  const Period period = context.period();
  const store::ReturnContents contents = store::contentsOf(store::StoreObject(), storePeriod(period));
  if (contents.documents() == 0)
    throw CommandFailure("There is no return " + period.text() + ".\nSee what there is with: tarvola return list");
  const std::vector<ListedDocument> documents = documentsOf(period);
  noteMissing(documents.size(), contents.documents(), context);
  if (context.json)
    printDocumentsJson(documents, period, context.out);
  else if (csv)
    printDocumentsCsv(documents, context.out);
  else
    printDocuments(documents, period, context);
}

}  // namespace

void addReturnDirectory(CLI::App& group, Context& context) {
  CLI::App* list = group.add_subcommand("list", "List the returns of a store; with --period the documents of one");
  addPeriodOptions(*list, context);
  auto csv = std::make_shared<bool>(false);
  list->add_flag("--csv", *csv, "Print the list as CSV");
  const CLI::Option* correction = list->get_option("--correction");
  list->callback([csv, correction, &context] {
    context.connect();
    // A correction without its month names no return.
    context.periodText.empty() && correction->count() == 0 ? listReturns(context, *csv) : listDocuments(context, *csv);
  });
}

}  // namespace tarvola::cli
