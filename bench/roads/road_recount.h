#pragma once

#include "bench/roads/measure.h"

namespace tarvola::bench {

/// The full recount of the main return, loaded, normalised and saved; floor: the same statements.
/// They select nothing of a document but its packed text, and sum the totals of a form once.
Measurement measureRecount(std::int64_t slips);

}  // namespace tarvola::bench
