#include <functional>

#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

using Text = std::string_view;

struct HostileCall {
  const char* name;
  void (*call)(CF113309&, Text);
};

const std::vector<HostileCall> hostileCalls = {
    {"StubFiler",
     [](CF113309& s, Text t) {
       s.pCreateF113309Hdr(t, "F113309", "02", 1, 2009, 0, "9", "113", "n", "a", "05/01/2009");
     }},
    {"StubForm",
     [](CF113309& s, Text t) { s.pCreateF113309Hdr("f", t, "02", 1, 2009, 0, "9", "113", "n", "a", "05/01/2009"); }},
    {"StubDocument",
     [](CF113309& s, Text t) {
       s.pCreateF113309Hdr("f", "F113309", t, 1, 2009, 0, "9", "113", "n", "a", "05/01/2009");
     }},
    {"StubNumber",
     [](CF113309& s, Text t) {
       s.pCreateF113309Hdr("f", "F113309", "02", 1, 2009, 0, t, "113", "n", "a", "05/01/2009");
     }},
    {"StubTaxKind",
     [](CF113309& s, Text t) {
       s.pCreateF113309Hdr("f", "F113309", "02", 1, 2009, 0, "9", t, "n", "a", "05/01/2009");
     }},
    {"StubName",
     [](CF113309& s, Text t) {
       s.pCreateF113309Hdr("f", "F113309", "02", 1, 2009, 0, "9", "113", t, "a", "05/01/2009");
     }},
    {"StubAddress",
     [](CF113309& s, Text t) {
       s.pCreateF113309Hdr("f", "F113309", "02", 1, 2009, 0, "9", "113", "n", t, "05/01/2009");
     }},
    {"StubDate",
     [](CF113309& s, Text t) { s.pCreateF113309Hdr("f", "F113309", "02", 1, 2009, 0, "9", "113", "n", "a", t); }},
    {"LoadForm", [](CF113309& s, Text t) { s.pGetF113309("f", t, "02", 1, 2009, 0, "9", "113", "n", "a", Date()); }},
    {"LoadDocument",
     [](CF113309& s, Text t) { s.pGetF113309("f", "F113309", t, 1, 2009, 0, "9", "113", "n", "a", Date()); }},
    {"LoadNumber",
     [](CF113309& s, Text t) { s.pGetF113309("f", "F113309", "02", 1, 2009, 0, t, "113", "n", "a", Date()); }},
    {"LoadTaxKind",
     [](CF113309& s, Text t) { s.pGetF113309("f", "F113309", "02", 1, 2009, 0, "9", t, "n", "a", Date()); }},
    {"BareDeleteForm",
     [](CF113309& s, Text t) { s.pDelete("f", t, "02", 1, 2009, 0, "1", "113", "u", "n", "a", Date()); }},
    {"BareDeleteDocument",
     [](CF113309& s, Text t) { s.pDelete("f", "F113309", t, 1, 2009, 0, "1", "113", "u", "n", "a", Date()); }},
    {"BareDeleteNumber",
     [](CF113309& s, Text t) { s.pDelete("f", "F113309", "02", 1, 2009, 0, t, "113", "u", "n", "a", Date()); }},
    {"BareDeleteTaxKind",
     [](CF113309& s, Text t) { s.pDelete("f", "F113309", "02", 1, 2009, 0, "1", t, "u", "n", "a", Date()); }},
    {"DeleteNumber", [](CF113309& s, Text t) { s.pDeleteF113309("f", "F113309", "02", 1, 2009, 0, t, "113"); }},
    {"CheckNumber", [](CF113309& s, Text t) { s.pCheckNoBukti("f", 2009, t, 0); }},
};

class SlipHostileTexts : public testing::TestWithParam<HostileCall> {};

// The statement that the text enters fails with one message; nothing in the store changes.
TEST_P(SlipHostileTexts, FailTheirStatementAndChangeNothing) {
  const SlipStore store;
  CapturedMessages messages;
  addSlip("000001/PPH4", 1000);
  const auto before = store.dump();
  for (const Text hostile : {"x'y", "' OR '1'='1", "'; DELETE * FROM DS_FORM_INDUK; --"}) {
    messages.clear();
    CF113309 slip;
    GetParam().call(slip, hostile);
    EXPECT_EQ(messages.texts().size(), 1U) << hostile;
    EXPECT_EQ(store.dump(), before) << hostile;
  }
}

INSTANTIATE_TEST_SUITE_P(EveryText, SlipHostileTexts, testing::ValuesIn(hostileCalls),
                         [](const auto& test) { return test.param.name; });

class SlipSeparators : public testing::Test {
 protected:
  SlipStore store;
  CapturedMessages messages;
};

TEST_F(SlipSeparators, AreRefusedInAStub) {
  CF113309 slip;
  const auto before = store.dump();
  for (const auto* name : {"StubFiler", "StubNumber", "StubName", "StubAddress", "StubDate"})
    for (const HostileCall& hostile : hostileCalls)
      if (std::string_view(hostile.name) == name) hostile.call(slip, "a;b");
  EXPECT_EQ(messages.texts().size(), 5U);
  EXPECT_EQ(store.dump(), before);
}

// The text is packed before any row is opened or added, so that nothing of the save takes place.
TEST_F(SlipSeparators, StopASaveBeforeTheStoreIsTouched) {
  const std::vector<void (CF113309::*)(const Variant&)> texts = {
      &CF113309::aTGL_POTONG, &CF113309::aNPWPLT,  &CF113309::aNMWPLT, &CF113309::aALMLT,
      &CF113309::aNoBukti,    &CF113309::aINVOICE, &CF113309::aB12,    &CF113309::aB62};
  addSlip("000001/PPH4", 1000);
  const auto before = store.dump();
  for (const auto put : texts) {
    messages.clear();
    CF113309 slip;
    beginEdit(slip, "000001/PPH4");
    (slip.*put)("a;b");
    slip.pHitPjk(1);
    slip.pUpdate();
    EXPECT_EQ(messages.texts().size(), 1U);
    EXPECT_EQ(slip.dataMember("Primary"), nullptr);
    EXPECT_EQ(store.dump(), before);
  }
}

// The slip's own row takes an apostrophe, since no statement is put together for it. Its list row is written by one,
// and the old one is gone by then: the slip has none afterwards, while the sums move.
TEST_F(SlipSeparators, ApostrophesInThePayeeCostTheListRow) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  beginEdit(slip, "000001/PPH4");
  slip.aNMWPLT("Ma'ruf");
  slip.aB13(3000);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(messages.texts().size(), 1U);
  EXPECT_TRUE(store.listed().empty());
  EXPECT_EQ(store.listSums(), "3000;750");
  EXPECT_EQ(store.ofReturn({"B43", "C3"}), "3000;1");
  load(slip, "000001/PPH4");
  EXPECT_EQ(SlipStore::joined(slip.rs4_2Form(), {"NMWPLT", "B13"}), "Ma'ruf;3000");
}

// A number with an apostrophe is stored, and never found again.
TEST_F(SlipSeparators, ApostrophesInTheNumberAreStoredAndNeverFound) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aNoBukti("1'2");
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(messages.texts().size(), 1U);
  EXPECT_EQ(store.rows("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309'"),
            (std::vector<std::string>{"1'2"}));
  messages.clear();
  load(slip, "1'2");
  EXPECT_EQ(messages.texts().size(), 1U);
}

TEST_F(SlipSeparators, ArgumentsThatAreNotReadMayHoldAnything) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  slip.pGetF113309("a;'b", "F113309", "02", 1, 2009, 0, "000001/PPH4", "113", "a;'b", "a;'b", Date());
  EXPECT_EQ(slip.rs4_2Form()->get_RecordCount(), 1);
  EXPECT_NE(slip.pCheckNoBukti("a;'b", 2009, "000001/PPH4", 0), nullptr);
  slip.pDeleteF113309("a;'b", "F113309", "02", 1, 2009, 0, "000001/PPH4", "113");
  EXPECT_TRUE(store.listed().empty());
  EXPECT_TRUE(messages.empty());
}

}  // namespace
}  // namespace tarvola::test
