// The road of one line into the store: which step comes first, what a repeated import does, what a failure leaves.

#include <gtest/gtest.h>

#include "tarvola/interchange/CImporBP.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

constexpr const char* missingOperator = "Syntax error (missing operator) in query expression";

class ImportRoad : public testing::Test {
 protected:
  void import(const Line& line) { import(line.array()); }
  void import(const Variant& columns) { CImporBP().pImporPPh4(columns, filer, 1, 2009, 0); }

  std::string count(const char* table) { return store.value(std::string("SELECT COUNT(*) AS N FROM ") + table); }
  /// Form rows and list rows of slips, then of self-paid forms.
  std::string counts() {
    return count("DS_FORM_INDUK") + " " + count("DS_FORM_LAMPIRAN") + " " + count("DAT_SSP_PPh22") + " " +
           count("LAMPIRAN_SSP_PPh22");
  }

  std::string filer = "013121660091000";
  InterchangeStore store;
};

TEST_F(ImportRoad, ASlipImportedTwiceHasOneFormRowAndOneListRow) {
  import(Line("F113319").with(11, "1000"));
  import(Line("F113319").with(11, "2000"));
  EXPECT_EQ(counts(), "1 1 0 0");
  EXPECT_EQ(store.value("SELECT Total_Bruto FROM DS_FORM_INDUK"), "1000");
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportRoad, ASelfPaidFormImportedTwiceHasTwoOfEach) {
  for (const char* form : {"FSewaTnhBgn", "FJasaKonstruksi", "FAlihTnhBgn"}) {
    import(Line(form, "NTPN 1"));
    import(Line(form, "NTPN 1"));
  }
  EXPECT_EQ(counts(), "0 0 6 6");
}

TEST_F(ImportRoad, ARepeatedImportFillsInTheListRowThatIsMissing) {
  import(Line("F113319"));
  store.run("DELETE * FROM DS_FORM_LAMPIRAN");
  import(Line("F113319"));
  EXPECT_EQ(counts(), "1 1 0 0");
}

TEST_F(ImportRoad, ARepeatedImportFillsInTheFormRowThatIsMissing) {
  import(Line("F113319"));
  store.run("DELETE * FROM DS_FORM_INDUK");
  import(Line("F113319"));
  EXPECT_EQ(counts(), "1 1 0 0");
}

TEST_F(ImportRoad, TheListRowIsLookedForByNumberAloneSoThatAnotherFormsSlipIsNotListed) {
  import(Line("F113319", "000001/PPH4"));
  import(Line("F113320", "000001/PPH4"));
  EXPECT_EQ(counts(), "2 1 0 0");
}

TEST_F(ImportRoad, TheFormRowIsLookedForByTheNumberOfTheArgumentWhileItCarriesThatOfProfile) {
  filer = "021832415000000";
  import(Line("F113319"));
  import(Line("F113319"));
  EXPECT_EQ(counts(), "2 1 0 0");
  EXPECT_THAT(store.rows("SELECT NPWP FROM DS_FORM_INDUK"), testing::Each("013121660091000"));
}

TEST_F(ImportRoad, ASlipOfAnotherPeriodOrFormIsAnotherSlip) {
  import(Line("F113319"));
  CImporBP().pImporPPh4(Line("F113319").array(), filer, 2, 2009, 0);
  CImporBP().pImporPPh4(Line("F113319").array(), filer, 1, 2010, 0);
  CImporBP().pImporPPh4(Line("F113319").array(), filer, 1, 2009, 1);
  EXPECT_EQ(counts(), "4 4 0 0");
  import(Line("F113321"));
  EXPECT_EQ(counts(), "5 4 0 0");
}

TEST_F(ImportRoad, NumbersAreComparedWithoutRegardToCase) {
  import(Line("F113319", "000001/PPH4"));
  import(Line("F113319", "000001/pph4"));
  EXPECT_EQ(counts(), "1 1 0 0");
}

TEST_F(ImportRoad, ThePeriodIsThatOfTheArgumentsNotOfTheLine) {
  import(Line("F113319").with(1, "7").with(2, "2031").with(3, "4"));
  EXPECT_EQ(store.value("SELECT MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE FROM DS_FORM_INDUK"), "1|2009|0");
}

TEST_F(ImportRoad, SeqIsOneMoreThanTheHighestOfTheListInThePeriod) {
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 0, 41, '000041/PPH4', '')");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 1, 90, '000090/PPH4', '')");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113207', 1, 2009, 0, 0, 91, '000091/PPH4', '')");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 2, 2009, 0, 0, 92, '000092/PPH4', '')");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 1, 0, 93, '000093/PPH4', '')");
  import(Line("F113319"));
  EXPECT_EQ(store.value("SELECT SEQ FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '000001/PPH4'"), "42");
}

TEST_F(ImportRoad, SeqIsNotTheNumberOfRows) {
  import(Line("F113319", "000001/PPH4"));
  import(Line("F113319", "000002/PPH4"));
  store.run("DELETE * FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '000001/PPH4'");
  import(Line("F113319", "000003/PPH4"));
  EXPECT_EQ(store.value("SELECT SEQ FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '000003/PPH4'"), "3");
}

TEST_F(ImportRoad, EachSelfPaidListCountsByItself) {
  import(Line("FSewaTnhBgn", "NTPN 1"));
  import(Line("FSewaTnhBgn", "NTPN 2"));
  import(Line("FAlihTnhBgn", "NTPN 3"));
  EXPECT_THAT(store.rows("SELECT KD_FORM, SEQ FROM LAMPIRAN_SSP_PPh22"),
              testing::UnorderedElementsAre("DSewaTnhBgn|1", "DSewaTnhBgn|2", "DAlihTnhBgn|1"));
}

TEST_F(ImportRoad, ACodeInLowerCaseIsPassedOverInSilence) {
  import(Line("f113319"));
  EXPECT_EQ(counts(), "0 0 0 0");
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportRoad, BlanksAroundTheCodeDoNotCount) {
  import(Line(" F113319 ").with(4, "086556479946000"));
  EXPECT_EQ(counts(), "1 1 0 0");
}

TEST_F(ImportRoad, TheFilerIsReadBeforeTheCodeIsLookedAt) {
  // Without a store the filer cannot be read, which shows even for a line that would be passed over.
  moduleState() = {};
  CImporBP withoutStore;
  store.messages().clear();
  withoutStore.pImporPPh4(Line("unknown").array(), filer, 1, 2009, 0);
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

TEST_F(ImportRoad, ASlipThatIsThereIsNotEvenRead) {
  import(Line("F113319"));
  import(Line("F113319").with(11, "abc"));
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportRoad, AnArrayWithoutColumnsShowsAMessage) {
  import(Variant(Variant::Array{}));
  EXPECT_EQ(store.messages().texts(), std::vector<std::string>{"Subscript out of range"});
}

TEST_F(ImportRoad, AnAmountThatIsNoNumberLosesTheLine) {
  for (const char* value : {"abc", "", "12a"}) {
    store.messages().clear();
    import(Line("F113319").with(11, value));
    EXPECT_EQ(store.messages().texts(), std::vector<std::string>{"Type mismatch"}) << value;
    EXPECT_EQ(counts(), "0 0 0 0") << value;
  }
}

TEST_F(ImportRoad, ARateThatIsNoNumberStaysTheTextThatItIs) {
  import(Line("F113319").with(12, "abc"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::HasSubstr(";0;abc;0"));
}

TEST_F(ImportRoad, AMissingColumnLosesTheLine) {
  import(arrayOf("F113319;1;2009;0;;;;000001/PPH4;08/01/2009;;0;1000"));
  EXPECT_EQ(store.messages().texts(), std::vector<std::string>{"Subscript out of range"});
  EXPECT_EQ(counts(), "0 0 0 0");
}

TEST_F(ImportRoad, ColumnsBehindTheFiftyFirstDoNotCount) {
  import(arrayOf(Line("F113319").text() + ";a reason;another"));
  EXPECT_EQ(counts(), "1 1 0 0");
}

TEST_F(ImportRoad, WhatIsNoArrayShowsAMessage) {
  import(Variant("F113319;1;2009;0"));
  EXPECT_EQ(store.messages().texts(), std::vector<std::string>{"Type mismatch"});
}

TEST_F(ImportRoad, AnApostropheInATextLosesTheLine) {
  import(Line("F113319").with(5, "Ma'ruf Amin"));
  ASSERT_EQ(store.messages().texts().size(), 1U);
  EXPECT_THAT(store.messages().texts().front(), testing::HasSubstr(missingOperator));
  EXPECT_EQ(store.messages().boxes().front().title, "");
  EXPECT_EQ(counts(), "0 0 0 0");
}

TEST_F(ImportRoad, AnApostropheInTheNumberFailsTheCheckFirstAndThenTheInsert) {
  import(Line("F113319", "00'1/PPH4"));
  EXPECT_THAT(store.messages().texts(),
              testing::ElementsAre(testing::HasSubstr(missingOperator), testing::HasSubstr(missingOperator)));
  EXPECT_EQ(counts(), "0 0 0 0");
}

TEST_F(ImportRoad, TheFormRowStaysWhenItsListRowFails) {
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 0, 2147483647, 'x', '')");
  import(Line("F113319"));
  EXPECT_EQ(store.messages().texts().size(), 1U);
  EXPECT_EQ(counts(), "1 1 0 0");
}

TEST_F(ImportRoad, TheListRowOfASelfPaidFormStaysWhenItsFormFails) {
  // Column 45, the total, enters the form alone.
  import(Line("FJasaKonstruksi", "NTPN 1").with(45, "abc"));
  EXPECT_EQ(store.messages().texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(counts(), "0 0 0 1");
}

TEST_F(ImportRoad, ASemicolonInAColumnIsRefusedBecauseItWouldShiftTheFields) {
  import(Line("F113319").with(5, "PT A; PT B"));
  ASSERT_EQ(store.messages().texts().size(), 1U);
  EXPECT_EQ(counts(), "0 0 0 0");
}

TEST_F(ImportRoad, HostileTextsStayTexts) {
  const std::string hostile = "\"; DELETE * FROM PROFILE --\\ % _ [x] \xEF\xBF\xBD | #1/1/2009#";
  Line line("F113319");
  line.with(5, hostile.substr(3)).with(6, "x' OR '1'='1");
  import(line);
  EXPECT_EQ(counts(), "0 0 0 0");
  store.messages().clear();
  import(Line("F113319").with(5, hostile.substr(3)));
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::HasSubstr(hostile.substr(3)));
  EXPECT_EQ(count("PROFILE"), "1");
}

TEST_F(ImportRoad, OtherValuesThanTextsCountByTheirText) {
  const Line line("F113319");
  Variant::Array columns(line.columns().begin(), line.columns().end());
  columns[11] = 1234.9;
  columns[1] = std::int16_t{1};
  import(Variant(columns));
  EXPECT_EQ(store.value("SELECT Total_Bruto FROM DS_FORM_INDUK"), "1234");
}

TEST_F(ImportRoad, TheFormRowIsWrittenBeforeTheListRowAndTheListRowBeforeInterestLines) {
  // A date that is none enters the interest lines alone as a date: everything in front of them stands.
  import(Line("F113310").with(8, "no date").with(11, "1000").with(12, "20").with(13, "200"));
  EXPECT_EQ(
      store.messages().texts(),
      std::vector<std::string>{"[Microsoft][ODBC Microsoft Access Driver] Data type mismatch in criteria expression."});
  EXPECT_EQ(counts(), "1 1 0 0");
  EXPECT_EQ(count("D113210"), "0");
}

}  // namespace
}  // namespace tarvola::test
