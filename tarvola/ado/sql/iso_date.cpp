#include <array>
#include <charconv>
#include <cstdio>

#include "tarvola/ado/sql/literals.h"

namespace tarvola::ado::sql {
namespace {

/// Digits of a fixed place, -1 if something else stands there.
int digitsAt(std::string_view text, std::size_t from, std::size_t count) noexcept {
  int value = 0;
  for (const char digit : text.substr(from, count)) {
    if (digit < '0' || digit > '9') return -1;
    value = value * 10 + (digit - '0');
  }
  return value;
}

bool isLeapYear(int year) noexcept { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int daysOfMonth(int year, int month) noexcept {
  constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeapYear(year) ? 29 : days[static_cast<std::size_t>(month - 1)];
}

std::optional<Date> readDay(std::string_view text) noexcept {
  if (text[4] != '-' || text[7] != '-') return std::nullopt;
  const int year = digitsAt(text, 0, 4);
  const int month = digitsAt(text, 5, 2);
  const int day = digitsAt(text, 8, 2);
  const bool isDay = year >= 100 && month >= 1 && month <= 12 && day >= 1 && day <= daysOfMonth(year, month);
  return isDay ? std::optional(Date::fromYmd(year, month, day)) : std::nullopt;
}

/// Seconds since midnight, -1 if the text is no time.
int readTime(std::string_view text) noexcept {
  if (text[2] != ':' || text[5] != ':') return -1;
  const int hour = digitsAt(text, 0, 2);
  const int minute = digitsAt(text, 3, 2);
  const int second = digitsAt(text, 6, 2);
  const bool isTime = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  return isTime ? (hour * 60 + minute) * 60 + second : -1;
}

}  // namespace

std::string isoDate(Date date) {
  std::string text;
  appendIsoDate(text, date);
  return text;
}

void appendIsoDate(std::string& out, Date date) {
  std::array<char, 40> form{};
  const int length =
      date.hasTime() ? std::snprintf(form.data(), form.size(), "%04d-%02d-%02d %02d:%02d:%02d", date.year(),
                                     date.month(), date.day(), date.hour(), date.minute(), date.second())
                     : std::snprintf(form.data(), form.size(), "%04d-%02d-%02d", date.year(), date.month(), date.day());
  out.append(form.data(), static_cast<std::size_t>(length));
}

std::optional<Date> readIsoDate(std::string_view text) noexcept {
  constexpr std::size_t dayLength = 10;
  constexpr std::size_t fullLength = 19;
  if (text.size() != dayLength && text.size() != fullLength) return std::nullopt;
  const std::optional<Date> day = readDay(text);
  if (!day || text.size() == dayLength) return day;
  const int seconds = text[dayLength] == ' ' ? readTime(text.substr(dayLength + 1)) : -1;
  if (seconds < 0) return std::nullopt;
  // Before 30 December 1899 the time of day still counts forward, so it is taken away from the serial number.
  const double time = seconds / 86400.0;
  return Date::fromSerial(day->serial() < 0 ? day->serial() - time : day->serial() + time);
}

}  // namespace tarvola::ado::sql
