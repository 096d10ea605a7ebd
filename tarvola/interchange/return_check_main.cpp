// The main form against a recount that is made on the side.

#include <algorithm>
#include <cmath>
#include <set>

#include "tarvola/interchange/return_check_packed.h"
#include "tarvola/interchange/return_check_parts.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using mainreturn::ReturnLine;
using mainreturn::returnLines;

constexpr std::string_view document = "F113204";
/// The word that the recount itself puts on line 11a.
constexpr std::string_view otherInterestText = "Lain-Lain";

void load(CF113204& form, const CheckContext& context) {
  form.pGetF113204(context.filer.npwp, store::F113204.kdForm, store::F113204.jenisDokumen, context.period.msPajak,
                   context.period.thPajak, context.period.kdPembetulanKe, store::headerNumber, store::taxKind);
}

double numberOf(const CF113204& form, std::string_view field) {
  const Variant value = store::fieldValue(form.rs4_2Form(), field);
  return IsNumeric(value) ? CDbl(value) : 0;
}

/// A recount adds to the two construction rates and, while it has no text, to line 11a. They begin at 0, so that the
/// same figures come out as those of a return that is recounted for the first time.
void recount(CF113204& form, const CheckContext& context) {
  form.aB6a14(0);
  form.aB6b14(0);
  form.aB11a("");
  form.aB11a3(0);
  form.aB11a4(0);
  form.aB11a5(0);
  form.getTaxRate();
  form.pUpdF113204(context.period.msPajak, context.period.thPajak, context.period.kdPembetulanKe);
  form.pHitPjk3204(1);
}

bool isOwnLine(const ReturnLine& line) { return !line.ownText.empty(); }

/// The rates that a line may show. With an amount: the recounted one, or, of self-paid forms, the one cut to two
/// decimals that a save of a single form leaves. Without: none, or a default one, which for interest is that of
/// deposits.
bool isRate(double stored, double recounted, double depositRate, bool isEmptyLine) {
  constexpr double tolerance = 1e-9;
  const auto is = [&](double rate) { return std::fabs(stored - rate) < tolerance; };
  if (is(recounted)) return true;
  if (isEmptyLine) return is(0) || is(depositRate);
  // A rate beyond 16 bits cannot be cut: the save of a single form shows that as a message and leaves 0.
  const MessageBoxScope silent([](const MessageBox&) {});
  return is(pRoundDown2(CDbl(Format(recounted, "0.000"))));
}

class MainFormCheck {
 public:
  explicit MainFormCheck(const CheckContext& context) : context_(context) {}
  void run();

 private:
  void compareLine(const ReturnLine& line);
  void compareNumber(CheckKind kind, std::string_view field, double expected) const;
  void compareOtherInterest();
  void compareTotals() const;
  void compareCounts();
  [[nodiscard]] bool isTextOfSlips(const std::string& text) const;

  const CheckContext& context_;
  CF113204 stored_;
  CF113204 recounted_;
  double expectedGross_ = 0;
  double expectedTax_ = 0;
};

void MainFormCheck::run() {
  std::vector<std::string> failures;
  {
    const MessageBoxScope scope([&](const MessageBox& message) { failures.push_back(message.text); });
    load(stored_, context_);
    if (failures.empty()) load(recounted_, context_);
    if (failures.empty()) recount(recounted_, context_);
  }
  for (const std::string& failure : failures)
    context_.report.add({.kind = CheckKind::RecountFails, .document = std::string(document), .stored = failure});
  if (!failures.empty()) return;
  for (const ReturnLine& line : returnLines) compareLine(line);
  compareTotals();
  compareCounts();
}

/// A text where a number belongs is told as what it is, not as the 0 that it counts as.
void MainFormCheck::compareNumber(CheckKind kind, std::string_view field, double expected) const {
  const Variant value = store::fieldValue(stored_.rs4_2Form(), field);
  if (value.isNull() || IsNumeric(value))
    context_.report.compare(kind, document, field, numberOf(stored_, field), expected);
  else
    context_.report.compare(CheckKind::Unreadable, document, field, CStr(value), CStr(expected));
}

/// The lines 11b and 11c are typed in by a person, and no document stands behind them.
void MainFormCheck::compareLine(const ReturnLine& line) {
  if (line.number == "11a") return compareOtherInterest();
  const double gross = numberOf(isOwnLine(line) ? stored_ : recounted_, line.gross);
  const double tax = numberOf(isOwnLine(line) ? stored_ : recounted_, line.tax);
  expectedGross_ += gross;
  expectedTax_ += tax;
  if (isOwnLine(line)) return;
  compareNumber(CheckKind::ReturnAmount, line.gross, gross);
  compareNumber(CheckKind::ReturnAmount, line.tax, tax);
  const double rate = numberOf(recounted_, line.rate);
  if (!isRate(numberOf(stored_, line.rate), rate, numberOf(recounted_, "B1a14"), gross == 0))
    compareNumber(CheckKind::ReturnRate, line.rate, rate);
}

/// Whether a text of line 11a came from the slips: the word for several, or what a slip calls its other income.
bool MainFormCheck::isTextOfSlips(const std::string& text) const {
  if (text.empty() || text == otherInterestText) return true;
  const RecordsetPtr rows = context_.store.execute(
      store::Statement("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'F113310' AND TOTAL_BRUTO <> 0 AND ")
      << store::periodCondition(context_.period));
  PackedRowReader packed("F113310");
  CheckReport ignored;
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string row = textOf(rows->cell(0));
    if (packed.read(ignored, "", row) && packed.text("B62") == text) return true;
  }
  return false;
}

/// Line 11a shows the other interest of the slips, which a save always adds and a recount only if the month has giro
/// and the line no text of its own. A text that a person has put there stands with its amounts.
void MainFormCheck::compareOtherInterest() {
  const double gross = numberOf(stored_, "B11a3");
  const double tax = numberOf(stored_, "B11a5");
  expectedGross_ += gross;
  expectedTax_ += tax;
  const RecordsetPtr sums = context_.store.execute(
      store::Statement("SELECT SUM(TOTAL_BRUTO) AS dGross, SUM(TOTAL_PPH) AS dTax FROM DS_FORM_INDUK WHERE KD_FORM = "
                       "'F113310' AND ")
      << store::periodCondition(context_.period));
  const double slipGross = store::fieldNumberOr(sums, "dGross", 0);
  const double slipTax = store::fieldNumberOr(sums, "dTax", 0);
  if (gross == slipGross && tax == slipTax) return;
  const std::string text = store::fieldTextOr(stored_.rs4_2Form(), "B11a", "");
  const bool isOwnText = !isTextOfSlips(text);
  if (isOwnText && slipGross == 0) return;
  const bool isLeftOut = gross == 0 && tax == 0 && numberOf(recounted_, "B11a3") == 0;
  for (const auto& [field, stored, recounted] :
       {std::tuple("B11a3", gross, slipGross), std::tuple("B11a5", tax, slipTax)})
    if (stored != recounted)
      context_.report.add({.kind = CheckKind::OtherInterest,
                           .isWarning = isOwnText || isLeftOut,
                           .document = std::string(document),
                           .field = field,
                           .stored = CStr(stored),
                           .recounted = CStr(recounted)});
}

void MainFormCheck::compareTotals() const {
  compareNumber(CheckKind::ReturnAmount, mainreturn::totalGross, expectedGross_);
  compareNumber(CheckKind::ReturnAmount, mainreturn::totalTax, expectedTax_);
}

/// Without slips CHKC3 stays as it is, since a person may have set it.
void MainFormCheck::compareCounts() {
  const double slipCount = numberOf(recounted_, "C3");
  compareNumber(CheckKind::ReturnMark, "C3", slipCount);
  compareNumber(CheckKind::ReturnMark, "CHKC2", slipCount > 0 ? 1 : 0);
  if (slipCount > 0) compareNumber(CheckKind::ReturnMark, "CHKC3", 1);
  const auto& [month, year, correction] = context_.period;
  const double payments =
      stored_.aJumlahSSP("", CStr(std::int32_t{month}), CStr(std::int32_t{year}), CStr(std::int32_t{correction})) +
      stored_.aJumlahPBK("", store::taxArticle, month, year);
  if (numberOf(stored_, "c1") != payments)
    context_.report.add({.kind = CheckKind::PaymentCount,
                         .isWarning = true,
                         .document = std::string(document),
                         .field = "c1",
                         .stored = CStr(numberOf(stored_, "c1")),
                         .recounted = CStr(payments)});
}

}  // namespace

/// Without exactly one main form there is nothing to compare; that it is missing is a finding of its own.
void checkMainForm(const CheckContext& context) {
  if (headerText(context, store::F113204)) MainFormCheck(context).run();
}

}  // namespace tarvola::interchange
