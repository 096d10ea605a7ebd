#include "tarvola/runtime/variant_math.h"

#include <cmath>
#include <limits>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

using Type = Variant::Type;

bool anyNull(const Variant& left, const Variant& right) noexcept { return left.isNull() || right.isNull(); }
bool isDate(const Variant& value) noexcept { return value.type() == Type::Date; }

/// Integer, Long and what counts as Integer: Boolean and Empty.
bool isWhole(const Variant& value) noexcept {
  return value.type() != Type::Double && (value.isNumber() || value.isEmpty());
}

std::int64_t wholeOf(const Variant& value) {
  switch (value.type()) {
    case Type::Integer:
      return value.integer();
    case Type::Long:
      return value.longInteger();
    case Type::Boolean:
      return value.boolean() ? -1 : 0;
    default:
      return 0;
  }
}

template <typename Whole>
bool fits(std::int64_t value) noexcept {
  return value >= std::numeric_limits<Whole>::min() && value <= std::numeric_limits<Whole>::max();
}

/// The type of the wider operand, or the next wider one that holds the result.
Variant wholeResult(std::int64_t value, const Variant& left, const Variant& right) {
  const bool isLong = left.type() == Type::Long || right.type() == Type::Long;
  if (!isLong && fits<std::int16_t>(value)) return static_cast<std::int16_t>(value);
  if (fits<std::int32_t>(value)) return static_cast<std::int32_t>(value);
  return static_cast<double>(value);
}

double finite(double value) {
  if (!std::isfinite(value)) fail(ErrorNumber::Overflow);
  return value;
}

/// A date moved by a number stays a date as long as the calendar holds it.
Variant dateResult(double serial) {
  if (Date::canHold(serial)) return Date::fromSerial(serial);
  return finite(serial);
}

template <typename Operation>
Variant calculate(const Variant& left, const Variant& right, Operation operation) {
  if (isWhole(left) && isWhole(right)) return wholeResult(operation(wholeOf(left), wholeOf(right)), left, right);
  return finite(operation(CDbl(left), CDbl(right)));
}

/// Whether a value is compared as text: a text, or Empty beside one.
bool comparesAsText(const Variant& value, const Variant& other) noexcept {
  return value.isString() || (value.isEmpty() && other.isString());
}

/// Negative, 0 or positive. A number stands before every text, whatever the text says.
int order(const Variant& left, const Variant& right) {
  const bool leftIsText = comparesAsText(left, right);
  const bool rightIsText = comparesAsText(right, left);
  if (leftIsText && rightIsText) return CStr(left).compare(CStr(right));
  if (leftIsText != rightIsText) {
    // The number must be one: a recordset is neither before a text nor behind it.
    CDbl(leftIsText ? right : left);
    return leftIsText ? 1 : -1;
  }
  const double leftNumber = CDbl(left);
  const double rightNumber = CDbl(right);
  if (leftNumber == rightNumber) return 0;
  return leftNumber < rightNumber ? -1 : 1;
}

}  // namespace

Variant add(const Variant& left, const Variant& right) {
  if (anyNull(left, right)) return Variant::null();
  if (comparesAsText(left, right) && comparesAsText(right, left)) return CStr(left) + CStr(right);
  if (isDate(left) || isDate(right)) return dateResult(CDbl(left) + CDbl(right));
  return calculate(left, right, [](auto a, auto b) { return a + b; });
}

Variant subtract(const Variant& left, const Variant& right) {
  if (anyNull(left, right)) return Variant::null();
  // Between two dates lies a number of days; a date less a number is a date.
  if (isDate(left) != isDate(right)) return dateResult(CDbl(left) - CDbl(right));
  return calculate(left, right, [](auto a, auto b) { return a - b; });
}

Variant multiply(const Variant& left, const Variant& right) {
  if (anyNull(left, right)) return Variant::null();
  return calculate(left, right, [](auto a, auto b) { return a * b; });
}

Variant divide(const Variant& left, const Variant& right) {
  if (anyNull(left, right)) return Variant::null();
  const double dividend = CDbl(left);
  const double divisor = CDbl(right);
  if (divisor == 0) fail(dividend == 0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
  return finite(dividend / divisor);
}

Variant concatenate(const Variant& left, const Variant& right) {
  if (left.isNull() && right.isNull()) return Variant::null();
  std::string text = left.isNull() ? std::string() : CStr(left);
  return right.isNull() ? text : text + CStr(right);
}

Variant isEqual(const Variant& left, const Variant& right) {
  if (anyNull(left, right)) return Variant::null();
  return order(left, right) == 0;
}

Variant isLess(const Variant& left, const Variant& right) {
  if (anyNull(left, right)) return Variant::null();
  return order(left, right) < 0;
}

bool isTrue(const Variant& condition) { return !condition.isNull() && CBool(condition); }

}  // namespace tarvola
