#include <array>
#include <cstdint>

#include "tarvola/mainreturn/return_lines.h"
#include "tests/mainreturn/return_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

class Recount : public ReturnTest {
 protected:
  Recount() { makeReturn(); }

  /// A slip of rent: the plainest form there is.
  void addRent(std::string_view grossRupiah, std::string_view taxRupiah) {
    const std::string gross(grossRupiah);
    const std::string tax(taxRupiah);
    addDocument({.form = "F113312",
                 .fields = {{"JMLBRUTO", gross}, {"PPHDIPTG", tax}},
                 .totals = {{"Total_Bruto", gross}, {"Total_PPh", tax}}});
  }
  void addInterest(const std::map<std::string, std::string>& fields) {
    addDocument({.form = "F113310", .fields = fields});
  }
};

// --- all twelve forms -------------------------------------------------------------------------------------------

TEST_F(Recount, PutsTheDocumentsOfAllTwelveFormsOnTheirLines) {
  // Prizes: 1.000.000 and 500.000 + 100; tax 250.000 and 125.025.
  addDocument({.form = "F113309",
               .fields = {{"B13", "1000000"}, {"JmlB5", "250000"}},
               .totals = {{"Total_Bruto", "1000000"}, {"Total_PPh", "250000"}}});
  addDocument({.form = "F113309",
               .fields = {{"B23", "500000"}, {"B63", "100"}, {"JmlB5", "125025"}},
               .totals = {{"Total_Bruto", "500100"}, {"Total_PPh", "125025"}}});
  // Interest. Item 1 at home, item 2 abroad, item 3 both, item 4 neither, item 5 at home.
  addDocument({.form = "F113310",
               .fields = {{"OPTDN1", "1"}, {"B1A3", "1000"}, {"B1A5", "200"}, {"OPTLN2", "1"}, {"B1B3", "500"},
                          {"B1B5", "50"},  {"OPTDN3", "1"},  {"OPTLN3", "1"}, {"B1C3", "300"}, {"B1C5", "60"},
                          {"B23", "700"},  {"OPTDN5", "1"},  {"B33", "40"},   {"B35", "8"},    {"B43", "2000"},
                          {"B45", "400"},  {"B53", "3000"},  {"B55", "600"},  {"B63", "90"},   {"B65", "9"}},
               .totals = {{"Total_Bruto", "7630"},
                          {"Total_PPh", "1327"},
                          {"Total_Bruto1", "1340"},
                          {"Total_PPh1", "268"},
                          {"Total_Bruto2", "800"},
                          {"Total_PPh2", "110"},
                          {"Total_Bruto3", "2000"},
                          {"Total_PPh3", "400"},
                          {"Total_Bruto4", "3000"},
                          {"Total_PPh4", "600"}}});
  addDocument({.form = "F113310",
               .fields = {{"OPTDN1", "1"}, {"B1A3", "60"}, {"B1A5", "12"}, {"B43", "1"}, {"B53", "2"}},
               .totals = {{"Total_Bruto", "63"},
                          {"Total_PPh", "12"},
                          {"Total_Bruto1", "60"},
                          {"Total_PPh1", "12"},
                          {"Total_Bruto3", "1"},
                          {"Total_Bruto4", "2"}}});
  // Shares: founder shares at 0,5 percent, others at 0,1.
  addDocument({.form = "F113311",
               .fields = {{"B13", "100000"}, {"B15", "500"}, {"B23", "200000"}, {"B25", "200"}},
               .totals = {{"Total_Bruto", "300000"},
                          {"Total_PPh", "700"},
                          {"Total_Bruto1", "100000"},
                          {"Total_PPh1", "500"},
                          {"Total_Bruto2", "200000"},
                          {"Total_PPh2", "200"}}});
  addRent("300000", "37037");
  // Construction: 10 + 20 + 30 of work, row 4 planning, row 5 supervision; 40 of work, row 4 supervision, row 5
  // nothing.
  addDocument({.form = "F113316",
               .fields = {{"B13", "10"},
                          {"B15", "1"},
                          {"B23", "20"},
                          {"B25", "2"},
                          {"B33", "30"},
                          {"B35", "3"},
                          {"Opt4", "1"},
                          {"B43", "1000"},
                          {"B45", "40"},
                          {"Opt5", "2"},
                          {"B53", "500"},
                          {"B55", "30"}},
               .totals = {{"Total_Bruto", "1560"},
                          {"Total_PPh", "76"},
                          {"Total_Bruto1", "1000"},
                          {"Total_PPh1", "40"},
                          {"Total_Bruto2", "60"},
                          {"Total_PPh2", "6"},
                          {"Total_Bruto3", "500"},
                          {"Total_PPh3", "30"}}});
  addDocument(
      {.form = "F113316",
       .fields =
           {{"B13", "40"}, {"B15", "4"}, {"Opt4", "2"}, {"B43", "250"}, {"B45", "15"}, {"B53", "9999"}, {"B55", "999"}},
       .totals = {{"Total_Bruto", "10289"},
                  {"Total_PPh", "1018"},
                  {"Total_Bruto2", "40"},
                  {"Total_PPh2", "4"},
                  {"Total_Bruto3", "250"},
                  {"Total_PPh3", "15"}}});
  addDocument({.form = "F113317",
               .fields = {{"JML", "123456"}, {"PPhFinal", "18518"}},
               .totals = {{"Total_Bruto", "123456"}, {"Total_PPh", "18518"}}});
  addDocument({.form = "FSewaTnhBgn", .fields = {{"JMLBRUTO", "3"}, {"PPH", "1"}}});
  addDocument({.form = "FJasaKonstruksi",
               .fields = {{"JmlBruto1", "1000"}, {"PPH1", "40"}, {"JmlBruto3", "200"}, {"PPH3", "12"}}});
  addDocument({.form = "F113319",
               .fields = {{"JMLBRUTO", "700"}, {"PPHDIPTG", "70"}},
               .totals = {{"Total_Bruto", "700"}, {"Total_PPh", "70"}}});
  addDocument({.form = "F113320",
               .fields = {{"JMLBRUTO", "1000"}, {"PPHDIPTG", "25"}},
               .totals = {{"Total_Bruto", "1000"}, {"Total_PPh", "25"}}});
  addDocument({.form = "F113321",
               .fields = {{"JMLBRUTO", "800"}, {"PPHDIPTG", "80"}},
               .totals = {{"Total_Bruto", "800"}, {"Total_PPh", "80"}}});
  addDocument({.form = "FAlihTnhBgn", .number = "1", .fields = {{"JMLBRUTO", "500"}, {"PPH", "25"}}});
  addDocument({.form = "FAlihTnhBgn", .number = "2", .fields = {{"JMLBRUTO", "300"}, {"PPH", "15"}}});

  CF113204 mainReturn;
  recount(mainReturn);

  struct Expected {
    std::string_view field;
    double value;
  };
  const Expected expected[] = {
      {"B43", 1500100},
      {"B44", 25},
      {"B45", 375025},
      // At home 1000 + 300 + 40 + 60, abroad 500 + 300.
      {"B1a13", 1400},
      {"B1a14", 20},
      {"B1a15", 280},
      {"B1a23", 800},
      {"B1a24", 13.75},
      {"B1a25", 110},
      // 40000 / 2001 = 19,99000..; 60000 / 3002 = 19,98667.. rounds to 19,987 and is cut to 19,98.
      {"B1B3", 2001},
      {"B1B4", 19.99},
      {"B1B5", 400},
      {"B1C3", 3002},
      {"B1C4", 19.98},
      {"B1C5", 600},
      // 133900 / 7693 = 17,40543..
      {"B11a3", 90},
      {"B11a4", 17.4},
      {"B11a5", 9},
      {"B2a3", 100000},
      {"B2a4", 0.5},
      {"B2a5", 500},
      {"B2b3", 200000},
      {"B2b4", 0.1},
      {"B2b5", 200},
      // 3703700 / 300000 = 12,34566.. rounds to 12,346 and is cut to 12,34.
      {"B5a3", 300000},
      {"B5a4", 12.34},
      {"B5a5", 37037},
      {"B6a13", 1000},
      {"B6a14", 4},
      {"B6a15", 40},
      {"B6b13", 100},
      {"B6b14", 10},
      {"B6b15", 10},
      {"B6c13", 750},
      {"B6c14", 6},
      {"B6c15", 45},
      // 1851800 / 123456 = 14,99967.. rounds to 15.
      {"B33", 123456},
      {"B34", 15},
      {"B35", 18518},
      {"B5b3", 3},
      {"B5b4", 100.0 / 3},
      {"B5b5", 1},
      {"B6a23", 1000},
      {"B6a24", 4},
      {"B6a25", 40},
      {"B6b23", 0},
      {"B6b24", 0},
      {"B6b25", 0},
      {"B6c23", 200},
      {"B6c24", 6},
      {"B6c25", 12},
      {"B83", 700},
      {"B84", 10},
      {"B85", 70},
      {"B93", 1000},
      {"B94", 2.5},
      {"B95", 25},
      {"B103", 800},
      {"B104", 10},
      {"B105", 80},
      {"B73", 800},
      {"B74", 5},
      {"B75", 40},
      {"B11b3", 0},
      {"B11c3", 0},
      // Twelve slips; the four self-paid forms are none.
      {"C3", 12},
      {"CHKC2", 1},
      {"CHKC3", 1},
      {"CHKC1", 0},
      {"c1", 0},
      {"JMLPHSL", 0},
      {"JmlB5", 0},
  };
  for (const Expected& row : expected) EXPECT_EQ(number(mainReturn, row.field), row.value) << row.field;
  EXPECT_EQ(value(mainReturn, "B11a"), Variant("Lain-Lain"));
  EXPECT_THAT(messages_.texts(), IsEmpty());

  mainReturn.pHitPjk3204(1);
  // 1500100 + 1400 + 800 + 2001 + 3002 + 90 + 100000 + 200000 + 300000 + 1000 + 100 + 750 + 123456 + 3 + 1000 + 200 +
  // 700 + 1000 + 800 + 800
  EXPECT_EQ(number(mainReturn, "JMLPHSL"), 2237202);
  // 375025 + 280 + 110 + 400 + 600 + 9 + 500 + 200 + 37037 + 40 + 10 + 45 + 18518 + 1 + 40 + 12 + 70 + 25 + 80 + 40
  EXPECT_EQ(number(mainReturn, "JmlB5"), 433042);
}

TEST_F(Recount, StoresNothing) {
  addRent("1000", "100");
  const std::string before = packedText("F113204");
  CF113204 mainReturn;
  recount(mainReturn);
  EXPECT_EQ(packedText("F113204"), before);
}

// --- a return without documents -----------------------------------------------------------------------------------

TEST_F(Recount, OfAReturnWithoutSlipsClearsAmountsAndMarkButKeepsRates) {
  CF113204 mainReturn;
  load(mainReturn);
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines) {
    put(mainReturn, line.gross, 5.0);
    put(mainReturn, line.rate, 1.5);
    put(mainReturn, line.tax, 6.0);
  }
  mainReturn.aC3(9);
  mainReturn.aCHKC1(1);
  mainReturn.aCHKC2(1);
  mainReturn.aCHKC3(1);
  mainReturn.aC1(2);
  mainReturn.aB8A31(8);
  put(mainReturn, "JmlB5", 77.0);
  mainReturn.pUpdF113204(3, 2009, 0);

  for (const mainreturn::ReturnLine& line : mainreturn::returnLines) {
    const bool isRecounted = line.ownText.empty();
    EXPECT_EQ(number(mainReturn, line.gross), isRecounted ? 0 : 5) << line.number;
    EXPECT_EQ(number(mainReturn, line.tax), isRecounted ? 0 : 6) << line.number;
    EXPECT_EQ(number(mainReturn, line.rate), 1.5) << line.number;
  }
  EXPECT_EQ(mainReturn.aC3(), 0);
  EXPECT_EQ(mainReturn.aCHKC2(), 0);
  EXPECT_EQ(mainReturn.aCHKC3(), 1) << "a mark that a person set stays";
  EXPECT_EQ(mainReturn.aCHKC1(), 1);
  EXPECT_EQ(mainReturn.aC1(), 2);
  EXPECT_EQ(number(mainReturn, "B8A31"), 8);
  EXPECT_EQ(number(mainReturn, "JmlB5"), 77);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(Recount, OfAReturnWithoutSlipsLeavesTheMarkOfTheListAsAPersonSetIt) {
  for (const std::int16_t mark : std::array<std::int16_t, 2>{0, 1}) {
    CF113204 mainReturn;
    load(mainReturn);
    mainReturn.aCHKC3(mark);
    mainReturn.pUpdF113204(3, 2009, 0);
    EXPECT_EQ(mainReturn.aCHKC3(), mark);
  }
}

// --- which documents count ----------------------------------------------------------------------------------------

TEST_F(Recount, ReadsTheDocumentsOfFilerPeriodCorrectionCodeAndTaxKind) {
  addRent("1000", "100");
  struct Change {
    std::string_view assignment;
    double slipCount;
  };
  // The count of slips asks for period and correction alone, so that the others still count there.
  const Change changes[] = {{"NPWP = '999'", 1},        {"JENIS_DOKUMEN = '99'", 1}, {"KD_JENIS_PAJAK = '114'", 1},
                            {"MS_PAJAK = 4", 0},        {"TH_PAJAK = 2010", 0},      {"KD_PEMBETULAN_KE = 1", 0},
                            {"NOBUKTI = '000777/X'", 1}};
  for (const Change& change : changes) {
    run("UPDATE DS_FORM_INDUK SET " + std::string(change.assignment) + " WHERE KD_FORM = 'F113312'");
    CF113204 mainReturn;
    recount(mainReturn);
    const bool isNumberAlone = change.assignment.substr(0, 7) == "NOBUKTI";
    EXPECT_EQ(number(mainReturn, "B5a3"), isNumberAlone ? 1000 : 0) << change.assignment;
    EXPECT_EQ(mainReturn.aC3(), change.slipCount) << change.assignment;
    run("UPDATE DS_FORM_INDUK SET NPWP = '013121660091000', JENIS_DOKUMEN = '05', KD_JENIS_PAJAK = '113', "
        "MS_PAJAK = 3, TH_PAJAK = 2009, KD_PEMBETULAN_KE = 0 WHERE KD_FORM = 'F113312'");
  }
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

// The same of a form that lies in the table of self-paid forms. It is no slip.
TEST_F(Recount, ReadsSelfPaidFormsOfFilerPeriodCorrectionCodeAndTaxKind) {
  for (const char* assignment : {"NPWP = '999'", "JENIS_DOKUMEN = '99'", "KD_JENIS_PAJAK = '114'", "MS_PAJAK = 4",
                                 "TH_PAJAK = 2010", "KD_PEMBETULAN_KE = 1", "KD_FORM = 'FOther'"}) {
    addDocument({.form = "FSewaTnhBgn", .number = "1", .fields = {{"JMLBRUTO", "7"}, {"PPH", "1"}}});
    run("UPDATE DAT_SSP_PPh22 SET NOBUKTI = '2'," + std::string(assignment) + " WHERE NOBUKTI = '1'");
  }
  addDocument({.form = "FSewaTnhBgn", .number = "3", .fields = {{"JMLBRUTO", "1000"}, {"PPH", "100"}}});
  addDocument({.form = "FSewaTnhBgn", .number = "4", .fields = {{"JMLBRUTO", "500"}, {"PPH", "50"}}});
  CF113204 mainReturn;
  recount(mainReturn);
  EXPECT_EQ(number(mainReturn, "B5b3"), 1500);
  EXPECT_EQ(number(mainReturn, "B5b5"), 150);
  EXPECT_EQ(mainReturn.aC3(), 0);
  EXPECT_EQ(mainReturn.aCHKC2(), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

// --- rates ----------------------------------------------------------------------------------------------------------

TEST_F(Recount, GivesSelfPaidLinesTheirExactQuotient) {
  addDocument({.form = "FSewaTnhBgn", .fields = {{"JMLBRUTO", "1000"}, {"PPH", "100"}}});
  addDocument({.form = "FAlihTnhBgn", .fields = {{"JMLBRUTO", "3"}, {"PPH", "1"}}});
  CF113204 mainReturn;
  recount(mainReturn);
  EXPECT_EQ(number(mainReturn, "B5b4"), 10);
  EXPECT_EQ(number(mainReturn, "B74"), 100.0 / 3) << "all decimals stay, unlike those of an average";
}

TEST_F(Recount, LeavesTheRateOfALineWithoutGross) {
  addDocument({.form = "F113312", .fields = {{"PPHDIPTG", "100"}}, .totals = {{"Total_PPh", "100"}}});
  addDocument({.form = "FSewaTnhBgn", .fields = {{"PPH", "100"}}});
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.aB5a4(7);
  mainReturn.aB5b4(8);
  mainReturn.pUpdF113204(3, 2009, 0);
  EXPECT_EQ(number(mainReturn, "B5a5"), 100);
  EXPECT_EQ(number(mainReturn, "B5a4"), 7);
  EXPECT_EQ(number(mainReturn, "B5b4"), 8);
}

TEST_F(Recount, GoesOnWithZeroWhereAnAverageFails) {
  // The totals of the row say nothing of what its fields say: 0 in the pair that is asked for, 5 in another.
  addDocument({.form = "F113312",
               .fields = {{"JMLBRUTO", "1000"}, {"PPHDIPTG", "100"}},
               .totals = {{"Total_PPh", "100"}, {"Total_Bruto1", "5"}}});
  addDocument({.form = "F113319",
               .fields = {{"JMLBRUTO", "700"}, {"PPHDIPTG", "70"}},
               .totals = {{"Total_Bruto", "700"}, {"Total_PPh", "70"}}});
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.aB5a4(7);
  mainReturn.pUpdF113204(3, 2009, 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::DivisionByZero)));
  EXPECT_EQ(number(mainReturn, "B5a4"), 0);
  EXPECT_EQ(number(mainReturn, "B84"), 10);
  EXPECT_EQ(mainReturn.aC3(), 2);
}

// --- sums that the object keeps -----------------------------------------------------------------------------------

TEST_F(Recount, TwiceOnTheSameObjectDoublesSbiAndGiroAndNothingElse) {
  addInterest({{"OPTDN1", "1"},
               {"B1A3", "1000"},
               {"B1A5", "200"},
               {"B43", "2000"},
               {"B45", "400"},
               {"B53", "3000"},
               {"B55", "600"},
               {"B63", "90"},
               {"B65", "9"}});
  CF113204 mainReturn;
  recount(mainReturn);
  recount(mainReturn);
  EXPECT_EQ(number(mainReturn, "B1a13"), 1000);
  EXPECT_EQ(number(mainReturn, "B1a15"), 200);
  EXPECT_EQ(number(mainReturn, "B1B3"), 4000);
  EXPECT_EQ(number(mainReturn, "B1B5"), 800);
  EXPECT_EQ(number(mainReturn, "B1C3"), 6000);
  EXPECT_EQ(number(mainReturn, "B1C5"), 1200);
  // The form was loaded anew, so that line 11a is empty again and takes the others sums, which have doubled as well.
  EXPECT_EQ(number(mainReturn, "B11a3"), 180);
  EXPECT_EQ(number(mainReturn, "B11a5"), 18);
  EXPECT_EQ(mainReturn.aC3(), 1);
}

// Line 11a has its text by then, so that its three amounts stand.
TEST_F(Recount, TwiceWithoutALoadLeavesOtherInterestAsItStands) {
  addInterest({{"B43", "2000"}, {"B53", "3000"}, {"B63", "90"}, {"B65", "9"}});
  CF113204 mainReturn;
  recount(mainReturn);
  mainReturn.pUpdF113204(3, 2009, 0);
  EXPECT_EQ(number(mainReturn, "B1B3"), 4000);
  EXPECT_EQ(number(mainReturn, "B1C3"), 6000);
  EXPECT_EQ(value(mainReturn, "B11a"), Variant("Lain-Lain"));
  EXPECT_EQ(number(mainReturn, "B11a3"), 90);
  EXPECT_EQ(number(mainReturn, "B11a5"), 9);
}

// The members hold what the last recount left even if the slips are gone by now.
TEST_F(Recount, OnTheSameObjectShowsSbiAndGiroOfSlipsThatHaveGone) {
  addInterest({{"OPTDN1", "1"}, {"B1A3", "1000"}, {"B43", "2000"}, {"B45", "400"}, {"B53", "3000"}, {"B55", "600"}});
  CF113204 mainReturn;
  recount(mainReturn);
  run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113310'");
  recount(mainReturn);
  EXPECT_EQ(number(mainReturn, "B1a13"), 0);
  EXPECT_EQ(number(mainReturn, "B1B3"), 2000);
  EXPECT_EQ(number(mainReturn, "B1B5"), 400);
  EXPECT_EQ(number(mainReturn, "B1C3"), 3000);
  EXPECT_EQ(number(mainReturn, "B1C5"), 600);
  EXPECT_EQ(mainReturn.aC3(), 0);
}

TEST_F(Recount, OnAFreshObjectGivesTheSameFiguresAgain) {
  addInterest({{"B43", "2000"}, {"B45", "400"}, {"B53", "3000"}, {"B55", "600"}, {"B63", "90"}, {"B65", "9"}});
  for (int time = 0; time < 2; ++time) {
    CF113204 mainReturn;
    recount(mainReturn);
    mainReturn.pHitPjk3204(1);
    mainReturn.pUpdate();
    EXPECT_EQ(number(mainReturn, "B1B3"), 2000);
    EXPECT_EQ(number(mainReturn, "B1C5"), 600);
    EXPECT_EQ(number(mainReturn, "B11a3"), 90) << "the second one finds the text and leaves the amounts";
    EXPECT_EQ(number(mainReturn, "JMLPHSL"), 5090);
  }
}

TEST_F(Recount, ThatFailedHasAddedItsInterestAllTheSame) {
  addInterest({{"B43", "2000"}, {"B45", "400"}});
  addDocument({.form = "F113310", .number = "stub", .packedText = "013121660091000;PT;Jl;3;2009;0;01/03/2009;stub"});
  CF113204 mainReturn;
  recount(mainReturn);
  ASSERT_THAT(messages_.texts(), SizeIs(1));
  run("DELETE * FROM DS_FORM_INDUK WHERE NOBUKTI = 'stub'");
  recount(mainReturn);
  EXPECT_EQ(number(mainReturn, "B1B3"), 4000);
  EXPECT_EQ(number(mainReturn, "B1B5"), 800);
}

// --- interest -------------------------------------------------------------------------------------------------------

TEST_F(Recount, CountsAnInterestItemByEachOfItsOptions) {
  struct Row {
    const char* atHome;
    const char* abroad;
    double atHomeGross;
    double abroadGross;
  };
  // Both options count the item twice, none counts it nowhere, and only 1 is an option that is set.
  const Row rows[] = {
      {"1", "0", 100, 0}, {"0", "1", 0, 100}, {"1", "1", 100, 100}, {"0", "0", 0, 0}, {"2", "-1", 0, 0}};
  const char* const items[][2] = {{"B1A3", "1"}, {"B1B3", "2"}, {"B1C3", "3"}, {"B23", "4"}, {"B33", "5"}};
  for (const auto& item : items)
    for (const Row& row : rows) {
      run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113310'");
      std::string tax = item[0];
      tax.back() = '5';
      addInterest({{item[0], "100"},
                   {tax, "20"},
                   {std::string("OPTDN") + item[1], row.atHome},
                   {std::string("OPTLN") + item[1], row.abroad}});
      CF113204 mainReturn;
      recount(mainReturn);
      EXPECT_EQ(number(mainReturn, "B1a13"), row.atHomeGross) << item[0] << row.atHome << row.abroad;
      EXPECT_EQ(number(mainReturn, "B1a15"), row.atHomeGross / 5) << item[0] << row.atHome << row.abroad;
      EXPECT_EQ(number(mainReturn, "B1a23"), row.abroadGross) << item[0] << row.atHome << row.abroad;
      EXPECT_EQ(number(mainReturn, "B1a25"), row.abroadGross / 5) << item[0] << row.atHome << row.abroad;
    }
}

TEST_F(Recount, FailsForAnInterestItemWithoutAnOption) {
  addInterest({{"OPTDN2", ""}, {"B1A3", "100"}, {"OPTDN1", "1"}});
  CF113204 mainReturn;
  recount(mainReturn);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull)));
  EXPECT_EQ(number(mainReturn, "B1a13"), 0);
}

class OtherInterest : public Recount {
 protected:
  /// One slip with giro and other interest.
  void addSlip(const char* giroGross, const char* othersGross, const char* othersTax) {
    addDocument({.form = "F113310",
                 .fields = {{"B53", giroGross}, {"B63", othersGross}, {"B65", othersTax}},
                 .totals = {{"Total_Bruto", "1000"}, {"Total_PPh", "155"}, {"Total_Bruto4", "1000"}}});
  }
  void recountWith(CF113204& mainReturn, const Variant& text, const Variant& gross, const Variant& tax) {
    load(mainReturn);
    mainReturn.aB11a(text);
    put(mainReturn, "B11a3", gross);
    put(mainReturn, "B11a4", 7.0);
    put(mainReturn, "B11a5", tax);
    mainReturn.pUpdF113204(3, 2009, 0);
    ASSERT_THAT(messages_.texts(), IsEmpty());
  }
};

TEST_F(OtherInterest, IsAddedToWhatTheEmptyLineHeld) {
  addSlip("1", "90", "9");
  CF113204 mainReturn;
  recountWith(mainReturn, "", 10.0, 1.0);
  EXPECT_EQ(value(mainReturn, "B11a"), Variant("Lain-Lain"));
  EXPECT_EQ(number(mainReturn, "B11a3"), 100);
  EXPECT_EQ(number(mainReturn, "B11a5"), 10);
  EXPECT_EQ(number(mainReturn, "B11a4"), 15.5) << "155 * 100 / 1000, over all interest of the slips";
}

TEST_F(OtherInterest, TakesNullAmountsForZeroAndANullTextForEmpty) {
  addSlip("1", "90", "9");
  CF113204 mainReturn;
  recountWith(mainReturn, Variant::null(), Variant::null(), Variant::null());
  EXPECT_EQ(value(mainReturn, "B11a"), Variant("Lain-Lain"));
  EXPECT_EQ(number(mainReturn, "B11a3"), 90);
  EXPECT_EQ(number(mainReturn, "B11a5"), 9);
}

TEST_F(OtherInterest, LeavesALineThatHasAText) {
  addSlip("1", "90", "9");
  CF113204 mainReturn;
  recountWith(mainReturn, "Bunga kupon", 10.0, 1.0);
  EXPECT_EQ(value(mainReturn, "B11a"), Variant("Bunga kupon"));
  EXPECT_EQ(number(mainReturn, "B11a3"), 10);
  EXPECT_EQ(number(mainReturn, "B11a4"), 7);
  EXPECT_EQ(number(mainReturn, "B11a5"), 1);
}

TEST_F(OtherInterest, IsNotShownWithoutGiro) {
  addSlip("0", "90", "9");
  CF113204 mainReturn;
  recountWith(mainReturn, Variant::null(), 10.0, 1.0);
  EXPECT_EQ(value(mainReturn, "B11a"), Variant("")) << "a Null text becomes empty all the same";
  EXPECT_EQ(number(mainReturn, "B11a3"), 10);
  EXPECT_EQ(number(mainReturn, "B11a5"), 1);
}

TEST_F(OtherInterest, IsNotShownWithNegativeGiro) {
  addSlip("-1", "90", "9");
  CF113204 mainReturn;
  recountWith(mainReturn, "", 0.0, 0.0);
  EXPECT_EQ(value(mainReturn, "B11a"), Variant(""));
}

TEST_F(OtherInterest, GivesTheLineItsTextEvenIfThereIsNone) {
  addSlip("1", "0", "0");
  CF113204 mainReturn;
  recountWith(mainReturn, "", 0.0, 0.0);
  EXPECT_EQ(value(mainReturn, "B11a"), Variant("Lain-Lain"));
  EXPECT_EQ(number(mainReturn, "B11a3"), 0);
  EXPECT_EQ(number(mainReturn, "B11a4"), 7) << "a line without gross keeps its rate";
}

// --- construction services ------------------------------------------------------------------------------------------

TEST_F(Recount, DoesNotLookAtAConstructionRowWithoutAnOption) {
  addDocument({.form = "F113316",
               .fields = {{"B13", "10"}, {"Opt4", "0"}, {"B43", ""}, {"B45", ""}, {"Opt5", ""}, {"B53", ""}}});
  CF113204 mainReturn;
  recount(mainReturn);
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(number(mainReturn, "B6b13"), 10);
  EXPECT_EQ(number(mainReturn, "B6a13"), 0);
  EXPECT_EQ(number(mainReturn, "B6c13"), 0);
}

TEST_F(Recount, LeadsBothConstructionOptionsToTheirLines) {
  struct Row {
    const char* option4;
    const char* option5;
    double planningGross;
    double supervisionGross;
  };
  const Row rows[] = {
      {"1", "1", 300, 0}, {"1", "2", 100, 200}, {"2", "1", 200, 100}, {"2", "2", 0, 300}, {"3", "1", 200, 0}};
  for (const Row& row : rows) {
    run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113316'");
    addDocument({.form = "F113316",
                 .fields = {{"Opt4", row.option4},
                            {"B43", "100"},
                            {"B45", "10"},
                            {"Opt5", row.option5},
                            {"B53", "200"},
                            {"B55", "20"}}});
    CF113204 mainReturn;
    recount(mainReturn);
    EXPECT_EQ(number(mainReturn, "B6a13"), row.planningGross) << row.option4 << row.option5;
    EXPECT_EQ(number(mainReturn, "B6a15"), row.planningGross / 10) << row.option4 << row.option5;
    EXPECT_EQ(number(mainReturn, "B6c13"), row.supervisionGross) << row.option4 << row.option5;
    EXPECT_EQ(number(mainReturn, "B6c15"), row.supervisionGross / 10) << row.option4 << row.option5;
  }
}

}  // namespace
}  // namespace tarvola::test
