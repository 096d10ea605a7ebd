#include "tarvola/store/slip_numbering.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tests/store/store_session.h"

namespace tarvola {
namespace {

using test::StoreSession;

class SlipNumbering : public testing::Test {
 protected:
  SlipNumbering() { session.execute("DELETE * FROM SETTING_NOBUKTI_PPH"); }

  void remember(std::string_view number, std::string_view suffix, std::int16_t article = 4) {
    const RecordsetPtr rows = Recordset::create();
    rows->Open("SELECT * FROM SETTING_NOBUKTI_PPH", session.connection());
    rows->AddNew();
    rows->put_Collect("PASAL", article);
    rows->put_Collect("NO_URUT", number);
    rows->put_Collect("FORMAT_STRING", suffix == "<null>" ? Variant::null() : Variant(suffix));
    rows->UpdateBatch();
  }
  std::string memory() { return session.rowsOf("SELECT PASAL, FORMAT_STRING, NO_URUT FROM SETTING_NOBUKTI_PPH"); }
  std::string remembered() { return session.rowsOf("SELECT NO_URUT FROM SETTING_NOBUKTI_PPH WHERE PASAL = 4"); }

  /// The two parts of a proposal with a blank between.
  std::string proposed(std::int16_t article = 4) {
    const Variant proposal = general.pGetNoBuktiHdr(article);
    const Variant::Array& parts = proposal.array();
    EXPECT_EQ(parts.size(), 2U);
    return parts.at(0).string() + " " + parts.at(1).string();
  }

  StoreSession session;
  CGeneralClass general;
};

// --- proposals ---------------------------------------------------------------------------------------------------

TEST_F(SlipNumbering, StartsAtOneWithTheArticlesOwnSuffix) {
  EXPECT_EQ(proposed(4), "000001 /PPH4");
  EXPECT_EQ(proposed(15), "000001 /PPH15");
  EXPECT_EQ(proposed(21), "000001 /PPH21");
  EXPECT_EQ(proposed(22), "000001 /PPH22");
  EXPECT_EQ(proposed(23), "000001 /PPH23");
}

TEST_F(SlipNumbering, ProposesNoSuffixForAnotherArticle) { EXPECT_EQ(proposed(26), "000001 "); }

TEST_F(SlipNumbering, ProposesTheNumberBehindTheLastOne) {
  remember("000123", "/PPH4");
  EXPECT_EQ(proposed(), "000124 /PPH4");
}

TEST_F(SlipNumbering, PadsEveryLengthToSixDigits) {
  const std::pair<const char*, const char*> cases[] = {
      {"0", "000001"},    {"8", "000009"},     {"9", "000010"},     {"98", "000099"},     {"998", "000999"},
      {"9998", "009999"}, {"99998", "099999"}, {"99999", "100000"}, {"999998", "999999"}, {" 000041 ", "000042"}};
  for (const auto& [last, next] : cases) {
    session.execute("DELETE * FROM SETTING_NOBUKTI_PPH");
    remember(last, "/PPH4");
    EXPECT_EQ(proposed(), std::string(next) + " /PPH4");
  }
}

TEST_F(SlipNumbering, GoesOnToSevenDigitsBehind999999WithNoWrap) {
  remember("999999", "/PPH4");
  EXPECT_EQ(proposed(), "1000000 /PPH4");
}

TEST_F(SlipNumbering, CutsTheBlanksOfTheSuffix) {
  remember("000001", "  /PPH4 ");
  EXPECT_EQ(proposed(), "000002 /PPH4");
}

TEST_F(SlipNumbering, ProposesTheSameNumberTwice) {
  remember("000123", "/PPH4");
  EXPECT_EQ(proposed(), proposed());
  EXPECT_EQ(memory(), "4|/PPH4|000123\n");
}

TEST_F(SlipNumbering, LeavesTheProposalEmptyWhenTheNumberIsNone) {
  remember("abc", "/PPH4");
  EXPECT_EQ(proposed(), " ");
  EXPECT_THAT(session.messages().texts(), testing::ElementsAre(errorText(ErrorNumber::TypeMismatch)));
}

TEST_F(SlipNumbering, KeepsTheDigitsWhenOnlyTheSuffixIsMissing) {
  remember("000005", "<null>");
  EXPECT_EQ(proposed(), "000006 ");
  EXPECT_THAT(session.messages().texts(), testing::ElementsAre(errorText(ErrorNumber::InvalidUseOfNull)));
}

// --- an article without a row --------------------------------------------------------------------------------------

TEST_F(SlipNumbering, RecordsNothingOfTheFirstNumberOfAnArticle) {
  EXPECT_EQ(proposed(), "000001 /PPH4");
  general.pUpdateNoNuktiHdr(4, "000001/PPH4");
  EXPECT_EQ(memory(), "4|/PPH4|000000\n");
  EXPECT_EQ(proposed(), "000001 /PPH4") << "the proposal repeats";
  general.pUpdateNoNuktiHdr(4, "000001/PPH4");
  EXPECT_EQ(memory(), "4|/PPH4|000001\n");
  EXPECT_EQ(proposed(), "000002 /PPH4");
}

TEST_F(SlipNumbering, DoesNotLookAtTheNumberThatMakesTheRow) {
  for (const char* number : {"", "nonsense", "000900/PPH21", "'"}) {
    session.execute("DELETE * FROM SETTING_NOBUKTI_PPH");
    general.pUpdateNoNuktiHdr(4, number);
    EXPECT_EQ(memory(), "4|/PPH4|000000\n");
  }
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(SlipNumbering, PutsNoSuffixIntoTheRowOfAnotherArticle) {
  general.pUpdateNoNuktiHdr(26, "000001/PPH26");
  EXPECT_EQ(memory(), "26|<null>|000000\n");
}

// --- a row with a suffix -----------------------------------------------------------------------------------------

struct MoveCase {
  const char* because;
  const char* before;
  const char* number;
  const char* after;
  const char* suffix = "/PPH4";
};

class NumberMemory : public SlipNumbering, public testing::WithParamInterface<MoveCase> {};

TEST_P(NumberMemory, MovesAsTheRuleSays) {
  remember(GetParam().before, GetParam().suffix);
  general.pUpdateNoNuktiHdr(4, GetParam().number);
  EXPECT_EQ(remembered(), std::string(GetParam().after) + "\n") << GetParam().because;
  EXPECT_TRUE(session.messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    WithASuffix, NumberMemory,
    testing::Values(MoveCase{"a higher number moves it", "000123", "000200/PPH4", "000200"},
                    MoveCase{"a lower number does not", "000200", "000150/PPH4", "000200"},
                    MoveCase{"the same number does not", "000200", "000200/PPH4", "000200"},
                    MoveCase{"another suffix does not", "000123", "000200/PPH21", "000123"},
                    MoveCase{"the suffix is compared exactly", "000123", "000200/pph4", "000123"},
                    MoveCase{"a blank behind the number is part of the suffix", "000123", "000200/PPH4 ", "000123"},
                    MoveCase{"the suffix on file is trimmed", "000123", "000200/PPH4", "000200", " /PPH4 "},
                    MoveCase{"six digits alone are too short", "000123", "000200", "000123"},
                    MoveCase{"a number must be there", "000123", "", "000123"},
                    MoveCase{"the first six characters must be numeric", "000123", "00A200/PPH4", "000123"},
                    MoveCase{"one digit is padded with five zeros", "000000", "000007/PPH4", "000007"},
                    MoveCase{"two digits with four", "000000", "000077/PPH4", "000077"},
                    MoveCase{"three digits with three", "000000", "000777/PPH4", "000777"},
                    MoveCase{"four digits with two", "000000", "007777/PPH4", "007777"},
                    MoveCase{"five digits with one", "000000", "077777/PPH4", "077777"},
                    MoveCase{"six digits are stored as a number", "000000", "777777/PPH4", "777777"},
                    MoveCase{"numbers are compared, not texts", "000099", "000100/PPH4", "000100"},
                    MoveCase{"an unpadded memory counts as its number", "9", "000010/PPH4", "000010"},
                    MoveCase{"seven digits do not end in the suffix", "999999", "1000000/PPH4", "999999"},
                    // The suffix is looked at before the number on file is read: this one cannot be read.
                    MoveCase{"a foreign suffix stops before the comparison", "broken", "000200/PPH21", "broken"},
                    MoveCase{"a number without suffix stops before it too", "broken", "000200", "broken"}));

INSTANTIATE_TEST_SUITE_P(
    WithoutASuffix, NumberMemory,
    testing::Values(MoveCase{"six digits move it", "000123", "000200", "000200", "<null>"},
                    MoveCase{"also backward", "000200", "000150", "000150", "<null>"},
                    MoveCase{"a suffix is one character too many", "000123", "000200/PPH4", "000123", "<null>"},
                    MoveCase{"five digits are one too few", "000123", "00200", "000123", "<null>"},
                    MoveCase{"they must be numeric", "000123", "00A200", "000123", "<null>"},
                    MoveCase{"six significant digits too", "000123", "654321", "654321", "<null>"},
                    MoveCase{"what is on file is not read", "broken", "000001", "000001", "<null>"}));

TEST_F(SlipNumbering, FailsWhereTheNumberOnFileCannotBeRead) {
  remember("broken", "/PPH4");
  general.pUpdateNoNuktiHdr(4, "000200/PPH4");
  EXPECT_EQ(remembered(), "broken\n");
  EXPECT_THAT(session.messages().texts(), testing::ElementsAre(errorText(ErrorNumber::TypeMismatch)));
}

TEST_F(SlipNumbering, AnEmptySuffixOnFileIsNotAMissingOne) {
  remember("000123", "");
  general.pUpdateNoNuktiHdr(4, "000200");
  EXPECT_EQ(remembered(), "000123\n");
  general.pUpdateNoNuktiHdr(4, "000200/PPH4");
  EXPECT_EQ(remembered(), "000123\n");
}

TEST_F(SlipNumbering, KeepsTheArticlesApart) {
  remember("000005", "/PPH4", 4);
  remember("000050", "/PPH21", 21);
  general.pUpdateNoNuktiHdr(21, "000060/PPH21");
  EXPECT_EQ(proposed(4), "000006 /PPH4");
  EXPECT_EQ(proposed(21), "000061 /PPH21");
}

TEST_F(SlipNumbering, CountsUpThroughAMonth) {
  remember("000000", "/PPH4");
  for (int slip = 1; slip <= 120; ++slip) {
    const Variant proposal = general.pGetNoBuktiHdr(4);
    const std::string number = proposal.array()[0].string() + proposal.array()[1].string();
    general.pUpdateNoNuktiHdr(4, number);
  }
  EXPECT_EQ(memory(), "4|/PPH4|000120\n");
}

}  // namespace
}  // namespace tarvola
