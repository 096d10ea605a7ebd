#include "tarvola/runtime/code_page.h"

#include <gtest/gtest.h>

#include <random>

namespace tarvola {
namespace {

TEST(CodePage, BringsEveryByteThereAndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string ansi(1, static_cast<char>(byte));
    const std::string text = fromAnsi(ansi);
    EXPECT_TRUE(isUtf8(text)) << byte;
    EXPECT_EQ(toAnsi(text), ansi) << byte;
  }
}

struct CodeRow {
  std::string_view ansi;
  std::string_view text;
};

TEST(CodePage, KnowsTheCharactersOfWindows1252) {
  constexpr CodeRow rows[] = {
      {"\x80", "€"},        {"\x82", "‚"},        {"\x83", "ƒ"},        {"\x84", "„"},        {"\x85", "…"},
      {"\x86", "†"},        {"\x87", "‡"},        {"\x88", "ˆ"},        {"\x89", "‰"},        {"\x8A", "Š"},
      {"\x8B", "‹"},        {"\x8C", "Œ"},        {"\x8E", "Ž"},        {"\x91", "‘"},        {"\x92", "’"},
      {"\x93", "“"},        {"\x94", "”"},        {"\x95", "•"},        {"\x96", "–"},        {"\x97", "—"},
      {"\x98", "˜"},        {"\x99", "™"},        {"\x9A", "š"},        {"\x9B", "›"},        {"\x9C", "œ"},
      {"\x9E", "ž"},        {"\x9F", "Ÿ"},        {"\xA0", "\xC2\xA0"}, {"\xE9", "é"},        {"\xFF", "ÿ"},
      {"\x81", "\xC2\x81"}, {"\x8D", "\xC2\x8D"}, {"\x8F", "\xC2\x8F"}, {"\x90", "\xC2\x90"}, {"\x9D", "\xC2\x9D"}};
  for (const CodeRow& row : rows) {
    EXPECT_EQ(fromAnsi(row.ansi), row.text);
    EXPECT_EQ(toAnsi(row.text), row.ansi);
  }
}

TEST(CodePage, PutsAQuestionMarkForWhatItCannotHold) {
  constexpr CodeRow rows[] = {
      {"?", "Ω"},
      {"a?b", "a日b"},
      {"?", "😀"},
      {"?", "\xC2\x80"},   // a control character whose byte stands for the euro
      {"?", "\xC2\x9F"},   // likewise
      {"??", "\x80\xBF"},  // continuations without a lead
      {"?", "\xE2\x82"},   // cut off
      {"?a",
       "\xE2\x82"
       "a"},                    // cut off by a letter
      {"??", "\xC0\xAF"},       // over-long
      {"???", "\xED\xA0\x80"},  // surrogate
      {"????", "\xF4\x90\x80\x80"},
      {"?", "\xFF"},
      {"?\xE9", "\xC3\xC3\xA9"},
  };
  for (const CodeRow& row : rows) EXPECT_EQ(toAnsi(row.text), row.ansi);
}

TEST(CodePage, AppendsToWhatIsThere) {
  std::string text = "x";
  appendFromAnsi(text, "Kantor Caf\xE9 dan seterusnya");
  EXPECT_EQ(text, "xKantor Café dan seterusnya");
  std::string bytes = "y";
  appendToAnsi(bytes, "Kantor Café dan seterusnya");
  EXPECT_EQ(bytes, "yKantor Caf\xE9 dan seterusnya");
}

TEST(CodePage, TellsUtf8FromOtherBytes) {
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8("plain text of more than eight bytes"));
  EXPECT_TRUE(isUtf8("é€😀"));
  EXPECT_FALSE(isUtf8("Caf\xE9"));
  EXPECT_FALSE(isUtf8("\xC0\x80"));
  EXPECT_FALSE(isUtf8("\xED\xBF\xBF"));
  EXPECT_FALSE(isUtf8("\xF5\x80\x80\x80"));
  EXPECT_FALSE(isUtf8("abcdefgh\xE2\x82"));
}

TEST(CodePage, BringsRandomBytesThereAndBackAndSurvivesThemAsText) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (int i = 0; i < 20000; ++i) {
    std::string bytes(random() % 40, '\0');
    for (char& c : bytes) c = random() % 4 == 0 ? static_cast<char>(random()) : 'a';
    const std::string text = fromAnsi(bytes);
    ASSERT_TRUE(isUtf8(text));
    ASSERT_EQ(toAnsi(text), bytes);
    ASSERT_LE(toAnsi(bytes).size(), bytes.size());
  }
}

}  // namespace
}  // namespace tarvola
