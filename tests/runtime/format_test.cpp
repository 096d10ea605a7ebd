#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

struct FormatRow {
  Variant value;
  std::string_view pattern;
  std::string_view text;
};

void expectAll(std::initializer_list<FormatRow> rows) {
  for (const FormatRow& row : rows) {
    SCOPED_TRACE(std::string(row.pattern));
    EXPECT_EQ(Format(row.value, row.pattern), row.text);
  }
}

TEST(FormatNumber, FollowsThePatternUnderIndonesianSettings) {
  expectAll({
      {1234.5, "0.00", "1234,50"},
      {1234.5, "0.000", "1234,500"},
      {1234567.891, "#,##0", "1.234.568"},
      {1234.5, "#,##0.00", "1.234,50"},
      {5.0, "0,00", "005"},
      {12.75, "0,00", "013"},
      {1234567.0, "0,00", "1.234.567"},
      {1.0, "0,000", "0.001"},
      {1234567.0, "0,", "1235"},
      {-0.004, "0.00", "-0,00"},
      {0.256, "0%", "26%"},
      {0.256, "Percent", "25,60%"},
      {1234.5, "General Number", "1234,5"},
      {1234.5, "", "1234,5"},
      {1234.5, "Standard", "1.234,50"},
      {1234.5, "fixed", "1234,50"},
      {0.0, "#,###", ""},
      {0.0, "#,##0", "0"},
      {0.5, "#.##", ",5"},
      {2.0, "0.##", "2,"},
      {0.0, "#.##", ","},
  });
}

TEST(FormatNumber, RoundsHalvesAwayFromZeroOnTheDecimalText) {
  expectAll({
      {2.5, "0", "3"},
      {0.125, "0.00", "0,13"},
      {-2.5, "0", "-3"},
      {1.005, "0.00", "1,01"},
      {0.5, "0", "1"},
      {-0.5, "0", "-1"},
      {0.49, "0", "0"},
      {1.5, "#,##0", "2"},
      {999.5, "#,##0", "1.000"},
      {9.999, "0.00", "10,00"},
      {0.05, "0.0", "0,1"},
      {0.04, "0.0", "0,0"},
      {0.004999999999999999, "0.00", "0,01"},
      {2.675, "0.00", "2,68"},
      {33333.335, "0.00", "33333,34"},
  });
}

TEST(FormatNumber, NeverCutsAndGroupsFromTheRight) {
  expectAll({
      {123456.0, "0", "123456"},
      {123.0, "#,##0", "123"},
      {1234.0, "#,##0", "1.234"},
      {-1234567.0, "#,##0", "-1.234.567"},
      {1.0, "0,000,000,000", "0.000.000.001"},
      {123456789012345.0, "#,##0", "123.456.789.012.345"},
      {1E20, "#,##0", "100.000.000.000.000.000.000"},
      {1234567890123456.0, "0", "1234567890123460"},
      {1E-20, "0.00", "0,00"},
      {1.5, ".00", "1,50"},
      {0.5, ".00", ",50"},
      {12.0, "000.0", "012,0"},
      {12.0, "#0#", "12"},
      {2.0, "#0#", "02"},
  });
}

TEST(FormatNumber, DividesByAThousandForEachCommaBehindTheDigits) {
  expectAll({
      {1234567.0, "#,##0,", "1.235"},
      {1234567.0, "0,,", "1"},
      {1234567.0, "0,.00", "1234,57"},
      {1500000.0, "0.0,", "1500000,0"},
      {1234.0, ",0", "1234"},
  });
}

TEST(FormatNumber, PrintsLiteralsWhereTheyStand) {
  expectAll({
      {1234.5, "Rp #,##0.00", "Rp 1.234,50"},
      {12.0, "(0)", "(12)"},
      {12.0, "0 \"persen\"", "12 persen"},
      {12.0, "\\00", "012"},
      {12.0, "0\\;", "12;"},
      {12.0, "\"0;0\"0", "0;012"},
      {12.0, "0\"open", "12open"},
      {123456.0, "000-000", "123-456"},
      {1234567.0, "000-000", "1234-567"},
      {5.0, "\"-\"", "-"},
      {-5.0, "+0", "-+5"},
      {1.5, "0.0.0", "1,50"},
      {12.0, "0\\", "12"},
      {7.0, "€0", "€7"},
  });
}

TEST(FormatNumber, ChoosesTheSectionBySign) {
  constexpr std::string_view pattern = "0.0;(0.0);nol;kosong";
  expectAll({
      {1.25, pattern, "1,3"},
      {-1.25, pattern, "(1,3)"},
      {0.0, pattern, "nol"},
      {Variant::null(), pattern, "kosong"},
      {-1.0, "0;;nol", "-1"},
      {0.0, "0;(0)", "0"},
      {Variant::null(), "0;0;0", ""},
      {Variant::null(), "#,##0", ""},
      {Variant::null(), "DD/MM/YYYY", ""},
      {0.0, "0;0;;", "0"},
      {1.0, "0;a;b;c;d", "1"},
  });
}

TEST(FormatNumber, ReadsATextByTheSettingsFirst) {
  expectAll({
      {"1234.5", "0.00", "12345,00"},
      {"1234,5", "0.00", "1234,50"},
      {"abc", "0.00", "abc"},
      {"", "0.00", ""},
      {"12 buah", "#,##0", "12 buah"},
      {"1.234,50", "General Number", "1234,5"},
      {"abc", "", "abc"},
  });
}

TEST(FormatNumber, TakesOtherTypesByTheirNumber) {
  expectAll({
      {std::int16_t{5}, "0.0", "5,0"},
      {std::int32_t{70000}, "#,##0", "70.000"},
      {true, "0", "-1"},
      {Variant(), "#,##0", "0"},
      {Variant(), "", ""},
      {Date::fromYmd(2010, 12, 31), "0", "40543"},
  });
  EXPECT_EQ(failureOf([] { Format(Variant(Variant::Array{}), "0"); }), 13);
  EXPECT_EQ(failureOf([] { Format(std::numeric_limits<double>::infinity(), "0"); }), 6);
}

TEST(FormatNumber, WritesTheSignsOfTheSettings) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  EXPECT_EQ(Format(1234.5, "#,##0.00"), "1,234.50");
  EXPECT_EQ(Format("1,234.5", "0.00"), "1234.50");
}

TEST(FormatNumber, CutsAPatternAfter257Characters) {
  EXPECT_EQ(Format(0.0, std::string(300, '0')), std::string(257, '0'));
}

TEST(FormatDate, FollowsThePattern) {
  const Date day = Date::fromYmd(2010, 12, 31);
  const Date early = Date::fromSerial(Date::fromYmd(2009, 3, 4).serial() + (6.0 * 3600 + 5 * 60 + 9) / 86400);
  expectAll({
      {day, "DD/MM/YYYY", "31/12/2010"},
      {day, "dd/mm/yyyy", "31/12/2010"},
      {day, "MMYYYY", "122010"},
      {early, "d/m/yy", "4/3/09"},
      {early, "dd mmm yyyy", "04 Mar 2009"},
      {early, "d mmmm yyyy", "4 Maret 2009"},
      {Date::fromYmd(2010, 8, 17), "d mmm yyyy", "17 Agust 2010"},
      {day, "dddd, d mmmm", "Jumat, 31 Desember"},
      {day, "ddd", "Jumat"},
      {day, "y", "365"},
      {day, "q", "4"},
      {day, "w", "6"},
      {day, "ww", "53"},
      {Date::fromYmd(2010, 1, 2), "ww", "1"},
      {Date::fromYmd(2010, 1, 3), "ww", "2"},
      {early, "hh:mm:ss", "06:05:09"},
      {early, "h:m:s", "6:5:9"},
      {early, "dd/mm hh.mm", "04/03 06.05"},
      {early, "hh:mm dd/mm", "06:05 04/03"},
      {early, "nn", "05"},
      {early, "c", "04/03/2009 6:05:09"},
      {day, "\"Tgl\" dd\\d", "Tgl 31d"},
      {day, "yyyymmdd", "20101231"},
  });
}

TEST(FormatDate, PrintsTheDateSeparatorOfTheSettings) {
  RegionalSettings dashed = RegionalSettings::indonesian();
  dashed.dateSeparator = '-';
  dashed.timeSeparator = '.';
  const RegionalSettingsScope scope(dashed);
  const Date day = Date::fromSerial(40543.5);
  EXPECT_EQ(Format(day, "DD/MM/YYYY"), "31-12-2010");
  EXPECT_EQ(Format(day, "hh:mm"), "12.00");
  EXPECT_EQ(formatDate(day), "31-12-2010");
}

TEST(FormatDate, ReadsATextAsADateAndThenAsASerialNumber) {
  expectAll({
      {"31/12/2010", "YYYY-MM-DD", "2010-12-31"},
      {"40543", "DD/MM/YYYY", "31/12/2010"},
      {"31 Desember 2010", "DD/MM/YYYY", "31/12/2010"},
      {"nanti", "DD/MM/YYYY", "nanti"},
      {"", "DD/MM/YYYY", ""},
      {"99999999999", "DD/MM/YYYY", "99999999999"},
      {40543.0, "DD/MM/YYYY", "31/12/2010"},
      {Variant(), "DD/MM/YYYY", ""},
  });
  EXPECT_EQ(failureOf([] { Format(1E10, "DD/MM/YYYY"); }), 6);
}

TEST(FormatDate, HasAFastFormForTheUsualPattern) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (int i = 0; i < 5000; ++i) {
    const Date day = Date::fromSerial(static_cast<double>(static_cast<int>(random() % 3600000) - 650000));
    ASSERT_EQ(formatDate(day), Format(day, "DD/MM/YYYY")) << day.serial();
  }
}

TEST(Format, SurvivesRandomPatterns) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  constexpr std::string_view alphabet = "0#.,%;\\\"dmyhnswqc/:DMY -+x\xC3";
  const Variant values[] = {Variant(), Variant::null(), 0.0, -1234.5678, 1E300, 5E-324, "12,5", "x", Date(), true};
  for (int i = 0; i < 50000; ++i) {
    std::string pattern(random() % 20, '\0');
    for (char& c : pattern) c = i % 2 == 0 ? alphabet[random() % alphabet.size()] : static_cast<char>(random());
    for (const Variant& value : values) {
      const std::int32_t failure = failureOf([&] { Format(value, pattern); });
      // A number too large for the calendar cannot be put into a date pattern; nothing else may fail.
      ASSERT_TRUE(failure == 0 || (failure == 6 && value == Variant(1E300))) << pattern;
    }
  }
}

}  // namespace
}  // namespace tarvola
