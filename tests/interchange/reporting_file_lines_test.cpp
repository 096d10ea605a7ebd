// The plain lines of the reporting file: which come, in which order, and what stands in them.

#include <gtest/gtest.h>

#include "tarvola/interchange/control_sums.h"
#include "tarvola/interchange/report_lines.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/store/DatFormConverter.h"
#include "tests/interchange/report_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReportedLines : public testing::Test {
 protected:
  /// The line behind profile and main return, of a return with that document alone.
  std::string lineOf(std::string_view form, std::string_view datForm) {
    store.run("DELETE * FROM DS_FORM_INDUK");
    store.run("DELETE * FROM DAT_SSP_PPh22");
    store.mainReturn();
    store.document(form, datForm);
    const std::vector<std::string> lines = store.reportedLines();
    EXPECT_EQ(lines.size(), 4U) << form;
    return lines.at(2);
  }
  std::vector<std::string> messagesOfReport() {
    store.messages().clear();
    store.writeReport();
    return store.messages().texts();
  }
  ReportStore store;
};

/// A form's place in the file and the elements of its control sum, counted from 0.
struct FormCase {
  const char* kdForm;
  const char* jenisDokumen;
  std::size_t fieldCount;
  std::vector<std::size_t> elements;
  const char* sum;
  bool losesLineBreaks;
};

/// The first element is 1, the next 10, then 100: the sum shows which were added.
const std::vector<FormCase>& formCases() {
  static const std::vector<FormCase> cases = {
      {"F113309", "02", 37, {12, 15, 18, 21, 24, 27}, "111111;", true},
      {"F113310", "03", 48, {21, 24, 27, 30, 33, 36, 39, 43}, "11111111;", true},
      {"F113311", "04", 19, {11, 14}, "11;", true},
      {"F113312", "05", 15, {}, "", true},
      {"F113316", "06", 30, {11, 14, 17, 21, 25}, "11111;", true},
      {"F113317", "07", 27, {}, "", true},
      {"F113319", "15", 14, {}, "", true},
      {"F113320", "16", 14, {}, "", true},
      {"F113321", "17", 14, {}, "", true},
      {"FSewaTnhBgn", "12", 12, {}, "", false},
      {"FJasaKonstruksi", "14", 17, {9, 11, 13}, "111;", true},
      {"FAlihTnhBgn", "19", 11, {}, "", false},
  };
  return cases;
}

std::string packedFor(const FormCase& form) {
  std::map<std::size_t, std::string> amounts;
  std::string amount = "1";
  for (const std::size_t element : form.elements) {
    amounts[element] = amount;
    amount += "0";
  }
  return packedText(form.fieldCount, amounts);
}

std::string expectedLine(const FormCase& form) {
  return std::string("113;") + form.jenisDokumen + ";" + form.kdForm + ";" + packedFor(form) + ";" + form.sum;
}

TEST_F(ReportedLines, AFormsLineIsItsPackedTextAndItsControlSum) {
  for (const FormCase& form : formCases()) EXPECT_EQ(lineOf(form.kdForm, packedFor(form)), expectedLine(form));
  EXPECT_THAT(store.messages().texts(), testing::Each(testing::HasSubstr("Berhasil Diekspor Ke File")));
}

TEST_F(ReportedLines, TheNamesOfTheSummedFieldsMeanTheseElements) {
  for (const FormCase& form : formCases()) {
    const interchange::ReportForm* found = interchange::findReportForm(form.kdForm);
    ASSERT_NE(found, nullptr) << form.kdForm;
    EXPECT_THAT(interchange::summedElements(*found), testing::ElementsAreArray(form.elements)) << form.kdForm;
    EXPECT_EQ(found->keepsLineBreaks, !form.losesLineBreaks) << form.kdForm;
  }
  // These and the closing list.
  EXPECT_EQ(interchange::reportForms().size(), formCases().size() + 1);
}

TEST_F(ReportedLines, LineBreaksAreRemovedFromSomeFormsAndKeptInOthers) {
  for (const FormCase& form : formCases()) {
    store.run("DELETE * FROM DS_FORM_INDUK");
    store.run("DELETE * FROM DAT_SSP_PPh22");
    store.mainReturn();
    std::string packed = packedFor(form);
    packed.replace(packed.find("f1;"), 3, "PT\r\nBaru\n;");
    store.document(form.kdForm, packed);
    std::string expected = expectedLine(form);
    expected.replace(expected.find("f1;"), 3, form.losesLineBreaks ? "PTBaru\n;" : "PT\r\nBaru\n;");
    std::string lines;
    for (const std::string& line : store.reportedLines()) lines += line + "\r\n";
    EXPECT_EQ(lines, profileLine + std::string("\r\n") + mainLine() + "\r\n" + expected + "\r\n\r\n") << form.kdForm;
  }
}

TEST_F(ReportedLines, BlanksAroundThePackedTextAreCut) {
  EXPECT_EQ(lineOf("F113319", "  " + packedText(14) + " "), "113;15;F113319;" + packedText(14) + ";");
}

TEST_F(ReportedLines, AControlSumIsWrittenInTheRegionalSettings) {
  EXPECT_EQ(lineOf("F113311", packedText(19, {{11, "1000,5"}, {14, "0,25"}})),
            "113;04;F113311;" + packedText(19, {{11, "1000,5"}, {14, "0,25"}}) + ";1000,75;");
  const RegionalSettingsScope point(RegionalSettings::unitedStates());
  EXPECT_EQ(lineOf("F113311", packedText(19, {{11, "1000.5"}, {14, "0.25"}})),
            "113;04;F113311;" + packedText(19, {{11, "1000.5"}, {14, "0.25"}}) + ";1000.75;");
}

TEST_F(ReportedLines, AControlSumBeyondFifteenDigitsHasAnExponent) {
  EXPECT_TRUE(lineOf("F113311", packedText(19, {{11, "999999999999999"}, {14, "1"}})).ends_with(";1E+15;"));
}

TEST_F(ReportedLines, AnAmountThatIsMissingOrNoNumberStopsTheReportInItsPlainStage) {
  struct Case {
    std::string packed;
    const char* message;
  };
  for (const Case& row :
       {Case{packedText(12, {{11, "1"}}), "Subscript out of range"}, Case{"", "Subscript out of range"},
        Case{packedText(19, {{11, "1"}, {14, "banyak"}}), "Type mismatch"},
        Case{packedText(19, {{11, "1"}, {14, ""}}), "Type mismatch"}}) {
    store.run("DELETE * FROM DS_FORM_INDUK");
    store.mainReturn();
    store.document("F113311", row.packed);
    EXPECT_THAT(messagesOfReport(), ElementsAre(row.message));
    EXPECT_EQ(store.messages().boxes().front().title, "");
    EXPECT_EQ(store.reportBytes(), profileLine + std::string("\r\n") + mainLine() + "\r\n");
  }
}

TEST_F(ReportedLines, DocumentsComeByTheirCodeAndSelfPaidFormsBehindAllSlips) {
  for (const char* form : {"FAlihTnhBgn", "FSewaTnhBgn", "D113210", "F113321", "F113319", "F113312"})
    store.document(form, std::string("packed ") + form);
  store.mainReturn();
  EXPECT_THAT(store.reportedLines(),
              ElementsAre(profileLine, mainLine(), "113;05;F113312;packed F113312;", "113;15;F113319;packed F113319;",
                          "113;17;F113321;packed F113321;", "113;12;FSewaTnhBgn;packed FSewaTnhBgn;",
                          "113;19;FAlihTnhBgn;packed FAlihTnhBgn;", "113;20;D113210;packed D113210;10/02/2009;"));
}

TEST_F(ReportedLines, OnlyDocumentsOfThePeriodAndOfTheReportCome) {
  store.mainReturn();
  store.mainReturn(1);
  store.document("F113319", "correction", 1);
  store.document("D113206", "list");
  store.document("DSewaTnhBgn", "list");
  store.document("F113320", "other month");
  store.run("UPDATE DS_FORM_INDUK SET MS_PAJAK = 2 WHERE KD_FORM = 'F113320'");
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), ""));
}

TEST_F(ReportedLines, DocumentsOfAnotherPeriodOrKindOfTaxDoNotCome) {
  store.mainReturn();
  for (const char* other : {"MS_PAJAK = 2", "TH_PAJAK = 2010", "KD_PEMBETULAN_KE = 1", "KD_JENIS_PAJAK = '999'"}) {
    store.document("F113319", "slip");
    store.document("FSewaTnhBgn", "form");
    store.run(std::string("UPDATE DS_FORM_INDUK SET KD_FORM = 'F113320', ") + other + " WHERE KD_FORM = 'F113319'");
    store.run(std::string("UPDATE DAT_SSP_PPh22 SET KD_FORM = 'FAlihTnhBgn', ") + other +
              " WHERE KD_FORM = 'FSewaTnhBgn'");
  }
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), ""));
}

TEST_F(ReportedLines, APeriodWithoutD113210EndsWithAnEmptyLine) {
  store.mainReturn();
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), ""));
}

TEST_F(ReportedLines, TheClosingListKeepsItsLineBreaks) {
  store.mainReturn();
  store.document("D113210", "PT\r\nBaru");
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), "113;20;D113210;PT", "Baru;10/02/2009;"));
}

TEST_F(ReportedLines, PaymentsAndCompensationsStandBeforeTheClosingList) {
  store.mainReturn();
  store.document("D113210", "list");
  store.payment(7, "0118");
  store.compensation(" PBK-1 ");
  EXPECT_THAT(
      store.reportedLines(),
      ElementsAre(profileLine, mainLine(), "113;77;1;2009;0;7;411128;401;10/02/2009;1500000,5;0102030405060708;",
                  "113;PBK4;1;2009;PBK-1;15/02/2009;250000;", "113;20;D113210;list;10/02/2009;"));
}

TEST_F(ReportedLines, WithNoRowInProfileTheFileStartsAtTheFirstFormLine) {
  store.mainReturn();
  store.run("DELETE * FROM PROFILE");
  EXPECT_THAT(store.reportedLines(), ElementsAre(mainLine(), ""));
}

TEST_F(ReportedLines, NullsOfTheProfileAreEmptyAndOnlyItsFirstRowIsWritten) {
  store.mainReturn();
  store.run("UPDATE PROFILE SET KOTA_WP = NULL, NKKPP = NULL");
  store.run("INSERT INTO PROFILE (NPWP) VALUES ('second')");
  std::string expected = profileLine;
  expected.replace(expected.find("Jakarta"), 7, "");
  expected.replace(expected.find("091;", expected.size() - 5), 3, "");
  EXPECT_EQ(store.reportedLines().front(), expected);
  EXPECT_EQ(store.value("SELECT KOTA_WP FROM PROFILE WHERE NPWP <> 'second'"), "NULL");
}

TEST_F(ReportedLines, PaymentsAreSelectedByTheirOwnCorrectionAndDocumentsByTheReturns) {
  store.mainReturn(0);
  store.mainReturn(2);
  store.document("F113319", "first");
  store.document("F113319", "second correction", 2);
  store.payment(1, "0118", 0);
  store.payment(2, "0118", 2);
  store.compensation("PBK-1");
  EXPECT_THAT(store.reportedLines({.correction = 2, .paymentsCorrection = " 0"}),
              ElementsAre(profileLine, mainLine(), "113;15;F113319;second correction;",
                          testing::StartsWith("113;77;1;2009;0;1;"), testing::StartsWith("113;PBK4;"), ""));
}

TEST_F(ReportedLines, APaymentWhoseAccountCodeIsUnknownKeepsItsOwn) {
  store.mainReturn();
  store.payment(1, " 9999 ");
  store.payment(2, "0171");
  store.run("UPDATE REF_SSP_NEW SET KDMAP_BARU = ' 41 ' WHERE KDMAP_LAMA = '0171'");
  const std::vector<std::string> lines = store.reportedLines();
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(split(lines[2], ';')[6], "9999");
  // The new code comes as the table has it.
  EXPECT_EQ(split(lines[3], ';')[6], " 41 ");
}

TEST_F(ReportedLines, PaymentsComeByDateAndOfThisArticleOnly) {
  store.mainReturn();
  store.payment(1, "0118", 0, "20/02/2009");
  store.payment(2, "0118", 0, "05/02/2009");
  store.payment(3, "0118", 0, "06/02/2009");
  store.run("UPDATE DATSSP SET KodePasal = 23 WHERE TableKey = 3");
  const std::vector<std::string> lines = store.reportedLines();
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(split(lines[2], ';')[5], "2");
  EXPECT_EQ(split(lines[3], ';')[5], "1");
}

TEST_F(ReportedLines, PaymentsOfAnotherMonthYearOrCorrectionDoNotCome) {
  store.mainReturn();
  for (const char* other : {"MsPjk = 2", "ThPjk = 2010", "KdPmbtln = 1"}) {
    store.payment(1, "0118");
    store.run(std::string("UPDATE DATSSP SET TableKey = 9, ") + other + " WHERE TableKey = 1");
  }
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), ""));
}

TEST_F(ReportedLines, CompensationsOfAnotherMonthYearOrArticleDoNotCome) {
  store.mainReturn();
  for (const char* other : {"MsPjkPBK = 2", "ThPjkPBK = 2010", "PASAL = 23"}) {
    store.compensation("PBK-1");
    store.run(std::string("UPDATE datPBKPPhMasa SET NoBuktiPBK = 'other', ") + other + " WHERE NoBuktiPBK = 'PBK-1'");
  }
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), ""));
}

TEST_F(ReportedLines, NullsOfACompensationAreEmptyAndLineBreaksAreRemoved) {
  store.mainReturn();
  store.compensation("PBK\r\n-1");
  store.run("UPDATE datPBKPPhMasa SET TanggalBerlaku = NULL, JumlahPBK = NULL");
  EXPECT_EQ(store.reportedLines().at(2), "113;PBK4;1;2009;PBK-1;;;");
}

TEST_F(ReportedLines, TheProfileKeepsItsLineBreaksAndBlanks) {
  store.mainReturn();
  store.run("UPDATE PROFILE SET KOTA_WP = ' Jakarta\r\nPusat '");
  const std::vector<std::string> lines = store.reportedLines();
  EXPECT_TRUE(lines.at(0).ends_with(";Jl. Merdeka No. 1; Jakarta")) << lines.at(0);
  EXPECT_TRUE(lines.at(1).starts_with("Pusat ;10110;")) << lines.at(1);
}

TEST_F(ReportedLines, NullsOfAPaymentAreEmptyAndLineBreaksAreRemoved) {
  store.mainReturn();
  store.payment(1, "9999");
  store.run("UPDATE DATSSP SET KdJnsStr = NULL, TglSSP = NULL, JmlByr = NULL, NTPP = 'A\r\nB'");
  EXPECT_EQ(store.reportedLines().at(2), "113;77;1;2009;0;1;9999;;;;AB;");
}

TEST_F(ReportedLines, APaymentThatFailsShowsAndTheReportGoesOnWithoutTheRest) {
  store.mainReturn();
  store.document("D113210", "list");
  store.payment(1, "0118", 0, "05/02/2009");
  store.payment(2, "it''s", 0, "06/02/2009");
  store.compensation("PBK-1");
  const std::vector<std::string> lines = store.reportedLines();
  EXPECT_THAT(lines, ElementsAre(profileLine, mainLine(), testing::StartsWith("113;77;1;2009;0;1;"),
                                 "113;20;D113210;list;10/02/2009;"));
  EXPECT_THAT(store.messages().texts(),
              ElementsAre(testing::StartsWith("Arguments are of the wrong type"), testing::HasSubstr("Berhasil")));
}

TEST_F(ReportedLines, ACorrectionOfPaymentsThatIsNoNumberCostsThePaymentLines) {
  store.mainReturn();
  store.payment(1, "0118");
  EXPECT_THAT(store.reportedLines({.paymentsCorrection = "x"}), ElementsAre(profileLine, mainLine(), ""));
  EXPECT_THAT(store.messages().texts(), ElementsAre("Type mismatch", testing::HasSubstr("Berhasil")));
}

TEST_F(ReportedLines, TheTableOfAccountCodesIsReadFirstOfAllAndAlsoForNoPayments) {
  store.mainReturn();
  store.compensation("PBK-1");
  dropTable(store.storePath(), "REF_SSP_NEW");
  EXPECT_THAT(store.reportedLines({.paymentsCorrection = "x"}), ElementsAre(profileLine, mainLine(), ""));
  EXPECT_THAT(store.messages().texts(), ElementsAre(testing::HasSubstr("REF_SSP_NEW"), testing::HasSubstr("Berhasil")));
}

TEST_F(ReportedLines, TheMainReturnShowsItsStatusAndTheAmountThatTheCallerNames) {
  store.mainReturn();
  EXPECT_EQ(store.reportedLines({.status = 255, .dJmlNKLB = 1234567.5}).at(1),
            "113;01;F113204;255;1234567,5;" + packedReturn() + ";");
}

TEST_F(ReportedLines, MarksThatWereNeverSetAreZeroAndOtherFieldsEmpty) {
  // 80 to 85 are CHKC1, c1, CHKC2, CHKC3, C3 and CHKC4; 79 is JMLPHSL, 86 flagKuasa, 87 TGL_TRV.
  std::map<std::size_t, std::string> unset;
  std::map<std::size_t, std::string> shown;
  for (std::size_t i = 79; i < 88; ++i) {
    unset[i] = "";
    shown[i] = i >= 80 && i <= 85 ? "0" : "";
  }
  store.document("F113204", packedReturn(unset));
  EXPECT_EQ(store.reportedLines().at(1), "113;01;F113204;1;0;" + packedReturn(shown) + ";");
}

TEST_F(ReportedLines, TheMainReturnKeepsBlanksAndLosesLineBreaksAndLaterFields) {
  store.document("F113204", packedReturn({{1, " PT\r\n Baru "}, {7, "0012"}}) + ";1;1;11/02/2009;5|6|7");
  EXPECT_EQ(store.reportedLines().at(1), "113;01;F113204;1;0;" + packedReturn({{1, " PT Baru "}, {7, "12"}}) + ";");
}

TEST_F(ReportedLines, AFormCodeInAnotherSpellingRepeatsTheLineBefore) {
  store.mainReturn();
  store.document("F113319", "first");
  store.document("F113320", "second", 0, "f113320");
  EXPECT_THAT(store.reportedLines(),
              ElementsAre(profileLine, mainLine(), "113;15;F113319;first;", "113;15;F113319;first;", ""));
}

TEST_F(ReportedLines, BehindTheClosingListItsLineIsTheOneThatIsRepeated) {
  store.mainReturn();
  store.document("F113319", "slip");
  store.document("D113210", "list");
  store.document("FSewaTnhBgn", "form", 0, "fsewatnhbgn");
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), "113;15;F113319;slip;",
                                                 "113;20;D113210;list;10/02/2009;", "113;20;D113210;list;10/02/2009;"));
}

TEST_F(ReportedLines, AReturnWithoutNamedFieldsLeavesTheLineBefore) {
  store.mainReturn();
  const RecordsetPtr all = store.run("SELECT * FROM DS_FORM_INDUK");
  const RecordsetPtr none = store.run("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'none'");
  interchange::ReportLines lines;
  lines.addForm({.jenisDokumen = "15", .kdForm = "F113319", .datForm = "before"});
  lines.addMainReturn({.jenisDokumen = "01", .kdForm = "F113204", .datForm = ""}, 1, 0,
                      DatFormConverter().ExpandDatForm("F113204", none));
  EXPECT_EQ(lines.line(), "113;15;F113319;before;");
  lines.addMainReturn({.jenisDokumen = "01", .kdForm = "F113204", .datForm = ""}, 1, 0,
                      DatFormConverter().ExpandDatForm("F113204", all));
  EXPECT_EQ(lines.line(), mainLine());
}

TEST_F(ReportedLines, TwoFilersReturnsBothShowTheFirstOnesFields) {
  store.mainReturn();
  store.document("F113204", packedReturn({{1, "PT Kedua"}}), 0, {}, "999999999999999");
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), mainLine(), ""));
}

TEST_F(ReportedLines, LettersBeyondAsciiComeBack) {
  store.mainReturn();
  store.document("F113319", "Café €;日本");
  EXPECT_EQ(store.reportedLines().at(2), "113;15;F113319;Café €;??;");
}

TEST_F(ReportedLines, NothingInTheStoreChanges) {
  store.mainReturn();
  store.document("D113210", "list");
  store.payment(1, "0118");
  const std::vector<std::string> before = store.dump();
  store.writeReport();
  EXPECT_EQ(store.dump(), before);
}

}  // namespace
}  // namespace tarvola::test
