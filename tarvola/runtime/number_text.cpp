#include "tarvola/runtime/number_text.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "tarvola/runtime/decimal_digits.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

constexpr int mostPlainDigits = 15;
constexpr double plainLimit = 1e15;

char* writeDigits(char* to, const char* digits, int count) noexcept {
  std::memcpy(to, digits, static_cast<std::size_t>(count));
  return to + count;
}

char* writeZeros(char* to, int count) noexcept {
  std::memset(to, '0', static_cast<std::size_t>(count));
  return to + count;
}

bool fitsPlain(const DecimalDigits& number) noexcept {
  return number.point <= mostPlainDigits && number.count - number.point <= mostPlainDigits;
}

char* writePlain(char* to, const DecimalDigits& number, char decimalSign) noexcept {
  const char* digits = number.digits.data();
  if (number.point >= number.count) {
    to = writeDigits(to, digits, number.count);
    return writeZeros(to, number.point - number.count);
  }
  if (number.point > 0) {
    to = writeDigits(to, digits, number.point);
    *to++ = decimalSign;
    return writeDigits(to, digits + number.point, number.count - number.point);
  }
  *to++ = '0';
  *to++ = decimalSign;
  to = writeZeros(to, -number.point);
  return writeDigits(to, digits, number.count);
}

char* writeExponent(char* to, const DecimalDigits& number, char decimalSign) noexcept {
  *to++ = number.digits[0];
  if (number.count > 1) {
    *to++ = decimalSign;
    to = writeDigits(to, number.digits.data() + 1, number.count - 1);
  }
  const int exponent = number.point - 1;
  const int size = std::abs(exponent);
  *to++ = 'E';
  *to++ = exponent < 0 ? '-' : '+';
  if (size < 10) *to++ = '0';
  return std::to_chars(to, to + 4, size).ptr;
}

char* writeFraction(char* to, double value, char decimalSign) {
  const DecimalDigits number = decimalDigits(value);
  if (number.negative) *to++ = '-';
  return fitsPlain(number) ? writePlain(to, number, decimalSign) : writeExponent(to, number, decimalSign);
}

std::string numberText(double value, char decimalSign) {
  NumberBuffer buffer;
  return {buffer.data(), writeNumber(buffer.data(), value, decimalSign)};
}

}  // namespace

char* writeNumber(char* to, double value, char decimalSign) {
  // Most figures are whole rupiah. They need none of the work on decimal digits.
  if (value > -plainLimit && value < plainLimit) {
    const auto whole = static_cast<std::int64_t>(value);
    if (static_cast<double>(whole) == value) return std::to_chars(to, to + 20, whole).ptr;
  }
  return writeFraction(to, value, decimalSign);
}

std::string CStr(double value) { return numberText(value, regionalSettings().decimal); }

void appendCStr(std::string& out, double value) {
  NumberBuffer buffer;
  const char* end = writeNumber(buffer.data(), value, regionalSettings().decimal);
  out.append(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
}

std::string CStr(std::int32_t value) {
  NumberBuffer buffer;
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

std::string Str(double value) {
  NumberBuffer buffer;
  const char* end = writeNumber(buffer.data(), value, '.');
  std::string text(buffer[0] == '-' ? "" : " ");
  return text.append(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
}

std::string numberLiteral(double value) { return numberText(value, '.'); }

std::string CStr(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return {};
    case Variant::Type::Null:
      fail(ErrorNumber::InvalidUseOfNull);
    case Variant::Type::Integer:
      return CStr(std::int32_t{value.integer()});
    case Variant::Type::Long:
      return CStr(value.longInteger());
    case Variant::Type::Double:
      return CStr(value.number());
    case Variant::Type::Boolean:
      return value.boolean() ? "True" : "False";
    case Variant::Type::Date:
      return CStr(value.date());
    case Variant::Type::String:
      return value.string();
    case Variant::Type::Array:
    case Variant::Type::Recordset:
      break;
  }
  fail(ErrorNumber::TypeMismatch);
}

}  // namespace tarvola
