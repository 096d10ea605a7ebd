#include "bench/roads/road_payments.h"

#include "bench/roads/line_file.h"
#include "bench/roads/on_copies.h"
#include "bench/roads/payment_maker.h"
#include "bench/roads/statement_replay.h"
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
  const auto work = [&] { exportPayments(store); };
  const std::vector<NotedStatement> statements = statementsOf(store.path(), work);
  const std::vector<std::string> lines = linesOf(store.file("payments.csv"));
  Measurement result{.road = "payments export", .slips = count, .operations = count};
  takeMedians(
      result, runsFor(count), [&] { return secondsOfLibrary(store.path(), work); },
      [&] {
        StatementReplay reads(store.path(), statements);
        return seconds([&] {
          reads.run();
          writeLines(lines, store.file("floor.csv"));
        });
      });
  return result;
}

void exportPayments(const BenchStore& store) {
  CEksporSSPPBK().pEksporSSPPBK(filerNpwp, 4, benchMonth, benchYear, store.file("payments.csv"), 0);
}

}  // namespace tarvola::bench
