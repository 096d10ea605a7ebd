#include "tarvola/ado/sql/date_literal.h"

#include <array>
#include <charconv>
#include <optional>
#include <string>

#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::sql {
namespace {

[[noreturn]] void failNoDate(std::string_view text) {
  fail(ErrorNumber::SyntaxError, badDateLiteralText("#" + std::string(text) + "#"));
}

/// Three numbers with "/" or "-" between them, and how many digits the first has.
struct Parts {
  std::array<int, 3> numbers{};
  std::size_t firstDigits = 0;
};

std::optional<Parts> partsOf(std::string_view text) {
  Parts parts;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t place = 0; place < parts.numbers.size(); ++place) {
    if (place != 0 && (at == end || (*at != '/' && *at != '-'))) return std::nullopt;
    if (place != 0) ++at;
    if (at == end || *at == '-') return std::nullopt;
    const auto read = std::from_chars(at, end, parts.numbers[place]);
    if (read.ec != std::errc()) return std::nullopt;
    if (place == 0) parts.firstDigits = static_cast<std::size_t>(read.ptr - at);
    at = read.ptr;
  }
  return at == end ? std::optional(parts) : std::nullopt;
}

std::optional<Date> dayOf(int year, int month, int day) {
  if (year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  const Date date = Date::fromYmd(year, month, day);
  return date.month() == month && date.day() == day ? std::optional(date) : std::nullopt;
}

std::optional<Date> dayOf(std::string_view text) {
  const std::optional<Parts> parts = partsOf(text);
  if (!parts) return std::nullopt;
  const auto [first, second, third] = parts->numbers;
  if (parts->firstDigits >= 3) return dayOf(first, second, third);
  const std::optional<Date> monthFirst = dayOf(third, first, second);
  return monthFirst ? monthFirst : dayOf(third, second, first);
}

}  // namespace

Date dateOfLiteral(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  const std::size_t blank = trimmed.find(' ');
  const std::optional<Date> day = dayOf(trimmed.substr(0, blank));
  if (!day) {
    const std::optional<Date> other = tryDate(trimmed);
    if (!other) failNoDate(text);
    return *other;
  }
  if (blank == std::string_view::npos) return *day;
  const std::optional<Date> time = tryDate(Trim(trimmed.substr(blank)));
  if (!time || time->serial() < 0 || time->serial() >= 1) failNoDate(text);
  return Date::fromSerial(day->serial() < 0 ? day->serial() - time->serial() : day->serial() + time->serial());
}

}  // namespace tarvola::ado::sql
