#include "tarvola/cli/suggestion.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvola::test {
namespace {

const std::vector<std::string> known = {"create", "show",     "recount", "check", "list",
                                        "remove", "--period", "--yes",   "-p"};

struct Typed {
  std::string word;
  std::string meant;
};

class Suggestion : public testing::TestWithParam<Typed> {};

TEST_P(Suggestion, IsTheNearestWord) { EXPECT_EQ(cli::nearestWord(GetParam().word, known), GetParam().meant); }

INSTANTIATE_TEST_SUITE_P(Tool, Suggestion,
                         testing::Values(Typed{"shw", "show"},            // left out
                                         Typed{"shoow", "show"},          // one more
                                         Typed{"crate", "create"},        // left out
                                         Typed{"remoev", "remove"},       // swapped
                                         Typed{"chack", "check"},         // mistaken
                                         Typed{"rec", "recount"},         // the beginning
                                         Typed{"--perod", "--period"},    // dashes do not count
                                         Typed{"period", "--period"},     //
                                         Typed{"-perid", "--period"},     //
                                         Typed{"publish", ""},            // no slip of the fingers
                                         Typed{"lo", ""},                 // nothing begins with it
                                         Typed{"x", ""},                  // one letter is near to anything
                                         Typed{"", ""}, Typed{"--", ""},  //
                                         Typed{"Show", "show"}));         // one letter mistaken

TEST(Suggestion, OfEquallyNearWordsIsTheFirst) {
  EXPECT_EQ(cli::nearestWord("lst", std::vector<std::string>{"last", "list"}), "last");
}

TEST(Suggestion, IsAskedForInALineOfItsOwn) {
  EXPECT_EQ(cli::didYouMean("shw", known), "\nDid you mean show?");
  EXPECT_EQ(cli::didYouMean("publish", known), "");
}

}  // namespace
}  // namespace tarvola::test
