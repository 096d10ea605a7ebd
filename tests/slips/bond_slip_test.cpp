#include "tarvola/slips/CF113317.h"

#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

constexpr std::string_view number = "000001/PPH4";
constexpr std::int16_t anyNrec = 1;
constexpr std::int16_t keepsTax = -1;

class BondSlip : public testing::Test {
 protected:
  BondSlip() { startSlip(slip, number); }
  std::string fields(std::initializer_list<std::string_view> names) const { return fieldsOf(slip, names); }
  std::string column(std::string_view name) const {
    return store.row("SELECT " + std::string(name) + " FROM DS_FORM_INDUK WHERE KD_FORM = 'F113317'");
  }
  /// One million at 12 percent for 90 of 365 days.
  void writeBond() {
    slip.aB1(1000000);
    slip.aD1(12);
    slip.aHoldingPeriode(90);
    slip.aTimePeriode(365);
  }

  SlipStore store;
  CapturedMessages messages;
  CF113317 slip;
};

// --- the stub -----------------------------------------------------------------------------------------------

TEST_F(BondSlip, StartsFromAStubWithFourTimesTheSameDate) {
  CF113317 other;
  other.pCreateF113317Hdr(filerNpwp, "F113317", "07", 2, 2009, 0, "000002/PPH4", "113", "user", filerName, filerAddress,
                          "05/02/2009");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE NOBUKTI = '000002/PPH4'"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;2;2009;0;05/02/2009;05/02/2009 ; "
            "05/02/2009;05/02/2009;0");
  other.pGetF113317("", "F113317", "07", 2, 2009, 0, "000002/PPH4", "113", "", "", Date());
  EXPECT_EQ(fieldsOf(other, {"Tgl_Potong", "E1", "F1", "G1", "NoBukti", "TimePeriode"}),
            "05/02/2009;05/02/2009 ; 05/02/2009;05/02/2009;0;-null-");
}

TEST_F(BondSlip, LosesTheBlanksOfItsStubWithTheFirstSave) {
  EXPECT_EQ(fields({"E1", "F1"}), "05/01/2009 ; 05/01/2009");
  save(slip);
  slip.loadSlip(january, number);
  EXPECT_EQ(fields({"E1", "F1"}), "05/01/2009;05/01/2009");
}

// --- interest -------------------------------------------------------------------------------------------------

TEST_F(BondSlip, WorksOutItsInterestWhileItIsZero) {
  slip.aK2(0);
  writeBond();
  // 1000000 * 12 * 0.01 * 90 / 365 = 29589.04
  EXPECT_EQ(fields({"k2"}), "29589");
  slip.aD1(13);
  slip.aB1(5000000);
  slip.aHoldingPeriode(100);
  slip.aTimePeriode(360);
  EXPECT_EQ(fields({"k2"}), "29589");
  slip.aK2(0);
  slip.aD1(13);
  // 5000000 * 13 * 0.01 * 100 / 360 = 180555.56
  EXPECT_EQ(fields({"k2"}), "180556");
  EXPECT_TRUE(messages.empty());
}

// Whichever of the four comes last works it out.
TEST_F(BondSlip, WorksOutItsInterestInAnyOrder) {
  using Step = void (*)(CF113317&);
  std::vector<Step> steps = {[](CF113317& s) { s.aB1(1000000); }, [](CF113317& s) { s.aD1(12); },
                             [](CF113317& s) { s.aHoldingPeriode(90); }, [](CF113317& s) { s.aTimePeriode(365); }};
  for (std::size_t turn = 0; turn < steps.size(); ++turn) {
    std::rotate(steps.begin(), steps.begin() + 1, steps.end());
    CF113317 bond;
    startSlip(bond, "10000" + std::to_string(turn) + "/PPH4");
    for (const Step step : steps) step(bond);
    EXPECT_EQ(fieldsOf(bond, {"k2"}), "29589") << turn;
  }
  EXPECT_TRUE(messages.empty());
}

TEST_F(BondSlip, KeepsInterestThatWasTypedIn) {
  slip.aK2(5000.6);
  writeBond();
  EXPECT_EQ(fields({"k2"}), "5001");
  slip.aK2(-3);
  slip.aD1(12);
  EXPECT_EQ(fields({"k2"}), "-3");
}

TEST_F(BondSlip, HasNoInterestWithoutATimePeriod) {
  slip.aK2(5000);
  slip.aTimePeriode(0);
  EXPECT_EQ(fields({"k2"}), "0");
  writeBond();
  EXPECT_EQ(fields({"k2"}), "29589");
  slip.aTimePeriode(-1);
  EXPECT_EQ(fields({"k2", "TimePeriode"}), "0;-1");
}

TEST_F(BondSlip, LeavesItsInterestAloneWhileSomethingIsMissing) {
  slip.aK2(5000);
  slip.aB1(1000000);
  slip.aD1(12);
  slip.aHoldingPeriode(90);
  EXPECT_EQ(fields({"k2"}), "5000");
  EXPECT_TRUE(messages.empty());
}

// --- rounding -------------------------------------------------------------------------------------------------

struct RoundedCase {
  const char* field;
  void (*put)(CF113317&, double);
};

// To the nearest whole rupiah, halves away from zero; the other slips keep what is written.
TEST_F(BondSlip, RoundsItsAmountsAsTheyAreWritten) {
  const std::vector<RoundedCase> cases = {{"b1", [](CF113317& s, double v) { s.aB1(v); }},
                                          {"h1", [](CF113317& s, double v) { s.aH1(v); }},
                                          {"i1", [](CF113317& s, double v) { s.aI1(v); }},
                                          {"j2", [](CF113317& s, double v) { s.aJ2(v); }},
                                          {"k2", [](CF113317& s, double v) { s.aK2(v); }},
                                          {"JML", [](CF113317& s, double v) { s.aJML(v); }},
                                          {"PPhFinal", [](CF113317& s, double v) { s.aPPhFinal(v); }}};
  for (const RoundedCase& test : cases) {
    test.put(slip, 1000.4);
    EXPECT_EQ(fields({test.field}), "1000") << test.field;
    test.put(slip, 1234567.5);
    EXPECT_EQ(fields({test.field}), "1234568") << test.field;
    test.put(slip, -2.5);
    EXPECT_EQ(fields({test.field}), "-3") << test.field;
  }
  slip.aD1(12.345);
  EXPECT_EQ(fields({"d1"}), "12,345");
  slip.aB1("1.000,6");
  EXPECT_EQ(fields({"b1"}), "1001");
  EXPECT_TRUE(messages.empty());
}

TEST_F(BondSlip, WorksOutItsDiscountOnceBothPricesAreThere) {
  slip.aJ2(7);
  slip.aH1(1000.4);
  EXPECT_EQ(fields({"h1", "j2"}), "1000;7");
  slip.aI1(1500.6);
  EXPECT_EQ(fields({"i1", "j2"}), "1501;501");
  slip.aH1(2000);
  EXPECT_EQ(fields({"j2"}), "-499");
  EXPECT_EQ(slip.aH1(), 2000);
  EXPECT_EQ(slip.aI1(), 1501);
  EXPECT_EQ(slip.aJ2(), -499);
}

TEST_F(BondSlip, WorksOutTheTaxWhenTheTariffIsWritten) {
  slip.aTarif(15);
  EXPECT_EQ(fields({"PPhFinal"}), "-null-");
  slip.aJML(29590);
  EXPECT_EQ(fields({"JML", "PPhFinal"}), "29590;-null-");
  slip.aTarif(15);
  // 15 * 29590 * 0.01 = 4438.5
  EXPECT_EQ(fields({"PPhFinal"}), "4439");
  EXPECT_EQ(slip.aTarif(), 15);
  EXPECT_EQ(slip.aJML(), 29590);
  EXPECT_EQ(slip.aPPhFinal(), 4439);
  EXPECT_TRUE(messages.empty());
}

TEST_F(BondSlip, TakesThePointsOutOfASeriesThatIsANumber) {
  slip.aC1("12.345");
  EXPECT_EQ(slip.aC1(), Variant("12345"));
  slip.aC1("A.1");
  EXPECT_EQ(slip.aC1(), Variant("A.1"));
  slip.aC1(Variant::null());
  EXPECT_TRUE(slip.aC1().isNull());
}

// --- normalisation --------------------------------------------------------------------------------------------

TEST_F(BondSlip, IsNormalisedWithItsTaxUnlessTheCallerKeepsIt) {
  writeBond();
  slip.aH1(1000000);
  slip.aI1(1010000);
  slip.aTarif(15);
  slip.aPPhFinal(1);
  slip.pHitPjk(keepsTax);
  EXPECT_EQ(fields({"j2", "k2", "JML", "PPhFinal"}), "10000;29589;39589;1");
  slip.pHitPjk(anyNrec);
  // 15 * 39589 * 0.01 = 5938.35
  EXPECT_EQ(fields({"JML", "PPhFinal"}), "39589;5938");
  slip.pHitPjk(0);
  EXPECT_EQ(fields({"PPhFinal"}), "5938");
}

TEST_F(BondSlip, TurnsNullsIntoZeroAndNothing) {
  slip.pHitPjk(anyNrec);
  EXPECT_EQ(fields({"a1", "c1", "b1", "d1", "h1", "i1", "j2", "k2", "JML", "PPhFinal", "Tarif", "HoldingPeriode",
                    "TimePeriode"}),
            ";;0;0;0;0;0;0;0;0;0;0;0");
  EXPECT_TRUE(messages.empty());
}

// A typed tax that nobody wrote stays Null, and the save says so before it writes.
TEST_F(BondSlip, KeepsATaxThatIsNull) {
  slip.pHitPjk(keepsTax);
  EXPECT_EQ(fields({"PPhFinal"}), "-null-");
  const auto before = store.dump();
  slip.pUpdate();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(store.dump(), before);
}

// Texts, amounts, the total, the tax: a text among the amounts ends it where it stands. The amounts are cut down here,
// though the properties round them.
TEST_F(BondSlip, IsNormalisedInItsOrder) {
  store.run(
      "UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;d;e;f;g;000001/PPH4;p;q;r;;1,9;;;2,9;3,9;banyak;4,9;;;' "
      "WHERE NOBUKTI = '000001/PPH4'");
  slip.loadSlip(january, number);
  slip.pHitPjk(anyNrec);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(fields({"a1", "b1", "i1", "h1", "j2", "k2", "d1", "Tarif", "JML", "PPhFinal"}),
            ";1;3;2;banyak;4,9;-null-;-null-;-null-;-null-");
}

TEST_F(BondSlip, TakesItsDefaultTariffAndComputesNoTax) {
  slip.aJML(1000);
  slip.getTaxRate();
  EXPECT_EQ(fields({"Tarif", "PPhFinal"}), "15;-null-");
  store.run("DELETE * FROM SETTING_TARIF_PPH");
  slip.getTaxRate();
  EXPECT_EQ(fields({"Tarif"}), "0");
}

// --- save -------------------------------------------------------------------------------------------------------

TEST_F(BondSlip, WritesEveryFieldInItsPlace) {
  slip.aA1("FR0045");
  slip.aC1("12.345");
  slip.aE1("15/05/2037");
  slip.aF1("01/10/2008");
  slip.aG1("30/12/2008");
  writeBond();
  slip.aH1(1000000);
  slip.aI1(1010000);
  slip.aTarif(15);
  slip.aOPTPPhFINTdkDiptg(1);
  slip.aINVOICE("INV-1");
  save(slip);
  EXPECT_EQ(
      column("DAT_FORM"),
      "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;15/05/2037;01/10/2008;30/12/2008;"
      "000001/PPH4;021832415000000;Ani;Bandung;FR0045;1000000;12345;12;1000000;1010000;10000;29589;39589;5938;15;"
      "90;365;INV-1;1");
  EXPECT_EQ(column("Total_Bruto, Total_PPh"), "39589|5938");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"),
            "1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;05/01/2009;39589;5938");
  EXPECT_EQ(store.listSums(), "39589;5938");
  EXPECT_EQ(store.ofReturn({"B33", "B34", "B35", "C3"}), "39589;14,99;5938;1");
  EXPECT_TRUE(messages.empty());
  slip.loadSlip(january, number);
  EXPECT_EQ(slip.achk12(), 1);
  EXPECT_EQ(slip.aOPTPPhFINTdkDiptg(), 1);
}

TEST_F(BondSlip, MovesListAndReturnByTheDifference) {
  slip.aJ2(1000);
  slip.aTarif(15);
  save(slip);
  startEdit(slip, number);
  slip.aJ2(400);
  save(slip);
  EXPECT_EQ(store.listSums(), "400;60");
  EXPECT_EQ(store.ofReturn({"B33", "B34", "B35", "C3"}), "400;15;60;1");
  slip.pDeleteF113317(filerNpwp, "F113317", "07", 1, 2009, 0, number, "113");
  EXPECT_EQ(store.listSums(), "0;0");
  EXPECT_EQ(store.ofReturn({"B33", "B34", "B35", "C3"}), "0;15;0;0");
  EXPECT_TRUE(messages.empty());
}

TEST_F(BondSlip, ReadsAndWritesItsTexts) {
  slip.aA1("1");
  slip.aE1("2");
  slip.aF1("3");
  slip.aG1("4");
  slip.aNPWP("5");
  slip.aNoBukti("6");
  slip.aNPWPLT("7");
  slip.aNMWPLT("8");
  slip.aALMLT("9");
  slip.aMsPjk(10);
  slip.aThPjk(2011);
  EXPECT_EQ(fields({"a1", "E1", "F1", "G1", "npwp", "NoBukti", "NPWPLT", "NMWPLT", "ALMLT", "MS_PAJAK", "TH_PAJAK"}),
            "1;2;3;4;5;6;7;8;9;10;2011");
  EXPECT_EQ(slip.aA1(), Variant("1"));
  EXPECT_EQ(slip.aE1(), Variant("2"));
  EXPECT_EQ(slip.aF1(), Variant("3"));
  EXPECT_EQ(slip.aG1(), Variant("4"));
  EXPECT_EQ(slip.aNPWP(), Variant("5"));
  EXPECT_EQ(slip.aNoBukti(), Variant("6"));
  EXPECT_EQ(slip.aNPWPLT(), Variant("7"));
  EXPECT_EQ(slip.aNMWPLT(), Variant("8"));
  EXPECT_EQ(slip.aALMLT(), Variant("9"));
  EXPECT_EQ(slip.aMsPjk(), 10);
  EXPECT_EQ(slip.aThPjk(), 2011);
}

// Read, it is the filer's address; written, the payee's.
TEST_F(BondSlip, HasAnAddressWithTwoSides) {
  slip.aALM("Medan");
  EXPECT_EQ(slip.aALM(), Variant("Jl. Merdeka No. 1"));
  EXPECT_EQ(fields({"ALM", "ALMLT"}), "Jl. Merdeka No. 1;Medan");
}

}  // namespace
}  // namespace tarvola::test
