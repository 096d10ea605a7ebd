#include "tests/slips/slip_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

class SlipDelete : public testing::Test {
 protected:
  std::vector<std::string> storedNumbers() const {
    return store.rows("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309' ORDER BY NOBUKTI");
  }

  SlipStore store;
  CapturedMessages messages;
};

TEST_F(SlipDelete, TakesTheSlipFromListAndReturn) {
  addSlip("000001/PPH4", 1000, 25);
  addSlip("000002/PPH4", 1000, 15);
  EXPECT_EQ(store.ofReturn({"B43", "B44", "B45", "C3"}), "2000;20;400;2");
  removeSlip("000001/PPH4");
  EXPECT_EQ(storedNumbers(), (std::vector<std::string>{"000002/PPH4"}));
  EXPECT_EQ(store.listed(), (std::vector<std::string>{"000002/PPH4"}));
  EXPECT_EQ(store.listSums(), "1000;150");
  // The average is that of the slips that are left: the row is gone before the return is moved.
  EXPECT_EQ(store.ofReturn({"B43", "B44", "B45", "C3", "CHKC2", "CHKC3"}), "1000;15;150;1;1;1");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipDelete, OfTheOnlySlipFallsBackToTheDefaultTariff) {
  addSlip("000001/PPH4", 1000, 15);
  removeSlip("000001/PPH4");
  EXPECT_EQ(store.ofReturn({"B43", "B44", "B45", "C3", "CHKC2", "CHKC3", "JMLPHSL", "JmlB5"}), "0;25;0;0;0;0;0;0");
  EXPECT_EQ(store.listSums(), "0;0");
}

// The default tariff passes through two decimals, rounded half away from zero.
TEST_F(SlipDelete, RoundsTheDefaultTariffToTwoDecimals) {
  store.run("UPDATE SETTING_TARIF_PPH SET TARIF_JML_BRUTO = 12.345 WHERE KODE_FORM = 'F113309'");
  addSlip("000001/PPH4", 1000, 15);
  removeSlip("000001/PPH4");
  EXPECT_EQ(store.ofReturn({"B44"}), "12,35");
}

TEST_F(SlipDelete, LeavesACountOfZeroAtZero) {
  addSlip("000001/PPH4", 1000);
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.aC3(0);
  mainReturn.pUpdate();
  removeSlip("000001/PPH4");
  EXPECT_EQ(store.ofReturn({"C3", "CHKC2", "CHKC3"}), "0;0;0");
}

// Lines of the return have no floor: a slip that is deleted twice takes its amounts twice.
TEST_F(SlipDelete, TakesTheOldAmountsWithoutAFloor) {
  addSlip("000001/PPH4", 1000);
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.aB43(300);
  mainReturn.pUpdate();
  removeSlip("000001/PPH4");
  EXPECT_EQ(store.ofReturn({"B43", "B45"}), "-700;0");
}

// The list is recounted from its rows, not moved: sums that had drifted are right afterwards.
TEST_F(SlipDelete, RecountsTheListFromItsRows) {
  addSlip("000001/PPH4", 1000);
  addSlip("000002/PPH4", 3000);
  CD113206 list;
  list.pGetDaftarInduk("", 1, 2009, 0);
  list.pAssignStatus(true, false, false);
  list.pUpdDaftarPPhTdkFinal(77, 77);
  list.pUpdate();
  removeSlip("000001/PPH4");
  EXPECT_EQ(store.listSums(), "3000;750");
}

TEST_F(SlipDelete, ClearsTheFirstCollectionOnly) {
  addSlip("000001/PPH4", 1000);
  CD113206 list;
  list.pCreateD113206Hdr(1, 2009, 0, 1, "000001/PPH4", "", "", "", "", 1, 1);
  removeSlip("000001/PPH4");
  EXPECT_EQ(store.rows("SELECT COLLNO FROM DS_FORM_LAMPIRAN"), (std::vector<std::string>{"1"}));
}

// The slip is read by the form's own codes, the row is removed by the caller's: with others it stays, while list and
// return let it go.
TEST_F(SlipDelete, RemovesTheRowOfTheCodesThatTheCallerNames) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  slip.pDeleteF113309(filerNpwp, "F113309", "99", 1, 2009, 0, "000001/PPH4", "113");
  EXPECT_EQ(storedNumbers().size(), 1U);
  EXPECT_TRUE(store.listed().empty());
  EXPECT_EQ(store.ofReturn({"B43", "C3"}), "0;0");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipDelete, OfAMissingSlipTellsItAndMovesNothing) {
  addSlip("000001/PPH4", 1000);
  const auto before = store.dump();
  removeSlip("000009/PPH4");
  EXPECT_FALSE(messages.empty());
  EXPECT_EQ(store.dump(), before);
}

TEST_F(SlipDelete, OfAMissingSlipDoesNotTakeWhatTheObjectSavedBefore) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  begin(slip, "000002/PPH4");
  slip.aB13(500);
  slip.pHitPjk(1);
  slip.pUpdate();
  const auto before = store.dump();
  slip.pDeleteF113309(filerNpwp, "F113309", "02", 1, 2009, 0, "000009/PPH4", "113");
  EXPECT_EQ(store.dump(), before);
}

// The bare delete knows neither list nor return.
TEST_F(SlipDelete, InItsBareFormRemovesTheRowAlone) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  slip.pDelete("another", "F113309", "02", 1, 2009, 0, "000001/PPH4", "113", "user", "n", "a", Date());
  EXPECT_TRUE(storedNumbers().empty());
  EXPECT_EQ(store.listed().size(), 1U);
  EXPECT_EQ(store.listSums(), "1000;250");
  EXPECT_EQ(store.ofReturn({"B43", "C3"}), "1000;1");
  slip.pDelete("", "F113309", "02", 1, 2009, 0, "000001/PPH4", "113", "", "", "", Date());
  EXPECT_TRUE(messages.empty());
}

// The list before the return: its failures show first.
TEST_F(SlipDelete, RecountsTheListBeforeItMovesTheReturn) {
  addSlip("000001/PPH4", 1000);
  store.run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'");
  refuseWrites(store.path(), "UPDATE", "DS_FORM_INDUK");
  removeSlip("000001/PPH4");
  ASSERT_GE(messages.texts().size(), 2U);
  EXPECT_THAT(messages.texts().front(), testing::Not(testing::HasSubstr("refused")));
  EXPECT_THAT(messages.texts().back(), testing::HasSubstr("refused"));
}

TEST_F(SlipDelete, WithoutAListHeaderStillMovesTheReturn) {
  addSlip("000001/PPH4", 1000);
  store.run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'");
  removeSlip("000001/PPH4");
  EXPECT_FALSE(messages.empty());
  EXPECT_EQ(store.ofReturn({"B43", "C3"}), "0;0");
  EXPECT_TRUE(storedNumbers().empty());
}

}  // namespace
}  // namespace tarvola::test
