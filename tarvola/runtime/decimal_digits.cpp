#include "tarvola/runtime/decimal_digits.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

/// The digits of scientific notation, "d.ddde+xx", however many there are.
struct ScientificText {
  std::array<char, 48> digits{};
  int count = 0;
  int exponent = 0;
};

ScientificText split(std::string_view text) noexcept {
  ScientificText result;
  const std::size_t mark = text.find('e');
  for (const char c : text.substr(0, mark)) {
    if (c != '.') result.digits[static_cast<std::size_t>(result.count++)] = c;
  }
  const std::size_t exponentAt = mark + (text[mark + 1] == '+' ? 2 : 1);
  std::from_chars(text.data() + exponentAt, text.data() + text.size(), result.exponent);
  return result;
}

/// The shortest digits that give the value back.
ScientificText shortest(double magnitude) noexcept {
  std::array<char, 48> text;
  const auto end = std::to_chars(text.begin(), text.end(), magnitude, std::chars_format::scientific).ptr;
  return split({text.data(), static_cast<std::size_t>(end - text.data())});
}

ScientificText toDigits(double magnitude, int count) noexcept {
  std::array<char, 48> text;
  const auto end = std::to_chars(text.begin(), text.end(), magnitude, std::chars_format::scientific, count - 1).ptr;
  return split({text.data(), static_cast<std::size_t>(end - text.data())});
}

/// A value that lies in the very middle between two texts of fifteen digits, such as 100000000000000.5. Its
/// sixteenth digit is a 5 and nothing follows.
bool isHalfWay(const ScientificText& shortestText, double magnitude) noexcept {
  constexpr int halfDigit = DecimalDigits::mostDigits;
  if (shortestText.count != halfDigit + 1 || shortestText.digits[halfDigit] != '5') return false;
  const ScientificText exact = toDigits(magnitude, 40);
  for (int i = halfDigit + 1; i < exact.count; ++i) {
    if (exact.digits[static_cast<std::size_t>(i)] != '0') return false;
  }
  return true;
}

/// Digits enough for the rounding to fifteen: a text of up to fifteen digits that gives the value back is its
/// rounding already, and to_chars rounds all others exactly but for the half-way ones, which it takes to even.
///
/// Below the normal numbers a Double has fewer than fifteen digits, and a short text may stand for a long one.
ScientificText roundable(double magnitude) noexcept {
  if (!std::isnormal(magnitude)) return toDigits(magnitude, DecimalDigits::mostDigits);
  const ScientificText text = shortest(magnitude);
  if (text.count <= DecimalDigits::mostDigits || isHalfWay(text, magnitude)) return text;
  return toDigits(magnitude, DecimalDigits::mostDigits);
}

/// Whole numbers of up to fifteen digits are exact, and most figures are such.
ScientificText digitsOf(double magnitude) noexcept {
  constexpr double limit = 1e15;
  const auto whole = static_cast<std::int64_t>(magnitude < limit ? magnitude : 0);
  if (static_cast<double>(whole) != magnitude) return roundable(magnitude);
  ScientificText text;
  const char* end = std::to_chars(text.digits.begin(), text.digits.end(), whole).ptr;
  text.count = static_cast<int>(end - text.digits.data());
  text.exponent = text.count - 1;
  return text;
}

}  // namespace

DecimalDigits decimalDigits(double value) {
  if (!std::isfinite(value)) fail(ErrorNumber::Overflow);
  DecimalDigits result;
  if (value == 0) return result;
  const ScientificText text = digitsOf(std::fabs(value));
  for (int i = 0; i < text.count; ++i) {
    result.digits[static_cast<std::size_t>(i)] = text.digits[static_cast<std::size_t>(i)];
  }
  result.count = text.count;
  result.point = text.exponent + 1;
  result.negative = value < 0;
  result.roundToDecimals(DecimalDigits::mostDigits - result.point);
  return result;
}

char DecimalDigits::digitAt(int place) const noexcept {
  const int index = point - 1 - place;
  return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
}

void DecimalDigits::roundToDecimals(int decimals) noexcept {
  const int kept = point + decimals;
  if (kept >= count) return keep(count);
  if (kept < 0) return keep(0);
  const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
  if (!up) return keep(kept);
  int last = kept;
  while (last > 0 && digits[static_cast<std::size_t>(last - 1)] == '9') --last;
  if (last == 0) {
    // All nines: 9.99 becomes 10.0, a single 1 one place further left.
    digits[0] = '1';
    ++point;
    return keep(1);
  }
  ++digits[static_cast<std::size_t>(last - 1)];
  keep(last);
}

void DecimalDigits::keep(int digitCount) noexcept {
  count = digitCount;
  while (count > 0 && digits[static_cast<std::size_t>(count - 1)] == '0') --count;
  if (count == 0) point = 0;
}

}  // namespace tarvola
