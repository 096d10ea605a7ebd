#pragma once

#include "bench/roads/measure.h"

namespace tarvola::bench {

/// The full recount of the main return, loaded, normalised and saved; floor: the same selections stepped and read.
Measurement measureRecount(std::int64_t slips);

}  // namespace tarvola::bench
