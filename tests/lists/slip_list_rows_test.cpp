#include "tests/lists/slip_list_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

class SlipListRows : public testing::Test {
 protected:
  SlipListStore store;
  CapturedMessages messages;
  CD113206 list;
};

TEST_F(SlipListRows, HoldTenFieldsInTheirOrder) {
  putSlip(list, "000001/PPH4");
  EXPECT_EQ(store.row("SELECT * FROM DS_FORM_LAMPIRAN"),
            "D113206|1|2009|0|0|1|000001/PPH4|"
            "1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;05/01/2009;1000;250");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipListRows, WriteFractionsInTheirDefaultTextForm) {
  putSlip(list, "000001/PPH4", 0, 1000.5, 0.25);
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"),
            "1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;05/01/2009;1000,5;0,25");
}

TEST_F(SlipListRows, KeepTheirSeqWhenASlipIsSavedTwice) {
  putSlip(list, "000001/PPH4");
  putSlip(list, "000002/PPH4");
  putSlip(list, "000003/PPH4");
  putSlip(list, "000002/PPH4", 0, 5000, 1250);
  EXPECT_EQ(store.places(), (std::vector<std::string>{"1|000001/PPH4", "2|000002/PPH4", "3|000003/PPH4"}));
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '000002/PPH4'"),
            "1;2009;2;021832415000000;Bandung;Ani;000002/PPH4;05/01/2009;5000;1250");
}

// SEQ is a count plus 1 and no maximum, and no row is renumbered.
TEST_F(SlipListRows, ShareASeqAfterOneInTheMiddleWasDeleted) {
  for (const auto* number : {"000001/PPH4", "000002/PPH4", "000003/PPH4"}) putSlip(list, number);
  list.pDeleteD113206Coll("D113206", 1, 2009, 0, "000002/PPH4", 0);
  putSlip(list, "000004/PPH4");
  EXPECT_EQ(store.places(), (std::vector<std::string>{"1|000001/PPH4", "3|000003/PPH4", "3|000004/PPH4"}));
}

TEST_F(SlipListRows, AreCountedWithinTheirPeriodCorrectionAndCollection) {
  putSlip(list, "000001/PPH4");
  list.pCreateD113206Hdr(2, 2009, 0, 0, "000001/PPH4", "", "", "", "", 1, 1);
  list.pCreateD113206Hdr(1, 2010, 0, 0, "000001/PPH4", "", "", "", "", 1, 1);
  list.pCreateD113206Hdr(1, 2009, 1, 0, "000001/PPH4", "", "", "", "", 1, 1);
  putSlip(list, "000001/PPH4", 1);
  putSlip(list, "000002/PPH4", 1);
  EXPECT_EQ(store.rows("SELECT MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, COLLNO, SEQ FROM DS_FORM_LAMPIRAN "
                       "ORDER BY TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, COLLNO, SEQ"),
            (std::vector<std::string>{"1|2009|0|0|1", "1|2009|0|1|1", "1|2009|0|1|2", "1|2009|1|0|1", "2|2009|0|0|1",
                                      "1|2010|0|0|1"}));
}

TEST_F(SlipListRows, OfOtherListsDoNotCount) {
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113207', 1, 2009, 0, 0, 1, '000001/PPH4', 'x')");
  putSlip(list, "000001/PPH4");
  EXPECT_EQ(store.rows("SELECT KD_FORM, SEQ FROM DS_FORM_LAMPIRAN ORDER BY KD_FORM"),
            (std::vector<std::string>{"D113206|1", "D113207|1"}));
}

// Of several rows of one slip only the first is replaced; the others stand.
TEST_F(SlipListRows, ReplaceOneRowEvenIfTheSlipHasTwo) {
  for (const int seq : {7, 8})
    store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 0, " + std::to_string(seq) +
              ", '000001/PPH4', 'old')");
  putSlip(list, "000001/PPH4");
  EXPECT_EQ(store.rows("SELECT SEQ, LEFT(DAT_FORM, 3) FROM DS_FORM_LAMPIRAN ORDER BY SEQ"),
            (std::vector<std::string>{"7|1;2", "8|old"}));
}

// The old row goes before the new one comes: a name that fails the INSERT leaves the slip without a list row.
TEST_F(SlipListRows, AreLostWhenTheirReplacementFails) {
  putSlip(list, "000001/PPH4");
  putSlip(list, "000002/PPH4");
  putSlip(list, "000001/PPH4", 0, 1000, 250, "Ma'ruf");
  EXPECT_EQ(store.places(), (std::vector<std::string>{"2|000002/PPH4"}));
  EXPECT_EQ(messages.texts().size(), 1U);
}

// The search comes before the delete, the delete before the new row.
TEST_F(SlipListRows, AreSearchedForThenDeletedThenWritten) {
  putSlip(list, "000001/PPH4");
  const auto before = store.dump();
  refuseWrites(store.path(), "DELETE", "DS_FORM_LAMPIRAN");
  putSlip(list, "000001/PPH4", 0, 7, 7, "Ma'ruf");
  EXPECT_THAT(messages.texts(), testing::ElementsAre(testing::HasSubstr("refused")));
  EXPECT_EQ(store.dump(), before);
}

TEST_F(SlipListRows, StayWhenASlipNumberFailsTheSearch) {
  putSlip(list, "000001/PPH4");
  const auto before = store.dump();
  putSlip(list, "000001/PPH4' OR '1'='1");
  EXPECT_EQ(store.dump(), before);
  EXPECT_EQ(messages.texts().size(), 1U);
}

// A ";" would shift all fields behind it. It is refused before the old row is touched.
TEST_F(SlipListRows, StayWhenATextHoldsTheSeparator) {
  putSlip(list, "000001/PPH4");
  const auto before = store.dump();
  const auto put = [&](std::string_view npwp, std::string_view address, std::string_view name, std::string_view date) {
    messages.clear();
    list.pCreateD113206Hdr(1, 2009, 0, 0, "000001/PPH4", npwp, address, name, date, 1, 1);
    EXPECT_EQ(messages.texts().size(), 1U);
    EXPECT_EQ(store.dump(), before);
  };
  put("1;2", "", "", "");
  put("", "1;2", "", "");
  put("", "", "1;2", "");
  put("", "", "", "1;2");
  list.pCreateD113206Hdr(1, 2009, 0, 0, "1;2", "", "", "", "", 1, 1);
  EXPECT_EQ(store.dump(), before);
}

// A row is asked for by the whole of list, period, correction, collection and number.
TEST_F(SlipListRows, OfAnotherKeyAreNeitherReplacedNorDeleted) {
  for (const std::string key : {"'D113207', 1, 2009, 0, 0", "'D113206', 2, 2009, 0, 0", "'D113206', 1, 2010, 0, 0",
                                "'D113206', 1, 2009, 1, 0", "'D113206', 1, 2009, 0, 1"})
    store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES (" + key + ", 1, '000001/PPH4', 'other')");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 0, 1, '000009/PPH4', 'other')");
  const auto before = store.dump();
  putSlip(list, "000001/PPH4");
  EXPECT_EQ(store.rows("SELECT * FROM DS_FORM_LAMPIRAN WHERE DAT_FORM = 'other'").size(), 6U);
  EXPECT_EQ(store.row("SELECT SEQ FROM DS_FORM_LAMPIRAN WHERE DAT_FORM <> 'other'"), "2");
  list.pDeleteD113206Coll("D113206", 1, 2009, 0, "000001/PPH4", 0);
  EXPECT_EQ(store.dump(), before);
  EXPECT_TRUE(messages.empty());
}

// Both rows of a slip that has two go with it.
TEST_F(SlipListRows, OfOneSlipAreDeletedTogether) {
  for (const int seq : {7, 8})
    store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 0, " + std::to_string(seq) +
              ", '000001/PPH4', 'old')");
  list.pDeleteD113206Coll("", 1, 2009, 0, "000001/PPH4", 0);
  EXPECT_TRUE(store.places().empty());
}

TEST_F(SlipListRows, AreDeletedFromOneCollectionAndTheSumsStay) {
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;1000;250;1000;250'");
  putSlip(list, "000001/PPH4", 0);
  putSlip(list, "000001/PPH4", 1);
  putSlip(list, "000002/PPH4", 0);
  list.pDeleteD113206Coll("anything", 1, 2009, 0, "000001/PPH4", 0);
  EXPECT_EQ(store.rows("SELECT COLLNO, NOBUKTI FROM DS_FORM_LAMPIRAN ORDER BY NOBUKTI"),
            (std::vector<std::string>{"1|000001/PPH4", "0|000002/PPH4"}));
  EXPECT_EQ(store.storedSums(), "1000;250;1000;250");
  list.pDeleteD113206Coll("D113206", 1, 2009, 0, "000009/PPH4", 0);
  EXPECT_EQ(store.places().size(), 2U);
  EXPECT_TRUE(messages.empty());
}

// --- the older way in ----------------------------------------------------------------------------------

TEST_F(SlipListRows, OfTheOlderWayHaveALayoutOfTheirOwn) {
  list.pCreateD113206CollA(" 0131", " PT Contoh", " 1", " 2009", " 0", 9, " Jakarta", Date::fromYmd(2009, 1, 5), " 77",
                           " 1000", " 250");
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(store.row("SELECT * FROM DS_FORM_LAMPIRAN"),
            "D113206|1|2009|0|0|9|77|1;2009;0;9;0131;Jakarta;PT Contoh;05/01/2009;77;1000;250;0");
}

TEST_F(SlipListRows, OfTheOlderWayHoldTheDateInItsDefaultTextForm) {
  const Date noon = Date::fromSerial(Date::fromYmd(2009, 1, 5).serial() + 0.5);
  list.pCreateD113206CollA("0131", "PT", "1", "2009", "0", 9, "Jl", noon, "77", "1000", "250");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"),
            "1;2009;0;9;0131;Jl;PT;05/01/2009 12:00:00;77;1000;250;0");
}

TEST_F(SlipListRows, OfTheOlderWayAreAddedWithoutASearch) {
  for (int time = 0; time < 2; ++time)
    list.pCreateD113206CollA("", "", "1", "2009", "0", 9, "", Date::fromYmd(2009, 1, 5), "77", "1", "1");
  EXPECT_EQ(store.places(), (std::vector<std::string>{"9|77", "9|77"}));
}

TEST_F(SlipListRows, OfTheOlderWayTakeOnlyNumbersAsSlipNumbers) {
  list.pCreateD113206CollA("", "", "1", "2009", "0", 9, "", Date::fromYmd(2009, 1, 5), "000001/PPH4", "1", "1");
  EXPECT_EQ(messages.texts().size(), 1U);
  EXPECT_TRUE(store.places().empty());
}

// pDelete names a table that stores of today do not have.
TEST_F(SlipListRows, AreNotTouchedByTheDeleteOfOlderStores) {
  putSlip(list, "000001/PPH4");
  const auto before = store.dump();
  list.pDelete("D113206", 1, 2009, 0);
  EXPECT_EQ(messages.texts().size(), 1U);
  list.pDelete("8", 1, 2009, 0);
  EXPECT_EQ(messages.texts().size(), 2U);
  EXPECT_EQ(store.dump(), before);
}

// --- hostile texts -------------------------------------------------------------------------------------

struct HostileCall {
  const char* name;
  void (*call)(CD113206&, std::string_view);
};

class SlipListHostileTexts : public testing::TestWithParam<HostileCall> {};

// Whatever an argument holds, the failing statement fails with one message and nothing else happens.
TEST_P(SlipListHostileTexts, FailTheirStatementAndChangeNothing) {
  for (const std::string_view hostile : {"x'y", "' OR '1'='1", "1; DELETE * FROM DS_FORM_LAMPIRAN", "'; --"}) {
    const SlipListStore store;
    CapturedMessages messages;
    CD113206 list;
    putSlip(list, "000001/PPH4");
    const auto before = store.dump();
    ASSERT_TRUE(messages.empty());
    GetParam().call(list, hostile);
    EXPECT_LE(messages.texts().size(), 1U) << hostile;
    if (hostile.find('\'') != std::string_view::npos) {
      EXPECT_EQ(messages.texts().size(), 1U) << hostile;
    }
    EXPECT_EQ(store.dump(), before) << hostile;
  }
}

using Text = std::string_view;
const Date someDay = Date::fromYmd(2009, 1, 5);
const std::vector<HostileCall> hostileCalls = {
    {"CreateNumber", [](CD113206& l, Text t) { l.pCreateD113206Hdr(1, 2009, 0, 0, t, "", "", "", "", 1, 1); }},
    {"CreatePayee", [](CD113206& l, Text t) { l.pCreateD113206Hdr(1, 2009, 0, 0, "000002", t, "", "", "", 1, 1); }},
    {"CreateAddress", [](CD113206& l, Text t) { l.pCreateD113206Hdr(1, 2009, 0, 0, "000002", "", t, "", "", 1, 1); }},
    {"CreateName", [](CD113206& l, Text t) { l.pCreateD113206Hdr(1, 2009, 0, 0, "000002", "", "", t, "", 1, 1); }},
    {"CreateDate", [](CD113206& l, Text t) { l.pCreateD113206Hdr(1, 2009, 0, 0, "000002", "", "", "", t, 1, 1); }},
    {"OlderMonth",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", "", t, "2009", "0", 1, "", someDay, "1", "1", "1"); }},
    {"OlderYear",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", "", "1", t, "0", 1, "", someDay, "1", "1", "1"); }},
    {"OlderCorrection",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", "", "1", "2009", t, 1, "", someDay, "1", "1", "1"); }},
    {"OlderFiler",
     [](CD113206& l, Text t) { l.pCreateD113206CollA(t, "", "1", "2009", "0", 1, "", someDay, "1", "1", "1"); }},
    {"OlderName",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", t, "1", "2009", "0", 1, "", someDay, "1", "1", "1"); }},
    {"OlderAddress",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", "", "1", "2009", "0", 1, t, someDay, "1", "1", "1"); }},
    {"OlderNumber",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", "", "1", "2009", "0", 1, "", someDay, t, "1", "1"); }},
    {"OlderGross",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", "", "1", "2009", "0", 1, "", someDay, "1", t, "1"); }},
    {"OlderTax",
     [](CD113206& l, Text t) { l.pCreateD113206CollA("", "", "1", "2009", "0", 1, "", someDay, "1", "1", t); }},
    {"DeleteNumber", [](CD113206& l, Text t) { l.pDeleteD113206Coll("D113206", 1, 2009, 0, t, 0); }},
    {"DeleteForm", [](CD113206& l, Text t) { l.pDelete(t, 1, 2009, 0); }},
    {"OptionNumber", [](CD113206& l, Text t) { l.pGetOptWP("", t, 1, "F113312", 2009, 0); }},
    {"OptionForm", [](CD113206& l, Text t) { l.pGetOptWP("", "000001/PPH4", 1, t, 2009, 0); }},
};
INSTANTIATE_TEST_SUITE_P(EveryText, SlipListHostileTexts, testing::ValuesIn(hostileCalls),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace tarvola::test
