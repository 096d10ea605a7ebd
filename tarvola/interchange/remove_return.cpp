#include "tarvola/interchange/remove_return.h"

#include <mutex>

#include "tarvola/interchange/line_writer.h"
#include "tarvola/interchange/store_lock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/return_removal.h"

namespace tarvola {

namespace {

using store::Period;
using store::taxKind;

/// The filer's number without blanks around, as an import stores it in a transfer.
std::string numberOfFiler(const store::StoreObject& store) {
  return std::string(Trim(interchange::readFiler(store).npwp));
}

ReturnRemoval look(const store::StoreObject& store, std::string_view npwp, const Period& period) {
  const auto& [month, year, correction] = period;
  ReturnRemoval found{.contents = store::contentsOf(store, period)};
  if (correction != 0) return found;
  found.payments = store::paymentsOfMonth(store, taxKind, month, year)->get_RecordCount();
  found.transfers = store::transfersOfMonth(store, npwp, taxKind, month, year)->get_RecordCount();
  return found;
}

std::int64_t rowsOf(const ReturnRemoval& removal) {
  const store::ReturnContents& contents = removal.contents;
  return contents.documents() + contents.listRows + contents.selfPaidListRows + contents.interestPayees +
         removal.payments + removal.transfers;
}

}  // namespace

ReturnRemoval whatRemovalTakes(std::int16_t month, std::int16_t year, std::int16_t correction) {
  const store::StoreObject store;
  return look(store, numberOfFiler(store), {month, year, correction});
}

ReturnRemoval removeReturn(std::int16_t month, std::int16_t year, std::int16_t correction) {
  const store::StoreObject store;
  interchange::StoreLock lock(moduleState().sDSN);
  const std::lock_guard held(lock);
  const std::string npwp = numberOfFiler(store);
  const Period period{month, year, correction};
  const ReturnRemoval taken = look(store, npwp, period);
  store::RemovalProgress progress(rowsOf(taken));
  if (correction == 0) {
    store::removePayments(store, taxKind, month, year, progress);
    store::removeTransfers(store, npwp, taxKind, month, year, progress);
  }
  store::removeInterestPayees(store, period, progress);
  store::removeDocuments(store, npwp, taxKind, period, progress);
  return taken;
}

}  // namespace tarvola
