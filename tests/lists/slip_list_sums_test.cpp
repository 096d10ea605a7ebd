#include "tarvola/ado/fields.h"
#include "tarvola/store/field_access.h"
#include "tests/lists/slip_list_store.h"

namespace tarvola::test {
namespace {

class SlipListSums : public testing::Test {
 protected:
  /// "A6;A7;B6;B7" of the loaded header.
  std::string sums() {
    std::string text;
    for (const std::string_view field : {"A6", "A7", "B6", "B7"})
      text += (text.empty() ? "" : ";") + store::fieldText(list.rs4_2Hdr(), field);
    return text;
  }
  void addRow(int collection, std::string_view gross, std::string_view tax) const {
    store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, " + std::to_string(collection) +
              ", 1, 'x', '1;2009;1;n;a;b;x;05/01/2009;" + std::string(gross) + ";" + std::string(tax) + "')");
  }

  SlipListStore store;
  CapturedMessages messages;
  CD113206 list;
};

TEST_F(SlipListSums, AddUpTheirOwnCollection) {
  addRow(0, "1000", "250");
  addRow(0, "2000,5", "500,25");
  addRow(1, "7", "3");
  list.pGetD113206("", 1, 2009, 0);
  list.pJmlPPhTdFinal(1);
  EXPECT_EQ(sums(), "3000,5;750,25;0;0");
  list.pJmlPPhFinal(1);
  EXPECT_EQ(sums(), "3000,5;750,25;7;3");
  list.pUpdate();
  EXPECT_EQ(store.storedSums(), "3000,5;750,25;7;3");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipListSums, AreComputedForTheFirstCollectionOnlyByTheNormalisation) {
  addRow(0, "1000", "250");
  addRow(1, "7", "3");
  list.pGetD113206("", 1, 2009, 0);
  list.pHitPjk(1);
  EXPECT_EQ(sums(), "1000;250;0;0");
}

TEST_F(SlipListSums, AreRecomputedForGoodFromTheRowsThatThereAre) {
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;5;6;7;8'");
  addRow(0, "1000", "250");
  list.recomputeForGood("", 1, 2009, 0);
  EXPECT_EQ(store.storedSums(), "1000;250;7;8");
  addRow(0, "2000", "500");
  CD113206().recomputeForGood("", 1, 2009, 0);
  EXPECT_EQ(store.storedSums(), "3000;750;7;8");
  // Amounts that no kept sum can hold: decimals, a negative one, which does not count, and an empty one.
  addRow(0, "0,5", "-3");
  addRow(0, "", "1");
  CD113206().recomputeForGood("", 1, 2009, 0);
  EXPECT_EQ(store.storedSums(), "3000,5;751;7;8");
  store.run("DELETE * FROM DS_FORM_LAMPIRAN");
  CD113206().recomputeForGood("", 1, 2009, 0);
  EXPECT_EQ(store.storedSums(), "0;0;7;8");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipListSums, RecomputedForGoodTellWhatStandsInTheWay) {
  addRow(0, "satu", "250");
  list.recomputeForGood("", 1, 2009, 0);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(store.storedSums(), "0;0;0;0");
}

TEST_F(SlipListSums, OfAnEmptyCollectionAreZero) {
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;5;6;7;8'");
  list.pGetD113206("", 1, 2009, 0);
  list.pJmlPPhTdFinal(1);
  EXPECT_EQ(sums(), "0;0;7;8");
  list.pJmlPPhFinal(1);
  EXPECT_EQ(sums(), "0;0;0;0");
}

TEST_F(SlipListSums, PassOverNegativeAndMissingAmounts) {
  addRow(0, "-5", "250");
  addRow(0, "1000", "-7");
  addRow(0, "", "");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 0, 1, 'x', '1;2009')");
  list.pGetD113206("", 1, 2009, 0);
  list.pJmlPPhTdFinal(1);
  EXPECT_EQ(sums(), "1000;250;0;0");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipListSums, StayWhenAnAmountIsNoNumber) {
  addRow(0, "1000", "250");
  addRow(0, "seribu", "1");
  list.pGetD113206("", 1, 2009, 0);
  list.pJmlPPhTdFinal(1);
  EXPECT_EQ(sums(), "0;0;0;0");
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
}

TEST_F(SlipListSums, LeaveOutRowsOfOtherFormsAndPeriods) {
  addRow(0, "1000", "250");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113207', 1, 2009, 0, 0, 1, 'x', '1;2009;1;n;a;b;x;d;5;5')");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 2, 2009, 0, 0, 1, 'x', '2;2009;1;n;a;b;x;d;5;5')");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 1, 0, 1, 'x', '1;2009;1;n;a;b;x;d;5;5')");
  list.pGetD113206("", 1, 2009, 0);
  EXPECT_EQ(list.rs4_2FormColl1()->get_RecordCount(), 1);
  EXPECT_EQ(list.rs4_2FormColl2()->get_RecordCount(), 0);
}

// The walk begins at the first row, wherever the last one ended.
TEST_F(SlipListSums, AreTheSameWhenAddedUpTwice) {
  addRow(0, "1000", "250");
  addRow(0, "7", "3");
  list.pGetD113206("", 1, 2009, 0);
  list.pJmlPPhTdFinal(1);
  list.pJmlPPhTdFinal(1);
  EXPECT_EQ(sums(), "1007;253;0;0");
}

// Around it stand the headers of other periods and another list.
TEST_F(SlipListSums, AreThoseOfTheHeaderOfTheirPeriod) {
  store.addHeader({.msPajak = 2, .thPajak = 2009, .kdPembetulanKe = 0}, "2;2;2;2");
  store.addHeader({.msPajak = 1, .thPajak = 2010, .kdPembetulanKe = 0}, "3;3;3;3");
  store.addHeader({.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 1}, "4;4;4;4");
  store.addDocument({.npwp = "n", .kdForm = "D113210", .jenisDokumen = "20", .period = january}, "x");
  list.pGetDaftarInduk("nobody", 1, 2009, 0);
  EXPECT_EQ(list.rs4_2Form()->get_RecordCount(), 1);
  EXPECT_EQ(sums(), "0;0;0;0");
  list.pGetD113206("nobody", 1, 2009, 1);
  EXPECT_EQ(list.rs4_2Form()->get_RecordCount(), 1);
  EXPECT_EQ(sums(), "4;4;4;4");
  list.pJmlPPhTdFinal(1);
  list.pUpdate();
  EXPECT_EQ(store.rows("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206' AND DAT_FORM LIKE '%;0;0;4;4'"),
            std::vector<std::string>{"013121660091000;PT Contoh Sejahtera;Jakarta;1;2009;1;0;0;4;4"});
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipListSums, NeedTheCollectionsToBeLoaded) {
  list.pGetDaftarInduk("", 1, 2009, 0);
  EXPECT_TRUE(messages.empty());
  list.pJmlPPhTdFinal(1);
  list.pJmlPPhFinal(1);
  EXPECT_EQ(messages.texts(), std::vector<std::string>(2, "Object variable or With block variable not set"));
}

TEST_F(SlipListSums, KeepTheCollectionsWhenTheHeaderAloneIsLoaded) {
  addRow(0, "1000", "250");
  list.pGetD113206("", 1, 2009, 0);
  list.pGetDaftarInduk("", 1, 2009, 0);
  list.pJmlPPhTdFinal(1);
  EXPECT_EQ(sums(), "1000;250;0;0");
}

// --- moved by a save ------------------------------------------------------------------------------------

struct StatusCase {
  bool add, edit, remove;
  const char* sums;
};

TEST_F(SlipListSums, MoveByTheStatusOfTheSave) {
  // A document that is marked as added or edited counts as such even if it is marked as deleted as well.
  constexpr StatusCase cases[] = {
      {.add = false, .edit = false, .remove = false, .sums = "100;20;100;20"},
      {.add = true, .edit = false, .remove = false, .sums = "107;23;107;23"},
      {.add = false, .edit = true, .remove = false, .sums = "107;23;107;23"},
      {.add = false, .edit = false, .remove = true, .sums = "93;17;93;17"},
      {.add = true, .edit = false, .remove = true, .sums = "107;23;107;23"},
      {.add = false, .edit = true, .remove = true, .sums = "107;23;107;23"},
      {.add = true, .edit = true, .remove = true, .sums = "107;23;107;23"},
  };
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;100;20;100;20'");
  for (const StatusCase& test : cases) {
    list.pGetDaftarInduk("", 1, 2009, 0);
    list.pAssignStatus(test.add, test.edit, test.remove);
    list.pUpdDaftarPPhTdkFinal(7, 3);
    list.pUpdDaftarPPhFinal(7, 3);
    EXPECT_EQ(sums(), test.sums) << test.add << test.edit << test.remove;
  }
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipListSums, HaveNoFloor) {
  list.pGetDaftarInduk("", 1, 2009, 0);
  list.pAssignStatus(false, false, true);
  list.pUpdDaftarPPhTdkFinal(5, 2);
  list.pUpdDaftarPPhFinal(5, 2);
  EXPECT_EQ(sums(), "-5;-2;-5;-2");
}

TEST_F(SlipListSums, AreStoredWithNothingElseOfTheRow) {
  list.pGetDaftarInduk("", 1, 2009, 0);
  list.pAssignStatus(true, false, false);
  list.pUpdDaftarPPhTdkFinal(7, 3);
  EXPECT_EQ(store.storedSums(), "0;0;0;0");
  list.pUpdate();
  EXPECT_EQ(store.row("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'"),
            "013121660091000|D113206|08|1|2009|0|-|113|013121660091000;PT Contoh Sejahtera;Jakarta;1;2009;0;7;3;0;0|"
            "31/01/2009|31/01/2009||0|0|0|0|0|0|0|0|0|0|0");
}

// The tax objects move first: a tax that is no number fails behind them.
TEST_F(SlipListSums, MoveTheTaxObjectsBeforeTheTax) {
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;100;dua;100;dua'");
  list.pGetDaftarInduk("", 1, 2009, 0);
  list.pAssignStatus(true, false, false);
  list.pUpdDaftarPPhTdkFinal(7, 3);
  list.pUpdDaftarPPhFinal(7, 3);
  EXPECT_EQ(messages.texts(), std::vector<std::string>(2, "Type mismatch"));
  EXPECT_EQ(sums(), "107;dua;107;dua");
}

// Packing comes first: a text that cannot be packed leaves the row as it was, loaded and stored.
TEST_F(SlipListSums, AreNotStoredWhenATextOfTheHeaderHoldsTheSeparator) {
  const auto before = store.dump();
  list.pGetDaftarInduk("", 1, 2009, 0);
  const std::string raw = store::fieldText(list.rs4_2Form(), "DAT_FORM");
  store::setField(list.rs4_2Hdr(), "NmWP", "PT A;B");
  list.pAssignStatus(true, false, false);
  list.pUpdDaftarPPhTdkFinal(7, 3);
  list.pUpdate();
  EXPECT_THAT(messages.texts(), testing::ElementsAre(testing::HasSubstr("'NmWP' holds ';'")));
  EXPECT_EQ(store::fieldText(list.rs4_2Form(), "DAT_FORM"), raw);
  EXPECT_EQ(store.dump(), before);
}

// --- a missing header -----------------------------------------------------------------------------------

// The row of the slip is there all the same; what works on the header fails, each operation by itself.
TEST_F(SlipListSums, FailWithoutAHeaderWhileTheSlipsRowIsInserted) {
  store.run("DELETE * FROM DS_FORM_INDUK");
  putSlip(list, "000001/PPH4");
  list.pAssignStatus(true, false, false);
  list.pGetDaftarInduk("", 1, 2009, 0);
  EXPECT_TRUE(messages.empty());
  list.pUpdDaftarPPhTdkFinal(1000, 250);
  EXPECT_EQ(messages.texts().size(), 1U);
  list.pUpdate();
  EXPECT_EQ(messages.texts().size(), 2U);
  EXPECT_EQ(store.places(), (std::vector<std::string>{"1|000001/PPH4"}));
  EXPECT_TRUE(store.rows("SELECT * FROM DS_FORM_INDUK").empty());
}

TEST_F(SlipListSums, StandStillWithoutAHeaderAndWithoutAStatus) {
  store.run("DELETE * FROM DS_FORM_INDUK");
  list.pGetDaftarInduk("", 1, 2009, 0);
  list.pUpdDaftarPPhTdkFinal(1000, 250);
  EXPECT_TRUE(messages.empty());
}

// The collections are taken from the header's row before the header itself is expanded: without one, what an earlier
// load left stays.
TEST_F(SlipListSums, OfAnEarlierLoadStayWhenTheHeaderIsMissing) {
  addRow(0, "1000", "250");
  list.pGetD113206("", 1, 2009, 0);
  const RecordsetPtr header = list.rs4_2Hdr();
  const RecordsetPtr collection = list.rs4_2FormColl1();
  list.pGetD113206("", 2, 2009, 0);
  EXPECT_EQ(messages.texts().size(), 1U);
  EXPECT_EQ(list.rs4_2Hdr(), header);
  EXPECT_EQ(list.rs4_2FormColl1(), collection);
  EXPECT_TRUE(list.rs4_2Form()->get_EOF());
}

TEST_F(SlipListSums, GiveTheFilerOfTheLoadedHeader) {
  EXPECT_EQ(list.aNPWP(), "");
  EXPECT_EQ(messages.texts().size(), 1U);
  list.pGetDaftarInduk("", 1, 2009, 0);
  EXPECT_EQ(list.aNPWP(), "013121660091000");
}

// --- what screens see -----------------------------------------------------------------------------------

TEST_F(SlipListSums, ShowTheirRecordsetsToScreens) {
  addRow(0, "1000", "250");
  list.pGetD113206("", 1, 2009, 0);
  EXPECT_EQ(list.dataMember("Primary"), list.rs4_2Form());
  EXPECT_EQ(list.dataMember("Secondary")->get_RecordCount(), 1);
  EXPECT_EQ(list.dataMember("Ternary")->get_RecordCount(), 0);
  EXPECT_EQ(list.dataMember("Quaternary"), nullptr);
  EXPECT_TRUE(messages.empty());
  list.pGetDaftarInduk("", 1, 2009, 0);
  EXPECT_EQ(list.dataMember("Secondary"), nullptr);
  EXPECT_EQ(messages.texts().size(), 1U);
}

TEST_F(SlipListSums, TellTheirMovesUntilTheyAreReplaced) {
  int moves = 0;
  list.MoveComplete.connect([&] { ++moves; });
  list.pGetDaftarInduk("", 1, 2009, 0);
  const RecordsetPtr first = list.rs4_2Hdr();
  moves = 0;
  first->MoveFirst();
  EXPECT_EQ(moves, 1);
  list.pGetDaftarInduk("", 1, 2009, 0);
  moves = 0;
  first->MoveFirst();
  EXPECT_EQ(moves, 0);
  list.rs4_2Hdr(first);
  first->MoveFirst();
  EXPECT_EQ(moves, 1);
}

TEST_F(SlipListSums, LeaveAHandedOutRecordsetBehindSafely) {
  RecordsetPtr header;
  int moves = 0;
  {
    CD113206 other;
    other.MoveComplete.connect([&] { ++moves; });
    other.pGetDaftarInduk("", 1, 2009, 0);
    header = other.rs4_2Hdr();
    moves = 0;
  }
  header->MoveFirst();
  EXPECT_EQ(moves, 0);
}

// --- the option of a slip -------------------------------------------------------------------------------

struct OptionCase {
  const char* why;
  const char* form;
  const char* packed;
  std::int16_t option;
  std::size_t messages;
};

TEST(SlipListOption, IsReadFromItsPlaceInThePackedText) {
  constexpr OptionCase cases[] = {
      {"a rent stub", "F113312", "n;a;b;1;2009;0;05/01/2009;2", 2, 0},
      {"a construction stub", "F113316", "n;a;b;1;2009;0;05/01/2009;1", 1, 0},
      {"a full rent row holds its number there", "F113312", "n;a;b;1;2009;0;05/01/2009;000001/PPH4;x", 0, 1},
      {"an interest stub ends before", "F113310", "n;a;b;1;2009;0;05/01/2009;1;1;0;1;0;1;0;1;0;1;0", 0, 1},
      {"a full interest row holds the payee there", "F113310", "n;a;b;1;2009;0;05/01/2009;1;1;0;1;0;1;0;1;0;1;0;321;x",
       321, 0},
      {"any other form has none", "F113309", "n;a;b;1;2009;0;05/01/2009;2", 0, 0},
      {"form codes are compared exactly", "f113312", "n;a;b;1;2009;0;05/01/2009;2", 0, 0},
  };
  for (const OptionCase& test : cases) {
    const SlipListStore store;
    CapturedMessages messages;
    store.addDocument({.npwp = "n", .kdForm = test.form, .jenisDokumen = "05", .period = january, .noBukti = "7"},
                      test.packed);
    CD113206 list;
    EXPECT_EQ(list.pGetOptWP("", "7", 1, test.form, 2009, 0), test.option) << test.why;
    EXPECT_EQ(messages.texts().size(), test.messages) << test.why;
  }
}

TEST_F(SlipListSums, HoldNoOptionUnlessExactlyOneSlipMatches) {
  EXPECT_EQ(list.pGetOptWP("", "7", 1, "F113312", 2009, 0), 0);
  // Slips of other periods, numbers and forms are no matches, whoever filed them.
  struct Other {
    store::Period period;
    const char* form;
    const char* number;
  };
  for (const Other& other :
       {Other{{2, 2009, 0}, "F113312", "7"}, Other{{1, 2010, 0}, "F113312", "7"}, Other{{1, 2009, 1}, "F113312", "7"},
        Other{january, "F113312", "8"}, Other{january, "F113316", "7"}})
    store.addDocument(
        {.npwp = "n", .kdForm = other.form, .jenisDokumen = "05", .period = other.period, .noBukti = other.number},
        "n;a;b;1;2009;0;05/01/2009;3");
  EXPECT_EQ(list.pGetOptWP("nobody", "7", 1, "F113312", 2009, 0), 0);
  for (int time = 0; time < 2; ++time)
    store.addDocument({.npwp = "n", .kdForm = "F113312", .jenisDokumen = "05", .period = january, .noBukti = "7"},
                      "n;a;b;1;2009;0;05/01/2009;2");
  EXPECT_EQ(list.pGetOptWP("", "7", 1, "F113312", 2009, 0), 0);
  EXPECT_TRUE(messages.empty());
}

// --- without a store ------------------------------------------------------------------------------------

TEST(SlipListWithoutAStore, TellsItAtCreationAndLivesOn) {
  moduleState() = {};
  CapturedMessages messages;
  CD113206 list;
  EXPECT_EQ(messages.texts().size(), 1U);
  putSlip(list, "000001/PPH4");
  list.pGetD113206("", 1, 2009, 0);
  list.pUpdate();
  EXPECT_EQ(messages.texts().size(), 4U);
}

}  // namespace
}  // namespace tarvola::test
