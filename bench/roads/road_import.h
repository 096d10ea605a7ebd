#pragma once

#include "bench/roads/measure.h"

namespace tarvola::bench {

/// The lines of a month through pImporPPh4; floor: the same lookups and inserts, prepared, on a bare handle.
Measurement measureImport(std::int64_t slips);
/// Peak memory of a process that only imports so many lines from a file. To be called while the calling process is
/// still small.
double importPeakMib(std::int64_t slips);

}  // namespace tarvola::bench
