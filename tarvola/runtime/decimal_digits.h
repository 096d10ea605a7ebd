#pragma once

#include <array>

namespace tarvola {

/// A number as the decimal text that people see: at most fifteen significant digits, rounded once, exactly.
///
/// Everything that writes a number starts here, so that the noise of binary fractions (0.1 + 0.2) is gone before
/// any rule about digits is applied.
struct DecimalDigits {
  static constexpr int mostDigits = 15;

  /// '0' to '9', neither leading nor trailing zeros. None for zero.
  std::array<char, mostDigits + 1> digits{};
  int count = 0;
  /// Where the decimal sign stands, counted from the first digit: 1234.5 has 4, 0.05 has -1.
  int point = 0;
  /// Whether the number was below zero; rounding to zero keeps it.
  bool negative = false;

  /// Rounds to so many digits behind the decimal sign, halves away from zero.
  void roundToDecimals(int decimals) noexcept;
  /// The digit that stands so many places before the decimal sign (0: the ones, -1: the tenths).
  [[nodiscard]] char digitAt(int place) const noexcept;

 private:
  void keep(int digitCount) noexcept;
};

/// The digits of a value. Infinities and what is no number at all: error 6.
DecimalDigits decimalDigits(double value);

}  // namespace tarvola
