#include <gtest/gtest.h>

#include <random>

#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

/// The texts that lack a year are read in 2015, which is no leap year.
class DateFromText : public testing::Test {
 protected:
  void SetUp() override { setToday(Date::fromYmd(2015, 6, 1)); }
  void TearDown() override { setToday(std::nullopt); }
};

struct DateRow {
  std::string_view text;
  std::string_view iso;
};

void expectDates(std::initializer_list<DateRow> rows) {
  for (const DateRow& row : rows) {
    SCOPED_TRACE(row.text);
    const auto date = tryDate(row.text);
    ASSERT_TRUE(date.has_value());
    const RegionalSettingsScope scope(RegionalSettings::indonesian());
    EXPECT_EQ(Format(*date, "yyyy-mm-dd"), row.iso);
  }
}

TEST_F(DateFromText, TriesDayMonthYearAndThenTheOtherOrders) {
  expectDates({
      {"31/12/2010", "2010-12-31"},
      {"03/04/2010", "2010-04-03"},
      {"3/4/2010", "2010-04-03"},
      {"12/31/2010", "2010-12-31"},
      {"2010-12-31", "2010-12-31"},
      {"2010/3/4", "2010-03-04"},
      {"2010-31-12", "2010-12-31"},
      {"31-12-2010", "2010-12-31"},
      {"31 12 2010", "2010-12-31"},
      {"31, 12, 2010", "2010-12-31"},
      {"31 / 12 / 2010", "2010-12-31"},
      {"  31/12/2010  ", "2010-12-31"},
      {"29/02/2012", "2012-02-29"},
      {"29/02/11", "2029-02-11"},
      {"30/02/10", "1930-02-10"},
      {"40/13/02", "1940-02-13"},
      {"01/01/0100", "0100-01-01"},
      {"31/12/9999", "9999-12-31"},
  });
}

TEST_F(DateFromText, WidensYearsOfTwoDigits) {
  expectDates({{"1/1/00", "2000-01-01"}, {"1/1/29", "2029-01-01"}, {"1/1/30", "1930-01-01"}, {"1/1/99", "1999-01-01"}});
}

TEST_F(DateFromText, ReadsNamesOfMonths) {
  expectDates({
      {"31 Desember 2010", "2010-12-31"},
      {"31-Des-2010", "2010-12-31"},
      {"31Desember2010", "2010-12-31"},
      {"desember 31, 2010", "2010-12-31"},
      {"2010 DES 31", "2010-12-31"},
      {"17 Agust 2010", "2010-08-17"},
      {"1 Nopember 10", "2010-11-01"},
      {"31 Des", "2015-12-31"},
      {"Des 31", "2015-12-31"},
      {"Des 2010", "2010-12-01"},
      {"2010 Des", "2010-12-01"},
  });
}

TEST_F(DateFromText, TakesTwoNumbersAsDayAndMonthOfThisYearOrMonthAndYear) {
  expectDates({{"31/12", "2015-12-31"},
               {"12/31", "2015-12-31"},
               {"12/2010", "2010-12-01"},
               {"2010/12", "2010-12-01"},
               {"3/4", "2015-04-03"},
               {"12/45", "1945-12-01"}});
}

TEST_F(DateFromText, FailsOnWhatIsNoDate) {
  constexpr std::string_view texts[] = {"",
                                        "   ",
                                        "  /  /    ",
                                        "00/00/0000",
                                        "13/13/2010",
                                        "31/02/2010",
                                        "29/02/2011",
                                        "20101231",
                                        "2010",
                                        "31",
                                        "abc",
                                        "31/12/",
                                        "/31/12",
                                        "31//12/2010",
                                        "31.12.2010",
                                        "31/12/2010/1",
                                        "31/12/20100",
                                        "31/02",
                                        "29/02",
                                        "0/1/2010",
                                        "1/0/2010",
                                        "32/1/2010",
                                        "31/12/0000",
                                        "31/12/0099",
                                        "31 Foo 2010",
                                        "Des",
                                        "Des Nop 2010",
                                        "31/12/2010 25:00",
                                        "31/12/2010 12:60",
                                        "31/12/2010 12:30:61",
                                        "31/12/2010 x",
                                        "31/12/2010 12:30 12:31",
                                        "12:30:45:10",
                                        "12:",
                                        ":30",
                                        "13:00 PM",
                                        "PM",
                                        "31/12/2010 PM",
                                        "1-1-2010-",
                                        "31\t12\t2010",
                                        "12/2010/05",
                                        "1/1/-2010",
                                        "31/12/2010\n"};
  for (const std::string_view text : texts) {
    SCOPED_TRACE(text);
    EXPECT_EQ(tryDate(text), std::nullopt);
    EXPECT_EQ(failureOf([&] { DateValue(text); }), 13);
  }
}

TEST_F(DateFromText, ReadsTimesWithColonOrPoint) {
  struct TimeRow {
    std::string_view text;
    double serial;
  };
  constexpr TimeRow rows[] = {
      {"2.5", (2 * 60 + 5) / 1440.0},   {"12:30", 0.5 + 30 / 1440.0},   {"6:00:00", 0.25},
      {"31/12/2010 6:00", 40543.25},    {"6:00 31/12/2010", 40543.25},  {"31/12/2010 6.00.00", 40543.25},
      {"31/12/2010 6:00 PM", 40543.75}, {"31/12/2010 12:00 am", 40543}, {"12:00PM", 0.5},
      {"29/12/1899 6:00", -1.25},
  };
  for (const TimeRow& row : rows) {
    SCOPED_TRACE(row.text);
    const auto date = tryDate(row.text);
    ASSERT_TRUE(date.has_value());
    EXPECT_DOUBLE_EQ(date->serial(), row.serial);
  }
}

TEST_F(DateFromText, DropsTheTimeInDateValue) {
  EXPECT_EQ(DateValue("31/12/2010 6:00"), Date::fromYmd(2010, 12, 31));
  EXPECT_EQ(DateValue("29/12/1899 6:00"), Date::fromSerial(-1));
  EXPECT_EQ(DateValue("12:30"), Date());
}

TEST_F(DateFromText, TakesAPointBetweenDatePartsOnlyIfItIsTheSettingsSeparator) {
  RegionalSettings pointed = RegionalSettings::indonesian();
  pointed.dateSeparator = '.';
  const RegionalSettingsScope scope(pointed);
  expectDates({{"31.12.2010", "2010-12-31"}});
}

TEST_F(DateFromText, FollowsTheOrderOfOtherSettings) {
  RegionalSettings settings = RegionalSettings::unitedStates();
  const RegionalSettingsScope scope(settings);
  expectDates({{"03/04/2010", "2010-03-04"},
               {"31/12/2010", "2010-12-31"},
               {"14 2 3", "2014-02-03"},
               {"3/4", "2015-03-04"},
               {"March 4, 2010", "2010-03-04"}});
  settings.dateOrder = RegionalSettings::DateOrder::YearMonthDay;
  setRegionalSettings(settings);
  expectDates({{"10/11/12", "2010-11-12"}});
}

TEST_F(DateFromText, IsReadBySerialNumberInCDateOnly) {
  EXPECT_EQ(CDate("2010"), Date::fromYmd(1905, 7, 2));
  EXPECT_EQ(CDate("40543"), Date::fromYmd(2010, 12, 31));
  EXPECT_EQ(CDate("31/12/2010"), Date::fromYmd(2010, 12, 31));
  EXPECT_EQ(CDate(40543.0), Date::fromYmd(2010, 12, 31));
  EXPECT_EQ(CDate(Variant()), Date());
  EXPECT_EQ(CDate(Date::fromSerial(5)), Date::fromSerial(5));
  EXPECT_EQ(failureOf([] { CDate("20101231"); }), 6);
  EXPECT_EQ(failureOf([] { CDate("31/02/2010"); }), 13);
  EXPECT_EQ(failureOf([] { CDate(""); }), 13);
  EXPECT_EQ(failureOf([] { CDate(Variant::null()); }), 94);
}

TEST_F(DateFromText, ComesBackFromItsTextForEveryDay) {
  for (int serial = -657434; serial <= 2958465; serial += 23) {
    if (serial == 0) continue;
    const Date date = Date::fromSerial(serial);
    ASSERT_EQ(tryDate(CStr(date)), date) << serial;
    ASSERT_EQ(tryDate(Format(date, "d mmmm yyyy")), date) << serial;
  }
}

TEST_F(DateFromText, SurvivesRandomBytes) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  constexpr std::string_view alphabet = "0123456789/-:., AMPMDesJan\xC3";
  int dates = 0;
  for (int i = 0; i < 100000; ++i) {
    std::string text(random() % 14, '\0');
    for (char& c : text) c = i % 2 == 0 ? alphabet[random() % alphabet.size()] : static_cast<char>(random());
    const auto date = tryDate(text);
    dates += date.has_value();
    const std::int32_t failure = failureOf([&] { DateValue(text); });
    ASSERT_EQ(failure, date ? 0 : 13) << text;
  }
  EXPECT_GT(dates, 100);
}

}  // namespace
}  // namespace tarvola
