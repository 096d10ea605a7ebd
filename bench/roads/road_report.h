#pragma once

#include <vector>

#include "bench/roads/measure.h"
#include "bench/roads/month_maker.h"

namespace tarvola::bench {

/// The reporting file of a month, from the rows of the store to the finished file, beside two floors.
///
/// "report / zlib, RC2": the same plain text through zlib at the same level, and the same enciphered bytes through
/// libgcrypt's RC2; neither the rows nor any file is in it. "report / reads, zlib, RC2": before that the selections of
/// the report stepped and read.
std::vector<Measurement> measureReport(const BenchStore& store, std::int64_t slips);

/// Writes the report of the month beside the store.
void writeReport(const BenchStore& store);

}  // namespace tarvola::bench
