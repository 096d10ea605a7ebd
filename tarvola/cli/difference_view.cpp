#include "tarvola/cli/difference_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>

#include "tarvola/cli/documents.h"
#include "tarvola/cli/selfpaid_editor.h"
#include "tarvola/cli/slip_editor.h"
#include "tarvola/cli/slip_forms.h"
#include "tarvola/cli/table.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;
using Documents = std::vector<DocumentDifference>;

std::string_view wordOf(DifferenceKind kind) {
  switch (kind) {
    case DifferenceKind::Added:
      return "added";
    case DifferenceKind::Removed:
      return "removed";
    default:
      return "changed";
  }
}

/// Rupiah with points; what has decimals, as rates have, with its comma.
std::string shownNumber(double value) { return value == Int(value) ? rupiah(value) : CStr(value); }

std::string shown(const FieldDifference& field, const std::string& value) {
  const std::optional<double> number = field.isNumber ? tryNumber(value) : std::nullopt;
  return number ? shownNumber(*number) : value;
}

const mainreturn::ReturnLine& lineOf(std::string_view number) {
  return *std::find_if(mainreturn::returnLines.begin(), mainreturn::returnLines.end(),
                       [number](const mainreturn::ReturnLine& line) { return line.number == number; });
}

/// What the printed forms call the fields of a form.
class Labels {
 public:
  std::string of(const std::string& form, const std::string& field) {
    const auto [place, isNew] = labels_.try_emplace(form);
    if (isNew) place->second = read(form);
    const auto label = place->second.find(foldCase(field));
    return label == place->second.end() ? std::string() : label->second;
  }

 private:
  using ByField = std::map<std::string, std::string>;

  static ByField read(const std::string& form) {
    ByField labels;
    const auto add = [&](const std::vector<InputField>& fields) {
      for (const InputField& field : fields) labels[foldCase(field.name)] = field.label;
    };
    for (const SlipForm& slip : slipForms) {
      if (slip.codes.kdForm != form) continue;
      add(slipFields(slip));
      labels[foldCase(slip.gross)] = "Jumlah Nilai Bruto";
      labels[foldCase(slip.tax)] = "Jumlah PPh Yang Dipotong";
    }
    for (const SelfPaidForm& paid : selfPaidForms())
      if (paid.codes.kdForm == form) add(paid.fields);
    return labels;
  }

  std::map<std::string, ByField> labels_;
};

/// Prints the parts one below the other, with an empty line between them.
class Print {
 public:
  Print(const ComparedPeriods& periods, const Context& context)
      : context_(context), before_(kindOf(periods.before)), after_(kindOf(periods.after)) {}

  void lines(const std::vector<LineDifference>& lines) {
    if (lines.empty()) return;
    Table table({{"Line"}, {"Uraian"}, {"Field"}, number(before_), number(after_), number("Difference")});
    for (const LineDifference& each : lines) addLine(table, each);
    print("Lines of the return", table, 1);
  }

  void returnFields(const std::vector<FieldDifference>& fields) {
    if (fields.empty()) return;
    Table table({{"Field"}, number(before_), number(after_)});
    for (const FieldDifference& each : fields)
      table.add({each.field, shown(each, each.before), shown(each, each.after)});
    print("Other fields of the return", table, 2);
  }

  /// Documents, whose fields have names on the printed forms.
  void documents(const char* title, const char* numberTitle, const Documents& documents) {
    if (documents.empty()) return;
    Table table({{""}, {numberTitle}, {"Form"}, {"Field"}, number(before_), number(after_), {"Uraian"}});
    for (const DocumentDifference& each : documents)
      addRows(table, each,
              [&](const FieldDifference& field) { return std::vector{labels_.of(each.form, field.field)}; });
    print(title, table, 6);
  }

  /// Rows of plain columns.
  void rows(const char* title, const char* numberTitle, const char* kindTitle, const Documents& rows) {
    if (rows.empty()) return;
    Table table({{""}, {numberTitle}, {kindTitle}, {"Field"}, number(before_), number(after_)});
    for (const DocumentDifference& each : rows)
      addRows(table, each, [](const FieldDifference&) { return std::vector<std::string>(); });
    print(title, table, 1);
  }

  void balance(const ReturnDifference& difference) {
    Table table({{"Rp"}, number(before_), number(after_), number("Difference")});
    const auto add = [&](const char* name, double before, double after) {
      table.add({name, rupiah(before), rupiah(after), rupiah(after - before)});
    };
    const auto& [before, after] = std::pair(difference.before, difference.after);
    add("Bruto", before.gross, after.gross);
    add("PPh", before.tax, after.tax);
    add("Payment records", before.payments, after.payments);
    add("Transfer records", before.transfers, after.transfers);
    table.addRule();
    add("PPh not covered by records", before.unpaid(), after.unpaid());
    separate();
    table.print(context_.out);
  }

 private:
  static Table::Heading number(std::string title) { return {std::move(title), Table::Align::Right}; }

  static void addLine(Table& table, const LineDifference& difference) {
    const mainreturn::ReturnLine& line = lineOf(difference.line);
    bool isFirst = true;
    const auto add = [&](std::string_view field, double before, double after) {
      if (before == after) return;
      table.add({isFirst ? std::string(line.number) : "", isFirst ? std::string(line.printedName) : "",
                 std::string(field), shownNumber(before), shownNumber(after), shownNumber(after - before)});
      isFirst = false;
    };
    add(line.gross, difference.before.gross, difference.after.gross);
    add(line.rate, difference.before.rate, difference.after.rate);
    add(line.tax, difference.before.tax, difference.after.tax);
  }

  /// A row for each field, the first with the document; `further` gives what stands behind the values.
  template <class Further>
  void addRows(Table& table, const DocumentDifference& document, const Further& further) {
    const std::string seq = document.seq.empty() ? "" : ", SEQ " + document.seq;
    std::array<std::string, 3> head = {std::string(wordOf(document.kind)), document.number + seq, document.form};
    for (const FieldDifference& field : document.fields) {
      std::vector<std::string> row(head.begin(), head.end());
      row.insert(row.end(), {field.field, shown(field, field.before), shown(field, field.after)});
      for (std::string each : further(field)) row.push_back(std::move(each));
      table.add(std::move(row));
      head = {};
    }
  }

  void print(const char* title, Table& table, std::size_t longColumn) {
    separate();
    context_.out << title << '\n';
    table.shrink(longColumn, context_.width);
    table.print(context_.out);
  }

  void separate() { context_.out << '\n'; }

  const Context& context_;
  std::string before_;
  std::string after_;
  Labels labels_;
};

/// What a filer wants to know in the end.
void printVerdict(const ReturnDifference& difference, std::ostream& out) {
  const double tax = difference.taxOfCorrection();
  if (tax > 0)
    out << "Still to pay by the correction: Rp " << rupiah(tax) << ".\n";
  else if (tax < 0)
    out << "Paid too much by the correction: Rp " << rupiah(-tax) << ".\n";
  else
    out << "The tax stays the same.\n";
}

// --- as JSON -------------------------------------------------------------------------------------------------

Json valueOf(const FieldDifference& field, const std::string& value) {
  if (!field.isNumber) return value;
  if (value.empty()) return nullptr;
  const std::optional<double> number = tryNumber(value);
  return number ? jsonNumber(*number) : Json(value);
}

Json asJson(const std::vector<FieldDifference>& fields) {
  Json list = Json::array();
  for (const FieldDifference& each : fields)
    list.push_back(
        {{"field", each.field}, {"before", valueOf(each, each.before)}, {"after", valueOf(each, each.after)}});
  return list;
}

/// `form` and `number` are what the members are called.
Json asJson(const Documents& documents, const char* form, const char* number) {
  Json list = Json::array();
  for (const DocumentDifference& each : documents) {
    Json document = {{"difference", wordOf(each.kind)}, {form, each.form}, {number, each.number}};
    if (!each.seq.empty()) document["seq"] = jsonNumber(tryNumber(each.seq).value_or(0));
    document["fields"] = asJson(each.fields);
    list.push_back(document);
  }
  return list;
}

Json asJson(const LineAmounts& amounts) {
  return {{"gross", jsonNumber(amounts.gross)}, {"rate", jsonNumber(amounts.rate)}, {"tax", jsonNumber(amounts.tax)}};
}

Json asJson(const ReturnBalance& balance, const Period& period) {
  return {{"correction", period.correction},
          {"gross", jsonNumber(balance.gross)},
          {"tax", jsonNumber(balance.tax)},
          {"payments", jsonNumber(balance.payments)},
          {"transfers", jsonNumber(balance.transfers)},
          {"unpaid", jsonNumber(balance.unpaid())}};
}

}  // namespace

void printDifference(const ReturnDifference& difference, const ComparedPeriods& periods, const Context& context) {
  const Period month{periods.before.month, periods.before.year, 0};
  context.out << "Return " << month.text() << ": " << kindOf(periods.before) << " against " << kindOf(periods.after)
              << '\n';
  if (difference.isEmpty()) {
    context.out << "The two say the same.\n";
    return;
  }
  Print print(periods, context);
  print.lines(difference.lines);
  print.returnFields(difference.returnFields);
  print.documents("Slips", "Number", difference.slips);
  print.rows("Payees of interest", "Number", "Kind", difference.interestPayees);
  print.documents("Self-paid forms", "NTPN", difference.selfPaidForms);
  print.rows("Payment records", "NTPN", "KJS", difference.payments);
  print.balance(difference);
  printVerdict(difference, context.out);
}

void printDifferenceJson(const ReturnDifference& difference, const ComparedPeriods& periods, const Context& context) {
  Json lines = Json::array();
  for (const LineDifference& each : difference.lines)
    lines.push_back({{"line", each.line},
                     {"name", lineOf(each.line).printedName},
                     {"before", asJson(each.before)},
                     {"after", asJson(each.after)}});
  context.out << jsonText(Json{{"month", periods.before.month},
                               {"year", periods.before.year},
                               {"before", asJson(difference.before, periods.before)},
                               {"after", asJson(difference.after, periods.after)},
                               {"same", difference.isEmpty()},
                               {"taxOfCorrection", jsonNumber(difference.taxOfCorrection())},
                               {"lines", lines},
                               {"fields", asJson(difference.returnFields)},
                               {"slips", asJson(difference.slips, "form", "number")},
                               {"interestPayees", asJson(difference.interestPayees, "kind", "number")},
                               {"selfPaidForms", asJson(difference.selfPaidForms, "form", "ntpn")},
                               {"paymentRecords", asJson(difference.payments, "kind", "ntpn")}})
              << '\n';
}

}  // namespace tarvola::cli
