#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

class LotterySlip : public testing::Test {
 protected:
  LotterySlip() { begin(slip, "000001/PPH4"); }
  std::string fields(std::initializer_list<std::string_view> names) const {
    return SlipStore::joined(slip.rs4_2Form(), names);
  }

  SlipStore store;
  CapturedMessages messages;
  CF113309 slip;
};

// --- properties -----------------------------------------------------------------------------------------

struct RowCase {
  const char* gross;
  const char* tariff;
  const char* tax;
  void (CF113309::*putGross)(double);
  void (CF113309::*putTariff)(double);
  void (CF113309::*putTax)(double);
};

const std::vector<RowCase> prizeRows = {
    {"B13", "B14", "B15", &CF113309::aB13, &CF113309::aB14, &CF113309::aB15},
    {"B23", "B24", "B25", &CF113309::aB23, &CF113309::aB24, &CF113309::aB25},
    {"B33", "B34", "B35", &CF113309::aB33, &CF113309::aB34, &CF113309::aB35},
    {"B43", "B44", "B45", &CF113309::aB43, &CF113309::aB44, &CF113309::aB45},
    {"B53", "B54", "B55", &CF113309::aB53, &CF113309::aB54, &CF113309::aB55},
    {"B63", "B64", "B65", &CF113309::aB63, &CF113309::aB64, &CF113309::aB65},
};

TEST_F(LotterySlip, ComputesTheTaxOfARowFromGrossAndTariff) {
  for (const RowCase& row : prizeRows) {
    (slip.*row.putGross)(1234.5);
    // No tariff yet: the tax is unknown, not 0.
    EXPECT_EQ(fields({row.gross, row.tariff, row.tax}), "1234,5;-null-;-null-");
    (slip.*row.putTariff)(25);
    EXPECT_EQ(fields({row.gross, row.tariff, row.tax}), "1234,5;25;308,625");
    (slip.*row.putGross)(1000);
    EXPECT_EQ(fields({row.tax}), "250");
    (slip.*row.putTax)(77.5);
    EXPECT_EQ(fields({row.gross, row.tariff, row.tax}), "1000;25;77,5");
  }
  EXPECT_TRUE(messages.empty());
}

// The tariff is divided first: 1 * (7 / 100) is not 1 * 7 * 0.01 in the last place.
TEST_F(LotterySlip, DividesTheTariffFirst) {
  slip.aB14(7);
  slip.aB13(3);
  EXPECT_EQ(store::fieldNumber(slip.rs4_2Form(), "B15"), 3 * (7.0 / 100));
  EXPECT_NE(3 * (7.0 / 100), 3 * 7.0 * 0.01);
}

struct TextCase {
  const char* field;
  void (CF113309::*put)(const Variant&);
};

TEST_F(LotterySlip, StoresTextsAsTheyStand) {
  const std::vector<TextCase> cases = {{"Tgl_Potong", &CF113309::aTGL_POTONG},
                                       {"NPWPLT", &CF113309::aNPWPLT},
                                       {"NMWPLT", &CF113309::aNMWPLT},
                                       {"ALMLT", &CF113309::aALMLT},
                                       {"NoBukti", &CF113309::aNoBukti},
                                       {"INVOICE", &CF113309::aINVOICE},
                                       {"B12", &CF113309::aB12},
                                       {"B22", &CF113309::aB22},
                                       {"B32", &CF113309::aB32},
                                       {"B42", &CF113309::aB42},
                                       {"B52", &CF113309::aB52},
                                       {"B62", &CF113309::aB62}};
  for (const TextCase& test : cases) {
    (slip.*test.put)("some text");
    EXPECT_EQ(fields({test.field}), "some text") << test.field;
    (slip.*test.put)(Variant::null());
    EXPECT_EQ(fields({test.field}), "-null-") << test.field;
  }
}

TEST_F(LotterySlip, GivesItsDateAndItsFiler) {
  EXPECT_EQ(slip.aTGL_POTONG(), Variant("05/01/2009"));
  EXPECT_EQ(slip.aNPWP(), Variant("013121660091000"));
}

TEST_F(LotterySlip, WithoutARowGivesNothingAndTellsIt) {
  CF113309 empty;
  EXPECT_EQ(empty.aNPWP(), Variant());
  empty.aB12("x");
  empty.aB13(1);
  EXPECT_EQ(messages.texts(), std::vector<std::string>(3, "Object variable or With block variable not set"));
}

// --- normalisation --------------------------------------------------------------------------------------

TEST_F(LotterySlip, IsCutDownToWholeRupiah) {
  slip.aB14(25);
  slip.aB13(1000.9);
  slip.aB15(1234.99);
  slip.aB23(-0.5);
  slip.aB25(-1.5);
  slip.aB24(2.5);
  slip.pHitPjk(1);
  EXPECT_EQ(fields({"B13", "B14", "B15"}), "1000;25;1234");
  // Down to the next whole number, also below zero. The tax was computed when the tariff was written and is cut.
  EXPECT_EQ(fields({"B23", "B24", "B25"}), "-1;2,5;-1");
  EXPECT_EQ(fields({"JMLPHSL", "JmlB5"}), "999;1233");
}

TEST_F(LotterySlip, DoesNotComputeTheTaxAnewFromTheCutGross) {
  slip.aB14(50);
  slip.aB13(1001.9);
  EXPECT_EQ(fields({"B15"}), "500,95");
  slip.pHitPjk(1);
  EXPECT_EQ(fields({"B13", "B15"}), "1001;500");
}

TEST_F(LotterySlip, TurnsNullsIntoZero) {
  slip.pHitPjk(1);
  EXPECT_EQ(fields({"B13", "B14", "B15", "B63", "B64", "B65", "JmlB5", "JMLPHSL"}), "0;0;0;0;0;0;0;0");
  EXPECT_EQ(fields({"B12"}), "-null-");
  EXPECT_TRUE(messages.empty());
}

TEST_F(LotterySlip, StaysTheSameWhenNormalisedTwice) {
  slip.aB14(25);
  slip.aB13(1000.9);
  slip.pHitPjk(1);
  const std::string once = fields({"B13", "B14", "B15", "JmlB5", "JMLPHSL"});
  slip.pHitPjk(-1);
  EXPECT_EQ(fields({"B13", "B14", "B15", "JmlB5", "JMLPHSL"}), once);
}

// Amounts of all rows first, then the tariffs, then the sums: a text among the amounts ends it where it stands.
TEST_F(LotterySlip, IsNormalisedInItsOrder) {
  store.run(
      "UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;05/01/2009;000001/PPH4;p;q;r;;1,5;;;dua;;;3,5' "
      "WHERE NOBUKTI = '000001/PPH4'");
  load(slip, "000001/PPH4");
  slip.pHitPjk(1);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(fields({"B13", "B15", "B23", "B33", "B14", "JmlB5", "JMLPHSL"}), "1;0;dua;3,5;-null-;-null-;-null-");
}

TEST_F(LotterySlip, FormsItsSumsBehindTheCut) {
  slip.aB13(0.9);
  slip.aB23(0.9);
  slip.pHitPjk(1);
  EXPECT_EQ(fields({"JMLPHSL"}), "0");
}

// --- default tariffs ------------------------------------------------------------------------------------

TEST_F(LotterySlip, TakesOneDefaultTariffInAllRowsAndComputesNoTax) {
  slip.aB13(1000);
  slip.getTaxRate();
  EXPECT_EQ(fields({"B14", "B24", "B34", "B44", "B54", "B64", "B15"}), "25;25;25;25;25;25;-null-");
}

TEST_F(LotterySlip, PassesOverOtherItemsAndForms) {
  store.run("UPDATE SETTING_TARIF_PPH SET ITEM_PENGHASILAN = 'b14' WHERE KODE_FORM = 'F113309'");
  slip.aB14(5);
  slip.getTaxRate();
  EXPECT_EQ(fields({"B14", "B24"}), "5;-null-");
}

TEST_F(LotterySlip, HasTariffsOfZeroWithoutSettings) {
  store.run("DELETE * FROM SETTING_TARIF_PPH WHERE KODE_FORM = 'F113309'");
  slip.aB13(1000);
  slip.aB14(25);
  slip.getTaxRate();
  EXPECT_EQ(fields({"B14", "B24", "B34", "B44", "B54", "B64", "B15"}), "0;0;0;0;0;0;250");
}

// At a tariff of 0 whatever is won costs nothing, unless a tax is typed in.
TEST_F(LotterySlip, HasTaxesOfZeroWithoutSettingsUnlessTheyAreTypedIn) {
  store.run("DELETE * FROM SETTING_TARIF_PPH");
  slip.getTaxRate();
  slip.aB13(1000);
  slip.aB23(2000);
  slip.aB25(77);
  slip.pHitPjk(1);
  EXPECT_EQ(fields({"B15", "B25", "JmlB5", "JMLPHSL"}), "0;77;77;3000");
}

TEST_F(LotterySlip, ReadsTheSettingsOfItsArticleOnly) {
  store.run("UPDATE SETTING_TARIF_PPH SET PASAL = 21 WHERE KODE_FORM = 'F113309'");
  slip.getTaxRate();
  EXPECT_EQ(fields({"B14"}), "0");
}

TEST_F(LotterySlip, FailsOnADefaultTariffThatIsMissing) {
  store.run("UPDATE SETTING_TARIF_PPH SET TARIF_JML_BRUTO = NULL WHERE KODE_FORM = 'F113309'");
  slip.getTaxRate();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
}

// --- what it does to the return -------------------------------------------------------------------------

TEST_F(LotterySlip, LeavesTheReturnAloneWhenALineHoldsNoNumber) {
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  store::setField(mainReturn.rs4_2Form(), "B43", Variant::null());
  mainReturn.pUpdate();
  addSlip("000002/PPH4", 1000);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(store.ofReturn({"B43", "B45", "C3"}), "-null-;0;0");
  EXPECT_EQ(store.listSums(), "1000;250");
}

TEST_F(LotterySlip, WithoutAmountsCountsAllTheSame) {
  slip.pHitPjk(1);
  slip.pUpdate();
  EXPECT_EQ(store.ofReturn({"B43", "B44", "C3", "CHKC2", "CHKC3"}), "0;25;1;1;1");
}

}  // namespace
}  // namespace tarvola::test
