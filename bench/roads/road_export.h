#pragma once

#include "bench/roads/measure.h"

namespace tarvola::bench {

/// The export of a period; floor: the same selection stepped and read, and a file of the same bytes written line by
/// line.
Measurement measureExport(std::int64_t slips);
/// Peak memory of a process that only exports. To be called while the calling process is still small.
double exportPeakMib(std::int64_t slips);

}  // namespace tarvola::bench
