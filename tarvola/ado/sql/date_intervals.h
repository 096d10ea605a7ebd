#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/runtime/date.h"

namespace tarvola::ado::sql {

// What DateAdd, DateDiff and DatePart do. An interval is named by one of "yyyy" (year), "q" (quarter), "m" (month), "y"
// (day of the year), "d" (day), "w" (weekday), "ww" (week), "h", "n" and "s", in any case; another name is error 5.

/// So many intervals later, earlier for a count below zero. The end of a month stays the end: one month behind 31
/// January is 28 February. Outside the years 100 to 9999: error 5.
Date addInterval(std::string_view interval, std::int32_t count, Date date);

/// How many borders of the interval lie between two moments: one year from 31 December to 1 January. A week begins on
/// Sunday, "w" counts whole weeks instead. Below zero if the second moment comes first. Beyond 32 bits: error 6.
std::int32_t intervalsBetween(std::string_view interval, Date from, Date to);

/// A part of a moment as a number: weekdays from 1 for Sunday, weeks from 1 for that of 1 January.
std::int32_t intervalOf(std::string_view interval, Date date);

}  // namespace tarvola::ado::sql
