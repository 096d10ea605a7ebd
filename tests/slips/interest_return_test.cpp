#include "tests/slips/interest_store.h"

namespace tarvola::test {
namespace {

/// What an interest slip moves in the return, and its list of interest.
class InterestReturn : public testing::Test {
 protected:
  /// A slip of one domestic deposit and other interest, both at 20 percent.
  void add(std::string_view slipNumber, double deposit, double other = 0, std::string_view words = "") const {
    CF113310 slip;
    startSlip(slip, slipNumber);
    slip.getTaxRate();
    slip.aB1a3(deposit);
    slip.aB62(words);
    slip.aB63(other);
    save(slip);
  }
  /// A slip of one domestic deposit at 20 percent, normalised and written to the list of interest.
  static void listDeposit(CF113310& slip, double grossRupiah) {
    startSlip(slip, number);
    slip.getTaxRate();
    slip.aB1a3(grossRupiah);
    slip.pHitPjk(1);
    slip.pInsert_D113210();
  }
  void remove(std::string_view slipNumber) const {
    CF113310 slip;
    slip.pDeleteF113310(filerNpwp, "F113310", "03", 1, 2009, 0, slipNumber, "113");
  }
  template <class Change>
  void change(const Change& write) const {
    CF113204 mainReturn;
    mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
    write(mainReturn);
    mainReturn.pUpdate();
  }
  std::string otherLine() const { return store.ofReturn({"B11a", "B11a3", "B11a4", "B11a5"}); }

  InterestStore store;
  CapturedMessages messages;
};

// --- the text line --------------------------------------------------------------------------------------------

TEST_F(InterestReturn, TakesTheWordsOfTheFirstSlip) {
  add(number, 0, 1000, "Obligasi");
  EXPECT_EQ(otherLine(), "Obligasi;1000;20;200");
}

TEST_F(InterestReturn, StaysWithoutWordsWhileSlipsHaveNone) {
  add(number, 1000);
  add("000002/PPH4", 1000);
  EXPECT_EQ(otherLine(), ";0;0;0");
  add("000003/PPH4", 0, 500, "Obligasi");
  EXPECT_EQ(otherLine(), "Obligasi;500;20;100");
}

TEST_F(InterestReturn, SaysSeveralKindsFromTheSecondSaveOn) {
  add(number, 0, 1000, "Obligasi");
  add("000002/PPH4", 0, 500, "Obligasi");
  EXPECT_EQ(otherLine(), "Lain-Lain;1500;20;300");
}

TEST_F(InterestReturn, SaysSeveralKindsEvenForASlipWithoutOtherInterest) {
  add(number, 0, 1000, "Obligasi");
  add("000002/PPH4", 700);
  EXPECT_EQ(otherLine(), "Lain-Lain;1000;20;200");
}

TEST_F(InterestReturn, SaysSeveralKindsWhenTheOnlySlipIsEdited) {
  add(number, 0, 1000, "Obligasi");
  CF113310 slip;
  startEdit(slip, number);
  slip.aB63(900);
  save(slip);
  EXPECT_EQ(otherLine(), "Lain-Lain;900;20;180");
}

TEST_F(InterestReturn, LosesItsWordsWithTheLastSlip) {
  add(number, 0, 1000, "Obligasi");
  remove(number);
  EXPECT_EQ(otherLine(), ";0;0;0");
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestReturn, KeepsSeveralKindsWhileSomethingIsLeft) {
  add(number, 0, 1000, "Obligasi");
  add("000002/PPH4", 0, 500, "Wesel");
  remove(number);
  EXPECT_EQ(otherLine(), "Lain-Lain;500;20;100");
  remove("000002/PPH4");
  EXPECT_EQ(otherLine(), ";0;0;0");
}

// The words are looked for anywhere in the text, without regard to case and to blanks around.
TEST_F(InterestReturn, KnowsSeveralKindsInAnyLetters) {
  add(number, 0, 1000, "Obligasi");
  add("000002/PPH4", 0, 500, "Wesel");
  change([](CF113204& mainReturn) { mainReturn.aB11a("  bunga lain-lain "); });
  remove(number);
  EXPECT_EQ(store.ofReturn({"B11a", "B11a3"}), "  bunga lain-lain ;500");
}

// With words of its own the line loses them when any slip is deleted, though amounts are left.
TEST_F(InterestReturn, LosesOtherWordsThoughAmountsAreLeft) {
  add(number, 0, 1000, "Obligasi");
  add("000002/PPH4", 0, 500, "Wesel");
  change([](CF113204& mainReturn) { mainReturn.aB11a("Obligasi"); });
  remove(number);
  EXPECT_EQ(otherLine(), ";500;20;100");
}

// The text line has no floor, unlike the others.
TEST_F(InterestReturn, LetsTheTextLineFallBelowZero) {
  add(number, 0, 1000, "Obligasi");
  change([](CF113204& mainReturn) { mainReturn.aB11a3(300); });
  remove(number);
  EXPECT_EQ(store.ofReturn({"B11a3", "B11a5"}), "-700;0");
}

// --- the other lines --------------------------------------------------------------------------------------------

TEST_F(InterestReturn, CountsARowOnBothSidesTwiceAndOneOnNeitherNotAtAll) {
  CF113310 slip;
  startSlip(slip, number);
  slip.getTaxRate();
  slip.aB1a3(1000);
  setSide(slip, 1, 1, 1);
  slip.aB1B3(500);
  setSide(slip, 2, 0, 0);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B1a13", "B1a15", "B1a23", "B1a25"}), "1000;200;1000;200");
  EXPECT_EQ(store.listSums(), "1500;300");
}

TEST_F(InterestReturn, MovesARowFromSideToSide) {
  add(number, 1000);
  CF113310 slip;
  startEdit(slip, number);
  setSide(slip, 1, 0, 1);
  slip.aB1a3(800);
  slip.aB43(300);
  slip.aB53(400);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B1a13", "B1a15", "B1a23", "B1a25", "B1B3", "B1B5", "B1C3", "B1C5"}),
            "0;0;800;160;300;60;400;80");
  EXPECT_EQ(store.listSums(), "1500;300");
  EXPECT_EQ(store.ofReturn({"C3"}), "1");
}

// Every line at 0 shows the default of domestic deposits, also SBI and giro.
TEST_F(InterestReturn, ShowsTheDomesticDefaultWhereALineIsZero) {
  store.run("UPDATE SETTING_TARIF_PPH SET TARIF_JML_BRUTO = 12.345 WHERE ITEM_PENGHASILAN = 'WP DN'");
  add(number, 0);
  EXPECT_EQ(store.ofReturn({"B1a14", "B1a24", "B1B4", "B1C4", "B11a4"}), "12,35;12,35;12,35;12,35;0");
}

TEST_F(InterestReturn, AveragesEachLineByItself) {
  CF113310 slip;
  startSlip(slip, number);
  slip.aB1A4(10);
  slip.aB1a3(1000);
  slip.aB1B4(30);
  slip.aB1B3(1000);
  slip.aB24(15);
  slip.aB23(1000);
  setSide(slip, 4, 0, 1);
  slip.aB44(5);
  slip.aB43(1000);
  slip.aB54(6);
  slip.aB53(1000);
  slip.aB64(7);
  slip.aB63(1000);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B1a14", "B1a24", "B1B4", "B1C4", "B11a4"}), "20;15;5;6;7");
}

TEST_F(InterestReturn, KeepsItsLinesAtZeroWhenASlipIsDeleted) {
  using Return = mainreturn::ReturnProperties;
  const std::vector<std::pair<const char*, void (Return::*)(double)>> cases = {
      {"B1a13", &Return::aB1a13}, {"B1a15", &Return::aB1A15}, {"B1a23", &Return::aB1a23}, {"B1a25", &Return::aB1A25},
      {"B1B3", &Return::aB1B3},   {"B1B5", &Return::aB1B5},   {"B1C3", &Return::aB1C3},   {"B1C5", &Return::aB1C5}};
  for (const auto& [field, put] : cases) {
    CF113310 slip;
    startSlip(slip, number);
    slip.getTaxRate();
    slip.aB1a3(1000);
    setSide(slip, 1, 1, 1);
    slip.aB43(1000);
    slip.aB53(1000);
    save(slip);
    change([&, drop = put](CF113204& mainReturn) { (mainReturn.*drop)(1); });
    remove(number);
    EXPECT_EQ(store.ofReturn({field}), "0") << field;
    EXPECT_EQ(store.ofReturn({"B1a13", "B1a23", "B1B3", "B1C3", "C3"}), "0;0;0;0;0") << field;
  }
}

TEST_F(InterestReturn, CanBeDrivenBelowZeroByAnEdit) {
  add(number, 1000);
  change([](CF113204& mainReturn) { mainReturn.aB1a13(300); });
  CF113310 slip;
  startEdit(slip, number);
  slip.aB1a3(100);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B1a13", "B1a15"}), "-600;20");
}

// Every line that comes back to 0 shows the default again; the text line shows 0.
TEST_F(InterestReturn, FallsBackToTheDefaultWithTheLastSlip) {
  CF113310 slip;
  startSlip(slip, number);
  for (const auto* tariff : {"B1A4", "B1B4", "B44", "B54", "B64"}) slip.put(tariff, 15.0);
  for (const auto* gross : {"B1A3", "B1B3", "B43", "B53", "B63"}) slip.put(gross, 1000.0);
  setSide(slip, 2, 0, 1);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B1a14", "B1a24", "B1B4", "B1C4", "B11a4"}), "15;15;15;15;15");
  remove(number);
  EXPECT_EQ(store.ofReturn({"B1a14", "B1a24", "B1B4", "B1C4", "B11a4"}), "20;20;20;20;0");
  EXPECT_TRUE(messages.empty());
}

// The kinds look at the mark of deletion alone, the sides at that of an edit first: marked as both, SBI and other
// interest lose the old amounts and gain the difference, and the text line is free again for the slip's own words.
TEST_F(InterestReturn, EditedAndDeletedAtOnceLosesItsKindsAndKeepsItsSides) {
  CF113310 slip;
  startSlip(slip, number);
  slip.getTaxRate();
  slip.aB1a3(1000);
  slip.aB43(500);
  slip.aB62("Obligasi");
  slip.aB63(300);
  save(slip);
  startEdit(slip, number);
  slip.pAssignStatus(false, true, true);
  slip.aB1a3(1200);
  slip.aB43(550);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B1a13", "B1a15", "B1B3", "B1B5", "C3"}), "1200;240;50;10;0");
  EXPECT_EQ(otherLine(), "Obligasi;0;0;0");
}

// Without a flag neither sides nor kinds move, and no word is written; the tariffs are set anew.
TEST_F(InterestReturn, StaysWithoutAStatus) {
  CF113310 slip;
  startSlip(slip, number);
  slip.pAssignStatus(false, false, false);
  slip.getTaxRate();
  slip.aB1a3(1000);
  slip.aB62("Obligasi");
  slip.aB63(500);
  save(slip);
  EXPECT_EQ(store.ofReturn({"B1a13", "B1a14", "B11a", "B11a3", "C3"}), "0;20;;0;0");
  EXPECT_EQ(store.listed(), std::vector<std::string>{std::string(number)});
  EXPECT_EQ(store.listSums(), "0;0");
}

// --- the list of interest -----------------------------------------------------------------------------------------

TEST_F(InterestReturn, WritesTheLinesOfASlip) {
  CF113310 slip;
  startSlip(slip, number);
  slip.aB1A4(10);
  slip.aB1a3(1000);
  slip.aB1B4(20);
  slip.aB1B3(500);
  slip.aB1C4(15);
  slip.aB1C3(700);
  setSide(slip, 3, 0, 1);
  slip.aB44(7.5);
  slip.aB43(300);
  slip.aB54(20);
  slip.aB53(200);
  slip.aB64(20);
  slip.aB63(100);
  save(slip);
  slip.pInsert_D113210();
  EXPECT_EQ(store.lines(),
            (std::vector<std::string>{"DN|DN|1500|15|200", "LN|LN|700|15|105", "SBI||300|7,5|22", "GIRO||200|20|40"}));
  EXPECT_EQ(store.row("SELECT NPWP, NMWP, ALM, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, TGL_POTONG, NOBUKTI, ATR1, ATR2 "
                      "FROM D113210 WHERE JENIS = 'SBI'"),
            "021832415000000|Ani|Bandung|1|2009|0|05/01/2009|000001/PPH4||0");
  EXPECT_EQ(store.interestSums(), "1;1500;200;1;700;105;1;300;22;1;200;40;4;2700;367");
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestReturn, ReplacesTheLinesOfASlip) {
  CF113310 slip;
  listDeposit(slip, 1000);
  slip.aB1a3(400);
  slip.pInsert_D113210();
  EXPECT_EQ(store.lines(), std::vector<std::string>{"DN|DN|400|20|80"});
  EXPECT_EQ(store.interestSums(), "1;400;80;0;0;0;0;0;0;0;0;0;1;400;80");
}

struct SideCase {
  const char* why;
  double gross;
  std::int16_t domestic;
  std::int16_t foreign;
  std::vector<std::string> lines;
};

TEST_F(InterestReturn, PutsARowOnOneSideOfTheList) {
  const std::vector<SideCase> cases = {{"domestic", 1000, 1, 0, {"DN|DN|1000|20|200"}},
                                       {"foreign", 1000, 0, 1, {"LN|LN|1000|20|200"}},
                                       {"both is domestic", 1000, 1, 1, {"DN|DN|1000|20|200"}},
                                       {"neither", 1000, 0, 0, {}},
                                       {"no gross", 0, 1, 0, {}},
                                       {"another option", 1000, 2, 2, {}}};
  for (const SideCase& test : cases) {
    CF113310 slip;
    startSlip(slip, number);
    slip.getTaxRate();
    slip.aB1a3(test.gross);
    setSide(slip, 1, test.domestic, test.foreign);
    slip.pHitPjk(1);
    slip.pInsert_D113210();
    EXPECT_EQ(store.lines(), test.lines) << test.why;
  }
  EXPECT_TRUE(messages.empty());
}

// Two deposits that cancel each other leave a side with no gross, and so with no line, whatever their tax.
struct RateCase {
  const char* why;
  std::vector<double> tariffs;
  const char* rate;
};

// The first rate, then halfway to each further one: no mean.
TEST_F(InterestReturn, HalvesTheRateOfASideFromRowToRow) {
  const std::vector<RateCase> cases = {{"one row", {20}, "20"},
                                       {"two rows", {10, 20}, "15"},
                                       {"the mean would be 20", {10, 10, 40}, "25"},
                                       {"the order counts", {40, 10, 10}, "17,5"},
                                       {"five rows", {10, 20, 30, 40, 50}, "40,625"}};
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"B1A4", "B1A3"}, {"B1B4", "B1B3"}, {"B1C4", "B1C3"}, {"B24", "B23"}, {"B34", "B33"}};
  for (const RateCase& test : cases) {
    for (const std::int16_t isDomestic : {std::int16_t{1}, std::int16_t{0}}) {
      store.run("DELETE * FROM D113210");
      CF113310 slip;
      startSlip(slip, number);
      for (std::size_t row = 0; row < test.tariffs.size(); ++row) {
        setSide(slip, int(row) + 1, isDomestic, std::int16_t(1 - isDomestic));
        slip.put(rows[row].first, test.tariffs[row]);
        slip.put(rows[row].second, 100.0);
      }
      slip.pHitPjk(1);
      slip.pInsert_D113210();
      EXPECT_EQ(store.rows("SELECT JENIS, TARIF FROM D113210"),
                std::vector<std::string>{std::string(isDomestic == 1 ? "DN|" : "LN|") + test.rate})
          << test.why;
    }
  }
  EXPECT_TRUE(messages.empty());
}

// A payee that nobody wrote enters the statements as an empty text, and a row that was not normalised is no row.
TEST_F(InterestReturn, TakesNullsOfThePayeeForEmptyTextsAndNullAmountsForNone) {
  CF113310 slip;
  slip.createSlip({.npwp = std::string(filerNpwp), .name = "n", .address = "a"}, january, number,
                  Date::fromYmd(2009, 1, 5));
  slip.loadSlip(january, number);
  slip.aB1A4(20);
  slip.aB1a3(1000);
  slip.pInsert_D113210();
  EXPECT_EQ(store.rows("SELECT NPWP, NMWP, ALM, JENIS, BRUTO, PPH FROM D113210"),
            std::vector<std::string>{"|||DN|1000|200"});
  EXPECT_EQ(store.interestSums(), "1;1000;200;0;0;0;0;0;0;0;0;0;1;1000;200");
  slip.pDelD113210();
  EXPECT_TRUE(store.lines().empty());
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestReturn, MakesNoLineOfASideThatComesToZero) {
  CF113310 slip;
  startSlip(slip, number);
  slip.getTaxRate();
  slip.aB1a3(1000);
  slip.aB1B3(-1000);
  slip.aB1B5(0);
  slip.pHitPjk(1);
  slip.pInsert_D113210();
  EXPECT_TRUE(store.lines().empty());
}

// Items are not cut before they are added up.
TEST_F(InterestReturn, CutsTheSumsOfALine) {
  CF113310 slip;
  startSlip(slip, number);
  slip.getTaxRate();
  slip.pHitPjk(1);
  slip.aB1a3(1000.6);
  slip.aB1B3(1000.6);
  slip.pInsert_D113210();
  // 2001.2 and twice 200.12
  EXPECT_EQ(store.lines(), std::vector<std::string>{"DN|DN|2001|20|400"});
}

TEST_F(InterestReturn, DeletesTheLinesOfASlip) {
  CF113310 slip;
  listDeposit(slip, 1000);
  CF113310 other;
  startSlip(other, "000002/PPH4");
  other.getTaxRate();
  other.aB43(300);
  other.pHitPjk(1);
  other.pInsert_D113210();
  EXPECT_EQ(store.interestSums(), "1;1000;200;0;0;0;1;300;60;0;0;0;2;1300;260");
  slip.pDelD113210();
  EXPECT_EQ(store.lines(), std::vector<std::string>{"SBI||300|20|60"});
  EXPECT_EQ(store.interestSums(), "0;0;0;0;0;0;1;300;60;0;0;0;1;300;60");
}

// A new number does not find the old lines.
TEST_F(InterestReturn, LeavesTheLinesOfAnOldNumberBehind) {
  CF113310 slip;
  listDeposit(slip, 1000);
  slip.aNoBukti("000009/PPH4");
  slip.pInsert_D113210();
  EXPECT_EQ(store.lines().size(), 2U);
  EXPECT_EQ(store.interestSums(), "1;2000;400;0;0;0;0;0;0;0;0;0;1;2000;400");
}

// Neither save nor delete of a slip touches its list of interest.
TEST_F(InterestReturn, DoesNotMoveTheListOfInterestByItself) {
  add(number, 1000);
  EXPECT_TRUE(store.lines().empty());
  CF113310 slip;
  slip.loadSlip(january, number);
  slip.pInsert_D113210();
  remove(number);
  EXPECT_EQ(store.lines().size(), 1U);
}

TEST_F(InterestReturn, CountsThePeriodsLinesWhoeverTheFiler) {
  store.run(
      "INSERT INTO D113210 VALUES ('other', 'n', 'a', 1, 2009, 0, '05/01/2009', '7', 'DN', '', 50, 20, 10, '', 0)");
  CF113310 slip;
  listDeposit(slip, 1000);
  EXPECT_EQ(store.interestSums(), "2;1050;210;0;0;0;0;0;0;0;0;0;2;1050;210");
}

TEST_F(InterestReturn, AddsNoHeaderToTheListOfInterest) {
  store.run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113210'");
  CF113310 slip;
  listDeposit(slip, 1000);
  EXPECT_EQ(store.row("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113210'"), "none");
  EXPECT_EQ(store.lines().size(), 1U);
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestReturn, WithoutASlipHasNoLinesToWrite) {
  CF113310 slip;
  slip.pInsert_D113210();
  slip.pDelD113210();
  EXPECT_EQ(messages.texts(), std::vector<std::string>(2, "Object variable or With block variable not set"));
}

// The old lines go first: what cannot be worked out behind that leaves none.
TEST_F(InterestReturn, DeletesTheOldLinesBeforeItWorksOutTheNewOnes) {
  CF113310 slip;
  listDeposit(slip, 1000);
  slip.aB33(500);
  store::setField(slip.rs4_2Form(), "B34", Variant::null());
  slip.pInsert_D113210();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_TRUE(store.lines().empty());
  // The header is written last and still says what it said.
  EXPECT_EQ(store.interestSums(), "1;1000;200;0;0;0;0;0;0;0;0;0;1;1000;200");
}

// Sides, SBI, giro, header: each is written before the next is looked at.
TEST_F(InterestReturn, WritesItsLinesOneByOne) {
  CF113310 slip;
  startSlip(slip, number);
  slip.getTaxRate();
  slip.aB1a3(1000);
  slip.aB1B3(700);
  setSide(slip, 2, 0, 1);
  slip.aB43(300);
  slip.aB53(200);
  slip.pHitPjk(1);
  store::setField(slip.rs4_2Form(), "B54", Variant::null());
  slip.pInsert_D113210();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(store.lines(), (std::vector<std::string>{"DN|DN|1000|20|200", "LN|LN|700|20|140", "SBI||300|20|60"}));
  EXPECT_EQ(store.interestSums(), "0;0;0;0;0;0;0;0;0;0;0;0;0;0;0");
}

TEST_F(InterestReturn, WithAnApostropheInThePayeeChangesNoLine) {
  CF113310 slip;
  listDeposit(slip, 1000);
  for (const auto* field : {"NPWPLT", "NMWPLT", "ALMLT", "NoBukti"}) {
    const Variant before = slip.get(field);
    messages.clear();
    slip.put(field, "x' OR '1'='1");
    slip.pInsert_D113210();
    slip.pDelD113210();
    EXPECT_EQ(messages.texts().size(), 2U) << field;
    EXPECT_EQ(store.lines().size(), 1U) << field;
    slip.put(field, before);
  }
}

}  // namespace
}  // namespace tarvola::test
