// A decimal number of any length, turned into a Double or a whole number in one exact step.

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

#include "tarvola/runtime/number_parse.h"

namespace tarvola {

void DecimalText::add(char digit) noexcept {
  if (count_ < mostDigits) {
    digits_[count_++] = digit;
  } else if (digit != '0') {
    // Keeps the number on its side of every half and of every neighbouring Double.
    digits_[mostDigits - 1] = '1';
  }
}

void DecimalText::addWholeDigit(char digit) noexcept {
  if (count_ == 0 && digit == '0') return;
  add(digit);
  ++point_;
}

void DecimalText::addFractionDigit(char digit) noexcept {
  if (count_ == 0 && digit == '0') {
    --point_;
  } else {
    add(digit);
  }
}

void DecimalText::setWhole(std::int64_t value) noexcept {
  negative_ = value < 0;
  std::array<char, 24> text;
  const char* end = std::to_chars(text.begin(), text.end(), value).ptr;
  for (const char* c = text.data() + (negative_ ? 1 : 0); c != end; ++c) addWholeDigit(*c);
}

std::optional<double> DecimalText::toDouble() const noexcept {
  if (count_ == 0) return 0.0;
  std::array<char, mostDigits + 32> text;
  std::memcpy(text.data(), digits_.data(), count_);
  char* end = text.data() + count_;
  *end++ = 'e';
  end = std::to_chars(end, text.data() + text.size(), point_ - static_cast<std::int64_t>(count_)).ptr;
  double value = 0;
  if (std::from_chars(text.data(), end, value).ec == std::errc::result_out_of_range) {
    if (point_ > 0) return std::nullopt;
    value = 0;
  }
  return negative_ ? -value : value;
}

char DecimalText::digit(std::int64_t index) const noexcept {
  return index >= 0 && index < static_cast<std::int64_t>(count_) ? digits_[static_cast<std::size_t>(index)] : '0';
}

bool DecimalText::roundsUp(bool odd) const noexcept {
  const char first = digit(point_);
  if (first != '5' || point_ < 0) return first > '5' && point_ >= 0;
  const bool exactHalf = point_ + 1 >= static_cast<std::int64_t>(count_);
  if (!exactHalf) {
    for (std::int64_t i = point_ + 1; i < static_cast<std::int64_t>(count_); ++i) {
      if (digit(i) != '0') return true;
    }
  }
  return odd;
}

std::int64_t DecimalText::toWhole() const noexcept {
  constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t mostPlaces = 18;
  if (count_ == 0) return 0;
  if (point_ > mostPlaces) return negative_ ? -largest : largest;
  std::int64_t whole = 0;
  for (std::int64_t i = 0; i < point_; ++i) whole = whole * 10 + (digit(i) - '0');
  if (roundsUp(whole % 2 != 0)) ++whole;
  return negative_ ? -whole : whole;
}

}  // namespace tarvola
