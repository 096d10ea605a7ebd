#include "bench/roads/life_roads.h"

#include "bench/roads/on_copies.h"
#include "bench/roads/payment_maker.h"
#include "bench/roads/road_payments.h"
#include "bench/roads/road_report.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

constexpr std::int64_t slipsForEachPayment = 100;
constexpr const char* taxKind = "113";

void copyReturn() {
  CF113204 form;
  form.pCopyAllData(filerNpwp, taxKind, benchMonth, benchYear, 0);
  form.pCopyAllDataSSP(filerNpwp, taxKind, benchMonth, benchYear, 0);
}

void removeReturn() { CGeneralClass().pDelete(filerNpwp, taxKind, benchMonth, benchYear, 0); }

}  // namespace

LifeRoads::LifeRoads(std::int64_t slips)
    : slips_(slips),
      month_(std::make_unique<BenchStore>()),
      payments_(std::make_unique<BenchStore>()),
      noPayments_(std::make_unique<BenchStore>()) {
  peakMibOf([&] {
    fill(*month_, makeMonth(slips));
    importPayments(makePayments(slips / slipsForEachPayment));
  });
  peakMibOf([&] {
    connectTo(*payments_);
    importPayments(makePayments(slips));
  });
  copyPeakMib_ = peakMibOnCopy(*month_, copyReturn);
  removalPeakMib_ = peakMibOnCopy(*month_, removeReturn);
  importPeakMib_ = paymentImportPeakMib(*noPayments_, slips);
  exportPeakMib_ = peakMibOnCopy(*payments_, [&] { exportPayments(*payments_); });
  reportPeakMib_ = peakMibOnCopy(*month_, [&] { writeReport(*month_); });
}

std::vector<Measurement> LifeRoads::measure() const {
  std::vector<Measurement> all;
  const auto add = [&](Measurement road, double peakMib) {
    road.peakMib = peakMib;
    all.push_back(std::move(road));
  };
  add(measureOnCopies("correction copy", *month_, slips_, copyReturn), copyPeakMib_);
  add(measureOnCopies("removal", *month_, slips_, removeReturn), removalPeakMib_);
  add(measurePaymentImport(*noPayments_, slips_), importPeakMib_);
  add(measurePaymentExport(*payments_, slips_), exportPeakMib_);
  for (const Measurement& report : measureReport(*month_, slips_)) add(report, reportPeakMib_);
  return all;
}

}  // namespace tarvola::bench
