#include "tarvola/ado/sql/date_intervals.h"

#include <algorithm>
#include <array>
#include <limits>

#include "tarvola/ado/sql/parser.h"
#include "tarvola/runtime/calendar.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::sql {
namespace {

using calendar::Moment;

constexpr std::int64_t secondsPerDay = calendar::secondsPerDay;

constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t by) {
  return value / by - (value % by < 0 ? 1 : 0);
}

std::int64_t secondsOf(Moment moment) { return moment.day * secondsPerDay + moment.second; }

std::int64_t monthsOf(Date date) {
  const calendar::Day day = calendar::dayOf(date);
  return std::int64_t{12} * day.year + day.month - 1;
}

/// The moment so many seconds behind midnight of day 0. Before that day the fraction counts forward from midnight.
Date fromSeconds(std::int64_t seconds) {
  const std::int64_t day = floorDivide(seconds, secondsPerDay);
  const double time = static_cast<double>(seconds - day * secondsPerDay) / static_cast<double>(secondsPerDay);
  const bool canBeWritten = day >= calendar::firstSerial && day <= calendar::lastSerial;
  if (!canBeWritten) fail(ErrorNumber::InvalidProcedureCall);
  return Date::fromSerial(static_cast<double>(day) + (day < 0 ? -time : time));
}

Date addMonths(Date date, std::int64_t count) {
  const std::int64_t months = monthsOf(date) + count;
  const std::int64_t wideYear = floorDivide(months, 12);
  if (wideYear < calendar::firstYear || wideYear > calendar::lastYear) fail(ErrorNumber::InvalidProcedureCall);
  const int year = static_cast<int>(wideYear);
  const int month = static_cast<int>(months - wideYear * 12) + 1;
  const int day = std::min(date.day(), calendar::daysInMonth(year, month));
  const Moment target = calendar::momentOf(Date::fromYmd(year, month, day));
  return fromSeconds(secondsOf({.day = target.day, .second = calendar::momentOf(date).second}));
}

// Sundays are the days 1, 8, 15 ...
std::int64_t weekOf(Moment moment) { return floorDivide(std::int64_t{moment.day} - 1, 7); }

std::int32_t weekOfYear(Date date) {
  const int dayOfYear = calendar::dayOfYear(date);
  const int firstWeekday = calendar::weekday(Date::fromYmd(date.year(), 1, 1));
  return (dayOfYear + firstWeekday - 2) / 7 + 1;
}

struct Interval {
  std::string_view name;
  /// What one of it is when it is added: so many months, or else so many seconds.
  std::int64_t months = 0;
  std::int64_t seconds = 0;
  std::int64_t (*between)(Date from, Date to);
  std::int32_t (*part)(Date date);
};

/// Borders of a unit of so many months or seconds between two moments.
template <std::int64_t unit>
std::int64_t monthBorders(Date from, Date to) {
  return floorDivide(monthsOf(to), unit) - floorDivide(monthsOf(from), unit);
}
template <std::int64_t unit>
std::int64_t secondBorders(Date from, Date to) {
  return floorDivide(secondsOf(calendar::momentOf(to)), unit) - floorDivide(secondsOf(calendar::momentOf(from)), unit);
}

std::int64_t weeksWithin(Date from, Date to) { return secondBorders<secondsPerDay>(from, to) / 7; }
std::int64_t weekBorders(Date from, Date to) {
  return weekOf(calendar::momentOf(to)) - weekOf(calendar::momentOf(from));
}

std::int32_t yearOf(Date date) { return date.year(); }
std::int32_t quarterOf(Date date) { return (date.month() + 2) / 3; }
std::int32_t monthOf(Date date) { return date.month(); }
std::int32_t dayOf(Date date) { return date.day(); }
std::int32_t hourOf(Date date) { return date.hour(); }
std::int32_t minuteOf(Date date) { return date.minute(); }
std::int32_t secondOf(Date date) { return date.second(); }

constexpr auto intervals = std::to_array<Interval>({
    {.name = "yyyy", .months = 12, .between = monthBorders<12>, .part = yearOf},
    {.name = "q", .months = 3, .between = monthBorders<3>, .part = quarterOf},
    {.name = "m", .months = 1, .between = monthBorders<1>, .part = monthOf},
    {.name = "y", .seconds = secondsPerDay, .between = secondBorders<secondsPerDay>, .part = calendar::dayOfYear},
    {.name = "d", .seconds = secondsPerDay, .between = secondBorders<secondsPerDay>, .part = dayOf},
    {.name = "w", .seconds = secondsPerDay, .between = weeksWithin, .part = calendar::weekday},
    {.name = "ww", .seconds = 7 * secondsPerDay, .between = weekBorders, .part = weekOfYear},
    {.name = "h", .seconds = 3600, .between = secondBorders<3600>, .part = hourOf},
    {.name = "n", .seconds = 60, .between = secondBorders<60>, .part = minuteOf},
    {.name = "s", .seconds = 1, .between = secondBorders<1>, .part = secondOf},
});

const Interval& intervalNamed(std::string_view name) {
  const auto* const found =
      std::ranges::find_if(intervals, [name](const Interval& known) { return sameName(known.name, name); });
  if (found == intervals.end()) fail(ErrorNumber::InvalidProcedureCall);
  return *found;
}

}  // namespace

Date addInterval(std::string_view interval, std::int32_t count, Date date) {
  const Interval& unit = intervalNamed(interval);
  if (unit.months != 0) return addMonths(date, unit.months * count);
  return fromSeconds(secondsOf(calendar::momentOf(date)) + unit.seconds * count);
}

std::int32_t intervalsBetween(std::string_view interval, Date from, Date to) {
  const std::int64_t count = intervalNamed(interval).between(from, to);
  using Limits = std::numeric_limits<std::int32_t>;
  if (count < Limits::min() || count > Limits::max()) fail(ErrorNumber::Overflow);
  return static_cast<std::int32_t>(count);
}

std::int32_t intervalOf(std::string_view interval, Date date) { return intervalNamed(interval).part(date); }

}  // namespace tarvola::ado::sql
