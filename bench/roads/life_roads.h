#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "bench/roads/measure.h"
#include "bench/roads/month_maker.h"

namespace tarvola::bench {

/// The roads that a return takes once its month is in the store: correction copy, removal, payments in and out, and the
/// reporting file, at one size.
///
/// Copy, removal and report work on a month of so many slips with a payment for every hundred of them. The payment
/// roads work on so many payments, every second of them a transfer.
class LifeRoads {
 public:
  /// Makes the stores in processes of their own, and takes the peaks. To be made, for all sizes, while the calling
  /// process is still small.
  explicit LifeRoads(std::int64_t slips);

  [[nodiscard]] std::vector<Measurement> measure() const;

 private:
  std::int64_t slips_;
  std::unique_ptr<BenchStore> month_;
  std::unique_ptr<BenchStore> payments_;
  std::unique_ptr<BenchStore> noPayments_;
  double copyPeakMib_, removalPeakMib_, importPeakMib_, exportPeakMib_, reportPeakMib_;
};

}  // namespace tarvola::bench
