#include "tarvola/cli/slip_views.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/filer.h"
#include "tarvola/cli/json_list.h"
#include "tarvola/cli/slip_editor.h"
#include "tarvola/cli/table.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

// --- one slip --------------------------------------------------------------------------------------------

Json jsonOf(const RecordsetPtr& row, const InputField& field) {
  const Variant value = row->get_Collect(field.name);
  if (field.kind == InputKind::Text || field.kind == InputKind::Date)
    return value.isNull() ? std::string() : CStr(value);
  if (IsNumeric(value)) return jsonNumber(CDbl(value));
  return value.isNull() ? Json(nullptr) : Json(CStr(value));
}

std::string shown(const RecordsetPtr& row, const InputField& field) {
  const Variant value = row->get_Collect(field.name);
  if (value.isNull()) return "";
  return field.kind == InputKind::Amount && IsNumeric(value) ? rupiah(CDbl(value)) : CStr(value);
}

void printSlipJson(const Context& context, const SlipForm& form, const Period& period, const std::string& number,
                   const RecordsetPtr& row) {
  Json values;
  const std::vector<InputField> fields = slipFields(form);
  for (const InputField& field : fields) values[field.name] = jsonOf(row, field);
  const Json slip = {{"form", form.codes.kdForm},
                     {"number", number},
                     {"date", fieldText(row, "Tgl_Potong")},
                     {"month", period.month},
                     {"year", period.year},
                     {"correction", period.correction},
                     {"gross", jsonNumber(fieldNumber(row, form.gross))},
                     {"tax", jsonNumber(fieldNumber(row, form.tax))},
                     {"fields", values}};
  context.out << jsonText(slip) << '\n';
}

void printSlip(const Context& context, const SlipForm& form, const Period& period, const std::string& number,
               const RecordsetPtr& row) {
  context.out << form.codes.kdForm << ", " << form.printedName << '\n'
              << "Slip " << number << " of " << fieldText(row, "Tgl_Potong") << ", return " << period.text() << "\n\n";
  Table table({{"Field"}, {"Value", Table::Align::Right}, {"Uraian"}});
  const std::vector<InputField> fields = slipFields(form);
  for (const InputField& field : fields) {
    const std::string value = shown(row, field);
    if (!value.empty() && value != "0") table.add({field.name, value, field.label});
  }
  table.addRule();
  table.add({"", rupiah(fieldNumber(row, form.gross)), "Jumlah Nilai Bruto"});
  table.add({"", rupiah(fieldNumber(row, form.tax)), "Jumlah PPh Yang Dipotong"});
  table.print(context.out);
}

// --- all slips -------------------------------------------------------------------------------------------

struct ListedSlip {
  std::string number;
  std::string_view form;
  std::string date;
  std::string payeeNpwp;
  std::string payee;
  double grossRupiah = 0;
  double taxRupiah = 0;
};

void appendSlips(std::vector<ListedSlip>& slips, const SlipForm& form, const Period& period) {
  const RecordsetPtr rows = expandedDocuments(form.codes, period);
  for (; !rows->get_EOF(); rows->MoveNext())
    slips.push_back({.number = fieldText(rows, "NoBukti"),
                     .form = form.codes.kdForm,
                     .date = fieldText(rows, "Tgl_Potong"),
                     .payeeNpwp = fieldText(rows, "NPWPLT"),
                     .payee = fieldText(rows, "NMWPLT"),
                     .grossRupiah = fieldNumber(rows, form.gross),
                     .taxRupiah = fieldNumber(rows, form.tax)});
}

std::vector<ListedSlip> slipsOf(const Period& period, const std::string& onlyForm) {
  std::vector<ListedSlip> slips;
  for (const SlipForm& form : slipForms)
    if (onlyForm.empty() || &form == &requireSlipForm(onlyForm)) appendSlips(slips, form, period);
  std::stable_sort(slips.begin(), slips.end(),
                   [](const ListedSlip& left, const ListedSlip& right) { return left.number < right.number; });
  return slips;
}

std::vector<std::string> faultsOf(const Period& period, const std::string& onlyForm) {
  std::vector<std::string> all;
  for (const SlipForm& form : slipForms) {
    if (!onlyForm.empty() && &form != &requireSlipForm(onlyForm)) continue;
    const std::vector<std::string> faults = packedFaults(form.codes, period);
    all.insert(all.end(), faults.begin(), faults.end());
  }
  return all;
}

struct Sums {
  double grossRupiah = 0;
  double taxRupiah = 0;
};

Sums sumsOf(const std::vector<ListedSlip>& slips) {
  Sums sums;
  for (const ListedSlip& slip : slips) {
    sums.grossRupiah += slip.grossRupiah;
    sums.taxRupiah += slip.taxRupiah;
  }
  return sums;
}

void printListJson(const std::vector<ListedSlip>& slips, const Period& period, std::ostream& out) {
  JsonList list(out, {{"month", period.month}, {"year", period.year}, {"correction", period.correction}}, "slips");
  for (const ListedSlip& slip : slips)
    list.add({{"number", slip.number},
              {"form", slip.form},
              {"date", slip.date},
              {"npwp", slip.payeeNpwp},
              {"payee", slip.payee},
              {"gross", jsonNumber(slip.grossRupiah)},
              {"tax", jsonNumber(slip.taxRupiah)}});
  const Sums sums = sumsOf(slips);
  list.end({{"gross", jsonNumber(sums.grossRupiah)}, {"tax", jsonNumber(sums.taxRupiah)}});
}

void printListCsv(const std::vector<ListedSlip>& slips, std::ostream& out) {
  out << "number,form,date,npwp,payee,gross,tax\n";
  for (const ListedSlip& slip : slips)
    out << csvField(slip.number) << ',' << slip.form << ',' << slip.date << ',' << slip.payeeNpwp << ','
        << csvField(slip.payee) << ',' << numberLiteral(slip.grossRupiah) << ',' << numberLiteral(slip.taxRupiah)
        << '\n';
}

void printListTable(const std::vector<ListedSlip>& slips, const Period& period, const Context& context) {
  std::ostream& out = context.out;
  if (slips.empty()) {
    out << "The return " << period.text() << " holds no such slips.\n";
    return;
  }
  Table table({{"Number"},
               {"Form"},
               {"Date"},
               {"Payee"},
               {"Bruto (Rp)", Table::Align::Right},
               {"PPh (Rp)", Table::Align::Right}});
  for (const ListedSlip& slip : slips)
    table.add(
        {slip.number, std::string(slip.form), slip.date, slip.payee, rupiah(slip.grossRupiah), rupiah(slip.taxRupiah)});
  const Sums sums = sumsOf(slips);
  table.addRule();
  table.add({rupiah(static_cast<double>(slips.size())) + (slips.size() == 1 ? " slip" : " slips"), "", "", "",
             rupiah(sums.grossRupiah), rupiah(sums.taxRupiah)});
  table.shrink(3, context.width);
  table.print(out);
}

// --- rates -------------------------------------------------------------------------------------------------

struct DefaultRate {
  std::string form;
  std::string item;
  double percent = 0;
};

std::vector<DefaultRate> ratesOf(const std::string& onlyForm) {
  CGeneralClass general;
  const RecordsetPtr rows = general.pGetRecordDbase(
      "SELECT KODE_FORM, ITEM_PENGHASILAN, TARIF_JML_BRUTO FROM SETTING_TARIF_PPH WHERE PASAL = 4 ORDER BY KODE_FORM, "
      "ITEM_PENGHASILAN");
  if (rows == nullptr) throw CommandFailure("The default tariffs of the store could not be read.");
  std::vector<DefaultRate> rates;
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string form = fieldText(rows, "KODE_FORM");
    if (onlyForm.empty() || form == requireSlipForm(onlyForm).codes.kdForm)
      rates.push_back({form, fieldText(rows, "ITEM_PENGHASILAN"), fieldNumber(rows, "TARIF_JML_BRUTO")});
  }
  return rates;
}

std::string_view printedNameOf(const std::string& kdForm) {
  for (const SlipForm& form : slipForms)
    if (form.codes.kdForm == kdForm) return form.printedName;
  return "";
}

}  // namespace

void showSlip(const Context& context, const SlipForm& form, const Period& period, const std::string& number) {
  const RecordsetPtr row = expandedDocuments(form.codes, period, number);
  if (row->get_EOF())
    throw CommandFailure("There is no slip " + number + " of form " + std::string(form.codes.kdForm) +
                         " in the return " + period.text() + ".\nSee its slips with: tarvola slip list");
  if (context.json)
    printSlipJson(context, form, period, number, row);
  else
    printSlip(context, form, period, number, row);
  requireWhole(packedFaults(form.codes, period, number), wrongFigures);
}

void listSlips(const Context& context, const Period& period, const ListOptions& options) {
  const std::vector<ListedSlip> slips = slipsOf(period, options.form);
  if (context.json)
    printListJson(slips, period, context.out);
  else if (options.csv)
    printListCsv(slips, context.out);
  else
    printListTable(slips, period, context);
  requireWhole(faultsOf(period, options.form), wrongFigures);
}

void showRates(const Context& context, const std::string& form) {
  const std::vector<DefaultRate> rates = ratesOf(form);
  if (context.json) {
    Json list = Json::array();
    for (const DefaultRate& rate : rates)
      list.push_back({{"form", rate.form}, {"item", rate.item}, {"rate", jsonNumber(rate.percent)}});
    context.out << jsonText(list) << '\n';
    return;
  }
  Table table({{"Form"}, {"Item"}, {"Tarif (%)", Table::Align::Right}, {"Uraian"}});
  for (const DefaultRate& rate : rates)
    table.add({rate.form, rate.item, CStr(rate.percent), std::string(printedNameOf(rate.form))});
  table.print(context.out);
}

}  // namespace tarvola::cli
