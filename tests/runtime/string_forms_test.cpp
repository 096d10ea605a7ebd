#include <gtest/gtest.h>

#include <random>

#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

TEST(Trim, CutsBlanksAndNothingElse) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(LTrim("  a  "), "a  ");
  EXPECT_EQ(RTrim("  a  "), "  a");
  EXPECT_EQ(Trim("\t a \r\n"), "\t a \r\n");
  EXPECT_EQ(Trim("\xC2\xA0"), "\xC2\xA0");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(LTrim("   "), "");
  EXPECT_EQ(RTrim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(PartsOfTexts, AreCountedInCharacters) {
  EXPECT_EQ(Len("Kâm€r"), 5U);
  EXPECT_EQ(Len(""), 0U);
  EXPECT_EQ(Left("Kâm€r", 2), "Kâ");
  EXPECT_EQ(Left("Kâm€r", 99), "Kâm€r");
  EXPECT_EQ(Left("abc", 0), "");
  EXPECT_EQ(Right("Kâm€r", 2), "€r");
  EXPECT_EQ(Right("Kâm€r", 0), "");
  EXPECT_EQ(Right("Kâm€r", 99), "Kâm€r");
  EXPECT_EQ(Mid("Kâm€r", 2, 3), "âm€");
  EXPECT_EQ(Mid("Kâm€r", 4), "€r");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Mid("abc", 99, 5), "");
  EXPECT_EQ(failureOf([] { Mid("abc", 0); }), 5);
}

TEST(PartsOfTexts, OfBrokenUtf8StillFitTogether) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (int i = 0; i < 20000; ++i) {
    std::string text(random() % 24, '\0');
    for (char& c : text) c = random() % 3 == 0 ? 'x' : static_cast<char>(random());
    const std::size_t length = Len(text);
    const std::size_t cut = random() % (length + 2);
    ASSERT_EQ(std::string(Left(text, cut)) + std::string(Mid(text, cut + 1)), text);
    ASSERT_EQ(std::string(Left(text, length - std::min(cut, length))) + std::string(Right(text, cut)), text);
  }
}

TEST(InStr, CountsCharactersFromOne) {
  EXPECT_EQ(InStr("abcabc", "c"), 3U);
  EXPECT_EQ(InStr("abcabc", "c", 4), 6U);
  EXPECT_EQ(InStr("abcabc", "C"), 0U);
  EXPECT_EQ(InStr("â€c", "c"), 3U);
  EXPECT_EQ(InStr("abc", ""), 1U);
  EXPECT_EQ(InStr("abc", "", 2), 2U);
  EXPECT_EQ(InStr("", ""), 0U);
  EXPECT_EQ(InStr("", "a"), 0U);
  EXPECT_EQ(InStr("abc", "a", 4), 0U);
  EXPECT_EQ(InStr("abc", "", 99), 0U);
  EXPECT_EQ(failureOf([] { InStr("abc", "a", 0); }), 5);
}

TEST(InStr, IgnoresTheCaseInItsTextForm) {
  EXPECT_EQ(InStrText("abcABC", "C"), 3U);
  EXPECT_EQ(InStrText("xÉté", "é"), 2U);
  EXPECT_EQ(InStrText("12,5", ","), 3U);
  EXPECT_EQ(InStrText("abc", "d"), 0U);
}

TEST(Replace, ReplacesEveryOccurrenceFromTheFront) {
  EXPECT_EQ(Replace("1.234.567", ".", ","), "1,234,567");
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("abc", "b", ""), "ac");
  EXPECT_EQ(Replace("aXa", "x", "y"), "aXa");
  EXPECT_EQ(Replace("", "a", "b"), "");
  EXPECT_EQ(Replace("ab", "b", "bb"), "abb");
}

TEST(LineBreaks, AreRemovedAsPairsOnly) {
  EXPECT_EQ(withoutLineBreaks("a\r\nb\r\n"), "ab");
  EXPECT_EQ(withoutLineBreaks("a\rb\nc"), "a\rb\nc");
  EXPECT_EQ(withoutLineBreaks("a\r\r\n\nb"), "a\r\nb");
  EXPECT_EQ(withoutLineBreaks(""), "");
}

struct LetterPair {
  std::string_view capital;
  std::string_view small;
};

constexpr LetterPair letterPairs[] = {
    {"A", "a"}, {"Z", "z"}, {"À", "à"}, {"Á", "á"}, {"Â", "â"}, {"Ã", "ã"}, {"Ä", "ä"}, {"Å", "å"}, {"Æ", "æ"},
    {"Ç", "ç"}, {"È", "è"}, {"É", "é"}, {"Ê", "ê"}, {"Ë", "ë"}, {"Ì", "ì"}, {"Í", "í"}, {"Î", "î"}, {"Ï", "ï"},
    {"Ð", "ð"}, {"Ñ", "ñ"}, {"Ò", "ò"}, {"Ó", "ó"}, {"Ô", "ô"}, {"Õ", "õ"}, {"Ö", "ö"}, {"Ø", "ø"}, {"Ù", "ù"},
    {"Ú", "ú"}, {"Û", "û"}, {"Ü", "ü"}, {"Ý", "ý"}, {"Þ", "þ"}, {"Š", "š"}, {"Œ", "œ"}, {"Ž", "ž"}, {"Ÿ", "ÿ"},
};

TEST(LetterCase, FoldsEveryCapitalOfTheCodePage) {
  for (const LetterPair& pair : letterPairs) {
    SCOPED_TRACE(pair.capital);
    EXPECT_EQ(foldCase(pair.capital), pair.small);
    EXPECT_EQ(foldCase(pair.small), pair.small);
    EXPECT_TRUE(equalsIgnoreCase(pair.capital, pair.small));
    EXPECT_EQ(compareIgnoreCase(pair.capital, pair.small), 0);
  }
}

TEST(LetterCase, LeavesEverythingElse) {
  for (const std::string_view text : {"×", "÷", "ß", "€", "@", "[", "`", "{", "1", "_", "ƒ", "ı", "Ω", "日本"}) {
    EXPECT_EQ(foldCase(text), text);
  }
  EXPECT_FALSE(equalsIgnoreCase("×", "÷"));
  EXPECT_FALSE(equalsIgnoreCase("@", "`"));
}

TEST(LetterCase, FoldsLongMixedTexts) {
  EXPECT_EQ(foldCase("BANK PEMBANGUNAN ÉTÉ Š DAERAH"), "bank pembangunan été š daerah");
  EXPECT_TRUE(equalsIgnoreCase("KODE_FORM", "kode_form"));
  EXPECT_FALSE(equalsIgnoreCase("KODE_FORM", "kode_form "));
}

TEST(LetterCase, OrdersTexts) {
  EXPECT_LT(compareIgnoreCase("abc", "ABD"), 0);
  EXPECT_GT(compareIgnoreCase("B", "a"), 0);
  EXPECT_LT(compareIgnoreCase("ab", "ABC"), 0);
  EXPECT_LT(compareIgnoreCase("", "a"), 0);
  EXPECT_EQ(compareIgnoreCase("", ""), 0);
  EXPECT_LT(compareIgnoreCase("z", "é"), 0);
}

/// The order of two texts is that of their folded forms, whatever bytes they hold. Sorting would break without it.
TEST(LetterCase, AgreesWithFoldedTextsForRandomBytes) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  constexpr std::string_view bytes = "aAbBzZ\xC3\xC3\xC5\xC5\x80\x92\x93\x97\x9E\xA0\xA1\xB8\xBD\xBE\xBF\xFF";
  for (int i = 0; i < 100000; ++i) {
    std::string left(random() % 5, '\0');
    std::string right(random() % 5, '\0');
    for (char& c : left) c = bytes[random() % bytes.size()];
    for (char& c : right) c = bytes[random() % bytes.size()];
    const int expected = foldCase(left).compare(foldCase(right));
    const int order = compareIgnoreCase(left, right);
    ASSERT_EQ(order < 0, expected < 0);
    ASSERT_EQ(order == 0, expected == 0);
    ASSERT_EQ(equalsIgnoreCase(left, right), expected == 0);
    ASSERT_EQ(foldCase(foldCase(left)), foldCase(left));
  }
}

}  // namespace
}  // namespace tarvola
