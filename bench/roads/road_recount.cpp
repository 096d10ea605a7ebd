#include "bench/roads/road_recount.h"

#include "bench/roads/month_maker.h"
#include "bench/roads/on_copies.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

void recountOnce() {
  CF113204 form;
  form.pGetF113204(filerNpwp, "F113204", "01", benchMonth, benchYear, 0, "-", "113");
  form.pUpdF113204(benchMonth, benchYear, 0);
  form.pHitPjk3204(1);
  form.pUpdate();
}

}  // namespace

Measurement measureRecount(std::int64_t slips) {
  const BenchStore store;
  fill(store, makeMonth(slips));
  const std::vector<NotedStatement> statements = statementsOf(store.path(), recountOnce);
  Measurement result{.road = "full recount", .slips = slips, .operations = slips};
  takeMedians(
      result, [&] { return secondsOfLibrary(store.path(), recountOnce); },
      [&] { return secondsOfStatements(store.path(), statements); });
  return result;
}

}  // namespace tarvola::bench
