#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

struct NumberRow {
  std::string_view text;
  double value;
};

constexpr NumberRow indonesianNumbers[] = {
    {"1.234", 1234},
    {"1.5", 15},
    {"1,5", 1.5},
    {"1.234,56", 1234.56},
    {"1.2.3", 123},
    {",5", 0.5},
    {"5,", 5},
    {" 12 ", 12},
    {"\t12\t", 12},
    {"000123", 123},
    {"(12)", -12},
    {"12-", -12},
    {"- 12", -12},
    {"-12", -12},
    {"+12", 12},
    {"12+", 12},
    {" ( 12 ) ", -12},
    {"12 -", -12},
    {"&H10", 16},
    {"&h10", 16},
    {"&HFFFF", -1},
    {"&H7FFF", 32767},
    {"&H10000", 65536},
    {"&HFFFFFFFF", -1},
    {"&O17", 15},
    {"1e5", 100000},
    {"1d5", 100000},
    {"1E+5", 100000},
    {"1,5D-2", 0.015},
    {"Rp1.000", 1000},
    {"Rp 1.000", 1000},
    {"-Rp1.000", -1000},
    {"(Rp1.000,50)", -1000.5},
    {"1.000 Rp", 1000},
    {"0", 0},
    {"-0", 0},
    {"0,1", 0.1},
    {"0,000000000000005", 5E-15},
    {"3,33333333333333E-02", 0.0333333333333333},
    {"123456789012345", 123456789012345},
    {"1234567890123456789", 1234567890123456789.0},
    {"9007199254740993", 9007199254740992.0},
    {"9007199254740993,0000000000000000000000001", 9007199254740994.0},
    {"1,7976931348623157E308", 1.7976931348623157E308},
    {"1e-400", 0},
    {"0e999999999999", 0},
    {"1..2", 12},
    {".5", 5},
    {"12.", 12},
};

constexpr std::string_view notNumbers[] = {
    "",    "  ",  "12a",  "12 3",  "12%",    "1,2,3", "31/12/2010", "$5",   "abc",   ",",     ".",
    "-",   "()",  "(12",  "12)",   "(-12)",  "-12-",  "--12",       "&",    "&H",    "&HG",   "&H1FFFFFFFFF",
    "e5",  "12e", "12e+", "1e5,5", "Rp",     "RpRp1", "1,234.5",    "1 e5", "12 -3", "1'000", "12\n",
    "Inf", "nan", "0x10", "1_0",   "&H10 x", "12\xA0"};

TEST(NumberFromText, FollowsTheIndonesianSettings) {
  for (const NumberRow& row : indonesianNumbers) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(CDbl(row.text), row.value);
    EXPECT_EQ(tryNumber(row.text), row.value);
    EXPECT_TRUE(IsNumeric(row.text));
    EXPECT_EQ(CDbl(Variant(row.text)), row.value);
    EXPECT_TRUE(IsNumeric(Variant(row.text)));
  }
}

TEST(NumberFromText, FailsOnWhatIsNoNumber) {
  for (const std::string_view text : notNumbers) {
    SCOPED_TRACE(text);
    EXPECT_EQ(failureOf([&] { CDbl(text); }), 13);
    EXPECT_EQ(tryNumber(text), std::nullopt);
    EXPECT_FALSE(IsNumeric(text));
  }
  EXPECT_FALSE(IsNumeric(std::string_view("12\0", 3)));
}

TEST(NumberFromText, OverflowsBeyondADouble) {
  for (const std::string_view text : {"1e309", "-1e400", "1e99999999999999999999"}) {
    EXPECT_EQ(failureOf([&] { CDbl(text); }), 6) << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
}

TEST(NumberFromText, FollowsOtherSettingsOfTheThread) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  EXPECT_EQ(CDbl("1,234.56"), 1234.56);
  EXPECT_EQ(CDbl("1.5"), 1.5);
  EXPECT_EQ(CDbl("1,5"), 15);
  EXPECT_EQ(CDbl("$5"), 5);
  EXPECT_FALSE(IsNumeric("Rp5"));
}

TEST(NumberFromText, TakesASignThatIsBothAsTheGroupingSign) {
  RegionalSettings odd = RegionalSettings::indonesian();
  odd.thousands = odd.decimal;
  const RegionalSettingsScope scope(odd);
  EXPECT_EQ(CDbl("3,5"), 35);
}

TEST(NumberFromText, ReadsLongTextsExactly) {
  const std::string nines(400, '9');
  EXPECT_EQ(failureOf([&] { CDbl(nines); }), 6);
  EXPECT_EQ(CDbl("0," + std::string(400, '0') + "1"), 0);
  std::string padded(5000, '0');
  padded += '7';
  EXPECT_EQ(CDbl(padded), 7);
  // The middle between 1 and the next Double, and a trace more a thousand digits further on.
  const std::string middle = "1,00000000000000011102230246251565404236316680908203125";
  EXPECT_EQ(CDbl(middle), 1);
  EXPECT_EQ(CDbl(middle + std::string(1000, '0') + "1"), std::nextafter(1.0, 2.0));
}

TEST(NumberFromValue, GoesByTheType) {
  EXPECT_EQ(CDbl(Variant()), 0);
  EXPECT_EQ(CDbl(Variant(std::int16_t{7})), 7);
  EXPECT_EQ(CDbl(Variant(std::int32_t{70000})), 70000);
  EXPECT_EQ(CDbl(Variant(0.5)), 0.5);
  EXPECT_EQ(CDbl(Variant(true)), -1);
  EXPECT_EQ(CDbl(Variant(false)), 0);
  EXPECT_EQ(CDbl(Variant(Date::fromYmd(2010, 12, 31))), 40543);
  EXPECT_EQ(failureOf([] { CDbl(Variant::null()); }), 94);
  EXPECT_EQ(failureOf([] { CDbl(Variant(Variant::Array{})); }), 13);
}

TEST(IsNumeric, OfOtherTypesThanText) {
  EXPECT_TRUE(IsNumeric(Variant()));
  EXPECT_TRUE(IsNumeric(Variant(std::int16_t{1})));
  EXPECT_TRUE(IsNumeric(Variant(1.5)));
  EXPECT_TRUE(IsNumeric(Variant(true)));
  EXPECT_FALSE(IsNumeric(Variant::null()));
  EXPECT_FALSE(IsNumeric(Variant(Date())));
  EXPECT_FALSE(IsNumeric(Variant(Variant::Array{})));
  EXPECT_FALSE(IsNumeric(Variant(RecordsetPtr())));
}

struct WholeRow {
  Variant value;
  std::int32_t whole;
};

TEST(WholeNumber, RoundsHalvesToEven) {
  const WholeRow rows[] = {
      {0.5, 0},
      {1.5, 2},
      {2.5, 2},
      {-2.5, -2},
      {-0.5, 0},
      {2.4999999, 2},
      {2.5000001, 3},
      {"0,5", 0},
      {"1,5", 2},
      {"2,5", 2},
      {"-2,5", -2},
      {"3,5", 4},
      {"(2,5)", -2},
      {"2,50001", 3},
      {"0,05", 0},
      {"0,6", 1},
      {"9,5", 10},
      {"1e2", 100},
      {"25e-1", 2},
      {"&HFFFF", -1},
      {true, -1},
      {false, 0},
      {Variant(), 0},
      {32767.4, 32767},
      {-32768.5, -32768},
      // The nearest Double of both is a half; their decimal value is not.
      {"3,4999999999999999999", 3},
      {"2,5000000000000000001", 3},
      {"2,5" + std::string(900, '0') + "1", 3},
  };
  for (const WholeRow& row : rows) {
    SCOPED_TRACE(CStr(row.value));
    EXPECT_EQ(CInt(row.value), row.whole);
    EXPECT_EQ(CLng(row.value), row.whole);
  }
}

TEST(WholeNumber, OverflowsOutsideItsBits) {
  for (const Variant& value : {Variant(32767.5), Variant(-32769.0), Variant("32768"), Variant("-32768,6"),
                               Variant(1E300), Variant("1e300"), Variant("-1e300"), Variant(std::int32_t{40000})}) {
    EXPECT_EQ(failureOf([&] { CInt(value); }), 6) << CStr(value);
  }
  EXPECT_EQ(CInt(-32768.5), -32768);
  EXPECT_EQ(failureOf([] { CInt(std::nan("")); }), 6);
  EXPECT_EQ(CLng(2147483647.4), 2147483647);
  EXPECT_EQ(failureOf([] { CLng(2147483647.5); }), 6);
  EXPECT_EQ(failureOf([] { CLng("2147483648"); }), 6);
  EXPECT_EQ(failureOf([] { CLng("9223372036854775808"); }), 6);
}

TEST(WholeNumber, FailsOnNullAndOnWords) {
  EXPECT_EQ(failureOf([] { CInt(Variant::null()); }), 94);
  EXPECT_EQ(failureOf([] { CLng(Variant::null()); }), 94);
  EXPECT_EQ(failureOf([] { CInt("abc"); }), 13);
  EXPECT_EQ(failureOf([] { CInt(""); }), 13);
}

TEST(BooleanFromValue, TakesTheWordsInAnyCaseAndElseTheNumber) {
  EXPECT_TRUE(CBool("True"));
  EXPECT_TRUE(CBool("tRUE"));
  EXPECT_FALSE(CBool("FALSE"));
  EXPECT_TRUE(CBool("0,1"));
  EXPECT_FALSE(CBool("0"));
  EXPECT_TRUE(CBool(std::int16_t{-1}));
  EXPECT_FALSE(CBool(Variant()));
  EXPECT_EQ(failureOf([] { CBool("yes"); }), 13);
  EXPECT_EQ(failureOf([] { CBool(Variant::null()); }), 94);
}

constexpr NumberRow frontNumbers[] = {
    {"1.234,56", 1.234}, {"1,5", 1},           {"12a", 12},     {" 1 2", 12},   {"", 0},         {"&HFFFF", -1},
    {"1e3", 1000},       {"abc", 0},           {"-5", -5},      {"- 5", -5},    {"+5", 5},       {"1\t2\n3", 123},
    {".5", 0.5},         {"-.5x", -0.5},       {"5.", 5},       {"1.2.3", 1.2}, {"1d2", 100},    {"1e", 1},
    {"12e+", 12},        {"&O17", 15},         {"& H 1 0", 16}, {"&HZ", 0},     {"3,33E-02", 3}, {"0,5", 0},
    {"-0,5", 0},         {"33000.5", 33000.5}, {"1E+15", 1E15}, {"5-", 5}};

TEST(Val, ReadsTheNumberAtTheFrontWithAPointAsDecimalSign) {
  for (const NumberRow& row : frontNumbers) EXPECT_EQ(Val(row.text), row.value) << row.text;
}

TEST(Val, OverflowsBeyondADouble) {
  EXPECT_EQ(failureOf([] { Val("1e999"); }), 6);
}

TEST(Int, IsTheLargestWholeNumberNotAbove) {
  EXPECT_EQ(Int(-8.4), -9);
  EXPECT_EQ(Int(8.4), 8);
  EXPECT_EQ(Int(8.0), 8);
  EXPECT_EQ(Int(-0.5), -1);
  EXPECT_EQ(Int(Variant("8,9")), Variant(8.0));
  EXPECT_EQ(Int(Variant(-8.4)), Variant(-9.0));
  EXPECT_EQ(Int(Variant(std::int16_t{5})), Variant(std::int16_t{5}));
  EXPECT_EQ(Int(Variant(std::int32_t{5})), Variant(std::int32_t{5}));
  EXPECT_EQ(Int(Variant(true)), Variant(std::int16_t{-1}));
  EXPECT_EQ(Int(Variant()), Variant(std::int16_t{0}));
  EXPECT_TRUE(Int(Variant::null()).isNull());
  EXPECT_EQ(Int(Variant(Date::fromSerial(40543.75))), Variant(Date::fromSerial(40543)));
  EXPECT_EQ(failureOf([] { Int(Variant("x")); }), 13);
}

TEST(NumberFromText, SurvivesRandomBytes) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  constexpr std::string_view alphabet = "0123456789.,+-()eEdD&HhOoRp \tA%\xC3\x80";
  int numbers = 0;
  for (int i = 0; i < 100000; ++i) {
    std::string text(random() % 12, '\0');
    for (char& c : text) c = i % 2 == 0 ? alphabet[random() % alphabet.size()] : static_cast<char>(random());
    const auto number = tryNumber(text);
    numbers += number.has_value();
    const std::int32_t failure = failureOf([&] { CDbl(text); });
    ASSERT_EQ(number.has_value(), failure == 0) << text;
    ASSERT_TRUE(failure == 0 || failure == 13 || failure == 6) << text;
    (void)failureOf([&] { Val(text); });
    (void)failureOf([&] { CInt(Variant(text)); });
  }
  EXPECT_GT(numbers, 1000);
}

}  // namespace
}  // namespace tarvola
