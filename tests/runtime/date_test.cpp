#include "tarvola/runtime/date.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

struct CalendarRow {
  int year;
  int month;
  int day;
  double serial;
};

TEST(Date, CountsDaysFromThirtiethDecember1899) {
  constexpr CalendarRow rows[] = {
      {1899, 12, 30, 0},    {1899, 12, 31, 1},       {1899, 12, 29, -1},   {1900, 1, 1, 2},
      {1900, 2, 28, 60},    {1900, 3, 1, 61},        {2000, 2, 29, 36585}, {2010, 12, 31, 40543},
      {100, 1, 1, -657434}, {9999, 12, 31, 2958465}, {1905, 7, 2, 2010},
  };
  for (const CalendarRow& row : rows) {
    const Date date = Date::fromYmd(row.year, row.month, row.day);
    EXPECT_EQ(date.serial(), row.serial);
    EXPECT_EQ(date.year(), row.year);
    EXPECT_EQ(date.month(), row.month);
    EXPECT_EQ(date.day(), row.day);
  }
}

TEST(Date, RollsMonthsAndDaysOver) {
  EXPECT_EQ(Date::fromYmd(2010, 13, 1), Date::fromYmd(2011, 1, 1));
  EXPECT_EQ(Date::fromYmd(2010, 0, 1), Date::fromYmd(2009, 12, 1));
  EXPECT_EQ(Date::fromYmd(2010, -11, 1), Date::fromYmd(2009, 1, 1));
  EXPECT_EQ(Date::fromYmd(2010, 3, 0), Date::fromYmd(2010, 2, 28));
  EXPECT_EQ(Date::fromYmd(2010, 1, 366), Date::fromYmd(2011, 1, 1));
  EXPECT_EQ(Date::fromYmd(2010, 2, 31), Date::fromYmd(2010, 3, 3));
}

TEST(Date, WidensYearsOfTwoDigits) {
  EXPECT_EQ(Date::fromYmd(0, 1, 1).year(), 2000);
  EXPECT_EQ(Date::fromYmd(29, 1, 1).year(), 2029);
  EXPECT_EQ(Date::fromYmd(30, 1, 1).year(), 1930);
  EXPECT_EQ(Date::fromYmd(99, 1, 1).year(), 1999);
  EXPECT_EQ(Date::fromYmd(100, 1, 1).year(), 100);
}

TEST(Date, OverflowsOutsideTheCalendar) {
  constexpr int huge = std::numeric_limits<int>::max();
  constexpr int tiny = std::numeric_limits<int>::min();
  EXPECT_EQ(failureOf([] { Date::fromYmd(10000, 1, 1); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromYmd(100, 1, 0); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromYmd(9999, 12, 32); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromYmd(-1, 1, 1); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromYmd(huge, huge, huge); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromYmd(tiny, tiny, tiny); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromSerial(2958466); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromSerial(-657435); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromSerial(std::nan("")); }), 6);
  EXPECT_EQ(failureOf([] { Date::fromSerial(std::numeric_limits<double>::infinity()); }), 6);
}

TEST(Date, CountsTheTimeForwardBeforeDayZeroAsWell) {
  const Date date = Date::fromSerial(-1.25);
  EXPECT_EQ(date.day(), 29);
  EXPECT_EQ(date.hour(), 6);
  EXPECT_EQ(date.minute(), 0);
  EXPECT_TRUE(date.hasTime());
  EXPECT_EQ(date.dayOnly().serial(), -1);
}

TEST(Date, TakesItsTimeToTheNearestSecond) {
  const Date date = Date::fromSerial(40543 + (23.0 * 3600 + 59 * 60 + 58) / 86400);
  EXPECT_EQ(date.hour(), 23);
  EXPECT_EQ(date.minute(), 59);
  EXPECT_EQ(date.second(), 58);
  EXPECT_FALSE(Date::fromSerial(40543.0000001).hasTime());
}

TEST(Date, GivesATimeThatRoundsUpToMidnightToTheNextDay) {
  const Date date = Date::fromSerial(40542.9999999);
  EXPECT_EQ(date.day(), 31);
  EXPECT_EQ(date.dayOnly().serial(), 40543);
  EXPECT_FALSE(date.hasTime());
  const Date last = Date::fromSerial(2958465.9999999);
  EXPECT_EQ(last.year(), 9999);
  EXPECT_EQ(last.second(), 59);
}

TEST(Date, ComesBackFromYearMonthAndDayForEveryDay) {
  for (int serial = -657434; serial <= 2958465; serial += 17) {
    const Date date = Date::fromSerial(serial);
    ASSERT_EQ(Date::fromYmd(date.year(), date.month(), date.day()), date) << serial;
  }
}

TEST(DateText, IsTheShortDateAndTheTimeIfThereIsOne) {
  EXPECT_EQ(CStr(Date::fromYmd(2010, 12, 31)), "31/12/2010");
  EXPECT_EQ(CStr(Date::fromSerial(40543.25)), "31/12/2010 6:00:00");
  EXPECT_EQ(CStr(Date()), "0:00:00");
  EXPECT_EQ(CStr(Date::fromSerial(0.75)), "18:00:00");
  EXPECT_EQ(CStr(Date::fromYmd(100, 1, 2)), "02/01/0100");
}

TEST(DateText, FollowsTheOrderOfTheSettings) {
  RegionalSettings settings = RegionalSettings::unitedStates();
  const RegionalSettingsScope scope(settings);
  EXPECT_EQ(CStr(Date::fromYmd(2010, 12, 31)), "12/31/2010");
  settings.dateOrder = RegionalSettings::DateOrder::YearMonthDay;
  settings.dateSeparator = '-';
  setRegionalSettings(settings);
  EXPECT_EQ(CStr(Date::fromYmd(2010, 12, 31)), "2010-12-31");
}

TEST(Clock, StandsStillAtTheDayThatIsSet) {
  setToday(Date::fromSerial(40543.6));
  EXPECT_EQ(today(), Date::fromYmd(2010, 12, 31));
  setToday(std::nullopt);
  EXPECT_GT(today(), Date::fromYmd(2020, 1, 1));
  EXPECT_FALSE(today().hasTime());
}

}  // namespace
}  // namespace tarvola
