#pragma once

namespace tarvola::mainreturn {

/// Gross and tax that have been added up, in rupiah.
struct LineSum {
  double gross = 0;
  double tax = 0;

  void add(const LineSum& other) noexcept {
    gross += other.gross;
    tax += other.tax;
  }
};

/// What the interest slips add up to beside deposits. These sums belong to the object and nothing ever clears them, so
/// that a second recount on the same object counts them twice.
struct RunningSums {
  LineSum sbi;
  LineSum giro;
  LineSum others;
};

}  // namespace tarvola::mainreturn
