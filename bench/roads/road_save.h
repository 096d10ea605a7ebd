#pragma once

#include "bench/roads/measure.h"

namespace tarvola::bench {

/// Loading, changing and saving one lottery prize slip among so many; floor: the statements of such a save, prepared.
Measurement measureSave(std::int64_t slips);

}  // namespace tarvola::bench
