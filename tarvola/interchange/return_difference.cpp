#include "tarvola/interchange/return_difference.h"

#include <algorithm>

#include "tarvola/interchange/return_difference_parts.h"
#include "tarvola/interchange/return_difference_rows.h"
#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/statement.h"

namespace tarvola {

namespace {

using interchange::ComparedReturns;
using mainreturn::ReturnLine;
using mainreturn::returnLines;
using store::Period;
using store::Statement;

/// The fields of a main form by name; empty ones where there is no such form.
class MainForm {
 public:
  MainForm(const store::StoreObject& store, const Period& period)
      : fields_(store.expand(
            store::F113204.kdForm,
            store.execute(store::selectDocument(store::F113204.table, {.npwp = {},
                                                                       .kdForm = store::F113204.kdForm,
                                                                       .jenisDokumen = store::F113204.jenisDokumen,
                                                                       .period = period})))) {}

  [[nodiscard]] std::string text(std::string_view field) const {
    if (fields_->get_EOF()) return {};
    const Variant value = fields_->get_Collect(field);
    return value.isNull() ? std::string() : CStr(value);
  }
  /// 0 for an empty field and for one that is no number.
  [[nodiscard]] double number(std::string_view field) const { return tryNumber(text(field)).value_or(0); }
  [[nodiscard]] LineAmounts line(const ReturnLine& line) const {
    return {.gross = number(line.gross), .rate = number(line.rate), .tax = number(line.tax)};
  }

 private:
  RecordsetPtr fields_;
};

double sumOf(const store::StoreObject& store, const Statement& select) {
  return store::fieldNumberOr(store.execute(select), "dSum", 0);
}

ReturnBalance balanceOf(const store::StoreObject& store, const MainForm& form, const Period& period) {
  const auto& [month, year, correction] = period;
  return {.gross = form.number(mainreturn::totalGross),
          .tax = form.number(mainreturn::totalTax),
          .payments = sumOf(store, Statement("SELECT SUM(JmlByr) AS dSum FROM DATSSP WHERE KodePasal = ")
                                       << std::int32_t{store::taxArticle} << " AND MsPjk = " << std::int32_t{month}
                                       << " AND ThPjk = " << std::int32_t{year}
                                       << " AND KdPmbtln = " << std::int32_t{correction}),
          .transfers = sumOf(store, Statement("SELECT SUM(JumlahPBK) AS dSum FROM datPBKPPhMasa WHERE PASAL = ")
                                        << std::int32_t{store::taxArticle} << " AND MsPjkPBK = " << std::int32_t{month}
                                        << " AND ThPjkPBK = " << std::int32_t{year})};
}

std::vector<LineDifference> compareLines(const MainForm& before, const MainForm& after) {
  std::vector<LineDifference> differences;
  for (const ReturnLine& line : returnLines)
    if (before.line(line) != after.line(line))
      differences.push_back({.line = line.number, .before = before.line(line), .after = after.line(line)});
  return differences;
}

/// Whether a field is told elsewhere, or must differ.
bool isOfLinesOrTotals(std::string_view field) {
  const auto holds = [field](const ReturnLine& line) {
    return field == line.gross || field == line.rate || field == line.tax;
  };
  return field == "KD_PEMBETULAN_KE" || field == mainreturn::totalGross || field == mainreturn::totalTax ||
         std::any_of(returnLines.begin(), returnLines.end(), holds);
}

std::vector<FieldDifference> compareOtherFields(const MainForm& before, const MainForm& after) {
  std::vector<FieldDifference> differences;
  for (const store::LayoutPosition& position : store::findLayout(store::F113204.kdForm)->positions) {
    for (const store::LayoutField& field : position.fields) {
      if (isOfLinesOrTotals(field.name)) continue;
      std::string left = before.text(field.name);
      std::string right = after.text(field.name);
      if (interchange::saysTheSame(field.type, left, right)) continue;
      differences.push_back({.field = std::string(field.name),
                             .before = std::move(left),
                             .after = std::move(right),
                             .isNumber = interchange::isNumeric(field.type)});
    }
  }
  return differences;
}

}  // namespace

ReturnDifference compareReturns(std::int16_t month, std::int16_t year, std::int16_t before, std::int16_t after) {
  const store::StoreObject store;
  const Period earlier{month, year, before};
  const Period later{month, year, after};
  const MainForm formBefore(store, earlier);
  const MainForm formAfter(store, later);
  const ComparedReturns returns{.store = store,
                                .before = {.period = earlier, .npwp = formBefore.text("npwp")},
                                .after = {.period = later, .npwp = formAfter.text("npwp")}};
  return {.before = balanceOf(store, formBefore, earlier),
          .after = balanceOf(store, formAfter, later),
          .lines = compareLines(formBefore, formAfter),
          .returnFields = compareOtherFields(formBefore, formAfter),
          .slips = interchange::compareSlips(returns),
          .selfPaidForms = interchange::compareSelfPaidForms(returns),
          .interestPayees = interchange::compareInterestPayees(returns),
          .payments = interchange::comparePayments(returns)};
}

}  // namespace tarvola
