#include "tarvola/interchange/correct_return.h"

#include <mutex>

#include "tarvola/interchange/store_lock.h"
#include "tarvola/mainreturn/return_copy.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/module_state.h"

namespace tarvola {

namespace {

using mainreturn::ReturnCopy;
using store::Period;

/// The number under which a return stands: that of its main form, since a filer who has moved stays the filer of the
/// returns before.
std::string numberOf(const store::StoreObject& store, const Period& period) {
  const RecordsetPtr form = store.execute(store::selectDocument(
      store::F113204.table,
      {.npwp = {}, .kdForm = store::F113204.kdForm, .jenisDokumen = store::F113204.jenisDokumen, .period = period}));
  return store::fieldTextOr(form, "NPWP", "");
}

/// In the order in which a failure leaves the earlier tables copied and the later ones as they were.
void copyAll(const store::StoreObject& store, const ReturnCopy& copy) {
  mainreturn::copyDocuments(store, copy);
  mainreturn::copyListItems(store, copy);
  mainreturn::copyPayees(store, copy);
  mainreturn::copySelfPaidForms(store, copy);
  mainreturn::copySelfPaidListItems(store, copy);
}

Period nextCorrection(Period period) {
  if (period.kdPembetulanKe == INT16_MAX) fail(ErrorNumber::Overflow);
  ++period.kdPembetulanKe;
  return period;
}

}  // namespace

CorrectionOutcome correctReturn(const CorrectionOrder& order) {
  const store::StoreObject store;
  interchange::StoreLock lock(moduleState().sDSN);
  const std::lock_guard held(lock);
  const Period source{order.month, order.year, order.corrected};
  const std::string oldNumber = numberOf(store, source);
  const bool moves = !order.newNpwp.empty();
  const ReturnCopy copy{.manner = moves ? mainreturn::otherOffice : mainreturn::sameOffice,
                        .oldNumber = oldNumber,
                        .newNumber = moves ? order.newNpwp : oldNumber,
                        .kdJenisPajak = store::taxKind,
                        .source = source,
                        .target = nextCorrection(source)};
  CorrectionOutcome outcome;
  outcome.obstacles = mainreturn::findCopyObstacles(store, copy);
  outcome.source = store::contentsOf(store, source);
  if (outcome.obstacles.empty()) {
    copyAll(store, copy);
    const mainreturn::CopiedPayments payments =
        mainreturn::copyMissingPayments(store, store::taxArticle, source, copy.target);
    outcome.paymentsCopied = payments.copied;
    outcome.paymentsThere = payments.thereAlready;
  }
  outcome.target = store::contentsOf(store, copy.target);
  return outcome;
}

}  // namespace tarvola
