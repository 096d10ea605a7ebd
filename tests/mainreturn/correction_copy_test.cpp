// The copy of a return into its next correction.

#include <random>

#include "tarvola/runtime/regional_settings.h"
#include "tarvola/store/field_access.h"
#include "tests/mainreturn/copy_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

class CorrectionCopy : public CopyTest {};

TEST_F(CorrectionCopy, IsItsSourceRowByRow) {
  fill();
  copy();
  copySelfPaid();
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(rows(documents, 1), SizeIs(12));
  EXPECT_THAT(rows(listItems, 1), SizeIs(10));
  EXPECT_THAT(rows(payees, 1), SizeIs(2));
  EXPECT_THAT(rows(selfPaidForms, 1), SizeIs(6));
  EXPECT_THAT(rows(selfPaidItems, 1), SizeIs(6));
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems}) expectCopy(table);
}

TEST_F(CorrectionCopy, LeavesItsSourceAsItWas) {
  fill();
  std::vector<std::vector<Row>> before;
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems})
    before.push_back(rows(table, 0));
  copy();
  copySelfPaid();
  std::vector<std::vector<Row>> after;
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems})
    after.push_back(rows(table, 0));
  EXPECT_EQ(after, before);
}

TEST_F(CorrectionCopy, SaysItsOwnCorrectionInItsColumnAndInItsPackedText) {
  fill();
  copy();
  copySelfPaid();
  EXPECT_TRUE(packedText("F113204", 1).starts_with("013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;3;2009;1;0"));
  EXPECT_EQ(packedText("D113206", 1), "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;3;2009;1;0;0;0;0");
  EXPECT_EQ(packedText("DAlihTnhBgn", 1), "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;3;2009;1;0;0");
  CF113204 mainReturn;
  load(mainReturn, 1);
  EXPECT_EQ(number(mainReturn, "KD_PEMBETULAN_KE"), 1);
}

TEST_F(CorrectionCopy, OfAFreshMainFormHasAllPositionsOfTheNewerLayout) {
  makeReturn();
  EXPECT_EQ(std::ranges::count(packedText("F113204", 0), ';'), 87);
  copy();
  EXPECT_EQ(std::ranges::count(packedText("F113204", 1), ';'), 106);
}

TEST_F(CorrectionCopy, GoesOnFromAnyCorrectionToTheNext) {
  fill();
  for (std::int16_t correction = 0; correction < 3; ++correction) {
    copy(correction);
    copySelfPaid(correction);
  }
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems}) expectCopy(table, 2);
}

TEST_F(CorrectionCopy, RunTwiceIsRunOnce) {
  fill();
  copy();
  copySelfPaid();
  const std::vector<std::vector<Row>> once = everything();
  copy();
  copySelfPaid();
  EXPECT_EQ(everything(), once);
}

TEST_F(CorrectionCopy, ReplacesWhatTheTargetHeld) {
  fill();
  addDocument({.form = "F113309", .number = "000099/PPH4", .correction = 1});
  addItem("DS_FORM_LAMPIRAN", "D113206", "000099/PPH4", "old", 99, 0, 1);
  addPayee("000099/PPH4", "15", "DN", 1);
  addDocument({.form = "FSewaTnhBgn", .number = "NTPN 99", .correction = 1});
  addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "NTPN 99", "old", 99, 0, 1);
  copy();
  copySelfPaid();
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems}) expectCopy(table);
}

TEST_F(CorrectionCopy, OfAReturnWithoutRowsEmptiesTheTarget) {
  fill();
  copy();
  copySelfPaid();
  for (const char* table : {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "D113210", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22"})
    run("DELETE * FROM " + std::string(table) + " WHERE KD_PEMBETULAN_KE = 0");
  copy();
  copySelfPaid();
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems})
    EXPECT_THAT(allRows(table.name), IsEmpty()) << table.name;
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(CorrectionCopy, OfOneEmptyTableEmptiesThatTableAlone) {
  fill();
  copy();
  run("DELETE * FROM DS_FORM_LAMPIRAN WHERE KD_PEMBETULAN_KE = 0");
  copy();
  EXPECT_THAT(rows(listItems, 1), IsEmpty());
  expectCopy(documents);
  expectCopy(payees);
}

TEST_F(CorrectionCopy, LeavesEveryOtherReturnUntouched) {
  static constexpr CopiedTable tables[] = {documents, listItems, payees, selfPaidForms, selfPaidItems};
  for (const char* period :
       {"MS_PAJAK = 4", "TH_PAJAK = 2010", "KD_PEMBETULAN_KE = 2", "MS_PAJAK = 4, TH_PAJAK = 2010"}) {
    fill();
    for (const CopiedTable& table : tables)
      run("UPDATE " + std::string(table.name) + " SET " + period +
          " WHERE MS_PAJAK = 3 AND TH_PAJAK = 2009 AND KD_PEMBETULAN_KE = 0");
  }
  const std::vector<std::vector<Row>> before = everything();
  fill();
  copy();
  copySelfPaid();
  for (const CopiedTable& table : tables) {
    expectCopy(table);
    run("DELETE * FROM " + std::string(table.name) +
        " WHERE MS_PAJAK = 3 AND TH_PAJAK = 2009 AND KD_PEMBETULAN_KE <= 1");
  }
  EXPECT_EQ(everything(), before);
}

TEST_F(CorrectionCopy, TakesAndClearsOnlyDocumentsOfItsTaxKind) {
  makeReturn();
  addDocument({.form = "F113309", .number = "other kind"});
  addDocument({.form = "F113309", .number = "other kind there", .correction = 1});
  run("UPDATE DS_FORM_INDUK SET KD_JENIS_PAJAK = '114' WHERE NOBUKTI LIKE 'other%'");
  copy();
  EXPECT_THAT(column("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1 AND NOBUKTI <> '-'"),
              ElementsAre("other kind there"));
}

TEST_F(CorrectionCopy, TakesNoFormThatIsNotOfTheReturn) {
  run("INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,"
      "DAT_FORM) VALUES ('1','F113318','09',3,2009,0,'1','113','1')");
  addItem("DS_FORM_LAMPIRAN", "D113205", "1", "1");
  addItem("LAMPIRAN_SSP_PPh22", "D113202", "1", "1");
  copy();
  copySelfPaid();
  EXPECT_THAT(rows(documents, 1), IsEmpty());
  EXPECT_THAT(rows(listItems, 1), IsEmpty());
  EXPECT_THAT(rows(selfPaidItems, 1), IsEmpty());
}

TEST_F(CorrectionCopy, TakesTheDocumentsOfEveryFilerUnderTheirOwnColumn) {
  fill();
  run("UPDATE DS_FORM_INDUK SET NPWP = '099999999000000' WHERE KD_FORM = 'F113309'");
  copy();
  EXPECT_EQ(text("DS_FORM_INDUK", "NPWP", "KD_FORM = 'F113309' AND KD_PEMBETULAN_KE = 1"), "099999999000000");
}

TEST_F(CorrectionCopy, WritesTheFilersNumberIntoThePackedTextWhereItDiffers) {
  addDocument({.form = "F113309", .number = "1", .fields = {{"npwp", "099999999000000"}}});
  addDocument({.form = "F113319", .number = "2", .fields = {{"npwp", " 013121660091000 "}}});
  copy(0, "  013121660091000");
  const auto packedNumber = [this](const char* form) {
    return text("DS_FORM_INDUK", "DAT_FORM", "KD_FORM = '" + std::string(form) + "' AND KD_PEMBETULAN_KE = 1")
        .substr(0, 17);
  };
  EXPECT_EQ(packedNumber("F113309"), "  013121660091000") << "as it was given";
  EXPECT_EQ(packedNumber("F113319"), " 013121660091000 ") << "equal but for blanks, so it stays";
}

TEST_F(CorrectionCopy, KeepsWhatIsMissingMissing) {
  run("INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,"
      "DAT_FORM,FlagNPWP,Total_Bruto) VALUES (NULL,'D113206','08',3,2009,0,'-','113','013121660091000;a;b;3;2009;0;0;0;"
      "0;0',NULL,NULL)");
  run("INSERT INTO D113210 (MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE) VALUES (3,2009,0)");
  copy();
  EXPECT_THAT(messages_.texts(), IsEmpty());
  expectCopy(documents);
  expectCopy(payees);
}

TEST_F(CorrectionCopy, LeavesTheRowsThatTheObjectHoldsAlone) {
  fill();
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.aB33(5000);
  const RecordsetPtr header = mainReturn.rs4_2Hdr();
  const RecordsetPtr form = mainReturn.rs4_2Form();
  mainReturn.pCopyAllData(filer, "113", 3, 2009, 0);
  EXPECT_EQ(mainReturn.rs4_2Hdr(), header);
  EXPECT_EQ(mainReturn.rs4_2Form(), form);
  EXPECT_EQ(mainReturn.aB33(), 5000);
  mainReturn.pUpdate();
  load(mainReturn, 0);
  EXPECT_EQ(mainReturn.aB33(), 5000);
  load(mainReturn, 1);
  EXPECT_EQ(mainReturn.aB33(), 0) << "the copy was of the store, not of the object";
}

TEST_F(CorrectionCopy, BeyondTheLastCorrectionFailsBeforeAnythingIsCleared) {
  fill();
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems})
    run("UPDATE " + std::string(table.name) + " SET KD_PEMBETULAN_KE = 32767");
  const std::vector<std::vector<Row>> before = everything();
  copy(32767);
  copySelfPaid(32767);
  move(32767);
  moveSelfPaid(32767);
  CF113204().pCopySSP_42(4, 3, 2009, 32767);
  EXPECT_EQ(everything(), before);
  EXPECT_EQ(messages_.texts(), std::vector<std::string>(5, description(ErrorNumber::Overflow)));
}

// --- rows that the filter cannot tell apart --------------------------------------------------------------------

class IndistinctRows : public CopyTest {};

TEST_F(IndistinctRows, SlipsOfOneFormAndNumberBecomeTheFirstOfThemAsOftenAsThereAreSuch) {
  addDocument({.form = "F113309", .number = "1", .fields = {{"NMWPLT", "Budi"}}, .totals = {{"Total_Bruto", "1"}}});
  addDocument({.form = "F113309", .number = "1", .fields = {{"NMWPLT", "Siti"}}, .totals = {{"Total_Bruto", "2"}}});
  addDocument({.form = "F113319", .number = "1", .fields = {{"NMWPLT", "Andi"}}});
  copy();
  const std::vector<Row> copies = rows(documents, 1);
  ASSERT_THAT(copies, SizeIs(3));
  EXPECT_EQ(copies[0], copies[1]);
  EXPECT_EQ(copies[0], copyOf(rows(documents, 0)[0], documents, 1));
  EXPECT_EQ(copies[2], copyOf(rows(documents, 0)[2], documents, 1));
}

TEST_F(IndistinctRows, OnlyTheListOfExchangesIsToldApartByItsDocumentCode) {
  for (const char* form : {"D113207", "D113208"})
    for (const char* code : {"30", "31"})
      run("INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,"
          "KD_JENIS_PAJAK,DAT_FORM) VALUES ('013121660091000','" +
          std::string(form) + "','" + code + "',3,2009,0,'-','113','013121660091000;a;b;3;2009;0;" + code + "')");
  copy();
  const auto codes = [this](const char* form) {
    return column("SELECT JENIS_DOKUMEN FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = '" +
                  std::string(form) + "' ORDER BY JENIS_DOKUMEN");
  };
  EXPECT_THAT(codes("D113207"), ElementsAre("30", "31"));
  EXPECT_THAT(codes("D113208"), ElementsAre("30", "30"));
}

TEST_F(IndistinctRows, ListItemsOfOneSlipAndCollectionBecomeTheFirstOfThem) {
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "first", 1);
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "second", 2);
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "other collection", 3, 1);
  addItem("DS_FORM_LAMPIRAN", "D113206", "2", "other slip", 4);
  copy();
  EXPECT_THAT(column("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN WHERE KD_PEMBETULAN_KE = 1 ORDER BY SEQ"),
              ElementsAre("first", "first", "other collection", "other slip"));
}

TEST_F(IndistinctRows, ListItemsKeepTheirPackedTextWithTheCorrectionOfTheSourceInIt) {
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "3;2009;0;a;b;0");
  copy();
  EXPECT_EQ(text("DS_FORM_LAMPIRAN", "DAT_FORM", "KD_PEMBETULAN_KE = 1"), "3;2009;0;a;b;0");
}

TEST_F(IndistinctRows, SelfPaidFormsAreToldApartByTheirText) {
  addDocument({.form = "FSewaTnhBgn", .number = "NTPN", .fields = {{"Lokasi", "Bandung"}}});
  addDocument({.form = "FSewaTnhBgn", .number = "NTPN", .fields = {{"Lokasi", "Medan"}}});
  addDocument({.form = "FAlihTnhBgn", .number = "NTPN", .fields = {{"NTTP", "Medan"}}});
  copySelfPaid();
  expectCopy(selfPaidForms);
}

TEST_F(IndistinctRows, SelfPaidFormsOfOneTextWhateverItsCaseBecomeTheFirstOfThem) {
  addDocument({.form = "FSewaTnhBgn", .number = "NTPN", .fields = {{"Lokasi", "Bandung"}}});
  addDocument({.form = "FSewaTnhBgn", .number = "NTPN", .fields = {{"Lokasi", "BANDUNG"}}});
  copySelfPaid();
  const std::vector<Row> copies = rows(selfPaidForms, 1);
  ASSERT_THAT(copies, SizeIs(2));
  EXPECT_EQ(copies[0], copies[1]);
  EXPECT_EQ(copies[0], copyOf(rows(selfPaidForms, 0)[0], selfPaidForms, 1));
}

TEST_F(IndistinctRows, SelfPaidItemsAreToldApartByListNumberCollectionAndSequence) {
  addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "A", "1", 1);
  addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "A", "2", 2);
  addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "A", "3", 1, 1);
  addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "B", "4", 1);
  addItem("LAMPIRAN_SSP_PPh22", "DAlihTnhBgn", "A", "5", 1);
  run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('DAlihTnhBgn',3,2009,0,0,1.5,'A','6')");
  copySelfPaid();
  expectCopy(selfPaidItems);
  addItem("LAMPIRAN_SSP_PPh22", "DAlihTnhBgn", "A", "7", 1);
  copySelfPaid();
  EXPECT_THAT(column("SELECT DAT_FORM FROM LAMPIRAN_SSP_PPh22 WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'DAlihTnhBgn' "
                     "ORDER BY DAT_FORM"),
              ElementsAre("5", "5", "6"));
}

// --- payees and payments ---------------------------------------------------------------------------------------

TEST_F(CorrectionCopy, TakesARateWithDecimalsUnderADecimalComma) {
  addPayee("1", "17.5");
  copy();
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(text("D113210", "TARIF", "KD_PEMBETULAN_KE = 1"), "17,5");
  EXPECT_EQ(text("D113210", "TGL_POTONG", "KD_PEMBETULAN_KE = 1"), "09/03/2009");
}

TEST_F(CorrectionCopy, TakesPayeesThatAreAlikeAsOftenAsTheyStand) {
  addPayee("1", "20");
  addPayee("1", "20");
  copy();
  expectCopy(payees);
}

class PaymentCopy : public CopyTest {
 protected:
  void addPayment(const std::string& number, int article = 4, int correction = 0, const std::string& amount = "1500") {
    run("INSERT INTO DATSSP (TableKey,KodePasal,NPWP,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr,Catatan,"
        "NoSK) VALUES (7," +
        std::to_string(article) + ",'013121660091000',3,2009," + std::to_string(correction) +
        ",'411128','402',DateValue('10/04/2009'),'" + number + "'," + amount + ",'note','decree')");
  }
  std::vector<std::string> numbersOf(int correction) {
    return column("SELECT NTPP FROM DATSSP WHERE KdPmbtln = " + std::to_string(correction) + " ORDER BY NTPP");
  }
};

TEST_F(PaymentCopy, WritesTheColumnsOfThePaymentAndLeavesKeyAndNotesToTheStore) {
  addPayment("0102030405060708", 4, 0, "1500000.75");
  CF113204().pCopySSP_42(4, 3, 2009, 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
  ASSERT_THAT(allRows("DATSSP"), SizeIs(2));
  EXPECT_THAT(allRows("DATSSP")[1], ElementsAre("0", "4", "013121660091000", "3", "2009", "1", "411128", "402",
                                                "10/04/2009", "0102030405060708", "1500000,75", "(null)", "(null)"));
}

// A day passes through its text, which has the month in front here: 9 March must not come back as 3 September.
TEST_F(PaymentCopy, KeepsDayAndAmountUnderSettingsThatWriteThemInAnotherWay) {
  addPayment("1", 4, 0, "1500000.75");
  addPayee("1", "17.5");
  {
    const RegionalSettingsScope settings(RegionalSettings::unitedStates());
    copy();
    CF113204().pCopySSP_42(4, 3, 2009, 0);
  }
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(text("D113210", "TGL_POTONG", "KD_PEMBETULAN_KE = 1"), "09/03/2009");
  EXPECT_EQ(text("D113210", "PPH", "KD_PEMBETULAN_KE = 1"), "200000,5");
  EXPECT_EQ(text("DATSSP", "TglSSP", "KdPmbtln = 1"), "10/04/2009");
  EXPECT_EQ(text("DATSSP", "JmlByr", "KdPmbtln = 1"), "1500000,75");
}

TEST_F(PaymentCopy, ClearsNothingSoThatASecondRunDoublesTheRows) {
  addPayment("1");
  addPayment("2");
  addPayment("was there", 4, 1);
  CF113204().pCopySSP_42(4, 3, 2009, 0);
  EXPECT_THAT(numbersOf(1), ElementsAre("1", "2", "was there"));
  CF113204().pCopySSP_42(4, 3, 2009, 0);
  EXPECT_THAT(numbersOf(1), ElementsAre("1", "1", "2", "2", "was there"));
  EXPECT_THAT(numbersOf(0), ElementsAre("1", "2"));
}

TEST_F(PaymentCopy, TakesThePaymentsOfOneArticleMonthAndCorrection) {
  addPayment("mine");
  addPayment("article", 23);
  addPayment("month");
  run("UPDATE DATSSP SET MsPjk = 4 WHERE NTPP = 'month'");
  addPayment("year");
  run("UPDATE DATSSP SET ThPjk = 2010 WHERE NTPP = 'year'");
  addPayment("correction", 4, 2);
  CF113204().pCopySSP_42(4, 3, 2009, 0);
  EXPECT_THAT(numbersOf(1), ElementsAre("mine"));
  CF113204().pCopySSP_42(23, 3, 2009, 0);
  EXPECT_THAT(numbersOf(1), ElementsAre("article", "mine"));
}

// The date enters the copy as a day.
TEST_F(PaymentCopy, LosesTheTimeOfThePaymentDate) {
  addPayment("1");
  run("UPDATE DATSSP SET TglSSP = #4/10/2009 13:45:00#");
  ASSERT_EQ(text("DATSSP", "TglSSP", "KdPmbtln = 0"), "10/04/2009 13:45:00");
  CF113204().pCopySSP_42(4, 3, 2009, 0);
  EXPECT_EQ(text("DATSSP", "TglSSP", "KdPmbtln = 1"), "10/04/2009");
}

TEST_F(PaymentCopy, KeepsWhatIsMissingMissing) {
  run("INSERT INTO DATSSP (KodePasal,MsPjk,ThPjk,KdPmbtln) VALUES (4,3,2009,0)");
  CF113204().pCopySSP_42(4, 3, 2009, 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(allRows("DATSSP")[1], ElementsAre("0", "4", "(null)", "3", "2009", "1", "(null)", "(null)", "(null)",
                                                "(null)", "(null)", "(null)", "(null)"));
}

TEST_F(PaymentCopy, WithAnApostropheInTheNumberEndsTheRunThere) {
  addPayment("1");
  const RecordsetPtr rows = Recordset::create();
  rows->Open("SELECT * FROM DATSSP", connection_);
  rows->put_Collect("NTPP", "x','1'); --");
  rows->UpdateBatch();
  rows->Close();
  addPayment("2");
  CF113204().pCopySSP_42(4, 3, 2009, 0);
  EXPECT_THAT(numbersOf(1), IsEmpty());
  EXPECT_THAT(messages_.texts(), SizeIs(1));
}

// --- any return ------------------------------------------------------------------------------------------------

TEST_F(CorrectionCopy, OfAnyReturnIsItsSourceRowByRow) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  const std::vector<std::string> pieces = {"a",  " ",        "\"", "-",     "/",    "*",    "%",   "_",
                                           "#",  "[",        "]",  "?",     "\\",   "--",   "(",   ")",
                                           "\n", "\xC3\xA9", "=",  " AND ", " OR ", "NULL", "0,5", "1.5"};
  const auto anyText = [&] {
    std::string made;
    for (int i = upTo(12); i > 0; --i) made += pieces[static_cast<std::size_t>(upTo(23))];
    return made;
  };
  makeReturn();
  for (int slip = 0; slip < 60; ++slip) {
    static constexpr const char* forms[] = {"F113309", "F113310", "F113311", "F113312",
                                            "F113316", "F113319", "F113320", "F113321"};
    const std::string number = std::to_string(slip) + anyText();
    addDocument({.form = forms[upTo(7)],
                 .number = number,
                 .fields = {{"NMWPLT", anyText()}, {"ALMLT", anyText()}},
                 .totals = {{"Total_Bruto", std::to_string(upTo(1000000)) + "." + std::to_string(upTo(99))}}});
    addItem("DS_FORM_LAMPIRAN", "D113206", number, anyText(), slip, upTo(1));
    addPayee(number, std::to_string(upTo(30)));
    addDocument({.form = "FSewaTnhBgn", .number = number, .fields = {{"Lokasi", anyText()}}});
    addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", anyText(), anyText(), slip);
  }
  copy();
  copySelfPaid();
  ASSERT_THAT(messages_.texts(), IsEmpty());
  for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems}) expectCopy(table);
}

}  // namespace
}  // namespace tarvola::test
