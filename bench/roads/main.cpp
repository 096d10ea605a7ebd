// Measures the roads of the library beside their floors: what the same reads and writes cost on a bare prepared SQLite
// handle under the same journal settings.
//
//   bench_roads [SIZE ...]     sizes in slips; 1000 10000 100000 without any

#include <fmt/format.h>

#include <cstdlib>
#include <exception>
#include <vector>

#include "bench/roads/measure.h"
#include "bench/roads/road_documents.h"
#include "bench/roads/road_export.h"
#include "bench/roads/road_import.h"
#include "bench/roads/road_recount.h"

using namespace tarvola::bench;

namespace {

std::vector<std::int64_t> sizesFrom(int count, char** words) {
  std::vector<std::int64_t> sizes;
  for (int i = 1; i < count; ++i) sizes.push_back(std::strtoll(words[i], nullptr, 10));
  return sizes.empty() ? std::vector<std::int64_t>{1000, 10000, 100000} : sizes;
}

void measureAll(const std::vector<std::int64_t>& sizes) {
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
  for (const std::int64_t size : {std::int64_t{100}, sizes.back()})
    for (const Measurement& each : measureDocuments(size)) all.push_back(each);
  printMeasurements(all);
}

}  // namespace

int main(int count, char** words) {
  try {
    measureAll(sizesFrom(count, words));
    return 0;
  } catch (const std::exception& failure) {
    fmt::print(stderr, "bench_roads: {}\n", failure.what());
    return 1;
  }
}
