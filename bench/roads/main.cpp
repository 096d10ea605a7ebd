// Measures the roads of the library beside their floors: what the same reads and writes cost on a bare prepared SQLite
// handle under the same journal settings.
//
//   bench_roads [months] [SIZE ...]     sizes in slips, 1000 10000 100000 without any; "months" leaves out the roads of
//   single
//                                       documents

#include <fmt/format.h>

#include <cstdlib>
#include <exception>
#include <string_view>
#include <vector>

#include "bench/roads/measure.h"
#include "bench/roads/road_documents.h"
#include "bench/roads/road_export.h"
#include "bench/roads/road_import.h"
#include "bench/roads/road_recount.h"

using namespace tarvola::bench;

namespace {

struct Order {
  bool monthsOnly = false;
  std::vector<std::int64_t> sizes;
};

Order orderFrom(int count, char** words) {
  Order order;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    if (word == "months")
      order.monthsOnly = true;
    else
      order.sizes.push_back(std::strtoll(words[i], nullptr, 10));
  }
  if (order.sizes.empty()) order.sizes = {1000, 10000, 100000};
  return order;
}

void measureAll(const Order& order) {
  const std::vector<std::int64_t>& sizes = order.sizes;
  std::vector<double> importPeaks;
  std::vector<double> exportPeaks;
  for (const std::int64_t size : sizes) importPeaks.push_back(importPeakMib(size));
  for (const std::int64_t size : sizes) exportPeaks.push_back(exportPeakMib(size));

  std::vector<Measurement> all;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    all.push_back(measureImport(sizes[i]));
    all.back().peakMib = importPeaks[i];
  }
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    all.push_back(measureExport(sizes[i]));
    all.back().peakMib = exportPeaks[i];
  }
  for (const std::int64_t size : sizes) all.push_back(measureRecount(size));
  const std::vector<std::int64_t> documentSizes = {100, sizes.back()};
  for (const std::int64_t size : order.monthsOnly ? std::vector<std::int64_t>() : documentSizes)
    for (const Measurement& each : measureDocuments(size)) all.push_back(each);
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
