#pragma once

#include "bench/roads/measure.h"
#include "bench/roads/month_maker.h"

namespace tarvola::bench {

/// So many lines of payment files into a store that has no payments yet; floor: the same look-ups and inserts.
Measurement measurePaymentImport(const BenchStore& store, std::int64_t count);
/// Peak memory of a process that makes so many lines and imports them.
double paymentImportPeakMib(const BenchStore& store, std::int64_t count);

/// The store's payments and transfers into one file; floor: the same selections stepped and read, and a file of the
/// same bytes written line by line.
Measurement measurePaymentExport(const BenchStore& store, std::int64_t count);
void exportPayments(const BenchStore& store);

}  // namespace tarvola::bench
