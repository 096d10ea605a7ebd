#include "tarvola/runtime/date.h"

#include <chrono>
#include <cmath>

#include "tarvola/runtime/calendar.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

constexpr std::chrono::sys_days dayZero = std::chrono::year{1899} / std::chrono::December / 30;

std::int64_t serialOfFirst(std::int64_t year, unsigned month) noexcept {
  const std::chrono::year_month_day first{std::chrono::year{static_cast<int>(year)}, std::chrono::month{month},
                                          std::chrono::day{1}};
  return (std::chrono::sys_days{first} - dayZero).count();
}

}  // namespace

namespace calendar {

Moment momentOf(Date date) noexcept {
  const double whole = std::trunc(date.serial());
  const int day = static_cast<int>(whole);
  if (whole == date.serial()) return {day, 0};
  const auto second = static_cast<int>(std::lround(std::fabs(date.serial() - whole) * secondsPerDay));
  if (second < secondsPerDay) return {day, second};
  // Midnight after the last day of the calendar has no day to belong to.
  return day == lastSerial ? Moment{day, secondsPerDay - 1} : Moment{day + 1, 0};
}

Day dayOf(int serialDay) noexcept {
  const std::chrono::year_month_day day{dayZero + std::chrono::days{serialDay}};
  return {static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day()))};
}

int daysInMonth(int year, int month) noexcept {
  const std::chrono::year_month_day_last last{
      std::chrono::year{year}, std::chrono::month_day_last{std::chrono::month{static_cast<unsigned>(month)}}};
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

int dayOfYear(Date date) noexcept {
  const int serial = momentOf(date).day;
  return serial - static_cast<int>(serialOfFirst(dayOf(serial).year, 1)) + 1;
}

int weekday(Date date) noexcept {
  const std::chrono::weekday day{dayZero + std::chrono::days{momentOf(date).day}};
  return static_cast<int>(day.c_encoding()) + 1;
}

}  // namespace calendar

bool Date::canHold(double days) noexcept {
  const double whole = std::trunc(days);
  return whole >= calendar::firstSerial && whole <= calendar::lastSerial;
}

Date Date::fromSerial(double days) {
  if (!canHold(days)) fail(ErrorNumber::Overflow);
  return Date(days);
}

Date Date::fromYmd(int year, int month, int day) {
  const std::int64_t months = std::int64_t{calendar::fullYear(year)} * 12 + (std::int64_t{month} - 1);
  const std::int64_t rolledYear = months >= 0 ? months / 12 : -1;
  // A year outside this span stays outside the calendar whatever the day adds, or could not be reckoned with.
  constexpr std::int64_t beyond = 30000;
  if (rolledYear < 0 || rolledYear > beyond) fail(ErrorNumber::Overflow);
  const auto rolledMonth = static_cast<unsigned>(months % 12 + 1);
  return fromSerial(static_cast<double>(serialOfFirst(rolledYear, rolledMonth) + day - 1));
}

int Date::year() const noexcept { return calendar::dayOf(*this).year; }
int Date::month() const noexcept { return calendar::dayOf(*this).month; }
int Date::day() const noexcept { return calendar::dayOf(*this).day; }
int Date::hour() const noexcept { return calendar::momentOf(*this).second / 3600; }
int Date::minute() const noexcept { return calendar::momentOf(*this).second / 60 % 60; }
int Date::second() const noexcept { return calendar::momentOf(*this).second % 60; }

Date Date::dayOnly() const noexcept { return Date(calendar::momentOf(*this).day); }
bool Date::hasTime() const noexcept { return calendar::momentOf(*this).second != 0; }

}  // namespace tarvola
