#include "tarvola/ado/sql/literals.h"

#include <gtest/gtest.h>

#include <limits>

#include "tarvola/runtime/regional_settings.h"
#include "tests/runtime/failures.h"

namespace tarvola::ado::sql {
namespace {

Variant converted(LiteralKind kind, std::string_view text, Conversion conversion) {
  return convertLiteral({kind, text}, conversion);
}

Date moment(int year, int month, int day, double time = 0) {
  return Date::fromSerial(Date::fromYmd(year, month, day).serial() + time);
}

struct ConversionCase {
  LiteralKind kind;
  std::string_view text;
  Conversion conversion;
  Variant value;
};

TEST(Literals, BecomeWhatTheirPlaceAsksFor) {
  using enum LiteralKind;
  const ConversionCase rows[] = {
      {Text, "x", Conversion::Text, "x"},
      {Text, "it''s ''so''", Conversion::Text, "it's 'so'"},
      {Text, "", Conversion::Text, ""},
      {Number, "5", Conversion::Number, 5},
      {Number, "1.5", Conversion::Number, 1.5},
      {Number, ".5", Conversion::Number, 0.5},
      {Number, "5.", Conversion::Number, 5.0},
      {Number, "1E+15", Conversion::Number, 1e15},
      {Number, "3000000000", Conversion::Number, 3e9},
      {Text, "1,5", Conversion::TextToNumber, 1.5},
      {Text, "1.500", Conversion::TextToNumber, 1500.0},
      {Text, "2,5", Conversion::TextToInteger, 2},
      {Text, "3,5", Conversion::TextToInteger, 4},
      {Text, "-2,5", Conversion::TextToInteger, -2},
      {Number, "2.5", Conversion::NumberToInteger, 2},
      {Number, "32767.4", Conversion::NumberToInteger, 32767},
      {Number, "32768", Conversion::NegatedToInteger, -32768},
      {Number, "2.5", Conversion::NegatedToInteger, -2},
      {Text, "-32768", Conversion::TextToInteger, -32768},
      {Number, "2147483647", Conversion::NumberToLong, 2147483647},
      {Number, "2147483648", Conversion::NegatedToLong, std::numeric_limits<std::int32_t>::min()},
      {Text, "32768", Conversion::TextToLong, 32768},
      {Date, "1989-09-16", Conversion::DateToInteger, 32767},
      {Date, "1989-09-17 18:00:00", Conversion::DateToLong, 32769},
      {Number, "0118", Conversion::NumberToText, "118"},
      {Number, "1.5", Conversion::NumberToText, "1,5"},
      {Text, "31/12/2009", Conversion::TextToDate, moment(2009, 12, 31)},
      {Text, "2009-12-31", Conversion::TextToDate, moment(2009, 12, 31)},
      {Text, "31/12/2009 12:00:00", Conversion::TextToDate, moment(2009, 12, 31, 0.5)},
      {Text, "31/12/2009 12:00:00", Conversion::TextToDay, moment(2009, 12, 31)},
      {Text, "03/04/2010", Conversion::TextToDay, moment(2010, 4, 3)},
      {Date, "03/04/2026", Conversion::Date, moment(2026, 3, 4)},
      {Date, "13/04/2026", Conversion::Date, moment(2026, 4, 13)},
      {Date, "2026-04-13", Conversion::Date, moment(2026, 4, 13)},
      {Date, "2026/04/13", Conversion::Date, moment(2026, 4, 13)},
      {Date, " 4/13/26 6:00:00 ", Conversion::Date, moment(2026, 4, 13, 0.25)},
      {Date, "2009-01-31", Conversion::DateToText, "31/01/2009"},
      {Date, "2009-01-31", Conversion::DateToNumber, 39844.0},
      {Number, "39844", Conversion::NumberToDate, moment(2009, 1, 31)},
      {Text, "012009", Conversion::MonthOfPeriod, 1},
      {Text, "012009", Conversion::YearOfPeriod, 2009},
      {Text, "122010", Conversion::MonthOfPeriod, 12},
      {Text, "true", Conversion::TextToBoolean, true},
      {Text, "False", Conversion::TextToBoolean, false},
      {Text, "-1", Conversion::TextToBoolean, true},
      {Number, "0", Conversion::NumberToBoolean, false},
      {Text, "%a_", Conversion::LikePattern, "%a_"},
      {Text, "%1_", Conversion::GlobPattern, "*1?"},
  };
  for (const ConversionCase& row : rows)
    EXPECT_EQ(converted(row.kind, row.text, row.conversion), row.value) << row.text;
}

TEST(Literals, FailWhereTheyCannotBeRead) {
  using enum LiteralKind;
  constexpr std::int32_t mismatch = -2147217913;
  constexpr std::int32_t overflow = -2147467259;
  const auto failure = [](LiteralKind kind, std::string_view text, Conversion conversion) {
    return failureOf([&] { converted(kind, text, conversion); });
  };
  EXPECT_EQ(failure(Text, "abc", Conversion::TextToNumber), mismatch);
  EXPECT_EQ(failure(Text, "", Conversion::TextToNumber), mismatch);
  EXPECT_EQ(failure(Text, "", Conversion::TextToInteger), mismatch);
  EXPECT_EQ(failure(Text, "31/02/2010", Conversion::TextToDay), mismatch);
  EXPECT_EQ(failure(Text, "0000000000000000", Conversion::TextToDay), mismatch);
  EXPECT_EQ(failure(Text, "", Conversion::TextToDate), mismatch);
  EXPECT_EQ(failure(Text, "maybe", Conversion::TextToBoolean), mismatch);
  for (const std::string_view period : {"", "1", "2009", "1/2009", "132009", "002009", "0120090", " 12009"})
    EXPECT_EQ(failure(Text, period, Conversion::MonthOfPeriod), mismatch) << period;
  EXPECT_EQ(failure(Number, "1E999", Conversion::Number), overflow);
  EXPECT_EQ(failure(Number, "99999999999", Conversion::NumberToLong), overflow);
  EXPECT_EQ(failure(Number, "2147483647.5", Conversion::NumberToLong), overflow);
  EXPECT_EQ(failure(Number, "2147483649", Conversion::NegatedToLong), overflow);
  EXPECT_EQ(failure(Text, "2147483648", Conversion::TextToLong), overflow);
  EXPECT_EQ(failure(Number, "32768", Conversion::NumberToInteger), overflow);
  EXPECT_EQ(failure(Number, "32767.5", Conversion::NumberToInteger), overflow);
  EXPECT_EQ(failure(Number, "32769", Conversion::NegatedToInteger), overflow);
  EXPECT_EQ(failure(Text, "32768", Conversion::TextToInteger), overflow);
  EXPECT_EQ(failure(Text, "-32769", Conversion::TextToInteger), overflow);
  EXPECT_EQ(failure(Date, "1989-09-17", Conversion::DateToInteger), overflow);
  EXPECT_EQ(failure(Number, "9999999", Conversion::NumberToDate), overflow);
  EXPECT_EQ(descriptionOf([&] { converted(Date, "31/31/2009", Conversion::Date); }),
            "[Microsoft][ODBC Microsoft Access Driver] Syntax error in date in query expression '#31/31/2009#'.");
}

TEST(Literals, AreReadUnderTheRegionalSettings) {
  const RegionalSettingsScope american(RegionalSettings::unitedStates());
  EXPECT_EQ(converted(LiteralKind::Text, "1.5", Conversion::TextToNumber), Variant(1.5));
  EXPECT_EQ(converted(LiteralKind::Text, "03/04/2010", Conversion::TextToDay), Variant(moment(2010, 3, 4)));
}

TEST(Literals, GiveATextWithoutCopyingIt) {
  const std::string_view text = "a text that is longer than any small string";
  std::string scratch;
  const Cell cell = literalCell({LiteralKind::Text, text}, Conversion::Text, scratch);
  EXPECT_EQ(cell.text().data(), text.data());
  EXPECT_EQ(scratch.capacity(), std::string().capacity());
}

TEST(IsoDate, IsTheDayAndTheTimeOnlyIfThereIsOne) {
  EXPECT_EQ(isoDate(moment(2009, 1, 31)), "2009-01-31");
  EXPECT_EQ(isoDate(moment(2009, 1, 31, 0.5)), "2009-01-31 12:00:00");
  EXPECT_EQ(isoDate(moment(100, 1, 1)), "0100-01-01");
}

TEST(IsoDate, IsReadBackAsItWasWritten) {
  for (const double serial : {-657434.0, -1.25, 0.0, 0.75, 1.0, 39844.0, 39844.25, 2958465.0}) {
    const Date date = Date::fromSerial(serial);
    EXPECT_EQ(readIsoDate(isoDate(date)), date) << serial;
  }
}

TEST(IsoDate, IsNothingElse) {
  for (const std::string_view text :
       {"", "2009", "31/01/2009", "2009-1-31", "2009-13-01", "2009-00-01", "2009-02-29", "2009-01-32", "0099-01-01",
        "2009-01-31 ", "2009-01-31T10:00:00", "2009-01-31 24:00:00", "2009-01-31 10:60:00", "abcd-ef-gh"})
    EXPECT_EQ(readIsoDate(text), std::nullopt) << text;
  EXPECT_TRUE(readIsoDate("2008-02-29"));
}

}  // namespace
}  // namespace tarvola::ado::sql
