#include "tarvola/ado/sql/glob_pattern.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tarvola::ado::sql {
namespace {

bool matches(std::string_view text, std::string_view pattern) {
  return sqlite3_strglob(globPattern(pattern).c_str(), std::string(text).c_str()) == 0;
}

TEST(LikePattern, IsWrittenForAnEngineThatMindsTheCase) {
  EXPECT_EQ(globPattern("%;1;_"), "*;1;?");
  EXPECT_EQ(globPattern("aZ"), "[aA][Zz]");
  EXPECT_EQ(globPattern("é"), "[éÉ]");
  EXPECT_EQ(globPattern("*?["), "[*][?][[]");
  EXPECT_EQ(globPattern("[!a-c]"), "[^a-cA-C]");
}

struct MatchRow {
  std::string_view pattern;
  std::string_view text;
  bool matches;
};

TEST(LikePattern, MatchesAsTheDialectDoes) {
  constexpr MatchRow rows[] = {
      {"", "", true},
      {"", "a", false},
      {"%", "", true},
      {"%2009%", "1;2009;0", true},
      {"%1;2009;0;%;%;123;5;%", "x;1;2009;0;10;20;123;5;", true},
      {"%1;2009;0;%;%;123;5;%", "x;1;2009;0;10;20;123;6;", false},
      {"pt_maju", "PT MAJU", true},
      {"pt_maju", "PTMAJU", false},
      // Star, question mark and number sign are ordinary characters.
      {"a*b", "a*b", true},
      {"a*b", "axb", false},
      {"a?b", "axb", false},
      {"a#b", "a1b", false},
      // Sets.
      {"[abc]x", "Bx", true},
      {"[abc]x", "dx", false},
      {"[a-c]x", "Bx", true},
      {"[!a-c]x", "Bx", false},
      {"[!a-c]x", "Dx", true},
      {"[0-9][0-9]", "42", true},
      {"100[%]", "100%", true},
      {"100[%]", "100x", false},
      {"[_]", "_", true},
      {"[_]", "a", false},
      {"[[]", "[", true},
      {"[a-]", "-", true},
      {"[-a]", "-", true},
      {"[x^]", "^", true},
      {"[!^]", "^", false},
      {"[!^]", "a", true},
      {"a[]b", "ab", true},
      {"a[b", "A[B", true},
      // Letters beyond ASCII, one character each.
      {"_", "É", true},
      {"café", "CAFÉ", true},
      {"[é]x", "ÉX", true},
      {"cafe", "café", false},
  };
  for (const MatchRow& row : rows)
    EXPECT_EQ(matches(row.text, row.pattern), row.matches) << row.pattern << " " << row.text;
}

}  // namespace
}  // namespace tarvola::ado::sql
