#include "tarvola/store/packed_text.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::store {
namespace {

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// Whether every character is a digit and no needless zero stands in front.
bool isPlainWhole(std::string_view text) noexcept {
  if (text.empty() || (text.front() == '0' && text.size() > 1)) return false;
  return std::all_of(text.begin(), text.end(), isDigit);
}

std::string_view withoutMinus(std::string_view text) noexcept {
  if (text.size() > 1 && text.front() == '-' && text[1] != '0') text.remove_prefix(1);
  return text;
}

/// The number of up to nine digits, which needs no regional settings.
std::optional<std::int32_t> shortWhole(std::string_view text) noexcept {
  const std::string_view digits = withoutMinus(text);
  if (digits.size() > 9 || !isPlainWhole(digits)) return std::nullopt;
  std::int32_t value = 0;
  for (const char c : digits) value = value * 10 + (c - '0');
  return digits.size() == text.size() ? value : -value;
}

/// Whether the text is the very form in which its number is written, so that it need not be read and written anew.
bool isCanonicalNumber(std::string_view text) noexcept {
  constexpr std::size_t significantDigits = 15;
  const std::string_view digits = withoutMinus(text);
  if (isPlainWhole(digits)) return digits.size() <= significantDigits;
  const std::size_t sign = digits.find(regionalSettings().decimal);
  if (sign == std::string_view::npos || digits.size() > significantDigits + 1) return false;
  const std::string_view decimals = digits.substr(sign + 1);
  return digits.front() != '0' && isPlainWhole(digits.substr(0, sign)) && !decimals.empty() && decimals.back() != '0' &&
         std::all_of(decimals.begin(), decimals.end(), isDigit);
}

ado::Cell wholeCell(std::int32_t value, FieldType type) noexcept {
  if (type == FieldType::Double) return ado::Cell::number(value);
  const bool isInteger =
      value >= std::numeric_limits<std::int16_t>::min() && value <= std::numeric_limits<std::int16_t>::max();
  return isInteger ? ado::Cell::integer(static_cast<std::int16_t>(value)) : ado::Cell::longInteger(value);
}

constexpr std::uint64_t eachByte = 0x0101010101010101U;

/// Eight characters as a number whose lowest byte is the first.
static_assert(std::endian::native == std::endian::little);
std::uint64_t eightFrom(const char* text) noexcept {
  std::uint64_t eight = 0;
  std::memcpy(&eight, text, sizeof eight);
  return eight;
}

/// The highest bit of every byte that is a separator, and no other bit.
constexpr std::uint64_t separatorsIn(std::uint64_t eight) noexcept {
  const std::uint64_t differences = eight ^ (eachByte * static_cast<unsigned char>(fieldSeparator));
  const std::uint64_t lowBitsSet = (differences & ~(eachByte << 7U)) + ~(eachByte << 7U);
  return ~(lowBitsSet | differences) & (eachByte << 7U);
}

/// How many bits separatorsIn gave: the product adds the eight of them up in its highest byte. A general count of bits
/// is a call of a function on processors of the oldest kind, for which the library is built.
constexpr std::size_t countOf(std::uint64_t separators) noexcept { return (separators >> 7U) * eachByte >> 56U; }

}  // namespace

void PackedText::cut(std::string_view text) {
  text_ = text;
  if (starts_.size() < text.size() + 2) starts_.resize(text.size() + 2);
  std::uint32_t* const starts = starts_.data();
  starts[0] = 0;
  std::size_t count = 1;
  std::size_t index = 0;
  for (; index + sizeof(std::uint64_t) <= text.size(); index += sizeof(std::uint64_t))
    for (std::uint64_t found = separatorsIn(eightFrom(text.data() + index)); found != 0; found &= found - 1)
      starts[count++] = static_cast<std::uint32_t>(index + static_cast<std::size_t>(std::countr_zero(found)) / 8 + 1);
  for (; index < text.size(); ++index)
    if (text[index] == fieldSeparator) starts[count++] = static_cast<std::uint32_t>(index + 1);
  starts[count] = static_cast<std::uint32_t>(text.size() + 1);
  count_ = text.empty() ? 0 : count;
}

std::size_t countFields(std::string_view text) noexcept {
  if (text.empty()) return 0;
  std::size_t count = 1;
  for (; text.size() >= sizeof(std::uint64_t); text.remove_prefix(sizeof(std::uint64_t)))
    count += countOf(separatorsIn(eightFrom(text.data())));
  return count + static_cast<std::size_t>(std::count(text.begin(), text.end(), fieldSeparator));
}

std::optional<std::string_view> sharedPart(std::string_view position, std::size_t part,
                                           std::size_t partCount) noexcept {
  if (position.empty()) return std::nullopt;
  for (std::size_t index = 0; index < part; ++index) {
    const std::size_t end = position.find(partSeparator);
    if (end == std::string_view::npos) return std::nullopt;
    position.remove_prefix(end + 1);
  }
  return part + 1 == partCount ? position : position.substr(0, position.find(partSeparator));
}

ado::Cell numericCell(std::string_view text, FieldType type) noexcept {
  if (text.empty()) return ado::Cell::null();
  if (const std::optional<std::int32_t> whole = shortWhole(text)) return wholeCell(*whole, type);
  const std::optional<double> number = tryNumber(text);
  return number ? numericCell(*number, type) : ado::Cell::text(text);
}

ado::Cell numericCell(double number, FieldType type) noexcept {
  const bool isWhole = number == std::trunc(number) && number >= std::numeric_limits<std::int32_t>::min() &&
                       number <= std::numeric_limits<std::int32_t>::max();
  if (!isWhole) return ado::Cell::number(number);
  return wholeCell(static_cast<std::int32_t>(number), type);
}

void appendNumberAnew(std::string& out, std::string_view text) {
  const bool isAsItIs = text.empty() || isCanonicalNumber(text);
  const std::optional<double> number = isAsItIs ? std::nullopt : tryNumber(text);
  if (number)
    appendCStr(out, *number);
  else
    out += text;
}

}  // namespace tarvola::store
