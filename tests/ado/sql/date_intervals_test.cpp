#include "tarvola/ado/sql/date_intervals.h"

#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tests/runtime/failures.h"

namespace tarvola::ado::sql {
namespace {

Date moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  const double days = Date::fromYmd(year, month, day).serial();
  const double time = (hour * 3600 + minute * 60 + second) / 86400.0;
  return Date::fromSerial(days < 0 ? days - time : days + time);
}

struct AddedRow {
  std::string_view interval;
  std::int32_t count;
  Date from;
  Date to;
};

TEST(DateIntervals, AreAddedByTheCalendar) {
  const AddedRow rows[] = {
      {"d", 1, moment(2009, 1, 31), moment(2009, 2, 1)},
      {"y", -31, moment(2009, 1, 31), moment(2008, 12, 31)},
      {"w", 3, moment(2009, 1, 31), moment(2009, 2, 3)},
      {"ww", 2, moment(2009, 1, 31), moment(2009, 2, 14)},
      {"m", 1, moment(2009, 1, 31), moment(2009, 2, 28)},
      {"m", 1, moment(2008, 1, 31), moment(2008, 2, 29)},
      {"M", -1, moment(2009, 3, 31, 13, 45), moment(2009, 2, 28, 13, 45)},
      {"m", 13, moment(2009, 12, 15), moment(2011, 1, 15)},
      {"m", -12, moment(2009, 1, 15), moment(2008, 1, 15)},
      {"q", 1, moment(2009, 11, 30), moment(2010, 2, 28)},
      {"yyyy", 1, moment(2008, 2, 29), moment(2009, 2, 28)},
      {"YYYY", -1909, moment(2009, 1, 1), moment(100, 1, 1)},
      {"h", 25, moment(2009, 1, 31, 23), moment(2009, 2, 2, 0)},
      {"n", -1, moment(2009, 1, 1), moment(2008, 12, 31, 23, 59)},
      {"s", 86399, moment(2009, 1, 1), moment(2009, 1, 1, 23, 59, 59)},
      // Before 30 December 1899 the time of a day counts forward all the same.
      {"h", 6, moment(1899, 12, 28, 12), moment(1899, 12, 28, 18)},
      {"h", -6, moment(1899, 12, 30), moment(1899, 12, 29, 18)},
  };
  for (const AddedRow& row : rows)
    EXPECT_DOUBLE_EQ(addInterval(row.interval, row.count, row.from).serial(), row.to.serial())
        << row.interval << " " << row.count;
}

struct BetweenRow {
  std::string_view interval;
  Date from;
  Date to;
  std::int32_t count;
};

TEST(DateIntervals, AreCountedByTheirBorders) {
  const BetweenRow rows[] = {
      {"yyyy", moment(2008, 12, 31), moment(2009, 1, 1), 1},
      {"yyyy", moment(2009, 1, 1), moment(2009, 12, 31), 0},
      {"q", moment(2009, 3, 31), moment(2009, 4, 1), 1},
      {"q", moment(2009, 1, 1), moment(2010, 1, 1), 4},
      {"m", moment(2009, 1, 31), moment(2009, 2, 1), 1},
      {"m", moment(2009, 2, 1), moment(2008, 12, 31), -2},
      {"d", moment(2009, 1, 31, 23, 59), moment(2009, 2, 1), 1},
      {"y", moment(2009, 2, 1), moment(2009, 1, 31), -1},
      // 1 February 2009 was a Sunday.
      {"ww", moment(2009, 1, 31), moment(2009, 2, 1), 1},
      {"ww", moment(2009, 2, 1), moment(2009, 2, 7), 0},
      {"ww", moment(2009, 2, 8), moment(2009, 1, 31), -2},
      {"w", moment(2009, 1, 31), moment(2009, 2, 6), 0},
      {"w", moment(2009, 1, 31), moment(2009, 2, 7), 1},
      {"w", moment(2009, 2, 7), moment(2009, 1, 25), -1},
      {"h", moment(2009, 1, 1, 0, 59), moment(2009, 1, 1, 1, 0), 1},
      {"n", moment(2009, 1, 1), moment(2009, 1, 2), 1440},
      {"s", moment(2009, 1, 2), moment(2009, 1, 1, 23, 59, 50), -10},
  };
  for (const BetweenRow& row : rows)
    EXPECT_EQ(intervalsBetween(row.interval, row.from, row.to), row.count) << row.interval;
}

TEST(DateIntervals, AreThePartsOfAMoment) {
  const Date date = moment(2009, 12, 31, 13, 45, 6);
  const std::pair<std::string_view, std::int32_t> parts[] = {{"yyyy", 2009}, {"q", 4},   {"m", 12}, {"y", 365},
                                                             {"d", 31},      {"w", 5},   {"h", 13}, {"n", 45},
                                                             {"s", 6},       {"ww", 53}, {"Q", 4}};
  for (const auto& [interval, part] : parts) EXPECT_EQ(intervalOf(interval, date), part) << interval;
  // 1 January 2009 was a Thursday, so its week ended with the 3rd.
  EXPECT_EQ(intervalOf("ww", moment(2009, 1, 3)), 1);
  EXPECT_EQ(intervalOf("ww", moment(2009, 1, 4)), 2);
}

TEST(DateIntervals, FailForAnUnknownNameAndBeyondTheCalendar) {
  const Date date = moment(2009, 1, 1);
  for (const char* name : {"", "x", "yy", "mm", "hour"}) {
    EXPECT_EQ(failureOf([&] { addInterval(name, 1, date); }), 5) << name;
    EXPECT_EQ(failureOf([&] { intervalsBetween(name, date, date); }), 5) << name;
    EXPECT_EQ(failureOf([&] { intervalOf(name, date); }), 5) << name;
  }
  for (const char* name : {"yyyy", "q", "m", "ww", "d"}) {
    EXPECT_EQ(failureOf([&] { addInterval(name, 2147483647, date); }), 5) << name;
    EXPECT_EQ(failureOf([&] { addInterval(name, -2147483647 - 1, date); }), 5) << name;
  }
  EXPECT_EQ(failureOf([&] { addInterval("s", 1, moment(9999, 12, 31, 23, 59, 59)); }), 5);
  EXPECT_EQ(failureOf([&] { intervalsBetween("s", moment(1900, 1, 1), date); }), 6);
}

}  // namespace
}  // namespace tarvola::ado::sql
