#include "bench/roads/road_export.h"

#include "bench/roads/month_maker.h"
#include "bench/roads/on_copies.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

void exportOnce(const BenchStore& store) {
  setMessageBoxHandler([](const MessageBox&) {});
  CEksporBP().pEksporPPh("", 4, "1", "2009", 0, store.file("out.csv"), "");
  setMessageBoxHandler({});
}

}  // namespace

Measurement measureExport(std::int64_t slips) {
  const BenchStore store;
  fill(store, makeMonth(slips));
  return measureWriting("export", store, slips, "out.csv", [&] { exportOnce(store); });
}

double exportPeakMib(std::int64_t slips) {
  const BenchStore store;
  peakMibOf([&] { fill(store, makeMonth(slips)); });
  return peakMibOf([&] {
    connectTo(store);
    exportOnce(store);
  });
}

}  // namespace tarvola::bench
