// Measures the roads of the library beside their floors: what the same reads and writes cost on a bare prepared SQLite
// handle under the same journal settings.
//
//   bench_roads [months|documents|life] [SIZE ...]
//
// Sizes are in slips, 1000 10000 100000 without any. "months" measures import, export and recount alone, "documents"
// single documents among 100 and among the largest size, "life" what a return meets later: correction copy, removal,
// payments, reporting file.

#include <fmt/format.h>

#include <cstdlib>
#include <exception>
#include <string_view>
#include <vector>

#include "bench/roads/life_roads.h"
#include "bench/roads/measure.h"
#include "bench/roads/road_documents.h"
#include "bench/roads/road_export.h"
#include "bench/roads/road_import.h"
#include "bench/roads/road_recount.h"

using namespace tarvola::bench;

namespace {

struct Order {
  bool months = true;
  bool documents = true;
  bool life = true;
  std::vector<std::int64_t> sizes;
};

Order orderFrom(int count, char** words) {
  Order order;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    if (word == "months")
      order.documents = order.life = false;
    else if (word == "documents")
      order.months = order.life = false;
    else if (word == "life")
      order.documents = order.months = false;
    else
      order.sizes.push_back(std::strtoll(words[i], nullptr, 10));
  }
  if (order.sizes.empty()) order.sizes = {1000, 10000, 100000};
  return order;
}

// Peaks are taken in child processes, which begin as large as this one is: so all of them come first.

std::vector<LifeRoads> lifeRoads(const Order& order) {
  std::vector<LifeRoads> roads;
  if (!order.life) return roads;
  for (const std::int64_t size : order.sizes) roads.emplace_back(size);
  return roads;
}

void measureMonths(const std::vector<std::int64_t>& sizes, std::vector<Measurement>& all) {
  std::vector<double> importPeaks;
  std::vector<double> exportPeaks;
  for (const std::int64_t size : sizes) importPeaks.push_back(importPeakMib(size));
  for (const std::int64_t size : sizes) exportPeaks.push_back(exportPeakMib(size));
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    all.push_back(measureImport(sizes[i]));
    all.back().peakMib = importPeaks[i];
  }
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    all.push_back(measureExport(sizes[i]));
    all.back().peakMib = exportPeaks[i];
  }
  for (const std::int64_t size : sizes) all.push_back(measureRecount(size));
}

void measureAll(const Order& order) {
  const std::vector<LifeRoads> life = lifeRoads(order);
  std::vector<Measurement> all;
  if (order.months) measureMonths(order.sizes, all);
  for (const LifeRoads& roads : life)
    for (const Measurement& each : roads.measure()) all.push_back(each);
  if (order.documents) {
    for (const std::int64_t size : {std::int64_t{100}, order.sizes.back()})
      for (const Measurement& each : measureDocuments(size)) all.push_back(each);
  }
  printMeasurements(all);
}

}  // namespace

int main(int count, char** words) {
  try {
    measureAll(orderFrom(count, words));
    return 0;
  } catch (const std::exception& failure) {
    fmt::print(stderr, "bench_roads: {}\n", failure.what());
    return 1;
  }
}
