#pragma once

#include "tarvola/runtime/date.h"

namespace tarvola::calendar {

// The calendar behind Date: serial numbers taken apart, and the rules of the year.

/// Day 1 of the serial numbers is 31 December 1899; years 100 to 9999 can be written.
inline constexpr int firstSerial = -657434;
inline constexpr int lastSerial = 2958465;
inline constexpr int firstYear = 100;
inline constexpr int lastYear = 9999;
inline constexpr int secondsPerDay = 86400;

struct Day {
  int year;
  int month;
  int day;
};

/// A serial number as whole day and whole second. A time that rounds up to midnight belongs to the next day.
struct Moment {
  int day;
  int second;
};

Moment momentOf(Date date) noexcept;
Day dayOf(int serialDay) noexcept;
inline Day dayOf(Date date) noexcept { return dayOf(momentOf(date).day); }

/// 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999; other years are meant as they stand.
constexpr int fullYear(int year) noexcept {
  if (year < 0 || year > 99) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

int daysInMonth(int year, int month) noexcept;
/// 1 for 1 January.
int dayOfYear(Date date) noexcept;
/// 1 for Sunday to 7 for Saturday.
int weekday(Date date) noexcept;

}  // namespace tarvola::calendar
