#include "tarvola/mainreturn/roll_up.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/mainreturn/roll_up_forms.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"

namespace tarvola::mainreturn {
namespace {

using store::Statement;

/// What line 11a is called once interest of other kinds stands in it.
constexpr std::string_view otherInterestText = "Lain-Lain";
constexpr ReturnLine otherInterestLine = returnLine("11a");

}  // namespace

RollUp::RollUp(const store::StoreObject& store, RecordsetPtr form, const store::Period& period, RunningSums& interest)
    : store_(store),
      form_(std::move(form)),
      period_(period),
      interest_(interest),
      npwp_(store::fieldText(form_, "npwp")) {}

void RollUp::run() {
  Progress progress("Recount of the return", rolledUpForms.size());
  std::uint64_t done = 0;
  for (const RolledUpForm& form : rolledUpForms) {
    rollUp(form);
    progress.done(++done);
  }
}

void RollUp::rollUp(const RolledUpForm& form) {
  const RecordsetPtr documents = documentsOf(form.form);
  LineSums sums;
  if (!store::isEmptyResult(documents)) {
    documentCount_ += documents->get_RecordCount();
    sums = sumDocuments(form, *store_.converter().ExpandDatForm(form.form.kdForm, documents), interest_);
  }
  if (form.rowRule == RowRule::Interest) {
    sums[2] = interest_.sbi;
    sums[3] = interest_.giro;
  }
  totals_.reset();
  for (std::size_t index = 0; index < form.lines.size(); ++index) setLine(form, form.lines[index], sums[index]);
  if (form.rowRule == RowRule::Interest) setOtherInterest(form);
  if (form.setsSlipCount) store::setField(form_, "C3", documentCount_);
}

/// The packed texts of a form's documents. Nothing else of their rows takes part in a recount, and fetching it would
/// cost more than the recount itself.
RecordsetPtr RollUp::documentsOf(const store::FormCodes& form) const {
  return store_.execute(Statement("SELECT DAT_FORM FROM ")
                        << store::name(store::tableName(form.table)) << " WHERE NPWP = " << store::text(npwp_)
                        << " AND KD_FORM = " << store::text(form.kdForm)
                        << " AND JENIS_DOKUMEN = " << store::text(form.jenisDokumen) << " AND "
                        << store::periodCondition(period_) << " AND KD_JENIS_PAJAK = " << store::text(store::taxKind));
}

/// Sets gross and tax of a line. Its rate keeps what it holds while the gross is 0, so that a default rate stays.
void RollUp::setLine(const RolledUpForm& form, const FedLine& fed, const LineSum& sum) {
  store::setField(form_, fed.line.gross, sum.gross);
  store::setField(form_, fed.line.tax, sum.tax);
  if (sum.gross == 0) return;
  if (form.rateRule == RateRule::Average) return setAverage(form, fed.line, fed.averageChoice);
  store::setField(form_, fed.line.rate, sum.tax * 100 / sum.gross);
}

/// Line 11a shows interest of other kinds, but only while nobody has given it a text, and only if there is giro: the
/// condition looks at giro gross and not at the amounts that it shows. The line's old amounts are added to, so that a
/// later recount, which finds the text, leaves all three amounts as they are.
void RollUp::setOtherInterest(const RolledUpForm& form) {
  const ReturnLine& line = otherInterestLine;
  if (store::isNullField(form_, line.ownText)) store::setField(form_, line.ownText, "");
  if (!store::fieldText(form_, line.ownText).empty() || interest_.giro.gross <= 0) return;
  store::setField(form_, line.ownText, otherInterestText);
  const double gross = store::fieldNumberOr(form_, line.gross, 0) + interest_.others.gross;
  store::setField(form_, line.gross, gross);
  store::setField(form_, line.tax, store::fieldNumberOr(form_, line.tax, 0) + interest_.others.tax);
  if (gross != 0) setAverage(form, line, "");
}

/// An average that fails shows its own message and gives 0; the recount goes on.
void RollUp::setAverage(const RolledUpForm& form, const ReturnLine& line, std::string_view choice) {
  double ratePercent = 0;
  guarded([&] {
    if (!totals_) {
      totals_ = readTotals(
          store_,
          {.npwp = npwp_, .kdForm = form.form.kdForm, .jenisDokumen = form.form.jenisDokumen, .period = period_});
    }
    ratePercent = averageRate(*totals_, choice);
  });
  store::setField(form_, line.rate, ratePercent);
}

}  // namespace tarvola::mainreturn
