// Conversions of values to numbers: CDbl, CInt, CLng, CBool, IsNumeric, Int, and Val for the front of a text.

#include <array>
#include <cmath>
#include <limits>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/number_parse.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

constexpr std::array<double, 16> powersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Up to fifteen digits with at most one decimal sign, as nearly all figures are written. Both the digits and the power
/// of ten are exact Doubles then, so that their quotient is the nearest Double.
std::optional<double> readPlain(std::string_view text, char decimalSign) noexcept {
  constexpr std::size_t mostDigits = 15;
  if (text.empty() || text.size() > mostDigits + 1) return std::nullopt;
  std::int64_t digits = 0;
  std::size_t count = 0;
  std::size_t wholeCount = text.size();
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      digits = digits * 10 + (c - '0');
      ++count;
    } else if (c == decimalSign && wholeCount == text.size()) {
      wholeCount = count;
    } else {
      return std::nullopt;
    }
  }
  if (count == 0 || count > mostDigits) return std::nullopt;
  if (wholeCount >= count) return static_cast<double>(digits);
  return static_cast<double>(digits) / powersOfTen[count - wholeCount];
}

std::optional<double> readPlain(std::string_view text) noexcept {
  const RegionalSettings& settings = regionalSettings();
  // Settings that use one sign for both read it as the grouping sign.
  if (settings.decimal == settings.thousands) return std::nullopt;
  return readPlain(text, settings.decimal);
}

double booleanNumber(bool value) noexcept { return value ? -1.0 : 0.0; }

template <typename Whole>
Whole wholeOf(double value) {
  // The rounding of the hardware is half to even; nothing in the library changes it.
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max())) {
    fail(ErrorNumber::Overflow);
  }
  return static_cast<Whole>(rounded);
}

/// A text is rounded on its decimal value: "3,4999999999999999999" is 3, though the nearest Double is 3.5.
template <typename Whole>
Whole wholeOf(std::string_view text) {
  DecimalText number;
  if (!parseNumber(text, number)) fail(ErrorNumber::TypeMismatch);
  const std::int64_t rounded = number.toWhole();
  if (rounded < std::numeric_limits<Whole>::min() || rounded > std::numeric_limits<Whole>::max()) {
    fail(ErrorNumber::Overflow);
  }
  return static_cast<Whole>(rounded);
}

template <typename Whole>
Whole wholeOf(const Variant& value) {
  return value.isString() ? wholeOf<Whole>(std::string_view(value.string())) : wholeOf<Whole>(CDbl(value));
}

std::string withoutBlanks(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\n') result += c;
  }
  return result;
}

double doubleOf(const DecimalText& number) {
  const std::optional<double> value = number.toDouble();
  if (!value) fail(ErrorNumber::Overflow);
  return *value;
}

}  // namespace

double CDbl(std::string_view text) {
  if (const auto plain = readPlain(text)) return *plain;
  DecimalText number;
  if (!parseNumber(text, number)) fail(ErrorNumber::TypeMismatch);
  return doubleOf(number);
}

double CDbl(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return 0;
    case Variant::Type::Null:
      fail(ErrorNumber::InvalidUseOfNull);
    case Variant::Type::Integer:
      return value.integer();
    case Variant::Type::Long:
      return value.longInteger();
    case Variant::Type::Double:
      return value.number();
    case Variant::Type::Boolean:
      return booleanNumber(value.boolean());
    case Variant::Type::Date:
      return value.date().serial();
    case Variant::Type::String:
      return CDbl(std::string_view(value.string()));
    case Variant::Type::Array:
    case Variant::Type::Recordset:
      break;
  }
  fail(ErrorNumber::TypeMismatch);
}

std::int16_t CInt(double value) { return wholeOf<std::int16_t>(value); }
std::int16_t CInt(const Variant& value) { return wholeOf<std::int16_t>(value); }
std::int32_t CLng(const Variant& value) { return wholeOf<std::int32_t>(value); }

bool CBool(const Variant& value) {
  if (value.type() == Variant::Type::Boolean) return value.boolean();
  if (value.isString() && equalsIgnoreCase(value.string(), "True")) return true;
  if (value.isString() && equalsIgnoreCase(value.string(), "False")) return false;
  return CDbl(value) != 0;
}

std::optional<double> tryNumber(std::string_view text) noexcept {
  if (const auto plain = readPlain(text)) return plain;
  DecimalText number;
  return parseNumber(text, number) ? number.toDouble() : std::nullopt;
}

bool IsNumeric(std::string_view text) noexcept { return tryNumber(text).has_value(); }

bool IsNumeric(const Variant& value) noexcept {
  if (value.isString()) return IsNumeric(std::string_view(value.string()));
  return value.isNumber() || value.isEmpty();
}

double Val(std::string_view text) {
  const std::string packed = withoutBlanks(text);
  std::string_view rest = packed;
  DecimalText number;
  if (takeRadix(rest, number)) return doubleOf(number);
  const bool negative = !rest.empty() && rest.front() == '-';
  if (negative || (!rest.empty() && rest.front() == '+')) rest.remove_prefix(1);
  takeDigits(rest, {'.', std::nullopt}, number);
  number.setNegative(negative);
  return doubleOf(number);
}

double Int(double value) noexcept { return std::floor(value); }

Variant Int(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Null:
    case Variant::Type::Integer:
    case Variant::Type::Long:
      return value;
    case Variant::Type::Empty:
      return std::int16_t{0};
    case Variant::Type::Boolean:
      return static_cast<std::int16_t>(value.boolean() ? -1 : 0);
    case Variant::Type::Date:
      return Date::fromSerial(std::floor(value.date().serial()));
    default:
      return std::floor(CDbl(value));
  }
}

}  // namespace tarvola
