// Format: chooses between number and date patterns, and reads a text before it is formatted.

#include <array>

#include "tarvola/runtime/date_format.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/format_pattern.h"
#include "tarvola/runtime/number_format.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

struct NamedFormat {
  std::string_view name;
  std::string_view pattern;
};

// "General Number" has no pattern: it is the text form of the number.
constexpr std::array namedFormats = {
    NamedFormat{.name = "General Number", .pattern = ""},
    NamedFormat{.name = "Standard", .pattern = "#,##0.00"},
    NamedFormat{.name = "Fixed", .pattern = "0.00"},
    NamedFormat{.name = "Percent", .pattern = "0.00%"},
};

/// Longer patterns are cut, without a word.
constexpr std::size_t longestPattern = 257;

std::string_view patternOf(std::string_view format) noexcept {
  for (const NamedFormat& named : namedFormats) {
    if (equalsIgnoreCase(named.name, format)) return named.pattern;
  }
  return format.substr(0, longestPattern);
}

std::string formatAsNumber(const Variant& value, std::string_view pattern) {
  if (!value.isString()) return formatNumber(CDbl(value), pattern);
  const std::optional<double> number = tryNumber(value.string());
  return number ? formatNumber(*number, pattern) : value.string();
}

/// A text that is no date may still be the serial number of one: "40543" is 31/12/2010.
std::optional<Date> dateOf(const std::string& text) {
  if (const auto date = tryDate(text)) return date;
  const std::optional<double> serial = tryNumber(text);
  if (!serial || !Date::canHold(*serial)) return std::nullopt;
  return Date::fromSerial(*serial);
}

std::string formatAsDate(const Variant& value, std::string_view pattern) {
  // Never given a value is no day at all, where 0 would print 30/12/1899.
  if (value.isEmpty()) return {};
  if (!value.isString()) return formatDatePattern(CDate(value), pattern);
  const std::optional<Date> date = dateOf(value.string());
  return date ? formatDatePattern(*date, pattern) : value.string();
}

/// Without a pattern: the text form, a number in a text brought into its usual form.
std::string formatGeneral(const Variant& value) {
  if (!value.isString()) return CStr(value);
  const std::optional<double> number = tryNumber(value.string());
  return number ? CStr(*number) : value.string();
}

}  // namespace

std::string Format(const Variant& value, std::string_view pattern) {
  const std::string_view chosen = patternOf(pattern);
  if (value.isNull()) return formatNull(chosen);
  if (chosen.empty()) return formatGeneral(value);
  return isDatePattern(chosen) ? formatAsDate(value, chosen) : formatAsNumber(value, chosen);
}

}  // namespace tarvola
