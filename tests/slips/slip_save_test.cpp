#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

class SlipSave : public testing::Test {
 protected:
  /// One column of the stored slip.
  std::string column(std::string_view name, std::string_view number = "000001/PPH4") const {
    return store.row("SELECT " + std::string(name) + " FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309' AND NOBUKTI = '" +
                     std::string(number) + "'");
  }
  std::vector<std::string> storedNumbers() const {
    return store.rows("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309' ORDER BY NOBUKTI");
  }

  SlipStore store;
  CapturedMessages messages;
};

// --- stub and load --------------------------------------------------------------------------------------

TEST_F(SlipSave, StartsFromAStubOfEightFields) {
  CF113309 slip;
  stub(slip, "000001/PPH4");
  EXPECT_EQ(store.row("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309'"),
            "013121660091000|F113309|02|1|2009|0|000001/PPH4|113|"
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;000001/PPH4|"
            "05/01/2009|05/01/2009||0|0|0|0|0|0|0|0|0|0|0");
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipSave, LeavesAnExistingRowAloneWhenAStubIsAskedFor) {
  addSlip("000001/PPH4", 1000);
  const auto before = store.dump();
  CF113309 slip;
  stub(slip, "000001/PPH4");
  EXPECT_EQ(store.dump(), before);
  EXPECT_TRUE(messages.empty());
}

// The stub asks for the filer, the load does not.
TEST_F(SlipSave, LoadsASlipWhateverItsFiler) {
  CF113309 slip;
  stub(slip, "000001/PPH4");
  slip.pGetF113309("another", "F113309", "02", 1, 2009, 0, "000001/PPH4", "113", "", "", Date());
  EXPECT_EQ(SlipStore::joined(slip.rs4_2Form(), {"npwp", "NoBukti", "B13"}), "013121660091000;000001/PPH4;-null-");
  slip.pCreateF113309Hdr("another", "F113309", "02", 1, 2009, 0, "000001/PPH4", "113", "n", "a", "05/01/2009");
  EXPECT_EQ(storedNumbers().size(), 2U);
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipSave, HoldsNoRecordForASlipThatIsNotThere) {
  CF113309 slip;
  load(slip, "000009/PPH4");
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(slip.rs4_2Form()->get_RecordCount(), 0);
  slip.aB13(1000);
  slip.pAssignOldValues();
  slip.pHitPjk(1);
  EXPECT_EQ(messages.texts().size(), 3U);
}

// --- the stored row -------------------------------------------------------------------------------------

TEST_F(SlipSave, WritesEveryFieldInItsPlace) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.getTaxRate();
  slip.aTGL_POTONG("06/01/2009");
  slip.aB12("Mobil");
  slip.aB13(1000);
  slip.aB22("Rumah");
  slip.aB23(2000);
  slip.aB32("Motor");
  slip.aB33(3000);
  slip.aB42("Uang");
  slip.aB43(4000);
  slip.aB52("Emas");
  slip.aB53(5000);
  slip.aB62("Lain");
  slip.aB64(20);
  slip.aB63(6001);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(column("DAT_FORM"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;06/01/2009;000001/PPH4;"
            "021832415000000;Ani;Bandung;"
            "Mobil;1000;250;Rumah;2000;500;Motor;3000;750;Uang;4000;1000;Emas;5000;1250;Lain;6001;1200;"
            "25;25;25;25;25;20;4950;21001");
  EXPECT_EQ(column("FlagNPWP, Total_Bruto, Total_PPh, Total_Bruto1, Total_PPh1"), "1|21001|4950|0|0");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"),
            "1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;06/01/2009;21001;4950");
  EXPECT_EQ(store.listSums(), "21001;4950");
  EXPECT_EQ(store.ofReturn({"B43", "B44", "B45", "C3", "CHKC2", "CHKC3", "JMLPHSL", "JmlB5"}),
            "21001;23,57;4950;1;1;1;21001;4950");
}

TEST_F(SlipSave, KeepsInvoiceBehindTheLayout) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aINVOICE("INV-1");
  slip.pHitPjk(1);
  slip.pUpdate();
  load(slip, "000001/PPH4");
  EXPECT_EQ(SlipStore::joined(slip.rs4_2Form(), {"INVOICE", "JMLPHSL"}), "INV-1;0");
}

TEST_F(SlipSave, HoldsNoRowAfterwards) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(slip.rs4_2Form(), nullptr);
  EXPECT_EQ(slip.dataMember("Primary"), nullptr);
  EXPECT_EQ(slip.dataMember("Other"), nullptr);
  EXPECT_TRUE(messages.empty());
}

// A slip without a number has the old number "-", which no stored slip bears.
TEST_F(SlipSave, AddsARowForASlipThatHadNoNumber) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aNoBukti(Variant::null());
  slip.pAssignOldValues();
  slip.aNoBukti("000002/PPH4");
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(storedNumbers(), (std::vector<std::string>{"000001/PPH4", "000002/PPH4"}));
  EXPECT_EQ(column("NPWP, KD_FORM, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, KD_JENIS_PAJAK, TGL_REKAM, "
                   "TGL_UBAH, NIP, FlagNPWP",
                   "000002/PPH4"),
            "013121660091000|F113309|02|1|2009|0|113|07/02/2009|07/02/2009||1");
  EXPECT_TRUE(messages.empty());
}

// The row is found by the number that it was loaded with. The list knows nothing of the change: it holds both numbers.
TEST_F(SlipSave, FindsItsRowByTheOldNumberWhenTheNumberChanges) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  beginEdit(slip, "000001/PPH4");
  slip.aNoBukti("000005/PPH4");
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(storedNumbers(), (std::vector<std::string>{"000005/PPH4"}));
  EXPECT_EQ(store.listed(), (std::vector<std::string>{"000001/PPH4", "000005/PPH4"}));
  EXPECT_EQ(store.listSums(), "1000;250");
}

TEST_F(SlipSave, KeepsBothDatesOfARowThatItFinds) {
  addSlip("000001/PPH4", 1000);
  setToday(Date::fromYmd(2009, 5, 5));
  CF113309 slip;
  beginEdit(slip, "000001/PPH4");
  slip.aB13(2000);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(column("TGL_REKAM, TGL_UBAH"), "05/01/2009|05/01/2009");
}

TEST_F(SlipSave, MarksASlipOfAFilerWithoutAnNpwpAndChangesNoAmount) {
  CGeneralClass().pSet_NonNPWP_4a2(true, 120);
  addSlip("000001/PPH4", 1000);
  CGeneralClass().pSet_NonNPWP_4a2(false, 0);
  addSlip("000002/PPH4", 1000);
  EXPECT_EQ(column("FlagNPWP, Total_Bruto, Total_PPh", "000001/PPH4"), "2|1000|250");
  EXPECT_EQ(column("FlagNPWP, Total_Bruto, Total_PPh", "000002/PPH4"), "1|1000|250");
}

// The first save of an article's number makes the memory's row and records nothing.
TEST_F(SlipSave, MovesTheNumberMemory) {
  addSlip("000001/PPH4", 1000);
  EXPECT_EQ(store.row("SELECT * FROM SETTING_NOBUKTI_PPH"), "4|/PPH4|000000");
  addSlip("000200/PPH4", 1000);
  EXPECT_EQ(store.row("SELECT * FROM SETTING_NOBUKTI_PPH"), "4|/PPH4|000200");
  addSlip("000150/PPH4", 1000);
  EXPECT_EQ(store.row("SELECT * FROM SETTING_NOBUKTI_PPH"), "4|/PPH4|000200");
}

TEST_F(SlipSave, KeepsToItsCorrection) {
  const store::Period correction{.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 2};
  store.createReturn(correction);
  addSlip("000001/PPH4", 1000);
  addSlip("000001/PPH4", 7000, 25, correction);
  EXPECT_EQ(store.listSums(), "1000;250");
  EXPECT_EQ(store.listSums(correction), "7000;1750");
  EXPECT_EQ(store.ofReturn({"B43", "C3"}), "1000;1");
  EXPECT_EQ(store.ofReturn({"B43", "C3"}, correction), "7000;1");
}

// --- list and return ------------------------------------------------------------------------------------

TEST_F(SlipSave, MovesListAndReturnByTheDifferenceOfAnEdit) {
  addSlip("000001/PPH4", 1000);
  addSlip("000002/PPH4", 3000);
  CF113309 slip;
  beginEdit(slip, "000001/PPH4");
  slip.aB13(600);
  slip.aB24(10);
  slip.aB23(500);
  slip.pHitPjk(1);
  slip.pUpdate();
  // 600 at 25 and 500 at 10 percent make 1100 and 200; the other slip 3000 and 750.
  EXPECT_EQ(store.listSums(), "4100;950");
  EXPECT_EQ(store.ofReturn({"B43", "B44", "B45", "C3"}), "4100;23,17;950;2");
  EXPECT_EQ(store.listed().size(), 2U);
  EXPECT_TRUE(messages.empty());
}

TEST_F(SlipSave, CountsAnEditTwiceWhenTheOldValuesWereNotTaken) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  load(slip, "000001/PPH4");
  slip.pAssignStatus(false, true, false);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(store.listSums(), "2000;500");
  EXPECT_EQ(store.ofReturn({"B43", "B45", "C3"}), "2000;500;1");
}

// Without a flag the list row goes in all the same; sums and lines stay, the average tariff is set anew.
TEST_F(SlipSave, WithoutAStatusInsertsTheListRowAndMovesNoSum) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  begin(slip, "000002/PPH4");
  slip.pAssignStatus(false, false, false);
  slip.aB14(15);
  slip.aB13(1000);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(store.listed(), (std::vector<std::string>{"000001/PPH4", "000002/PPH4"}));
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '000002/PPH4'"),
            "1;2009;2;021832415000000;Bandung;Ani;000002/PPH4;05/01/2009;1000;150");
  EXPECT_EQ(store.listSums(), "1000;250");
  EXPECT_EQ(store.ofReturn({"B43", "B44", "B45", "C3"}), "1000;20;250;1");
}

// Saved as deleted, the slip is whole in the store and in the list; the list's sums fall by what it holds now, the
// return by what it was loaded with.
TEST_F(SlipSave, AsADeleteTakesTheWholeSlipFromTheSums) {
  addSlip("000001/PPH4", 1000);
  CF113309 slip;
  load(slip, "000001/PPH4");
  slip.pAssignOldValues();
  slip.pAssignStatus(false, false, true);
  slip.aB13(400);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(store.listSums(), "600;150");
  EXPECT_EQ(store.ofReturn({"B43", "B44", "B45", "C3", "CHKC2", "CHKC3"}), "0;25;0;0;0;0");
  EXPECT_EQ(storedNumbers().size(), 1U);
}

// --- failures on the way --------------------------------------------------------------------------------

TEST_F(SlipSave, WithNullAmountsFailsBeforeTheStoreIsTouched) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  const auto before = store.dump();
  slip.pUpdate();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(store.dump(), before);
  EXPECT_NE(slip.rs4_2Form(), nullptr);
}

// The row is written before the number memory asks for the number: it stands in the store, while list and return do not
// know of it.
TEST_F(SlipSave, WithoutANumberEndsBehindTheStoredRow) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aB13(1000);
  slip.pHitPjk(1);
  slip.aNoBukti(Variant::null());
  slip.pUpdate();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(store.row("SELECT NOBUKTI, Total_Bruto FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309'"), "-null-|1000");
  EXPECT_EQ(store.row("SELECT * FROM SETTING_NOBUKTI_PPH"), "none");
  EXPECT_TRUE(store.listed().empty());
  EXPECT_EQ(store.ofReturn({"B43"}), "0");
}

TEST_F(SlipSave, GoesOnWithTheReturnWhenTheListFails) {
  store.run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'");
  addSlip("000001/PPH4", 1000);
  EXPECT_EQ(messages.texts().size(), 2U);
  EXPECT_EQ(store.listed(), (std::vector<std::string>{"000001/PPH4"}));
  EXPECT_EQ(store.ofReturn({"B43", "B45", "C3"}), "1000;250;1");
}

TEST_F(SlipSave, LeavesSlipAndListSavedWhenTheReturnIsMissing) {
  store.run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'");
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aB14(25);
  slip.aB13(1000);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_FALSE(messages.empty());
  EXPECT_EQ(column("Total_Bruto"), "1000");
  EXPECT_EQ(store.listSums(), "1000;250");
  EXPECT_EQ(slip.rs4_2Form(), nullptr);
}

// Slip, then list, then return: the failures of both show in this order.
TEST_F(SlipSave, MovesTheListBeforeTheReturn) {
  store.run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'");
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aNMWPLT("Ma'ruf");
  slip.pHitPjk(1);
  slip.pUpdate();
  ASSERT_GE(messages.texts().size(), 2U);
  EXPECT_THAT(messages.texts().front(), testing::HasSubstr("Syntax error"));
  EXPECT_THAT(messages.texts().back(), testing::Not(testing::HasSubstr("Syntax error")));
}

// A Null text cannot become an argument of the list. The return moves all the same.
TEST_F(SlipSave, WithANullPayeeLeavesTheListAlone) {
  CF113309 slip;
  stub(slip, "000001/PPH4");
  load(slip, "000001/PPH4");
  slip.pAssignOldValues();
  slip.pAssignStatus(true, false, false);
  slip.aB14(25);
  slip.aB13(1000);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_TRUE(store.listed().empty());
  EXPECT_EQ(store.listSums(), "0;0");
  EXPECT_EQ(store.ofReturn({"B43", "C3"}), "1000;1");
}

// A text that cannot be packed is all that is told, also where the row could not be looked for.
TEST_F(SlipSave, IsPackedBeforeTheStoreIsAsked) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aNMWPLT("a;b");
  store::setField(slip.rs4_2Form(), "npwp", "x'y");
  slip.pHitPjk(1);
  slip.pUpdate();
  ASSERT_EQ(messages.texts().size(), 1U);
  EXPECT_THAT(messages.texts().front(), testing::HasSubstr("NMWPLT"));
}

// The number memory comes between the stored row and the list. What fails in it keeps neither from going on.
TEST_F(SlipSave, MovesTheNumberMemoryBehindItsRowAndBeforeTheList) {
  store.run("INSERT INTO SETTING_NOBUKTI_PPH VALUES (4, '/PPH4', 'abc')");
  CF113309 slip;
  begin(slip, "000001/PPH4");
  slip.aB14(25);
  slip.aB13(1000);
  slip.aNMWPLT("Ma'ruf");
  slip.pHitPjk(1);
  slip.pUpdate();
  ASSERT_EQ(messages.texts().size(), 2U);
  EXPECT_EQ(messages.texts().front(), "Type mismatch");
  EXPECT_THAT(messages.texts().back(), testing::HasSubstr("Syntax error"));
  EXPECT_EQ(column("Total_Bruto"), "1000");
  EXPECT_EQ(store.ofReturn({"B43", "C3"}), "1000;1");
}

// The return is normalised behind all that the slip moves in it and before it is stored: fractions of a line are cut,
// and its sums count what was cut.
TEST_F(SlipSave, NormalisesTheReturnBeforeItIsStored) {
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.aB43(0.75);
  mainReturn.pUpdate();
  addSlip("000001/PPH4", 1000);
  EXPECT_EQ(store.ofReturn({"B43", "B45", "JMLPHSL", "JmlB5"}), "1000;250;1000;250");
}

// A count below 0 before is 0 behind a delete, and an edit leaves it, together with the marks that follow from it.
TEST_F(SlipSave, LeavesTheCountToAddsAndDeletes) {
  addSlip("000001/PPH4", 1000);
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.aC3(0);
  mainReturn.pUpdate();
  CF113309 slip;
  beginEdit(slip, "000001/PPH4");
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(store.ofReturn({"C3", "CHKC2", "CHKC3"}), "0;0;0");
  beginEdit(slip, "000001/PPH4");
  slip.pAssignStatus(true, true, true);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(store.ofReturn({"B43", "C3", "CHKC2", "CHKC3"}), "1000;1;1;1");
  // Edited and deleted at once it is counted off, while its line moves by the difference.
  beginEdit(slip, "000001/PPH4");
  slip.pAssignStatus(false, true, true);
  slip.aB13(1500);
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(store.ofReturn({"B43", "C3", "CHKC2", "CHKC3"}), "1500;0;0;0");
}

TEST_F(SlipSave, WithoutALoadedRowFails) {
  CF113309 slip;
  slip.pUpdate();
  slip.pUpdD113206();
  slip.pUpdF113204();
  EXPECT_EQ(messages.texts(), std::vector<std::string>(3, "Object variable or With block variable not set"));
}

TEST(SlipWithoutAStore, TellsItAtCreationInTheWordingOfTheSlips) {
  moduleState() = {};
  CapturedMessages messages;
  CF113309 slip;
  ASSERT_EQ(messages.texts().size(), 1U);
  EXPECT_THAT(messages.texts().front(), testing::MatchesRegex("-?[0-9]+: Class_Initialize Sub: .+"));
  stub(slip, "000001/PPH4");
  load(slip, "000001/PPH4");
  EXPECT_EQ(slip.getNoBuktiHdr(2009, 0), "");
  EXPECT_EQ(slip.pCheckNoBukti("", 2009, "1", 0), nullptr);
  EXPECT_EQ(messages.texts().size(), 5U);
}

// --- what screens see -----------------------------------------------------------------------------------

TEST_F(SlipSave, TellsTheMovesOfTheRawRow) {
  CF113309 slip;
  begin(slip, "000001/PPH4");
  int moves = 0;
  slip.MoveComplete.connect([&] { ++moves; });
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_GT(moves, 0);
}

TEST_F(SlipSave, WorksOnARecordsetThatAScreenPutsIn) {
  CF113309 first;
  begin(first, "000001/PPH4");
  CF113309 second;
  second.rs4_2Form(first.rs4_2Form());
  second.aB13(500);
  EXPECT_EQ(SlipStore::joined(first.rs4_2Form(), {"B13"}), "500");
}

}  // namespace
}  // namespace tarvola::test
