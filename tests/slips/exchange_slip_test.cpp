#include "tarvola/slips/CF113311.h"

#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

constexpr std::string_view number = "000001/PPH4";

class ExchangeSlip : public testing::Test {
 protected:
  std::string column(std::string_view name) const {
    return store.row("SELECT " + std::string(name) + " FROM DS_FORM_INDUK WHERE KD_FORM = 'F113311'");
  }
  void add(std::string_view slipNumber, double founders, double others) const {
    CF113311 added;
    startSlip(added, slipNumber);
    added.aB14(0.5);
    added.aB13(founders);
    added.aB24(0.1);
    added.aB23(others);
    save(added);
  }

  SlipStore store;
  CapturedMessages messages;
  CF113311 slip;
};

TEST_F(ExchangeSlip, StartsFromAStubWithoutANumber) {
  slip.pCreateF113311Hdr(filerNpwp, "F113311", "04", 1, 2009, 0, number, "113", "user", filerName, filerAddress,
                         Date::fromYmd(2009, 1, 5));
  EXPECT_EQ(column("NOBUKTI, DAT_FORM, TGL_REKAM, TGL_UBAH"),
            "000001/PPH4|013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009|05/01/2009|"
            "05/01/2009");
  slip.pGetF113311("", "F113311", "04", 1, 2009, 0, number, "113", "", "", Date());
  EXPECT_EQ(fieldsOf(slip, {"NoBukti", "NPWPLT", "B13"}), "-null-;-null-;-null-");
  EXPECT_TRUE(messages.empty());
}

// The stub's own number is unknown to it. Old values that are taken before the number is written look for "-", and the
// save adds a second row beside the stub.
TEST_F(ExchangeSlip, LeavesItsStubBehindWhenTheNumberComesTooLate) {
  slip.createSlip({.npwp = std::string(filerNpwp), .name = "n", .address = "a"}, january, number, Date());
  slip.loadSlip(january, number);
  slip.pAssignOldValues();
  slip.pAssignStatus(true, false, false);
  slip.aNoBukti(number);
  slip.aNPWPLT("p");
  slip.aNMWPLT("p");
  slip.aALMLT("p");
  save(slip);
  EXPECT_EQ(store.rows("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_FORM = 'F113311'").size(), 2U);
}

TEST_F(ExchangeSlip, ComputesTheTaxWithTheProductFirst) {
  startSlip(slip, number);
  slip.aB14(7);
  slip.aB13(3);
  EXPECT_EQ(store::fieldNumber(slip.rs4_2Form(), "B15"), 3 * 7.0 / 100);
  EXPECT_NE(3 * 7.0 / 100, 3 * (7.0 / 100));
  slip.aB23(1000);
  EXPECT_EQ(fieldsOf(slip, {"B23", "B25"}), "1000;-null-");
  slip.aB24(2.5);
  EXPECT_EQ(fieldsOf(slip, {"B24", "B25"}), "2,5;25");
  slip.aB25(7);
  slip.aB15(8);
  EXPECT_EQ(fieldsOf(slip, {"B15", "B25"}), "8;7");
}

TEST_F(ExchangeSlip, IsNormalisedAmountsFirst) {
  startSlip(slip, number);
  slip.aB13(1000.9);
  slip.aB15(4.99);
  slip.pHitPjk(1);
  EXPECT_EQ(fieldsOf(slip, {"B13", "B14", "B15", "B23", "B24", "B25", "JmlB5", "JMLPHSL"}), "1000;0;4;0;0;0;4;1000");
}

TEST_F(ExchangeSlip, TakesADefaultTariffForEachRow) {
  startSlip(slip, number);
  slip.getTaxRate();
  EXPECT_EQ(fieldsOf(slip, {"B14", "B24"}), "0,5;0,1");
  store.run("DELETE * FROM SETTING_TARIF_PPH WHERE KODE_FORM = 'F113311'");
  slip.getTaxRate();
  EXPECT_EQ(fieldsOf(slip, {"B14", "B24"}), "0;0");
}

TEST_F(ExchangeSlip, WritesEveryFieldInItsPlaceAndLeavesTheFirstTotalsAlone) {
  startSlip(slip, number);
  slip.aB14(0.5);
  slip.aB13(10000);
  slip.aB24(0.1);
  slip.aB23(20000);
  slip.aBursa("Bursa Efek Indonesia");
  save(slip);
  EXPECT_EQ(column("DAT_FORM"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;000001/PPH4;021832415000000;"
            "Ani;Bandung;10000;0,5;50;20000;0,1;20;70;30000;;Bursa Efek Indonesia");
  EXPECT_EQ(column("Total_Bruto, Total_PPh, Total_Bruto1, Total_PPh1, Total_Bruto2, Total_PPh2"),
            "0|0|10000|50|20000|20");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"),
            "1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;05/01/2009;30000;70");
  EXPECT_EQ(store.listSums(), "30000;70");
  EXPECT_EQ(store.ofReturn({"B2a3", "B2a4", "B2a5", "B2b3", "B2b4", "B2b5", "C3"}), "10000;0,5;50;20000;0,1;20;1");
  EXPECT_EQ(slip.rs4_2Form(), nullptr);
  EXPECT_TRUE(messages.empty());
}

// The date reaches the list as it stands, also one that is none.
TEST_F(ExchangeSlip, HandsItsDateToTheListAsItStands) {
  startSlip(slip, number);
  slip.aTGL_POTONG("awal Januari");
  save(slip);
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"),
            "1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;awal Januari;0;0");
  EXPECT_TRUE(messages.empty());
}

TEST_F(ExchangeSlip, WithBothRowsAtZeroCountsAllTheSame) {
  startSlip(slip, number);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B2a3", "B2a4", "B2b3", "B2b4", "C3", "CHKC2", "CHKC3"}), "0;0,5;0;0,1;1;1;1");
}

// The change of the list's tax is that of the rows; the sum field plays no part in it.
TEST_F(ExchangeSlip, MovesListAndReturnByTheDifferenceOfItsRows) {
  add(number, 10000, 20000);
  startEdit(slip, number);
  slip.aB13(4000);
  slip.aB24(1);
  save(slip);
  EXPECT_EQ(store.listSums(), "24000;220");
  EXPECT_EQ(store.ofReturn({"B2a3", "B2a4", "B2a5", "B2b3", "B2b4", "B2b5"}), "4000;0,5;20;20000;1;200");
}

// Lines have no floor: what the return lost meanwhile is taken all the same.
TEST_F(ExchangeSlip, TakesItsOldAmountsWithoutAFloorAndDoesNotReadTheExchange) {
  for (const auto* exchange : {"", "Bursa Efek Indonesia", "x'y;z"}) {
    add(number, 10000, 20000);
    CF113204 mainReturn;
    mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
    mainReturn.aB2a3(4000);
    mainReturn.pUpdate();
    slip.pDeleteF113311(filerNpwp, "F113311", "04", 1, 2009, 0, number, "113", exchange);
    EXPECT_EQ(store.ofReturn({"B2a3", "B2a5", "B2b3", "B2b5", "C3"}), "-6000;0;0;0;0") << exchange;
    EXPECT_EQ(store.listSums(), "0;0") << exchange;
    mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
    mainReturn.aB2a3(0);
    mainReturn.pUpdate();
    messages.clear();
  }
}

// --- by number alone ---------------------------------------------------------------------------------------

TEST_F(ExchangeSlip, IsLoadedByNumberAndCorrectionAlone) {
  const store::Period march{.msPajak = 3, .thPajak = 2011, .kdPembetulanKe = 2};
  CF113311 stub;
  stub.createSlip({.npwp = "n", .name = "a", .address = "b"}, march, number, Date::fromYmd(2011, 3, 1));
  slip.pGetBukti("not read", number, "2");
  EXPECT_EQ(fieldsOf(slip, {"MS_PAJAK", "TH_PAJAK", "npwp"}), "3;2011;n");
  ASSERT_NE(slip.dataMember("Primary"), nullptr);
  EXPECT_EQ(slip.dataMember("Primary")->get_RecordCount(), 1);
  slip.pGetBukti("", number, "0");
  EXPECT_EQ(slip.rs4_2Form()->get_RecordCount(), 0);
  EXPECT_TRUE(messages.empty());
  for (const auto* correction : {"dua", "", "0 OR 1=1"}) slip.pGetBukti("", number, correction);
  slip.pGetBukti("", "x'y", "0");
  EXPECT_EQ(messages.texts().size(), 4U);
}

// --- the exchanges -------------------------------------------------------------------------------------------

class Exchanges : public ExchangeSlip {
 protected:
  Exchanges() { store.run("DELETE * FROM BURSA"); }
};

TEST_F(Exchanges, AreListedByTheirId) {
  store.run("INSERT INTO BURSA VALUES ('Surabaya', 3)");
  store.run("INSERT INTO BURSA VALUES ('Jakarta', 1)");
  const RecordsetPtr names = slip.getBursa();
  EXPECT_EQ(names->GetString(adClipString, -1, "|", "/", ""), "Jakarta/Surabaya/");
}

TEST_F(Exchanges, AreNewUnlessTheyStandExactlyOnce) {
  store.run("INSERT INTO BURSA VALUES ('Jakarta', 1)");
  EXPECT_FALSE(slip.checkBursa("Jakarta"));
  EXPECT_FALSE(slip.checkBursa("JAKARTA"));
  EXPECT_TRUE(slip.checkBursa("Surabaya"));
  slip.addBursa("Jakarta");
  EXPECT_TRUE(slip.checkBursa("Jakarta"));
  slip.addBursa("Jakarta");
  EXPECT_EQ(store.rows("SELECT BURSA, ID FROM BURSA ORDER BY ID"),
            (std::vector<std::string>{"Jakarta|1", "Jakarta|2", "Jakarta|3"}));
  EXPECT_TRUE(messages.empty());
}

TEST_F(Exchanges, GetTheIdBehindTheGreatest) {
  store.run("INSERT INTO BURSA VALUES ('Jakarta', 7)");
  slip.addBursa("Surabaya");
  EXPECT_EQ(slip.pGetIndexBursa("Surabaya"), 8);
}

TEST_F(Exchanges, CannotBeAddedToAnEmptyTable) {
  slip.addBursa("Jakarta");
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(store.row("SELECT * FROM BURSA"), "none");
}

TEST_F(Exchanges, EndWhereAnIdNoLongerFits) {
  store.run("INSERT INTO BURSA VALUES ('Jakarta', 32767)");
  slip.addBursa("Surabaya");
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Overflow"});
  EXPECT_EQ(store.rows("SELECT * FROM BURSA").size(), 1U);
}

TEST_F(Exchanges, WithoutAnIdAreZeroAndTellIt) {
  store.run("INSERT INTO BURSA VALUES ('Jakarta', NULL)");
  EXPECT_EQ(slip.pGetIndexBursa("Jakarta"), 0);
  EXPECT_EQ(slip.pGetIndexBursa("Surabaya"), 0);
  EXPECT_EQ(messages.texts().size(), 2U);
}

TEST_F(Exchanges, WithAnApostropheFailAndChangeNothing) {
  store.run("INSERT INTO BURSA VALUES ('Jakarta', 1)");
  const auto before = store.dump();
  EXPECT_FALSE(slip.checkBursa("x' OR '1'='1"));
  slip.addBursa("x'); DELETE * FROM BURSA; --");
  EXPECT_EQ(slip.pGetIndexBursa("x'y"), 0);
  EXPECT_EQ(messages.texts().size(), 3U);
  EXPECT_EQ(store.dump(), before);
}

TEST_F(ExchangeSlip, GivesItsExchangeAndAddresses) {
  startSlip(slip, number);
  slip.aBursa("Jakarta");
  slip.aALM("Medan");
  EXPECT_EQ(slip.aBursa(), "Jakarta");
  EXPECT_EQ(slip.aALM(), "Medan");
  EXPECT_EQ(slip.aNMWP(), Variant("PT Contoh Sejahtera"));
  EXPECT_EQ(slip.aNPWP(), Variant("013121660091000"));
  slip.aNPWP("1");
  slip.aNMWP(Variant::null());
  EXPECT_EQ(fieldsOf(slip, {"npwp", "NmWP"}), "1;-null-");
  EXPECT_EQ(fieldsOf(slip, {"BURSA", "ALM", "ALMLT"}), "Jakarta;Medan;Bandung");
}

}  // namespace
}  // namespace tarvola::test
