#include "tarvola/store/packed_text.h"

#include <gtest/gtest.h>

#include <random>

#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::store {
namespace {

using Type = ado::Cell::Type;

std::vector<std::string> piecesOf(std::string_view text) {
  PackedText cut;
  cut.cut(text);
  std::vector<std::string> pieces;
  for (std::size_t index = 0; index < cut.count(); ++index) pieces.emplace_back(cut[index]);
  return pieces;
}

TEST(PackedText, AnEmptyTextHasNoField) {
  EXPECT_TRUE(piecesOf("").empty());
  EXPECT_EQ(countFields(""), 0U);
}

TEST(PackedText, HasOneFieldMoreThanSeparators) {
  EXPECT_EQ(piecesOf("a"), (std::vector<std::string>{"a"}));
  EXPECT_EQ(piecesOf(";"), (std::vector<std::string>{"", ""}));
  EXPECT_EQ(piecesOf("a;;b;"), (std::vector<std::string>{"a", "", "b", ""}));
}

TEST(PackedText, CutsALongTextBehindAShortOneAndAShortOneBehindALongOne) {
  PackedText cut;
  cut.cut("a;b");
  cut.cut("1;22;333;4444;55555");
  EXPECT_EQ(cut[4], "55555");
  cut.cut("x;y");
  ASSERT_EQ(cut.count(), 2U);
  EXPECT_EQ(cut[1], "y");
}

TEST(PackedText, CountsWhatItCuts) {
  std::mt19937 random(20090131);
  for (int round = 0; round < 500; ++round) {
    std::string text(random() % 60, ' ');
    for (char& c : text) c = "ab;|1"[random() % 5];
    EXPECT_EQ(countFields(text), piecesOf(text).size()) << text;
  }
}

TEST(SharedPart, TakesThePartsOneAfterTheOther) {
  EXPECT_EQ(sharedPart("1|2|3", 0, 3), "1");
  EXPECT_EQ(sharedPart("1|2|3", 1, 3), "2");
  EXPECT_EQ(sharedPart("1|2|3", 2, 3), "3");
}

TEST(SharedPart, GivesWhateverRemainsToTheLast) { EXPECT_EQ(sharedPart("1|2|3|a|b", 3, 4), "a|b"); }

TEST(SharedPart, IsNothingInAnEmptyPositionAndBehindTheEndOfAShortOne) {
  EXPECT_EQ(sharedPart("", 0, 3), std::nullopt);
  EXPECT_EQ(sharedPart("1", 1, 3), std::nullopt);
  EXPECT_EQ(sharedPart("1|", 1, 3), "");
}

struct NumberCase {
  const char* text;
  Type asDouble;
  Type asInteger;
  double value = 0;
};
class NumericText : public testing::TestWithParam<NumberCase> {};

TEST_P(NumericText, ReadsAsItsNumber) {
  const ado::Cell asDouble = numericCell(GetParam().text, FieldType::Double);
  const ado::Cell asInteger = numericCell(GetParam().text, FieldType::Integer);
  EXPECT_EQ(asDouble.type(), GetParam().asDouble);
  EXPECT_EQ(asInteger.type(), GetParam().asInteger);
  if (asDouble.type() == Type::Double) {
    EXPECT_EQ(asDouble.toDouble(), GetParam().value);
    EXPECT_EQ(asInteger.toDouble(), GetParam().value);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NumericText,
    testing::Values(
        NumberCase{"", Type::Null, Type::Null}, NumberCase{"0", Type::Double, Type::Integer, 0},
        NumberCase{"7", Type::Double, Type::Integer, 7}, NumberCase{"-7", Type::Double, Type::Integer, -7},
        NumberCase{"01", Type::Double, Type::Integer, 1}, NumberCase{"32767", Type::Double, Type::Integer, 32767},
        NumberCase{"32768", Type::Double, Type::Long, 32768}, NumberCase{"-32769", Type::Double, Type::Long, -32769},
        NumberCase{"999999999", Type::Double, Type::Long, 999999999},
        NumberCase{"123456789012", Type::Double, Type::Double, 123456789012.0},
        NumberCase{"2,5", Type::Double, Type::Double, 2.5}, NumberCase{"1.000", Type::Double, Type::Integer, 1000},
        NumberCase{" 12 ", Type::Double, Type::Integer, 12}, NumberCase{"-0", Type::Double, Type::Integer, 0},
        NumberCase{"abc", Type::String, Type::String}, NumberCase{" ", Type::String, Type::String},
        NumberCase{"-", Type::String, Type::String}, NumberCase{"1/2", Type::String, Type::String}));

TEST(NumericText, ThatIsNoNumberStaysThatText) { EXPECT_EQ(numericCell("12a", FieldType::Double).text(), "12a"); }

TEST(NumbersPackedAnew, TakeTheirDefaultTextForm) {
  const std::pair<const char*, const char*> cases[] = {{"01", "1"},
                                                       {"1", "1"},
                                                       {"-5", "-5"},
                                                       {"2,50", "2,5"},
                                                       {"2,5", "2,5"},
                                                       {"1.000", "1000"},
                                                       {"1e3", "1000"},
                                                       {" 7 ", "7"},
                                                       {"-0", "0"},
                                                       {"0,5", "0,5"},
                                                       {"5,", "5"},
                                                       {",5", "0,5"},
                                                       {"", ""},
                                                       {"n/a", "n/a"},
                                                       {" ", " "},
                                                       {"1E20", "1E+20"},
                                                       {"0", "0"},
                                                       {"00", "0"},
                                                       {"123456789012345", "123456789012345"},
                                                       {"12345678901234567", "1,23456789012346E+16"},
                                                       {"12345678901234,5", "12345678901234,5"},
                                                       {"1,000000000000001", "1"}};
  for (const auto& [text, expected] : cases) {
    std::string out;
    appendNumberAnew(out, text);
    EXPECT_EQ(out, expected) << "of \"" << text << '"';
  }
}

TEST(NumbersPackedAnew, AgreeWithReadingAndWritingForAnyText) {
  const std::uint32_t seed = std::random_device{}();
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 20000; ++round) {
    std::string text(random() % 19, ' ');
    for (char& c : text) c = "0123456789012345-,.e "[random() % 21];
    std::string out;
    appendNumberAnew(out, text);
    const std::optional<double> number = tryNumber(text);
    ASSERT_EQ(out, number ? CStr(*number) : text) << "of \"" << text << '"';
  }
}

TEST(NumbersPackedAnew, FollowTheRegionalSettings) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  std::string out;
  appendNumberAnew(out, "2.50");
  EXPECT_EQ(out, "2.5");
}

}  // namespace
}  // namespace tarvola::store
