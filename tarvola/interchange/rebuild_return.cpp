#include "tarvola/interchange/rebuild_return.h"

#include <mutex>

#include "tarvola/interchange/import_rebuild.h"
#include "tarvola/interchange/import_texts.h"
#include "tarvola/interchange/line_writer.h"
#include "tarvola/interchange/store_lock.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

namespace {

using store::Period;

/// Rupiah of the F113310 slips that decide on line 11a: giro, by which the recount fills the line, and other interest,
/// which stands on it.
struct InterestTotals {
  double giroGross = 0;
  double otherGross = 0;
  double otherTax = 0;
};

InterestTotals interestTotals(const store::StoreObject& store, const Period& period) {
  const RecordsetPtr sums = store.execute(
      store::Statement(
          "SELECT SUM(TOTAL_BRUTO4) AS dGiro, SUM(TOTAL_BRUTO) AS dOther, SUM(TOTAL_PPH) AS dOtherTax FROM "
          "DS_FORM_INDUK WHERE KD_FORM = 'F113310' AND ")
      << store::periodCondition(period));
  return {.giroGross = store::fieldNumberOr(sums, "dGiro", 0),
          .otherGross = store::fieldNumberOr(sums, "dOther", 0),
          .otherTax = store::fieldNumberOr(sums, "dOtherTax", 0)};
}

void load(CF113204& form, std::string_view npwp, const Period& period) {
  form.pGetF113204(npwp, store::F113204.kdForm, store::F113204.jenisDokumen, period.msPajak, period.thPajak,
                   period.kdPembetulanKe, store::headerNumber, store::taxKind);
}

/// A recount adds to what three fields hold: the two construction rates, and, while it has no text, the line of other
/// interest. So what an earlier recount put there is taken away first, or a second one would give other figures.
/// "Lain-Lain" is the word of the recount; a text of the user's own stays with its amounts. Without giro the recount
/// would not fill the line again, so it is left alone then.
void clearFormerRecount(std::string_view npwp, const Period& period, const InterestTotals& totals) {
  CF113204 form;
  load(form, npwp, period);
  form.aB6a14(0);
  form.aB6b14(0);
  if (store::fieldTextOr(form.rs4_2Form(), "B11a", "") == "Lain-Lain" && totals.giroGross > 0) {
    form.aB11a("");
    form.aB11a3(0);
    form.aB11a4(0);
    form.aB11a5(0);
  }
  form.pUpdate();
}

/// Other interest reaches line 11a only if the month has giro and the line has no text of its own. Where that leaves
/// the line apart from the slips, a person should know.
void compareOtherInterest(std::string_view npwp, const Period& period, const InterestTotals& totals,
                          std::vector<std::string>& warnings) {
  CF113204 form;
  load(form, npwp, period);
  const double gross = store::fieldNumberOr(form.rs4_2Form(), "B11a3", 0);
  const double tax = store::fieldNumberOr(form.rs4_2Form(), "B11a5", 0);
  if (gross != totals.otherGross || tax != totals.otherTax)
    warnings.push_back(interchange::otherInterestText({.grossRupiah = totals.otherGross, .taxRupiah = totals.otherTax},
                                                      {.grossRupiah = gross, .taxRupiah = tax}));
}

}  // namespace

RebuildOutcome rebuildReturn(std::int16_t month, std::int16_t year, std::int16_t correction) {
  const Period period{month, year, correction};
  RebuildOutcome outcome;
  const MessageBoxScope scope([&](const MessageBox& message) { outcome.failures.push_back(message.text); });
  const store::StoreObject store;
  const store::FilerHeader filer = interchange::readFiler(store);
  interchange::StoreLock lock(moduleState().sDSN);
  const std::lock_guard held(lock);
  guarded([&] {
    interchange::buildHeaders(store, filer.npwp, period);
    const InterestTotals totals = interestTotals(store, period);
    clearFormerRecount(filer.npwp, period, totals);
    interchange::rebuildInterestHeader(store, filer, period);
    interchange::recountReturn(filer.npwp, period, true);
    compareOtherInterest(filer.npwp, period, totals, outcome.warnings);
  });
  return outcome;
}

}  // namespace tarvola
