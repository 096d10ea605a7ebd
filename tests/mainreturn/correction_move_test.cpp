// The copy that moves a return to the filer's new number.

#include "tarvola/runtime/regional_settings.h"
#include "tests/mainreturn/copy_fixture.h"

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

class CorrectionMove : public CopyTest {
 protected:
  /// The copy of a row under the new number, in its column and in its packed text.
  static std::vector<Row> movedCopiesOf(std::vector<Row> found, const CopiedTable& table) {
    for (Row& row : found) {
      row = copyOf(std::move(row), table, 1);
      row[0] = newNumber;
      row[table.packedColumn].replace(0, std::string_view(filer).size(), newNumber);
    }
    return found;
  }
  void fillWithWholeRates() {
    fill();
    run("UPDATE D113210 SET TARIF = 15 WHERE TARIF <> 20");
  }
};

TEST_F(CorrectionMove, PutsTheNewNumberIntoColumnAndPackedTextAndChangesNothingElse) {
  fillWithWholeRates();
  move();
  moveSelfPaid();
  EXPECT_THAT(messages_.texts(), IsEmpty());
  for (const CopiedTable& table : {documents, selfPaidForms})
    EXPECT_EQ(sorted(rows(table, 1)), sorted(movedCopiesOf(rows(table, 0), table))) << table.name;
}

TEST_F(CorrectionMove, LeavesItemsAndPayeesAsTheyAre) {
  fillWithWholeRates();
  move();
  moveSelfPaid();
  for (const CopiedTable& table : {listItems, payees, selfPaidItems}) expectCopy(table);
  EXPECT_THAT(column("SELECT NPWP FROM D113210"), Each("021832415000000")) << "the payee's, not the filer's";
}

TEST_F(CorrectionMove, WritesTheNewNumberAlsoWhereThePackedTextSaysAnother) {
  addDocument({.form = "F113309", .number = "1", .fields = {{"npwp", ""}}});
  addDocument({.form = "FSewaTnhBgn", .number = "1", .fields = {{"npwp", " 013121660093000 "}}});
  move();
  moveSelfPaid();
  EXPECT_TRUE(text("DS_FORM_INDUK", "DAT_FORM", "KD_PEMBETULAN_KE = 1").starts_with("013121660093000;"));
  EXPECT_TRUE(text("DAT_SSP_PPh22", "DAT_FORM", "KD_PEMBETULAN_KE = 1").starts_with("013121660093000;"))
      << "not only where it differs by more than blanks";
}

TEST_F(CorrectionMove, TakesOnlyTheDocumentsOfTheOldNumber) {
  addDocument({.form = "F113309", .number = "old"});
  addDocument({.form = "F113309", .number = "foreign"});
  addDocument({.form = "FSewaTnhBgn", .number = "old"});
  addDocument({.form = "FSewaTnhBgn", .number = "foreign"});
  for (const char* table : {"DS_FORM_INDUK", "DAT_SSP_PPh22"})
    run(std::string("UPDATE ") + table + " SET NPWP = '099999999000000' WHERE NOBUKTI = 'foreign'");
  move();
  moveSelfPaid();
  EXPECT_THAT(column("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1"), ElementsAre("old"));
  EXPECT_THAT(column("SELECT NOBUKTI FROM DAT_SSP_PPh22 WHERE KD_PEMBETULAN_KE = 1"), ElementsAre("old"));
}

// Of two filers' slips of one form and number each is found as its own.
TEST_F(CorrectionMove, TellsSlipsOfTwoFilersApart) {
  addDocument({.form = "F113309", .number = "1", .fields = {{"NMWPLT", "foreign"}}, .totals = {{"Total_Bruto", "1"}}});
  run("UPDATE DS_FORM_INDUK SET NPWP = '000000000000000'");
  addDocument({.form = "F113309", .number = "1", .fields = {{"NMWPLT", "mine"}}, .totals = {{"Total_Bruto", "2"}}});
  move();
  EXPECT_EQ(text("DS_FORM_INDUK", "Total_Bruto", "KD_PEMBETULAN_KE = 1"), "2");
}

TEST_F(CorrectionMove, ClearsOnlyWhatTheTargetHoldsUnderTheNewNumber) {
  addDocument({.form = "F113309", .number = "under the old number", .correction = 1});
  addDocument({.form = "F113309", .number = "under the new number", .correction = 1});
  addDocument({.form = "FSewaTnhBgn", .number = "under the old number", .correction = 1});
  addDocument({.form = "FSewaTnhBgn", .number = "under the new number", .correction = 1});
  for (const char* table : {"DS_FORM_INDUK", "DAT_SSP_PPh22"})
    run(std::string("UPDATE ") + table + " SET NPWP = '013121660093000' WHERE NOBUKTI = 'under the new number'");
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "old", 1, 0, 1);
  addPayee("1", "20", "DN", 1);
  move();
  moveSelfPaid();
  EXPECT_THAT(column("SELECT NOBUKTI FROM DS_FORM_INDUK"), ElementsAre("under the old number"));
  EXPECT_THAT(column("SELECT NOBUKTI FROM DAT_SSP_PPh22"), ElementsAre("under the old number"));
  EXPECT_THAT(allRows("DS_FORM_LAMPIRAN"), IsEmpty()) << "items know no filer";
  EXPECT_THAT(allRows("D113210"), IsEmpty());
}

TEST_F(CorrectionMove, RunTwiceIsRunOnce) {
  fillWithWholeRates();
  move();
  moveSelfPaid();
  const std::vector<std::vector<Row>> once = everything();
  move();
  moveSelfPaid();
  EXPECT_EQ(everything(), once);
}

TEST_F(CorrectionMove, ToTheSameNumberIsACopy) {
  fillWithWholeRates();
  copy();
  copySelfPaid();
  const std::vector<std::vector<Row>> copied = everything();
  move(0, filer);
  moveSelfPaid(0, filer);
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(everything(), copied);
}

// The rate enters the statement as it reads: "17,5" is two values. A copy turns its comma into a point.
TEST_F(CorrectionMove, FailsOverARateWithDecimalsUnderADecimalComma) {
  addPayee("1", "20");
  addPayee("2", "17.5");
  addPayee("3", "15");
  move();
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Number of query values and destination fields")));
  EXPECT_THAT(column("SELECT NOBUKTI FROM D113210 WHERE KD_PEMBETULAN_KE = 1"), ElementsAre("1"));
}

TEST_F(CorrectionMove, TakesARateWithDecimalsUnderADecimalPoint) {
  addPayee("1", "17.5");
  const RegionalSettingsScope settings(RegionalSettings::unitedStates());
  move();
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(text("D113210", "TARIF", "KD_PEMBETULAN_KE = 1"), "17.5");
}

TEST_F(CorrectionMove, WithAnApostropheInTheNewNumberClearsNothing) {
  fillWithWholeRates();
  copy();
  const std::vector<std::vector<Row>> before = everything();
  move(0, "' OR '1' = '1");
  moveSelfPaid(0, "' OR '1' = '1");
  EXPECT_EQ(everything(), before);
  EXPECT_THAT(messages_.texts(), SizeIs(2));
}

}  // namespace
}  // namespace tarvola::test
