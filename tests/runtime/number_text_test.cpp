#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

struct NumberTextRow {
  double value;
  const char* text;
};

constexpr NumberTextRow numberTexts[] = {
    {1.0 / 3, "0,333333333333333"},
    {123456789012345, "123456789012345"},
    {1.0 / 30, "3,33333333333333E-02"},
    {1E14, "100000000000000"},
    {0.05, "0,05"},
    {1E15, "1E+15"},
    {5E-15, "0,000000000000005"},
    {1234567890123456, "1,23456789012346E+15"},
    {5E-16, "5E-16"},
    {-1234.5, "-1234,5"},
    {1E-7, "0,0000001"},
    {2, "2"},
    {0, "0"},
    {-0.0, "0"},
    {-1, "-1"},
    {0.1 + 0.2, "0,3"},
    {999999999999999, "999999999999999"},
    {-999999999999999, "-999999999999999"},
    {-1E15, "-1E+15"},
    {999999999999999.5, "1E+15"},
    {99999999999999.95, "100000000000000"},
    {0.999999999999999, "0,999999999999999"},
    {0.9999999999999999, "1"},
    {12.34, "12,34"},
    {12.3456, "12,3456"},
    {33000.5, "33000,5"},
    {1234567890.123456, "1234567890,12346"},
    {-0.5, "-0,5"},
    {2.5E-10, "0,00000000025"},
    {1.5E-15, "1,5E-15"},
    {1E100, "1E+100"},
    {1.7976931348623157E308, "1,79769313486232E+308"},
    {5E-324, "4,94065645841247E-324"},
    {2.2250738585072014E-308, "2,2250738585072E-308"},
    // Sixteen digits with a 5 at the end and nothing behind it: half-way, and so away from zero.
    {100000000000000.5, "100000000000001"},
    {-100000000000000.5, "-100000000000001"},
    {12345678901234.25, "12345678901234,3"},
    {12345678901234.75, "12345678901234,8"},
    {1234567890123445, "1,23456789012345E+15"},
};

TEST(NumberText, HasFifteenDigitsAtMostAndAnExponentBeyondFifteenPlaces) {
  for (const NumberTextRow& row : numberTexts) EXPECT_EQ(CStr(row.value), row.text);
}

TEST(NumberText, IsTheSameWhenAppended) {
  for (const NumberTextRow& row : numberTexts) {
    std::string text = "x";
    appendCStr(text, row.value);
    EXPECT_EQ(text, std::string("x") + row.text);
  }
}

TEST(NumberText, TakesTheDecimalSignOfTheSettingsAndNeverGroups) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  EXPECT_EQ(CStr(1234567.5), "1234567.5");
  EXPECT_EQ(CStr(1.0 / 30), "3.33333333333333E-02");
}

TEST(NumberText, OfAStatementHasAPointWhateverTheSettings) {
  for (const NumberTextRow& row : numberTexts) {
    std::string expected = row.text;
    if (const auto comma = expected.find(','); comma != std::string::npos) expected[comma] = '.';
    EXPECT_EQ(numberLiteral(row.value), expected);
  }
}

TEST(NumberText, OfStrHasAPointAndABlankInPlaceOfTheSign) {
  EXPECT_EQ(Str(12.5), " 12.5");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(-12.5), "-12.5");
  EXPECT_EQ(Str(1E15), " 1E+15");
}

TEST(NumberText, OfWhatIsNoNumberFails) {
  EXPECT_EQ(failureOf([] { CStr(std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(failureOf([] { CStr(-std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(failureOf([] { CStr(std::numeric_limits<double>::quiet_NaN()); }), 6);
  EXPECT_EQ(failureOf([] { numberLiteral(std::numeric_limits<double>::infinity()); }), 6);
}

TEST(NumberText, OfAVariantGoesByItsType) {
  EXPECT_EQ(CStr(Variant()), "");
  EXPECT_EQ(CStr(Variant(std::int16_t{-7})), "-7");
  EXPECT_EQ(CStr(Variant(std::int32_t{-2147483647 - 1})), "-2147483648");
  EXPECT_EQ(CStr(Variant(2.5)), "2,5");
  EXPECT_EQ(CStr(Variant(true)), "True");
  EXPECT_EQ(CStr(Variant(false)), "False");
  EXPECT_EQ(CStr(Variant(Date::fromYmd(2010, 12, 31))), "31/12/2010");
  EXPECT_EQ(CStr(Variant(" a ")), " a ");
  EXPECT_EQ(failureOf([] { CStr(Variant::null()); }), 94);
  EXPECT_EQ(failureOf([] { CStr(Variant(Variant::Array{})); }), 13);
  EXPECT_EQ(failureOf([] { CStr(Variant(RecordsetPtr())); }), 13);
}

TEST(NumberText, OfABoolIsAWord) {
  EXPECT_EQ(CStr(true), "True");
  EXPECT_EQ(CStr(false), "False");
}

/// Fifteen digits always come back as they were written, so a number that was once read from text never changes again.
TEST(NumberText, ReadBackGivesTheSameTextForRandomNumbers) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  for (int i = 0; i < 50000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value) || std::fabs(value) > 1E307) continue;
    const std::string text = CStr(value);
    const double back = CDbl(text);
    ASSERT_EQ(CStr(back), text);
    // Half a unit of the fifteenth digit is at most 5E-15 of the value, and reading back rounds by 1.2E-16 of it once
    // more. The smallest numbers of all are multiples of 5E-324.
    ASSERT_LE(std::fabs(back - value), std::fabs(value) * 5.2E-15 + 5E-324) << text;
  }
}

TEST(NumberText, ReadBackGivesTheSameNumberForRandomFiguresOfUpToFifteenDigits) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  for (int i = 0; i < 50000; ++i) {
    const auto digits = static_cast<double>(static_cast<std::int64_t>(random() % 1'000'000'000'000'000) -
                                            static_cast<std::int64_t>(500'000'000'000'000));
    const double value = digits / std::pow(10.0, static_cast<double>(random() % 16));
    ASSERT_EQ(CDbl(CStr(value)), value);
    ASSERT_EQ(Val(numberLiteral(value)), value);
    ASSERT_EQ(Val(Str(value)), value);
  }
}

/// The plain way: print with a generous precision, then round the text by hand.
std::string roundedByHand(double value) {
  char exact[64];
  std::snprintf(exact, sizeof exact, "%.14e", value);
  std::string text(exact);
  const auto mark = text.find('e');
  std::string digits = text.substr(0, mark);
  while (digits.back() == '0') digits.pop_back();
  if (digits.back() == '.') digits.pop_back();
  return digits + text.substr(mark);
}

TEST(NumberText, HasTheDigitsThatTheCLibraryPrints) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> mantissa(1, 10);
  for (int i = 0; i < 20000; ++i) {
    // From 1E15 on the exponent form shows the digits as the C library does, but for the letter's case.
    const double value = mantissa(random) * std::pow(10.0, static_cast<double>(20 + random() % 80));
    std::string text = numberLiteral(value);
    text[text.find('E')] = 'e';
    ASSERT_EQ(text, roundedByHand(value));
  }
}

}  // namespace
}  // namespace tarvola
