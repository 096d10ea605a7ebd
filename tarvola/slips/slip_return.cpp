// What a slip moves in the main return of its period.
#include "tarvola/mainreturn/CF113204.h"

#include "tarvola/runtime/text_forms.h"
#include "tarvola/slips/slip_frame.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::slips {

void SlipFrame::pUpdF113204() {
  guarded([&] {
    computeTotals();
    formTotals_.reset();
    CF113204 mainReturn;
    mainReturn.pGetF113204(store::fieldText(form_, "npwp"), store::F113204.kdForm, store::F113204.jenisDokumen,
                           savedPeriod_.msPajak, savedPeriod_.thPajak, savedPeriod_.kdPembetulanKe, store::headerNumber,
                           store::taxKind);
    moveReturnLines(mainReturn);
    countSlip(mainReturn.rs4_2Form());
    mainReturn.pHitPjk3204(1);
    mainReturn.pUpdate();
  });
}

void SlipFrame::moveReturnLines(CF113204& mainReturn) {
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  for (const ReturnLine& line : description_.returnLines) moveReturnLine(returnRow, line);
  for (const ReturnLine& line : description_.returnLines) setReturnTariff(mainReturn, line);
}

void SlipFrame::moveReturnLine(const RecordsetPtr& returnRow, const ReturnLine& line) const {
  if (status_.onlyRemoves()) return takeFromLine(returnRow, line);
  if (!status_.addsOrEdits()) return;
  for (std::size_t row = line.rows.first; row < line.rows.first + line.rows.count; ++row)
    addToLine(returnRow, line, changeOf(row));
}

/// A deleted slip takes away what it was loaded with; what it holds by now plays no part.
void SlipFrame::takeFromLine(const RecordsetPtr& returnRow, const ReturnLine& line) const {
  for (std::size_t row = line.rows.first; row < line.rows.first + line.rows.count; ++row)
    addToLine(returnRow, line, takenAway(row));
}

void SlipFrame::addToLine(const RecordsetPtr& returnRow, const ReturnLine& line, const Amounts& change) {
  store::setField(returnRow, line.gross, store::fieldNumber(returnRow, line.gross) + change.grossRupiah);
  store::setField(returnRow, line.tax, store::fieldNumber(returnRow, line.tax) + change.taxRupiah);
}

void SlipFrame::setReturnTariff(CF113204& mainReturn, const ReturnLine& line) {
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  const bool isZero = store::fieldNumber(returnRow, line.gross) == 0;
  store::setField(returnRow, line.tariff,
                  isZero ? defaultTariff(mainReturn, line.defaultItem) : averageTariff(line.averageChoice));
}

double SlipFrame::defaultTariff(CF113204& mainReturn, std::string_view item) const {
  const double tariff = mainReturn.pGetDefaultTaxRate(store::taxArticle, item, description_.form.kdForm);
  return CDbl(Format(tariff, "0.00"));
}

/// The average of CF113204::pHit_TarifRataan. The sums of the form's slips serve all lines: nothing is written between
/// them. An average that fails shows its own message and gives 0.
double SlipFrame::averageTariff(std::string_view choice) {
  const std::string npwp = store::fieldText(form_, "npwp");
  const store::Period period = formPeriod();
  double tariffPercent = 0;
  guarded([&] {
    if (!formTotals_) {
      formTotals_ = mainreturn::readTotals(store_, {.npwp = npwp,
                                                    .kdForm = description_.form.kdForm,
                                                    .jenisDokumen = description_.form.jenisDokumen,
                                                    .period = period});
    }
    tariffPercent = mainreturn::averageRate(*formTotals_, choice);
  });
  return tariffPercent;
}

/// C3 counts the slips of the return and never falls below 0; CHKC2 and CHKC3 mark whether there are any.
void SlipFrame::countSlip(const RecordsetPtr& returnRow) const {
  double count = store::fieldNumber(returnRow, "C3");
  if (status_.add) {
    count += 1;
  } else if (status_.remove) {
    count = count < 1 ? 0 : count - 1;
  }
  store::setField(returnRow, "C3", count);
  const std::int16_t mark = count > 0 ? 1 : 0;
  store::setField(returnRow, "CHKC2", mark);
  store::setField(returnRow, "CHKC3", mark);
}

}  // namespace tarvola::slips
