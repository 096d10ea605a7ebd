#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

class SlipNumbers : public testing::Test {
 protected:
  void remember(std::string_view suffix, std::string_view lastNumber) const {
    store.run("INSERT INTO SETTING_NOBUKTI_PPH VALUES (4, '" + std::string(suffix) + "', '" + std::string(lastNumber) +
              "')");
  }
  void addNumber(std::string_view number, std::string_view form = "F113309",
                 const store::Period& period = january) const {
    store.addDocument({.npwp = filerNpwp, .kdForm = form, .jenisDokumen = "02", .period = period, .noBukti = number},
                      "x");
  }

  SlipStore store;
  CapturedMessages messages;
  CF113309 slip;
};

struct NumberCase {
  const char* why;
  const char* suffix;
  const char* lastNumber;
  std::vector<const char*> stored;
  const char* proposal;
};

TEST(SlipNumberProposal, IsOneMoreThanTheGreatestNumberWithTheSuffix) {
  const std::vector<NumberCase> cases = {
      {"the memory alone", "/PPH4", "000123", {}, "000124/PPH4"},
      {"the memory is greater", "/PPH4", "000123", {"000007/PPH4"}, "000124/PPH4"},
      {"the next number", "/PPH4", "000123", {"000124/PPH4"}, "000125/PPH4"},
      {"a gap is not filled", "/PPH4", "000000", {"000001/PPH4", "000009/PPH4"}, "000010/PPH4"},
      {"the order of the rows does not matter", "/PPH4", "0", {"000009/PPH4", "000001/PPH4"}, "000010/PPH4"},
      {"another suffix", "/PPH4", "000001", {"000500/PPH21", "000500/PPH5"}, "000002/PPH4"},
      {"the suffix in other letters", "/PPH4", "000001", {"000500/pph4"}, "000002/PPH4"},
      {"too short or too long", "/PPH4", "000001", {"00500/PPH4", "0000500/PPH4", "000500"}, "000002/PPH4"},
      {"not numeric", "/PPH4", "000001", {"00A500/PPH4", "A00500/PPH4"}, "000002/PPH4"},
      {"header and template", "/PPH4", "000001", {"-", "TempleteKodeNoBukti", ""}, "000002/PPH4"},
      {"blanks around", " /PPH4 ", "000001", {"  000500/PPH4 "}, "000501/PPH4"},
      {"no suffix", "", "000001", {"000500", "000900/PPH4"}, "000501"},
      {"one digit", "/X", "8", {}, "000009/X"},
      {"two digits", "/X", "9", {}, "000010/X"},
      {"three digits", "/X", "99", {}, "000100/X"},
      {"four digits", "/X", "999", {}, "001000/X"},
      {"five digits", "/X", "9999", {}, "010000/X"},
      {"the last number with a zero in front", "/X", "99998", {}, "099999/X"},
      {"six digits have none", "/X", "099999", {}, ""},
      {"six digits found", "/X", "000001", {"500000/X"}, ""},
      {"seven digits", "/X", "999999", {}, ""},
  };
  for (const NumberCase& test : cases) {
    const SlipStore store;
    CapturedMessages messages;
    store.run("INSERT INTO SETTING_NOBUKTI_PPH VALUES (4, '" + std::string(test.suffix) + "', '" + test.lastNumber +
              "')");
    for (const char* number : test.stored)
      store.addDocument(
          {.npwp = filerNpwp, .kdForm = "F113309", .jenisDokumen = "02", .period = january, .noBukti = number}, "x");
    CF113309 slip;
    EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), test.proposal) << test.why;
    EXPECT_TRUE(messages.empty()) << test.why;
  }
}

TEST_F(SlipNumbers, StartAtOneInAnEmptyStore) { EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "000001"); }

// Without a row in the settings there is no suffix, so that only numbers without one count.
TEST_F(SlipNumbers, CountWithoutASuffixWhenTheSettingsAreEmpty) {
  addNumber("000500/PPH4");
  addNumber("000007");
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "000008");
}

TEST_F(SlipNumbers, IgnoreSettingsThatStandTwice) {
  remember("/PPH4", "000123");
  remember("/PPH4", "000124");
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "000001");
}

TEST_F(SlipNumbers, PassOverRowsWithoutANumber) {
  remember("/PPH4", "000001");
  store.run(
      "INSERT INTO DS_FORM_INDUK (KD_FORM, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI) VALUES ('F113309', 2009, 0, NULL)");
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "000002/PPH4");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipNumbers, AreUniqueWithinAYearAndACorrection) {
  remember("/PPH4", "000001");
  addNumber("000010/PPH4", "F113309", {.msPajak = 7, .thPajak = 2009, .kdPembetulanKe = 0});
  addNumber("000020/PPH4", "F113309", {.msPajak = 1, .thPajak = 2010, .kdPembetulanKe = 0});
  addNumber("000030/PPH4", "F113309", {.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 1});
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "000011/PPH4");
  EXPECT_EQ(slip.getNoBuktiHdr(2010, 0), "000021/PPH4");
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 1), "000031/PPH4");
}

// The lottery slip scans six forms and does not see the other three.
TEST_F(SlipNumbers, OfSixFormsCountForALotterySlip) {
  remember("/PPH4", "000001");
  int next = 10;
  for (const auto* form : {"F113319", "F113320", "F113321", "F113204", "D113206"})
    addNumber("0000" + std::to_string(next++) + "/PPH4", form);
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "000002/PPH4");
  next = 20;
  for (const auto* form : {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317"}) {
    addNumber("0000" + std::to_string(next) + "/PPH4", form);
    EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "0000" + std::to_string(++next) + "/PPH4") << form;
  }
}

TEST_F(SlipNumbers, AreFoundTakenInAnyOfNineFormsAndAnyMonth) {
  for (const auto* form :
       {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319", "F113320", "F113321"}) {
    EXPECT_EQ(slip.pCheckNoBukti("", 2009, form, 0)->get_RecordCount(), 0);
    addNumber(form, form, {.msPajak = 9, .thPajak = 2009, .kdPembetulanKe = 0});
    EXPECT_EQ(slip.pCheckNoBukti("another", 2009, form, 0)->get_RecordCount(), 1) << form;
    EXPECT_EQ(slip.pCheckNoBukti("", 2010, form, 0)->get_RecordCount(), 0);
    EXPECT_EQ(slip.pCheckNoBukti("", 2009, form, 1)->get_RecordCount(), 0);
  }
  EXPECT_EQ(slip.pCheckNoBukti("", 2009, "-", 0)->get_RecordCount(), 0);
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipNumbers, CannotBeFoundByAHostileText) {
  EXPECT_EQ(slip.pCheckNoBukti("", 2009, "' OR '1'='1", 0), nullptr);
  EXPECT_EQ(messages.texts().size(), 1U);
}

TEST_F(SlipNumbers, AreNotProposedWhenTheSettingsCannotBeRead) {
  remember("/PPH4", "abc");
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "");
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
}

}  // namespace
}  // namespace tarvola::test
