#include "bench/roads/road_payments.h"

#include "bench/roads/on_copies.h"
#include "bench/roads/payment_maker.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

Measurement measurePaymentImport(const BenchStore& store, std::int64_t count) {
  const std::vector<Variant> lines = makePayments(count);
  return measureOnCopies("payments import", store, count, [&] { importPayments(lines); });
}

double paymentImportPeakMib(const BenchStore& store, std::int64_t count) {
  return peakMibOnCopy(store, [&] { importPayments(makePayments(count)); });
}

Measurement measurePaymentExport(const BenchStore& store, std::int64_t count) {
  return measureWriting("payments export", store, count, "payments.csv", [&] { exportPayments(store); });
}

void exportPayments(const BenchStore& store) {
  CEksporSSPPBK().pEksporSSPPBK(filerNpwp, 4, benchMonth, benchYear, store.file("payments.csv"), 0);
}

}  // namespace tarvola::bench
