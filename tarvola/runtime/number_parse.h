#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvola {

/// A number read from a text of any length, kept in decimal so that nothing is lost before it is known what it becomes.
class DecimalText {
 public:
  /// Appends a digit of the whole part or, behind the decimal sign, of the fraction.
  void addWholeDigit(char digit) noexcept;
  void addFractionDigit(char digit) noexcept;
  void scale(std::int64_t exponent) noexcept { point_ += exponent; }
  void setNegative(bool negative) noexcept { negative_ = negative; }
  void setWhole(std::int64_t value) noexcept;

  /// Nothing if the number is too large for a Double. What is too small is 0.
  [[nodiscard]] std::optional<double> toDouble() const noexcept;
  /// Rounded half to even on the decimal value; what does not fit is the largest or smallest number that does.
  [[nodiscard]] std::int64_t toWhole() const noexcept;

 private:
  // No Double needs more digits than 767 to be told from its neighbours; of those beyond it counts only that
  // they are not all zero.
  static constexpr std::size_t mostDigits = 780;

  void add(char digit) noexcept;
  [[nodiscard]] char digit(std::int64_t index) const noexcept;
  [[nodiscard]] bool roundsUp(bool odd) const noexcept;

  std::array<char, mostDigits> digits_;
  std::size_t count_ = 0;
  std::int64_t point_ = 0;
  bool negative_ = false;
};

/// Which signs a number is written with.
struct NumberSigns {
  char decimal;
  /// Stands anywhere in the whole part and means nothing; none if it is to end the number.
  std::optional<char> thousands;
};

/// Reads digits, decimal sign and exponent at the front of a text and takes them off it. False if there is no digit.
bool takeDigits(std::string_view& text, const NumberSigns& signs, DecimalText& number) noexcept;

/// Reads "&H1F" or "&O17" and takes it off the text. Up to FFFF it is a number of 16 bits, beyond one of 32 bits, both
/// with their sign (&HFFFF is -1). False for any other text and for more than 32 bits.
bool takeRadix(std::string_view& text, DecimalText& number) noexcept;

/// Reads a whole text under the thread's settings. False if it is no number.
bool parseNumber(std::string_view text, DecimalText& number) noexcept;

}  // namespace tarvola
