#pragma once

#include <vector>

#include "bench/roads/measure.h"

namespace tarvola::bench {

/// Adding, editing and deleting a slip of each form and a self-paid form of each kind among so many documents. Floor:
/// the very statements that the library ran for it, prepared beforehand on a bare handle and stepped over a copy of the
/// same store.
std::vector<Measurement> measureDocuments(std::int64_t documents);

}  // namespace tarvola::bench
