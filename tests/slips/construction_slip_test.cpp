#include "tarvola/slips/CF113316.h"

#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

constexpr std::string_view number = "000001/PPH4";

class ConstructionSlip : public testing::Test {
 protected:
  /// A slip with these grosses in rows 4 and 5, at 4 and 6 percent, and these options.
  void write(CF113316& written, double gross4, std::int16_t option4, double gross5 = 0,
             std::int16_t option5 = 0) const {
    written.aOpt4(option4);
    written.aB44(4);
    written.aB43(gross4);
    written.aOpt5(option5);
    written.aB54(6);
    written.aB53(gross5);
  }
  void add(double gross4, std::int16_t option4, double gross5 = 0, std::int16_t option5 = 0) const {
    CF113316 added;
    startSlip(added, number);
    write(added, gross4, option4, gross5, option5);
    save(added);
  }
  void edit(double gross4, std::int16_t option4, double gross5 = 0, std::int16_t option5 = 0) const {
    CF113316 edited;
    startEdit(edited, number);
    write(edited, gross4, option4, gross5, option5);
    save(edited);
  }
  void remove() const {
    CF113316 deleted;
    deleted.pDeleteF113316(filerNpwp, "F113316", "06", 1, 2009, 0, number, "113");
  }
  /// Gross and tax of planning and of supervision.
  std::string groups() const { return store.ofReturn({"B6a13", "B6a15", "B6c13", "B6c15"}); }
  std::string column(std::string_view name) const {
    return store.row("SELECT " + std::string(name) + " FROM DS_FORM_INDUK WHERE KD_FORM = 'F113316'");
  }

  SlipStore store;
  CapturedMessages messages;
  CF113316 slip;
};

TEST_F(ConstructionSlip, HoldsTheKindOfAgentWhereItsNumberBelongs) {
  slip.pCreateF113316Hdr(filerNpwp, "F113316", "06", 1, 2009, 0, number, "113", 2, filerName, filerAddress,
                         "05/01/2009");
  EXPECT_EQ(column("DAT_FORM"), "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;2");
  EXPECT_EQ(CD113206().pGetOptWP("", number, 1, "F113316", 2009, 0), 2);
  slip.pGetF113316("", "F113316", "06", 1, 2009, 0, number, "113", "", "", Date());
  EXPECT_EQ(slip.aNoBukti(), Variant("2"));
}

TEST_F(ConstructionSlip, ComputesTheTaxByTheHundredthPart) {
  startSlip(slip, number);
  slip.aB14(7);
  slip.aB13(3);
  EXPECT_EQ(store::fieldNumber(slip.rs4_2Form(), "B15"), 3 * 7.0 * 0.01);
  // 5 * 19 * 0.01 is neither 5 * 19 / 100 nor 5 * (19 / 100) in the last place.
  slip.aB14(19);
  slip.aB13(5);
  EXPECT_EQ(store::fieldNumber(slip.rs4_2Form(), "B15"), 5 * 19.0 * 0.01);
  EXPECT_NE(5 * 19.0 * 0.01, 5 * 19.0 / 100);
  EXPECT_NE(5 * 19.0 * 0.01, 5 * (19.0 / 100));
}

struct RowCase {
  const char* gross;
  const char* tariff;
  const char* tax;
  void (CF113316::*putGross)(double);
  void (CF113316::*putTariff)(double);
  void (CF113316::*putTax)(double);
};

TEST_F(ConstructionSlip, ComputesTheTaxOfEachRow) {
  const std::vector<RowCase> rows = {{"B13", "B14", "B15", &CF113316::aB13, &CF113316::aB14, &CF113316::aB15},
                                     {"B23", "B24", "B25", &CF113316::aB23, &CF113316::aB24, &CF113316::aB25},
                                     {"B33", "B34", "B35", &CF113316::aB33, &CF113316::aB34, &CF113316::aB35},
                                     {"B43", "B44", "B45", &CF113316::aB43, &CF113316::aB44, &CF113316::aB45},
                                     {"B53", "B54", "B55", &CF113316::aB53, &CF113316::aB54, &CF113316::aB55}};
  startSlip(slip, number);
  for (const RowCase& row : rows) {
    (slip.*row.putGross)(1000);
    EXPECT_EQ(fieldsOf(slip, {row.gross, row.tariff, row.tax}), "1000;-null-;-null-");
    (slip.*row.putTariff)(25);
    EXPECT_EQ(fieldsOf(slip, {row.tax}), "250");
    (slip.*row.putTax)(7);
    EXPECT_EQ(fieldsOf(slip, {row.gross, row.tariff, row.tax}), "1000;25;7");
  }
}

TEST_F(ConstructionSlip, IsNormalisedRowByRowAndLeavesTheOptionsAlone) {
  startSlip(slip, number);
  slip.aB13(1000.9);
  slip.aB55(3.5);
  slip.pHitPjk(1);
  EXPECT_EQ(fieldsOf(slip, {"B13", "B14", "B15", "B53", "B54", "B55", "JmlB5", "JMLPHSL", "Opt4", "Opt5"}),
            "1000;0;0;0;0;3;3;1000;-null-;-null-");
  // The tariff of a row comes behind its amounts: a text in row 2 leaves row 1 done and row 2 begun.
  store.run(
      "UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;05/01/2009;000001/PPH4;p;q;r;1,5;;;2,5;;dua;3,5' "
      "WHERE NOBUKTI = '000001/PPH4'");
  slip.loadSlip(january, number);
  slip.pHitPjk(1);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(fieldsOf(slip, {"B13", "B14", "B15", "B23", "B24", "B25", "B33"}), "1;0;0;2;-null-;dua;3,5");
}

TEST_F(ConstructionSlip, TakesADefaultTariffForEachRow) {
  startSlip(slip, number);
  slip.getTaxRate();
  EXPECT_EQ(fieldsOf(slip, {"B14", "B24", "B34", "B44", "B54"}), "2;4;3;4;6");
  store.run("DELETE * FROM SETTING_TARIF_PPH");
  slip.getTaxRate();
  EXPECT_EQ(fieldsOf(slip, {"B14", "B24", "B34", "B44", "B54"}), "0;0;0;0;0");
}

TEST_F(ConstructionSlip, WritesEveryFieldInItsPlace) {
  startSlip(slip, number);
  slip.getTaxRate();
  slip.aB13(1000);
  slip.aB23(2000);
  slip.aB33(3000);
  write(slip, 4000, 1, 5000, 2);
  save(slip);
  EXPECT_EQ(column("DAT_FORM"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;000001/PPH4;021832415000000;"
            "Ani;Bandung;1000;2;20;2000;4;80;3000;3;90;1;4000;4;160;2;5000;6;300;650;15000");
  EXPECT_EQ(column("Total_Bruto1, Total_PPh1, Total_Bruto2, Total_PPh2, Total_Bruto3, Total_PPh3, Total_Bruto"),
            "4000|160|6000|190|5000|300|0");
  EXPECT_EQ(store.listSums(), "15000;650");
  EXPECT_EQ(groups(), "4000;160;5000;300");
  EXPECT_EQ(store.ofReturn({"B6a14", "B6b13", "B6b14", "B6b15", "B6c14", "C3"}), "4;6000;3,16;190;6;1");
  EXPECT_TRUE(messages.empty());
}

TEST_F(ConstructionSlip, AddsBothRowsToOneGroup) {
  add(4000, 1, 5000, 1);
  EXPECT_EQ(groups(), "9000;460;0;0");
  EXPECT_EQ(column("Total_Bruto1, Total_PPh1, Total_Bruto3, Total_PPh3"), "9000|460|0|0");
  edit(4000, 2, 5000, 2);
  EXPECT_EQ(groups(), "0;0;9000;460");
  EXPECT_EQ(column("Total_Bruto1, Total_PPh1, Total_Bruto3, Total_PPh3"), "0|0|9000|460");
}

// While a group is 0 its rate is the average of the settings: 2, 4 and 3 for work, 4 and 6 for the others.
TEST_F(ConstructionSlip, FallsBackToTheAveragedDefaultTariffs) {
  startSlip(slip, number);
  slip.aOpt5(std::int16_t{0});
  save(slip);
  EXPECT_EQ(store.ofReturn({"B6a14", "B6b14", "B6c14"}), "5;3;5");
}

TEST_F(ConstructionSlip, WithOptionZeroReachesNoGroupButTheList) {
  add(4000, 0, 5000, 0);
  EXPECT_EQ(groups(), "0;0;0;0");
  EXPECT_EQ(store.listSums(), "9000;460");
  EXPECT_EQ(column("Total_Bruto1, Total_Bruto2, Total_Bruto3"), "0|0|0");
  EXPECT_EQ(store.ofReturn({"C3"}), "1");
}

TEST_F(ConstructionSlip, MovesARowBetweenTheGroups) {
  add(4000, 2, 5000, 1);
  edit(3000, 1, 7000, 2);
  EXPECT_EQ(groups(), "3000;120;7000;420");
  edit(3500, 1, 7000, 2);
  EXPECT_EQ(groups(), "3500;140;7000;420");
  EXPECT_TRUE(messages.empty());
}

// Only whether the old option was the new one is looked at: the old amounts leave a group in which they never were.
TEST_F(ConstructionSlip, FromOptionZeroToOneDrivesSupervisionDown) {
  add(4000, 0);
  edit(3000, 1);
  EXPECT_EQ(groups(), "3000;120;-4000;-160");
  EXPECT_EQ(store.listSums(), "3000;120");
  // The store holds no total of supervision, so that its average is 0 divided by 0.
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Overflow"});
}

TEST_F(ConstructionSlip, FromOptionZeroToTwoDrivesPlanningDown) {
  add(0, 0, 5000, 0);
  edit(0, 0, 2000, 2);
  EXPECT_EQ(groups(), "-5000;-300;2000;120");
}

// No step runs for a new option of 0: the return keeps what the row had brought, the list moves on.
TEST_F(ConstructionSlip, FromOptionOneToZeroLeavesPlanningAlone) {
  add(4000, 1);
  edit(3000, 0);
  EXPECT_EQ(groups(), "4000;160;0;0");
  EXPECT_EQ(store.listSums(), "3000;120");
}

// As an add a changed option is no move: the difference enters the group of the new one.
TEST_F(ConstructionSlip, AsAnAddTakesTheDifferenceWhateverTheOldOption) {
  add(4000, 2);
  slip.loadSlip(january, number);
  slip.pAssignOldValues();
  slip.pAssignStatus(true, false, false);
  write(slip, 3000, 1);
  save(slip);
  EXPECT_EQ(groups(), "-1000;-40;4000;160");
}

TEST_F(ConstructionSlip, IsTakenFromItsOldGroupsWithoutAFloor) {
  add(4000, 1, 5000, 2);
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.aB6a13(1000);
  mainReturn.aC3(0);
  mainReturn.pUpdate();
  remove();
  EXPECT_EQ(groups(), "-3000;0;0;0");
  EXPECT_EQ(store.ofReturn({"C3"}), "0");
}

TEST_F(ConstructionSlip, ClearsBothCollectionsWhenItIsDeleted) {
  add(4000, 1);
  CD113206 list;
  list.pCreateD113206Hdr(1, 2009, 0, 1, number, "", "", "", "", 1, 1);
  remove();
  EXPECT_EQ(store.row("SELECT NOBUKTI FROM DS_FORM_LAMPIRAN"), "none");
}

// Without a flag nothing moves, but the tariffs are set anew.
TEST_F(ConstructionSlip, WithoutAStatusMovesNoGroup) {
  add(4000, 1);
  slip.loadSlip(january, number);
  slip.pAssignOldValues();
  slip.pAssignStatus(false, false, false);
  write(slip, 4000, 2);
  slip.aB44(5);
  save(slip);
  EXPECT_EQ(groups(), "4000;160;0;0");
  EXPECT_EQ(store.listSums(), "4000;160");
}

// The slip is packed before the option becomes 0.
TEST_F(ConstructionSlip, TakesAFirstOptionThatIsNullForZero) {
  startSlip(slip, number);
  slip.aOpt5(std::int16_t{1});
  slip.aB54(6);
  slip.aB53(1000);
  slip.aB43(500);
  save(slip);
  EXPECT_EQ(groups(), "1000;60;0;0");
  EXPECT_TRUE(messages.empty());
  slip.loadSlip(january, number);
  EXPECT_EQ(fieldsOf(slip, {"Opt4", "Opt5"}), "-null-;1");
}

// A second option that is Null picks no total column and is no option to move the return by: the save ends behind the
// stored row and the number memory.
TEST_F(ConstructionSlip, WithoutItsSecondOptionEndsBehindTheStoredRow) {
  startSlip(slip, number);
  slip.aOpt4(std::int16_t{1});
  slip.aB43(4000);
  slip.aB53(5000);
  save(slip);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(column("Total_Bruto1, Total_Bruto2, Total_Bruto3, FlagNPWP"), "4000|0|0|1");
  EXPECT_EQ(store.row("SELECT FORMAT_STRING FROM SETTING_NOBUKTI_PPH WHERE PASAL = 4"), "/PPH4");
  EXPECT_TRUE(store.listed().empty());
  EXPECT_EQ(groups(), "0;0;0;0");
  EXPECT_EQ(store.ofReturn({"C3"}), "0");
}

// Amounts first, then rates: the group that the row has left shows its default, the average of 4 and 6, the other the
// rate of the row. The rows of both groups are moved before either rate is asked for.
TEST_F(ConstructionSlip, SetsTheRatesBehindAllAmounts) {
  add(4000, 2);
  EXPECT_EQ(store.ofReturn({"B6a14", "B6c14"}), "5;4");
  edit(4000, 1);
  EXPECT_EQ(store.ofReturn({"B6a14", "B6c14"}), "4;5");
  remove();
  EXPECT_EQ(store.ofReturn({"B6a14", "B6b14", "B6c14"}), "5;3;5");
}

TEST_F(ConstructionSlip, ReadsAndWritesItsTexts) {
  startSlip(slip, number);
  slip.aNPWP("1");
  slip.aNMWP("2");
  slip.aALM("3");
  EXPECT_EQ(slip.aALM(), "3");
  slip.aAlmWP(Variant::null());
  EXPECT_EQ(fieldsOf(slip, {"ALM"}), "-null-");
  slip.aAlmWP("4");
  EXPECT_EQ(slip.aALM(), "4");
  slip.aNoBukti("5");
  slip.aNPWPLT("6");
  slip.aNMWPLT("7");
  slip.aALMLT("8");
  slip.aOpt4("1");
  slip.aOpt5(std::int16_t{2});
  EXPECT_EQ(fieldsOf(slip, {"npwp", "NmWP", "ALM", "NoBukti", "NPWPLT", "NMWPLT", "ALMLT"}), "1;2;4;5;6;7;8");
  EXPECT_EQ(slip.aNPWP(), Variant("1"));
  EXPECT_EQ(slip.aNMWP(), Variant("2"));
  EXPECT_EQ(slip.aNoBukti(), Variant("5"));
  EXPECT_EQ(slip.aNPWPLT(), Variant("6"));
  EXPECT_EQ(slip.aNMWPLT(), Variant("7"));
  EXPECT_EQ(slip.aALMT(), "8");
  EXPECT_EQ(slip.aOpt4(), Variant(std::int16_t{1}));
  EXPECT_EQ(slip.aOpt5(), Variant(std::int16_t{2}));
}

}  // namespace
}  // namespace tarvola::test
