#include "bench/roads/road_export.h"

#include "bench/roads/line_file.h"
#include "bench/roads/month_maker.h"
#include "bench/roads/on_copies.h"
#include "bench/roads/statement_replay.h"
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
  const auto work = [&] { exportOnce(store); };
  const std::vector<NotedStatement> statements = statementsOf(store.path(), work);
  const std::vector<std::string> lines = linesOf(store.file("out.csv"));
  Measurement result{.road = "export", .slips = slips, .operations = slips};
  takeMedians(
      result, runsFor(slips), [&] { return secondsOfLibrary(store.path(), work); },
      [&] {
        StatementReplay reads(store.path(), statements);
        return seconds([&] {
          reads.run();
          writeLines(lines, store.file("floor.csv"));
        });
      });
  return result;
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
