#pragma once

#include <cstdint>
#include <vector>

#include "tarvola/runtime/variant.h"

namespace tarvola::bench {

/// So many lines of payment files, cut into their columns: payments, each with a number of its own, and transfers in
/// turns.
std::vector<Variant> makePayments(std::int64_t count);

/// The lines through pImporSSPPBK, on the store to which this thread is connected.
void importPayments(const std::vector<Variant>& lines);

}  // namespace tarvola::bench
